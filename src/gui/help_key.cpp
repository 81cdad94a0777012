#include "gui/help_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QShortcut>
#include <QTabWidget>

#include "app/help.h"

namespace tellux {

std::string active_help_topic(const QTabWidget& tabs) {
  // The windows by their names; the main window by its tab.
  static const std::pair<const char*, const char*> windows[] = {
      {"model", "model-window"},
      {"frmSplash", "start"},
      {"Extraction", "extraction"},
      {"R2DI_par", "res2dinv"},
      {"Equivalence", "equivalence-window"},
      {"TableImport", "import-window"},
      {"manual", "introduction"}};
  // The widget with the focus and its parents first: the model editor may be docked.
  const QWidget* widget = QApplication::focusWidget();
  if (!widget) widget = QApplication::activeWindow();
  for (; widget; widget = widget->parentWidget())
    for (const auto& [name, topic] : windows)
      if (widget->objectName() == QLatin1String(name)) return topic;
  return help_topic_of_tab(tabs.currentIndex());
}

namespace {

// F1 in a modal dialog (equivalence, table import, extraction) never reaches the main window's
// shortcuts, which the dialog blocks: the application's key events are watched instead.
class HelpKeyFilter : public QObject {
 public:
  HelpKeyFilter(QObject* parent, std::function<void()> open)
      : QObject(parent), open_(std::move(open)) {}

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress) {
      const auto* key = static_cast<QKeyEvent*>(event);
      if (key->key() == Qt::Key_F1 && QApplication::activeModalWidget() &&
          watched == QApplication::focusWidget()) {
        if (event->type() == QEvent::KeyPress) open_();
        return true;
      }
    }
    return false;
  }

 private:
  std::function<void()> open_;
};

}  // namespace

void install_help_key(QWidget& window, const std::function<void()>& open) {
  auto* key = new QShortcut(QKeySequence(Qt::Key_F1), &window);
  key->setContext(Qt::ApplicationShortcut);
  QObject::connect(key, &QShortcut::activated, &window, open);
  qApp->installEventFilter(new HelpKeyFilter(&window, open));
}

}  // namespace tellux
