// Builds the user's manuals, Manual/TELLUX6_US.PDF, TELLUX6_FR.PDF and TELLUX6_ES.PDF, each with
// its index of pages (.TOC), from the chapters in manual/<language>/, the pictures of the program
// itself switched to that language, and the batch command's own help.
//   tellux-make-manual SOURCE_DIR OUT_DIR TELLUX_CLI
// The pictures of each language are taken by a child run of this program,
//   tellux-make-manual --pictures SOURCE_DIR FOLDER LETTER
// so that a picture that crashes or hangs leaves only its figures out, never the build.
#include <QApplication>
#include <QDir>
#include <QProcess>
#include <cstdio>

#include "manual_batch.h"
#include "manual_document.h"
#include "manual_pictures.h"

namespace {

struct Language {
  const char* folder;
  char letter;  // of the setting "Langue"
  const char* pdf;
  const char* title;
  const char* subtitle;
  const char* contents;
  const char* example;
  const char* settings_headings;  // section, key, default
};

constexpr Language kLanguages[] = {
    {"en", 'E', "TELLUX6_US.PDF", "Tellux 6.4", "User's manual", "Contents",
     "Example:", "Section|Key|Default"},
    {"fr", 'F', "TELLUX6_FR.PDF", "Tellux 6.4", "Manuel de l'utilisateur", "Sommaire",
     "Exemple :", "Section|Clé|Valeur par défaut"},
    {"es", 'S', "TELLUX6_ES.PDF", "Tellux 6.4", "Manual del usuario", "Índice",
     "Ejemplo:", "Sección|Clave|Valor por defecto"},
};

// The pictures of one language in a child run; whatever it leaves is used, at most a minute.
void take_pictures_apart(const QString& program, const QString& source, const QString& folder,
                         char letter) {
  QProcess child;
  child.setProcessChannelMode(QProcess::ForwardedChannels);
  child.start(program, {QStringLiteral("--pictures"), source, folder, QString(QChar(letter))});
  if (!child.waitForFinished(60000)) {
    child.kill();
    child.waitForFinished(5000);
  }
  if (child.exitStatus() != QProcess::NormalExit || child.exitCode() != 0)
    std::fprintf(stderr, "tellux-make-manual: some pictures in %s are missing\n",
                 qPrintable(folder));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 5 && QByteArray(argv[1]) == "--pictures") {
    QApplication qt(argc, argv);
    manual::take_pictures(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]),
                          argv[4][0]);
    return 0;
  }
  if (argc != 4) {
    std::fprintf(stderr, "usage: tellux-make-manual SOURCE_DIR OUT_DIR TELLUX_CLI\n");
    return 2;
  }
  QApplication qt(argc, argv);
  const QString source = QString::fromLocal8Bit(argv[1]);
  const QString out = QString::fromLocal8Bit(argv[2]);
  const QString cli = QString::fromLocal8Bit(argv[3]);
  int failed = 0;
  for (const Language& language : kLanguages) {
    const QString pictures = out + "/pictures/" + language.folder;
    take_pictures_apart(QCoreApplication::applicationFilePath(), source, pictures, language.letter);
    manual::Book book;
    book.chapters = source + "/manual/" + language.folder;
    book.style = source + "/manual/style.css";
    book.pictures = pictures;
    book.samples = source + "/samples";
    book.title = QString::fromUtf8(language.title);
    book.subtitle = QString::fromUtf8(language.subtitle);
    book.contents = QString::fromUtf8(language.contents);
    book.inserts[QStringLiteral("batch")] = manual::batch_reference(
        cli, source + "/README.md", QString::fromUtf8(language.example), QStringLiteral("h3"));
    book.inserts[QStringLiteral("settings")] = manual::settings_defaults(
        cli, out + "/no-settings.ini", QString::fromUtf8(language.settings_headings).split('|'));
    QString error;
    const int pages = manual::write_book(book, out + "/" + language.pdf, error);
    if (pages == 0) {
      std::fprintf(stderr, "tellux-make-manual: %s: %s\n", language.pdf, qPrintable(error));
      ++failed;
    } else {
      std::printf("%s: %d pages\n", language.pdf, pages);
    }
  }
  return failed;
}
