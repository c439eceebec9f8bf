#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace tallyfin::qt {

/// The words of an HTML text.
QString plainText(const QString& html);

/// One topic of a help file: from a first-level heading up to the next one.
struct HelpTopic {
  QString id;
  QString title;
  QString html;  ///< Including the heading.
};

/// A help file with its topics.
struct HelpFile {
  QString file;
  QString title;
  std::vector<HelpTopic> topics;

  const HelpTopic* find(const QString& id) const;
  static HelpFile read(const QString& file, const QString& html);
};

/// Finds the help files in the folders where the program keeps them and reads each once.
class HelpFiles {
 public:
  explicit HelpFiles(QStringList folders);

  /// None where the file is missing.
  const HelpFile* find(const QString& file);
  /// Reports a missing file and the folders that were searched.
  QString missing(const QString& file) const;

  static const QStringList files;
  /// The program's folder, then that of an installed package.
  static QStringList usualFolders();

 private:
  QStringList folders_;
  std::vector<HelpFile> read_;
};

}  // namespace tallyfin::qt
