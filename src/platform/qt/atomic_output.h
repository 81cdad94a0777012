#pragma once
// Pictures and PDFs written by Qt go to a buffer first and then to disk through a temporary file
// beside the target, as every other file of the program: a failure midway leaves the old file
// whole, and a symbolic link is kept.
#include <QIODevice>
#include <QString>
#include <functional>

namespace tellux {

// Writes what `fill` puts on the device to `path`. Returns the reason of a failure, empty when
// the file was written; "nothing to write" when `fill` fails.
QString write_through_buffer(const QString& path, const std::function<bool(QIODevice&)>& fill);

}  // namespace tellux
