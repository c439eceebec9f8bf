#include "ui/qt/store.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QStandardPaths>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <thread>
#include <utility>

#include "ui/qt/initext.h"

namespace tallyfin::qt {

namespace {

constexpr std::size_t largestFile = 16'777'216;
constexpr mode_t ownersFile = S_IRUSR | S_IWUSR;
constexpr mode_t ownersFolder = S_IRWXU;

std::string folderOf(const std::string& path) {
  const auto slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

/// Makes the folder and those above it, as far as they are missing; says whether it stands.
bool makeFolder(const std::string& path) {
  if (::mkdir(path.c_str(), ownersFolder) == 0 || errno == EEXIST) return true;
  if (errno != ENOENT || folderOf(path) == path) return false;
  return makeFolder(folderOf(path)) && (::mkdir(path.c_str(), ownersFolder) == 0 || errno == EEXIST);
}

/// The file that a path leads to, through all links; the path itself where there is none.
std::string throughLinks(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), &std::free);
  return real ? std::string(real.get()) : path;
}

bool writeAll(int file, std::string_view content) {
  while (!content.empty()) {
    const ssize_t count = ::write(file, content.data(), content.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    content.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

/// Writes a new file of the owner's alone. Where that fails none is left, and errno says why.
bool writeNew(const std::string& path, std::string_view content) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, ownersFile);
  if (file < 0) return false;
  const bool complete = ::fchmod(file, ownersFile) == 0 && writeAll(file, content);
  int error = errno;
  const bool closed = ::close(file) == 0;
  if (complete && closed) return true;
  if (complete) error = errno;
  ::unlink(path.c_str());
  errno = error;
  return false;
}

bool same(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size &&
         a.st_mtim.tv_sec == b.st_mtim.tv_sec && a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

}  // namespace

/// An open file, closed, and with that unlocked, at the end of its life.
class Store::OpenFile {
 public:
  explicit OpenFile(int number) : number_(number) {}
  OpenFile(OpenFile&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  OpenFile& operator=(OpenFile&&) = delete;
  ~OpenFile() {
    if (number_ >= 0) ::close(number_);
  }
  int number() const { return number_; }

 private:
  int number_;
};

Store::Store(const QString& path) : path_(path.toStdString()) { open(); }

void Store::open() {
  struct stat entry {};
  if (::lstat(path_.c_str(), &entry) == 0 && S_ISLNK(entry.st_mode)) {
    if (::stat(path_.c_str(), &entry) != 0) return refuse("is a link that leads nowhere");
    path_ = throughLinks(path_);
  }
  if (::stat(path_.c_str(), &entry) != 0) {
    if (!makeFolder(folderOf(path_)) || !writableFolder()) fail("can't be made");
    return;
  }
  if (S_ISDIR(entry.st_mode)) return refuse("is a folder");
  if (!S_ISREG(entry.st_mode)) return refuse("is no file");
  if (static_cast<std::size_t>(entry.st_size) > largestFile) return refuse("is too large to be a settings file");

  const OpenFile file(::open(path_.c_str(), O_RDONLY | O_CLOEXEC));
  const auto content = contentOf(file);
  if (!content) return fail("can't be read");
  learn(*content);
  if (::faccessat(AT_FDCWD, path_.c_str(), W_OK, AT_EACCESS) != 0 || !writableFolder()) return fail("can't be written");
  save();  // nothing to save yet, but perhaps something to put in order
}

Store::~Store() {
  if (!written_) return;
  const OpenFile file(::open(path_.c_str(), O_RDONLY | O_CLOEXEC));
  if (file.number() >= 0) ::fdatasync(file.number());
}

std::optional<std::string> Store::read(std::string_view section, std::string_view key) const {
  return known_.read(section, key);
}

void Store::write(std::string_view section, std::string_view key, const std::string& text) {
  change(section, key, text);
}

void Store::erase(std::string_view section, std::string_view key) { change(section, key, std::nullopt); }

void Store::change(std::string_view section, std::string_view key, const std::optional<std::string>& text) {
  const bool known = known_.read(section, key) == text;
  if (known && unchangedOutside()) return;
  apply(section, key, text);
  if (refused_) return;
  unsaved_[{std::string(section), std::string(key)}] = text;
  save();
}

void Store::apply(std::string_view section, std::string_view key, const std::optional<std::string>& text) {
  if (text) {
    known_.write(section, key, *text);
  } else {
    known_.erase(section, key);
  }
}

/// Takes over what a file holds, under what this run has changed and couldn't save.
void Store::learn(std::string_view content) {
  known_ = MemoryStore{};
  for (const auto& [section, keys] : readIni(content).sections) {
    for (const auto& [key, text] : keys) known_.write(section, key, text);
  }
  for (const auto& [name, text] : unsaved_) apply(name.first, name.second, text);
  if (::stat(path_.c_str(), &seen_) != 0) seen_ = {};
}

/// Brings the file to what this run knows: takes it as it stands, changes the lines of the changed keys, and replaces
/// it. Where something fails the file stays as it was.
void Store::save() {
  failure_.clear();
  const auto file = openLocked();
  if (!file) return;
  ::unlink(newPath().c_str());  // left by a program that was killed
  const auto present = contentOf(*file);
  if (!present) return fail("can't be read");
  std::string content = readIni(*present).damaged && keptDamaged(*present) ? mendedIni(*present) : *present;
  for (const auto& [name, text] : unsaved_) {
    std::string edited = editedIni(content, name.first, name.second, text);
    if (edited.size() <= largestFile) {
      content = std::move(edited);
    } else {
      failure_ = path_ + " has no room for a value of that length.";
    }
  }
  if (content != *present) {
    if (!writeNew(newPath(), content)) return fail("can't be written");
    if (::rename(newPath().c_str(), path_.c_str()) != 0) {
      fail("can't be written");
      ::unlink(newPath().c_str());
      return;
    }
    written_ = true;
  }
  learn(content);
  unsaved_.clear();
}

/// The file that stands at the path, locked and the owner's alone. Another program may have put a new one there while
/// this one was waiting.
std::optional<Store::OpenFile> Store::openLocked() {
  using namespace std::chrono_literals;
  if (!makeFolder(folderOf(path_))) return fail("can't be made"), std::nullopt;
  const auto until = std::chrono::steady_clock::now() + (held_ ? 0s : 2s);  // waited for once, not at every save
  do {
    OpenFile file(::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, ownersFile));
    if (file.number() < 0) return fail("can't be written"), std::nullopt;
    // A file system that knows no locks is worked on without.
    if (::flock(file.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
      std::this_thread::sleep_for(2ms);
      continue;
    }
    struct stat opened {};
    struct stat standing {};
    if (::fstat(file.number(), &opened) == 0 && ::stat(path_.c_str(), &standing) == 0 &&
        opened.st_dev == standing.st_dev && opened.st_ino == standing.st_ino) {
      held_ = false;
      if ((opened.st_mode & ACCESSPERMS) != ownersFile) ::fchmod(file.number(), ownersFile);
      return file;
    }
  } while (std::chrono::steady_clock::now() < until);
  held_ = true;
  errno = EBUSY;
  return fail("is held by another program"), std::nullopt;
}

/// All that an open file holds; none if it can't be read.
std::optional<std::string> Store::contentOf(const OpenFile& file) {
  std::string content;
  std::array<char, 16384> part{};
  for (;;) {
    const ssize_t count = ::read(file.number(), part.data(), part.size());
    if (count == 0) return content;
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    content.append(part.data(), static_cast<std::size_t>(count));
    if (content.size() > largestFile) return errno = EFBIG, std::nullopt;
  }
}

/// Puts a damaged file's content beside it before anything of it is dropped; an earlier copy is never replaced.
bool Store::keptDamaged(const std::string& content) {
  const std::string copy = path_ + ".damaged";
  const bool kept = writeNew(copy, content);
  notice_ = path_ + (kept ? " was damaged; what it held is kept as " + copy + '.' : std::string(" is damaged."));
  return kept;
}

bool Store::unchangedOutside() const {
  struct stat now {};
  return refused_ || (::stat(path_.c_str(), &now) == 0 && same(now, seen_));
}

bool Store::writableFolder() const {
  return ::faccessat(AT_FDCWD, folderOf(path_).c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

std::string Store::newPath() const { return path_ + ".new"; }

void Store::refuse(const char* why) {
  refused_ = true;
  failure_ = path_ + ' ' + why + '.';
}

void Store::fail(const char* what) { failure_ = path_ + ' ' + what + " (" + std::strerror(errno) + ")."; }

QString Store::trouble() const { return QString::fromStdString(failure_.empty() ? notice_ : failure_); }

QString Store::usualPath() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/Tallyfin99/Tallyfin99.ini");
}

}  // namespace tallyfin::qt
