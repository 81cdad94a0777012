#pragma once
// Help where the user is: the section of the manual of the active window or tab, and the key F1.
#include <functional>
#include <string>

class QTabWidget;
class QWidget;

namespace tellux {

// The manual's section of the window the user works in: the model editor, the start window, a
// small parameter window, else the current tab of `tabs`.
std::string active_help_topic(const QTabWidget& tabs);

// F1 anywhere in the program runs `open`.
void install_help_key(QWidget& window, const std::function<void()>& open);

}  // namespace tellux
