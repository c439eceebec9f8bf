#include "ui/qt/store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>

namespace tallyfin::qt {

namespace {

constexpr qint64 largestFile = 16 * 1024 * 1024;

/// Sections and keys may be any text; in the file they stand in the letters that every INI reader agrees on.
QString encoded(std::string_view name) {
  const QByteArray bytes = QByteArray(name.data(), static_cast<qsizetype>(name.size()));
  return QString::fromLatin1(bytes.toPercentEncoding(QByteArray(), QByteArray("~.-"), '_'));
}

std::string decoded(const QString& name) { return QByteArray::fromPercentEncoding(name.toLatin1(), '_').toStdString(); }

QString entry(std::string_view section, std::string_view key) { return encoded(section) + '/' + encoded(key); }

/// A value with commas, written by hand without quotes, reads as a list.
std::string textOf(const QVariant& value) { return value.toStringList().join(", ").toStdString(); }

}  // namespace

Store::Store(const QString& path) : path_(path) {
  const QFileInfo file(path);
  if (file.isSymLink() && !file.exists()) {
    refusal_ = QStringLiteral("%1 is a link that leads nowhere.").arg(path);
  } else if (file.isDir()) {
    refusal_ = QStringLiteral("%1 is a folder.").arg(path);
  } else if (file.size() > largestFile) {
    refusal_ = QStringLiteral("%1 is too large to be a settings file.").arg(path);
  }
  if (!refusal_.isEmpty()) return;

  constexpr auto ownersOnly = QFile::ReadOwner | QFile::WriteOwner;
  if (file.exists() &&
      file.permissions() & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther)) {
    QFile::setPermissions(path, ownersOnly);
  }
  file_.emplace(path, QSettings::IniFormat);
  for (const QString& section : file_->childGroups()) {
    file_->beginGroup(section);
    for (const QString& key : file_->childKeys()) {
      known_.write(decoded(section), decoded(key), textOf(file_->value(key)));
    }
    file_->endGroup();
  }
}

std::optional<std::string> Store::read(std::string_view section, std::string_view key) const {
  return known_.read(section, key);
}

void Store::write(std::string_view section, std::string_view key, const std::string& text) {
  const auto before = known_.read(section, key);
  known_.write(section, key, text);
  if (!file_ || before == text) return;
  file_->setValue(entry(section, key), QString::fromStdString(text));
  save();
}

void Store::erase(std::string_view section, std::string_view key) {
  known_.erase(section, key);
  if (!file_) return;
  file_->remove(entry(section, key));
  save();
}

SettingsStore::Sections Store::all() const { return known_.all(); }

void Store::save() { file_->sync(); }

QString Store::trouble() const {
  if (!refusal_.isEmpty()) return refusal_;
  switch (file_->status()) {
    case QSettings::AccessError: return QStringLiteral("%1 can't be read or written.").arg(path_);
    case QSettings::FormatError: return QStringLiteral("%1 is damaged.").arg(path_);
    case QSettings::NoError: break;
  }
  return {};
}

QString Store::usualPath() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/Tallyfin99/Tallyfin99.ini");
}

}  // namespace tallyfin::qt
