#include "platform/qt/atomic_output.h"

#include <QBuffer>

#include "core/runtime/errors.h"
#include "core/runtime/token_file.h"

namespace tellux {

QString write_through_buffer(const QString& path, const std::function<bool(QIODevice&)>& fill) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  if (!fill(buffer)) return QStringLiteral("nothing to write");
  try {
    const QByteArray& bytes = buffer.data();
    rt::write_file_atomically(path.toStdString(),
                              std::string_view(bytes.constData(), bytes.size()));
  } catch (const rt::RuntimeError& e) {
    return QString::fromStdString(e.reason().empty() ? "cannot write" : e.reason());
  }
  return {};
}

}  // namespace tellux
