#include "gui/help_key.h"

#include <QApplication>
#include <QShortcut>
#include <QTabWidget>

#include "app/help.h"

namespace tellux {

std::string active_help_topic(const QTabWidget& tabs) {
  // The windows by their names; the main window by its tab.
  static const std::pair<const char*, const char*> windows[] = {{"model", "model-window"},
                                                                {"frmSplash", "start"},
                                                                {"Extraction", "extraction"},
                                                                {"R2DI_par", "res2dinv"},
                                                                {"manual", "introduction"}};
  // The widget with the focus and its parents first: the model editor may be docked.
  const QWidget* widget = QApplication::focusWidget();
  if (!widget) widget = QApplication::activeWindow();
  for (; widget; widget = widget->parentWidget())
    for (const auto& [name, topic] : windows)
      if (widget->objectName() == QLatin1String(name)) return topic;
  return help_topic_of_tab(tabs.currentIndex());
}

void install_help_key(QWidget& window, const std::function<void()>& open) {
  auto* key = new QShortcut(QKeySequence(Qt::Key_F1), &window);
  key->setContext(Qt::ApplicationShortcut);
  QObject::connect(key, &QShortcut::activated, &window, open);
}

}  // namespace tellux
