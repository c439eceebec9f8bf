#include "store/store.h"

#include "engine/failure.h"
#include "store/database.h"
#include "store/files.h"

namespace tallyfin {

namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

constexpr milliseconds patienceAtFirst{5000};
constexpr milliseconds patienceLater{500};

}  // namespace

FileStore::FileStore(const fs::path& path) : FileStore(path, Patience(patienceAtFirst, patienceLater)) {}

FileStore::FileStore(const fs::path& path, const Patience& patience) : path_(fs::absolute(path)), patience_(patience) {}

FileStore::~FileStore() = default;

std::optional<std::string> FileStore::read(std::string_view section, std::string_view key) const {
  const auto database = open();
  if (!database) return std::nullopt;
  return database->get(section, key);
}

void FileStore::write(std::string_view section, std::string_view key, const std::string& text) {
  makeFile(path_);
  const auto database = open(Opening::making);
  if (!database) throw FailedStatement{};
  database->put(section, key, text);
}

void FileStore::erase(std::string_view section, std::string_view key) {
  if (const auto database = open()) database->erase(section, key);
}

SettingsStore::Sections FileStore::all() const {
  Sections sections;
  unlessItFails([&] {
    if (const auto database = open()) sections = database->all();
  });
  return sections;
}

void FileStore::beginAct() {
  SettingsStore::beginAct();
  patience_.renew();
}

/// The open store; none where there is no file, or a file without tables that must not become a store. Fails where the
/// file isn't a store or can't be opened.
std::shared_ptr<Database> FileStore::open(Opening opening) const {
  if (!acting()) patience_.renew();
  if (database_ && database_->stillInPlace()) return database_;
  database_.reset();
  std::error_code failed;
  const fs::path path = fs::canonical(path_, failed);
  if (failed == std::errc::no_such_file_or_directory || failed == std::errc::not_a_directory) return nullptr;
  if (!fs::is_regular_file(path, failed) || !onlyFilesBeside(path)) throw FailedStatement{};
  auto database = opened(path, opening);
  if (database && database->access == Database::Access::live) {
    database_ = database;
    patience_.settle();
  }
  return database;
}

std::shared_ptr<Database> FileStore::opened(const fs::path& path, Opening opening) const {
  using Form = Database::Form;
  using Access = Database::Access;
  // Without the lock the snapshot could read the file during another program's checkpoint.
  auto lock = std::make_unique<ReaderLock>(path, patience_);
  if (!lock->held() || !mayBeDatabase(path)) throw FailedStatement{};
  // The snapshot comes first, because opening the live view creates files beside any database.
  auto snapshot = std::make_shared<Database>(path, Access::snapshot, patience_);
  const bool whole = !changeUnderWay(path);
  const bool making = opening == Opening::making;
  if (whole && snapshot->form == Form::none) throw FailedStatement{};
  if (whole && snapshot->form == Form::empty && !making) return nullptr;
  if (whole || snapshot->form == Form::store) takeFromOthers(path);

  if (!whole) lock.reset();  // rolling back a change needs a file without readers
  auto live = std::make_shared<Database>(path, Access::live, patience_);
  if (live->form == Form::empty && !making) return nullptr;
  if (live->form == Form::none && whole && !making) {
    // In a read-only folder, or on a read-only disk, only the snapshot can be read.
    live = std::move(snapshot);
    live->keep(std::move(lock));
  }
  lock.reset();
  if (live->form == Form::empty) live->make();
  if (live->form != Form::store || !live->prepare()) throw FailedStatement{};
  return live;
}

}  // namespace tallyfin
