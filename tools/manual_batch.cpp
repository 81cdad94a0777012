#include "manual_batch.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QStringList>

namespace manual {

namespace {

QString help_of(const QString& command, QStringList arguments) {
  arguments << QStringLiteral("--help");
  QProcess process;
  process.start(command, arguments);
  if (!process.waitForFinished(10000)) return {};
  return QString::fromUtf8(process.readAllStandardOutput());
}

// The names listed under the help's "SUBCOMMANDS:".
QStringList subcommands(const QString& help) {
  QStringList names;
  bool inside = false;
  for (const QString& line : help.split(QLatin1Char('\n'))) {
    if (line.trimmed().startsWith(QStringLiteral("SUBCOMMANDS"), Qt::CaseInsensitive)) {
      inside = true;
    } else if (inside) {
      if (line.trimmed().isEmpty() || !line.startsWith(QLatin1Char(' '))) {
        if (!names.isEmpty()) break;
        continue;
      }
      const QString name = line.trimmed().section(QLatin1Char(' '), 0, 0);
      if (!name.isEmpty()) names << name;
    }
  }
  return names;
}

// The example of README.md's table of commands: "| `name` | what | `example` |", on the files a
// user has: the developers' test files are not installed, the samples are.
QString example_of(const QString& readme, const QString& name) {
  const QRegularExpression row(QStringLiteral(R"(^\|\s*`%1`\s*\|.*\|\s*`([^`]+)`\s*\|\s*$)")
                                   .arg(QRegularExpression::escape(name)),
                               QRegularExpression::MultilineOption);
  const auto m = row.match(readme);
  if (!m.hasMatch()) return {};
  static const std::pair<const char*, const char*> kSamples[] = {
      {"tests/data/profile/L1_0*.TX3 --title", "samples/line/L1_0*.TX3 --hscale 2500 --title"},
      {"tests/data/profile/L1_", "samples/line/L1_"},
      {"tests/data/survey/VES0*.TX3", "samples/line/L1_0*.TX3"},
      {"tests/data/report/long_sounding.TX3", "samples/four_layers.TX3"},
      {"tests/data/convert/wenner40.DAT", "samples/formats/res2dinv.DAT"},
      {"tests/data/survey/field_resistances.csv",
       "samples/formats/table_semicolon.csv --delimiter \";\" --decimal-comma"}};
  QString example = m.captured(1);
  for (const auto& [test_file, sample] : kSamples)
    example.replace(QLatin1String(test_file), QLatin1String(sample));
  return example;
}

QString pre(const QString& text) {
  return QStringLiteral("<pre>%1</pre>").arg(text.trimmed().toHtmlEscaped());
}

}  // namespace

QString batch_reference(const QString& command, const QString& readme_path,
                        const QString& example_word, const QString& heading) {
  QFile file(readme_path);
  const QString readme =
      file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
  const QString top = help_of(command, {});
  if (top.isEmpty()) return QStringLiteral("<p>(tellux-cli --help gave nothing)</p>");
  QString html = pre(top);
  for (const QString& name : subcommands(top)) {
    const QString help = help_of(command, {name});
    html += QStringLiteral("<%1><a name=\"cli-%2\">tellux-cli %2</a></%1>").arg(heading, name);
    html += pre(help);
    const QString example = example_of(readme, name);
    if (!example.isEmpty())
      html += QStringLiteral("<p><i>%1</i> <code>%2</code></p>")
                  .arg(example_word, example.toHtmlEscaped());
    for (const QString& sub : subcommands(help)) {
      html += QStringLiteral("<p><b>tellux-cli %1 %2</b></p>").arg(name, sub) +
              pre(help_of(command, {name, sub}));
      const QString sub_example = example_of(readme, name + QLatin1Char(' ') + sub);
      if (!sub_example.isEmpty())
        html += QStringLiteral("<p><i>%1</i> <code>%2</code></p>")
                    .arg(example_word, sub_example.toHtmlEscaped());
    }
  }
  return html;
}

QString settings_defaults(const QString& command, const QString& missing_file,
                          const QStringList& headings) {
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("TELLUX_INI"), missing_file);
  process.setProcessEnvironment(environment);
  process.start(command, {QStringLiteral("settings")});
  if (!process.waitForFinished(10000)) return {};
  const QJsonObject sections = QJsonDocument::fromJson(process.readAllStandardOutput()).object();
  QString html = QStringLiteral("<table border=\"1\" cellspacing=\"0\"><tr>");
  for (const QString& heading : headings) html += QStringLiteral("<th>%1</th>").arg(heading);
  html += QStringLiteral("</tr>");
  for (auto section = sections.begin(); section != sections.end(); ++section) {
    const QJsonObject keys = section.value().toObject();
    for (auto key = keys.begin(); key != keys.end(); ++key)
      html += QStringLiteral("<tr><td>%1</td><td>%2</td><td>%3</td></tr>")
                  .arg(section.key().toHtmlEscaped(), key.key().toHtmlEscaped(),
                       key.value().toString().toHtmlEscaped());
  }
  return html + QStringLiteral("</table>");
}

}  // namespace manual
