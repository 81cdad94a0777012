#pragma once
// The pictures of `ImageList1`, drawn in code, by their keys: "open", "save", "bilog",
// "computation", "Help", "Clip_Bd", "stop", "print" and "zoom".
#include <QIcon>
#include <QString>

namespace tellux {

QIcon toolbar_icon(const QString& key);

// The program's own picture: a sounding curve on log-log paper.
QIcon program_icon();

}  // namespace tellux
