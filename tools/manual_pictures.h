#pragma once
// The pictures of a manual, taken from the program itself on the offscreen platform, switched to
// the manual's language, with the bundled samples open.
#include <QString>

namespace manual {

// Writes the pictures as PNG files into `folder`; `language` is the letter of the setting "Langue"
// ('E', 'F', 'S'). A window that this build of the program does not have gives no picture.
void take_pictures(const QString& source, const QString& folder, char language);

}  // namespace manual
