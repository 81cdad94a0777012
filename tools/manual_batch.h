#pragma once
// The reference of the batch command, made from the command's own help when the manual is built,
// so that it always describes the command as built: every command and subcommand with its
// options, and the example that README.md gives for it.
#include <QString>
#include <QStringList>

namespace manual {

// HTML: a section per command, its help text as printed, and its example. `heading` is the tag
// of each command's heading ("h2", "h3").
QString batch_reference(const QString& command, const QString& readme, const QString& example_word,
                        const QString& heading);

// HTML: the table of every settings key and the value the program holds when the settings file
// does not give one, as the batch command prints them with `missing_file` as its settings file.
QString settings_defaults(const QString& command, const QString& missing_file,
                          const QStringList& headings);

}  // namespace manual
