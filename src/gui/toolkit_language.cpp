#include "gui/toolkit_language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <memory>

namespace tellux {

QString toolkit_language(const LanguageFlags& flags) {
  // The order of the program's own tests: French, then Spanish; German has translations of its
  // own in the toolkit.
  if (flags.French) return QStringLiteral("fr");
  if (flags.Spanish) return QStringLiteral("es");
  if (flags.German) return QStringLiteral("de");
  return {};
}

bool follow_language(const LanguageFlags& flags) {
  static std::unique_ptr<QTranslator> installed;
  if (installed) {
    QCoreApplication::removeTranslator(installed.get());
    installed.reset();
  }
  const QString language = toolkit_language(flags);
  if (language.isEmpty()) return false;
  auto translator = std::make_unique<QTranslator>();
  if (!translator->load(QStringLiteral("qtbase_") + language,
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    return false;
  QCoreApplication::installTranslator(translator.get());
  installed = std::move(translator);
  return true;
}

}  // namespace tellux
