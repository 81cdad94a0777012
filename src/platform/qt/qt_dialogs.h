#pragma once
// The program's dialogs on Qt: message boxes, the file dialogs, the input box and the colour
// dialog. Texts arrive in UTF-8 with CRLF line ends.
#include <QPointer>
#include <QString>
#include <QWidget>

#include "platform/dialogs.h"

namespace tellux {

// "Caption (*.TX3)|*.TX3|..." as Qt's filter list "Caption (*.TX3);;...".
QString qt_file_filter(const std::string& filter);

class QtDialogs : public Dialogs {
 public:
  // Dialogs are centred on `parent` (none: the screen).
  void set_parent(QWidget* parent) { parent_ = parent; }
  // Where the file dialogs start until the user has chosen a file.
  void set_start_dir(const QString& dir) { dir_ = dir; }

  Answer show_message(const std::string& text, Buttons buttons, Icon icon,
                      const std::string& title) override;
  std::optional<std::vector<std::string>> show_open_files(
      const FileDialogRequest& request) override;
  std::optional<std::string> show_save_file(const FileDialogRequest& request) override;
  std::optional<std::string> show_input(const std::string& prompt, const std::string& title,
                                        const std::string& initial) override;
  std::optional<int> show_colour(const std::string& title, int initial) override;

 private:
  QPointer<QWidget> parent_;
  QString dir_;
};

}  // namespace tellux
