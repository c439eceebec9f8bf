#include "ui/qt/store.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>
#include <QThread>
#include <algorithm>
#include <cerrno>
#include <cstring>

namespace tallyfin::qt {

namespace {

constexpr qint64 largestFile = qint64{16} * 1024 * 1024;

/// Sections and keys may be any text; in the file letters and digits stand as they are and every other byte as _XX. A
/// lone _ is the empty name. QSettings has a meaning of its own for General, however it is spelt.
QString encoded(std::string_view name) {
  if (name.empty()) return QStringLiteral("_");
  const QByteArray bytes(name.data(), static_cast<qsizetype>(name.size()));
  const bool general = bytes.compare("general", Qt::CaseInsensitive) == 0;
  return QString::fromLatin1(bytes.toPercentEncoding({}, general ? "~.-Gg" : "~.-", '_'));
}

/// None for a name that this program wouldn't have written: it is someone else's.
std::optional<std::string> decoded(const QString& text) {
  const std::string name =
      text == '_' ? std::string() : QByteArray::fromPercentEncoding(text.toLatin1(), '_').toStdString();
  if (encoded(name) != text) return std::nullopt;
  return name;
}

/// Text as QSettings gives it back unchanged. It drops some byte order marks and keeps no bytes that are no UTF-8: a
/// text with such goes as bytes.
QVariant valueOf(const std::string& text) {
  const QString characters = QString::fromStdString(text);
  if (characters.contains(QChar::ByteOrderMark) || characters.toStdString() != text) {
    return QByteArray::fromStdString(text);
  }
  return characters;
}

std::string textOf(const QVariant& value) {
  if (value.typeId() == QMetaType::QByteArray) return value.toByteArray().toStdString();
  return value.toStringList().join(',').toStdString();  // commas without quotes, written by hand, make a list
}

/// Whether QSettings can hold a name that it has read: it knows none with nothing before, between or after slashes,
/// though it reads them, and writes the section General in one spelling only.
bool lastingName(const QString& name) {
  const QStringList parts = name.split('/');
  const bool general = parts.size() > 1 && parts[0].compare(QStringLiteral("General"), Qt::CaseInsensitive) == 0;
  return !parts.contains(QString()) && (!general || parts[0] == QStringLiteral("General"));
}

bool lastingValue(const QVariant& value) {
  const QString text = value.toStringList().join(',');
  return text.isValidUtf16() && (!text.contains(QChar::ByteOrderMark) || value.typeId() == QMetaType::QByteArray);
}

/// Whether QSettings would write everything as it read it.
bool lasting(const QSettings& file) {
  const QStringList names = file.allKeys();
  return std::all_of(names.begin(), names.end(),
                     [&](const QString& name) { return lastingName(name) && lastingValue(file.value(name)); });
}

/// Drops the names that QSettings can't hold. It can't find them to remove them one by one.
void dropPassingNames(QSettings& file) {
  std::map<QString, QVariant> kept;
  const QStringList names = file.allKeys();
  for (const QString& name : names) {
    if (lastingName(name)) kept[name] = file.value(name);
  }
  if (kept.size() == static_cast<std::size_t>(names.size())) return;
  file.clear();
  for (const auto& [name, value] : kept) file.setValue(name, value);
}

QByteArray native(const QString& path) { return QFile::encodeName(path); }

std::optional<QByteArray> contentOf(const QString& path) {
  QFile file(path);
  if (!file.open(QFile::ReadOnly) || file.size() > largestFile) return std::nullopt;
  return file.readAll();
}

/// Writes a new file; where that fails none is left.
bool writeNew(const QString& path, const QByteArray& content) {
  QFile file(path);
  if (!file.open(QFile::WriteOnly | QFile::NewOnly)) return false;
  if (file.write(content) == content.size() && file.flush()) return true;
  file.remove();
  return false;
}

bool may(const QByteArray& path, int what) { return ::faccessat(AT_FDCWD, path, what, AT_EACCESS) == 0; }

/// While it lives, every file that is made is the user's alone.
auto ownersAlone() {
  return qScopeGuard([before = ::umask(S_IRWXG | S_IRWXO)] { ::umask(before); });
}

bool same(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size &&
         a.st_mtim.tv_sec == b.st_mtim.tv_sec && a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

}  // namespace

Store::Store(const QString& path) : path_(path) { open(); }

void Store::open() {
  if (const char* why = obstacle()) return refuse(why);
  if (!QFileInfo::exists(path_)) {
    const auto mask = ownersAlone();
    if (!QDir().mkpath(folder()) || !may(native(folder()), W_OK | X_OK)) fail("can't be made");
    return;
  }
  learn(QSettings(path_, QSettings::IniFormat));
  save();  // nothing to save yet, but perhaps something to put in order
}

std::optional<std::string> Store::read(std::string_view section, std::string_view key) const {
  return known_.read(section, key);
}

void Store::write(std::string_view section, std::string_view key, const std::string& text) {
  change(section, key, text);
}

void Store::erase(std::string_view section, std::string_view key) { change(section, key, std::nullopt); }

void Store::saveTogether() {
  putOff_ = false;
  if (!unsaved_.empty()) save();
}

void Store::change(std::string_view section, std::string_view key, const Text& text) {
  if (known_.read(section, key) == text && unsaved_.empty() && unchangedOutside()) return;
  apply(section, key, text);
  unsaved_[{std::string(section), std::string(key)}] = text;
  if (!putOff_) save();
}

void Store::apply(std::string_view section, std::string_view key, const Text& text) {
  if (text) {
    known_.write(section, key, *text);
  } else {
    known_.erase(section, key);
  }
}

/// Takes over what a file holds, under what this run has changed and couldn't save.
void Store::learn(const QSettings& file) {
  known_ = MemoryStore{};
  for (const QString& name : file.allKeys()) {
    const QStringList parts = name.split('/');
    if (parts.size() != 2) continue;
    const auto section = decoded(parts[0]);
    const auto key = decoded(parts[1]);
    if (section && key) known_.write(*section, *key, textOf(file.value(name)));
  }
  for (const auto& [name, text] : unsaved_) apply(name.first, name.second, text);
  if (::stat(native(path_), &seen_) != 0) seen_ = {};
}

/// Brings the file to what this run knows. Where something fails the file stays as it was.
void Store::save() {
  failure_.clear();
  if (const char* why = obstacle()) return refuse(why);
  const auto mask = ownersAlone();
  if (!QDir().mkpath(folder())) return fail("can't be made");
  const int opened = ::open(native(folder()), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (opened < 0) return fail("can't be written");
  const auto turn = qScopeGuard([opened] { ::close(opened); });
  if (!takenTurn(opened)) return fail("is held by another program");
  if (!writable() || !keptIfDamaged()) return;
  writeUnsaved();
}

/// Waits for this program's turn at the folder. QSettings locks by itself, but waits without end for a program that
/// doesn't go on, and half a minute for a lock file that a killed program has not yet filled.
bool Store::takenTurn(int folder) {
  using namespace std::chrono_literals;
  const QDeadlineTimer until(2s);
  for (;;) {
    // A file system that knows no locks is worked on without.
    const bool mine = ::flock(folder, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    if (mine && clearedAfterKilled()) return true;
    if (until.hasExpired()) return errno = EBUSY, false;
    // Shorter than the pause of a program that saves again and again.
    QThread::usleep(100);
  }
}

/// Removes QSettings' lock file and its new file where a killed program left them; false where the lock is held. A file
/// of the user's may be named like the new one (such as .backup): only what is younger than the lock goes.
bool Store::clearedAfterKilled() const {
  const QString lockPath = path_ + QStringLiteral(".lock");
  const int lock = ::open(native(lockPath), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
  if (lock < 0) return true;
  const auto closing = qScopeGuard([lock] { ::close(lock); });
  if (::flock(lock, LOCK_EX | LOCK_NB) != 0) return errno != EWOULDBLOCK;
  const QRegularExpression newFile(QRegularExpression::anchoredPattern(
      QRegularExpression::escape(QFileInfo(path_).fileName()) + QStringLiteral("\\.[A-Za-z]{6}")));
  for (const QFileInfo& left : QDir(folder()).entryInfoList(QDir::Files | QDir::Hidden | QDir::NoSymLinks)) {
    if (newFile.match(left.fileName()).hasMatch() && left.lastModified() >= QFileInfo(lockPath).lastModified()) {
      QFile::remove(left.filePath());
    }
  }
  QFile::remove(lockPath);
  return true;
}

/// Sees to it that the file stands there, the user's alone, and that QSettings can replace it.
bool Store::writable() {
  const QByteArray path = native(path_);
  const int made = ::open(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (made >= 0) {
    ::close(made);
  } else if (!may(path, R_OK)) {
    return fail("can't be read"), false;
  } else if (!may(path, W_OK) || !may(native(folder()), W_OK | X_OK)) {
    return fail("can't be written"), false;
  }
  struct stat file {};
  if (::stat(path, &file) == 0 && (file.st_mode & (S_IRWXG | S_IRWXO)) != 0) ::chmod(path, S_IRUSR | S_IWUSR);
  return true;
}

/// Puts a damaged file's content beside it before QSettings drops anything of it; no earlier copy is replaced. Says
/// whether the file may be written.
bool Store::keptIfDamaged() {
  // QSettings knows a changed file by its length and its millisecond: another program may have saved within the same.
  struct stat file {};
  if (::stat(native(path_), &file) == 0) {
    file.st_mtim.tv_nsec += 1'000'000;
    if (file.st_mtim.tv_nsec >= 1'000'000'000) ++file.st_mtim.tv_sec, file.st_mtim.tv_nsec -= 1'000'000'000;
    const struct timespec times[] = {file.st_atim, file.st_mtim};
    ::utimensat(AT_FDCWD, native(path_), times, 0);
  }
  const auto content = contentOf(path_);
  if (!content) return fail("can't be read"), false;
  const QSettings parsed(path_, QSettings::IniFormat);
  learn(parsed);
  if (parsed.status() != QSettings::FormatError && content->isValidUtf8() && lasting(parsed)) return true;
  for (int number = 1; number < 10; ++number) {
    const QString copy = path_ + QStringLiteral(".damaged") + (number == 1 ? QString() : QString::number(number));
    if (contentOf(copy) != content && !writeNew(copy, *content)) continue;
    notice_ = QStringLiteral("%1 was damaged; what it held is kept as %2.").arg(path_, copy);
    return true;
  }
  notice_ = path_ + QStringLiteral(" is damaged.");
  return refuse("is damaged, and what it holds can't be copied"), false;
}

void Store::writeUnsaved() {
  QSettings file(path_, QSettings::IniFormat);
  if (!unsaved_.empty()) dropPassingNames(file);
  qint64 length = QFileInfo(path_).size();
  for (const auto& [name, text] : unsaved_) {
    const QString entry = encoded(name.first) + '/' + encoded(name.second);
    // A byte takes four in the file at the most.
    if (text && length + 4 * static_cast<qint64>(text->size()) > largestFile) {
      refuse("has no room for a value of that length");
    } else if (text) {
      length += 4 * static_cast<qint64>(text->size());
      file.setValue(entry, valueOf(*text));
    } else {
      file.remove(entry);
    }
  }
  file.sync();
  if (file.status() != QSettings::NoError) return refuse("can't be written");
  learn(file);
  if (failure_.isEmpty()) unsaved_.clear();
}

bool Store::unchangedOutside() const {
  struct stat now {};
  if (::stat(native(path_), &now) != 0) now = {};
  return same(now, seen_);
}

QString Store::folder() const { return QFileInfo(path_).absolutePath(); }

/// Why the path can't be used at all; none if it can. A link is followed.
const char* Store::obstacle() {
  const QFileInfo entry(path_);
  if (entry.isSymLink() && !entry.exists()) return "is a link that leads nowhere";
  if (!entry.exists()) return nullptr;
  if (entry.isSymLink()) path_ = entry.canonicalFilePath();
  if (entry.isDir()) return "is a folder";
  if (!entry.isFile()) return "is no file";
  if (entry.size() > largestFile) return "is too large to be a settings file";
  return nullptr;
}

void Store::refuse(const char* why) { failure_ = path_ + ' ' + why + '.'; }

void Store::fail(const char* what) {
  failure_ = QStringLiteral("%1 %2 (%3).").arg(path_, QString(what), QString::fromLocal8Bit(std::strerror(errno)));
}

QString Store::usualPath() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/Tallyfin99/Tallyfin99.ini");
}

}  // namespace tallyfin::qt
