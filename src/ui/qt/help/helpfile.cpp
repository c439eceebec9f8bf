#include "ui/qt/help/helpfile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTextDocumentFragment>
#include <algorithm>

namespace tallyfin::qt {

QString plainText(const QString& html) { return QTextDocumentFragment::fromHtml(html).toPlainText(); }

const HelpTopic* HelpFile::find(const QString& id) const {
  const auto found = std::find_if(topics.begin(), topics.end(), [&](const HelpTopic& topic) { return topic.id == id; });
  return found == topics.end() ? nullptr : &*found;
}

HelpFile HelpFile::read(const QString& file, const QString& html) {
  static const QRegularExpression titleOfFile(QStringLiteral("<title>(.*?)</title>"));
  static const QRegularExpression heading(QStringLiteral("<h1 id=\"([^\"]+)\">(.*?)</h1>"));
  HelpFile help{file, plainText(titleOfFile.match(html).captured(1)), {}};
  const qsizetype end = html.contains(QLatin1String("</body>")) ? html.indexOf(QLatin1String("</body>")) : html.size();
  std::vector<QRegularExpressionMatch> headings;
  for (auto next = heading.globalMatch(html); next.hasNext();) headings.push_back(next.next());
  for (std::size_t i = 0; i < headings.size(); ++i) {
    const qsizetype from = headings[i].capturedStart();
    const qsizetype to = i + 1 < headings.size() ? headings[i + 1].capturedStart() : end;
    help.topics.push_back({headings[i].captured(1), plainText(headings[i].captured(2)), html.mid(from, to - from)});
  }
  return help;
}

const QStringList HelpFiles::files{QStringLiteral("Tallyfin.hlp"), QStringLiteral("W4.hlp")};

QStringList HelpFiles::usualFolders() {
  const QString programs = QCoreApplication::applicationDirPath();
  // mutation: "/../share/tallyfin99/help" -> *: tests/installation looks there
  return {programs, QDir::cleanPath(programs + QStringLiteral("/../share/tallyfin99/help"))};
}

HelpFiles::HelpFiles(QStringList folders) : folders_(std::move(folders)) { read_.reserve(files.size()); }

const HelpFile* HelpFiles::find(const QString& file) {
  for (const HelpFile& known : read_) {
    if (known.file == file) return &known;
  }
  if (!files.contains(file)) return nullptr;
  for (const QString& folder : folders_) {
    QFile source(QDir(folder).filePath(file));
    if (!source.open(QIODevice::ReadOnly)) continue;
    HelpFile read = HelpFile::read(file, QString::fromUtf8(source.readAll()));
    if (!read.topics.empty()) return &read_.emplace_back(std::move(read));
  }
  return nullptr;
}

QString HelpFiles::missing(const QString& file) const {
  return QStringLiteral("The help file %1 can't be found in %2.").arg(file, folders_.join(QStringLiteral(" or ")));
}

}  // namespace tallyfin::qt
