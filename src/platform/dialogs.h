#pragma once
// What the logic asks of the user: message boxes, questions, file, input and colour dialogs.
// Cancel is a distinct answer (an empty optional); each caller turns it into the error or the
// silent end its routine asks for.
#include <optional>
#include <string>
#include <vector>

namespace tellux {

enum class Icon { None, Critical, Question, Exclamation, Information };
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Answer { Ok, Cancel, Yes, No };

struct FileDialogRequest {
  std::string filter;  // "Caption (*.EXT)|*.EXT|..." pairs
  std::string title;
  std::string proposed;  // the proposed file name or path
  bool overwrite_prompt = false;
  bool multiple = false;
};

class Dialogs {
 public:
  virtual ~Dialogs() = default;
  Answer message(const std::string& text, Buttons buttons, Icon icon, const std::string& title) {
    last_told_.clear();
    return show_message(text, buttons, icon, title);
  }
  // Full paths of the chosen files; empty optional on Cancel.
  std::optional<std::vector<std::string>> open_files(const FileDialogRequest& request) {
    last_told_.clear();
    return show_open_files(request);
  }
  std::optional<std::string> save_file(const FileDialogRequest& request) {
    last_told_.clear();
    return show_save_file(request);
  }
  std::optional<std::string> input(const std::string& prompt, const std::string& title,
                                   const std::string& initial) {
    last_told_.clear();
    return show_input(prompt, title, initial);
  }
  std::optional<int> colour(const std::string& title, int initial) {
    last_told_.clear();
    return show_colour(title, initial);
  }

  // Conveniences over the calls above.
  void tell(const std::string& text, Icon icon, const std::string& title) {
    if (once_ && text == last_told_) return;
    show_message(text, Buttons::Ok, icon, title);
    last_told_ = text;
  }
  std::optional<std::string> open_file(const FileDialogRequest& request) {
    auto files = open_files(request);
    if (!files || files->empty()) return std::nullopt;
    return files->front();
  }

 protected:
  virtual Answer show_message(const std::string& text, Buttons buttons, Icon icon,
                              const std::string& title) = 0;
  virtual std::optional<std::vector<std::string>> show_open_files(
      const FileDialogRequest& request) = 0;
  virtual std::optional<std::string> show_save_file(const FileDialogRequest& request) = 0;
  virtual std::optional<std::string> show_input(const std::string& prompt, const std::string& title,
                                                const std::string& initial) = 0;
  virtual std::optional<int> show_colour(const std::string& title, int initial) = 0;

 private:
  friend class TellEachOnce;
  bool once_ = false;
  std::string last_told_;  // the box just told; any other dialog in between clears it
};

// While it lives, a box the same as the one just told is not told again: a run over many
// soundings tells a fault they share once, not once for each of them.
class TellEachOnce {
 public:
  explicit TellEachOnce(Dialogs& dialogs) : dialogs_(dialogs), was_(dialogs.once_) {
    dialogs_.once_ = true;
    dialogs_.last_told_.clear();
  }
  ~TellEachOnce() { dialogs_.once_ = was_; }
  TellEachOnce(const TellEachOnce&) = delete;
  TellEachOnce& operator=(const TellEachOnce&) = delete;

 private:
  Dialogs& dialogs_;
  bool was_;
};

}  // namespace tellux
