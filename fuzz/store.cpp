#include "store/store.h"

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

#include "engine/failure.h"

/// Opens the store on a file of any bytes. If it is a store, a save succeeds, the other texts don't change, and the
/// next start reads them. If it isn't, no byte changes, and there is no file beside it.

using namespace tallyfin;

namespace {

namespace fs = std::filesystem;

/// A folder in memory.
fs::path folder() {
  static const fs::path made = [] {
    const char* place = std::getenv("TMPDIR");
    std::string name = std::string(place == nullptr ? "/dev/shm" : place) + "/storeXXXXXX";
    return fs::path(::mkdtemp(name.data()));
  }();
  return made;
}

std::string bytesOf(const fs::path& path) {
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}

/// False where the save is refused.
bool saved(FileStore& store, const std::string& text) {
  try {
    store.write("Settings", "IncAmt", text);
    return true;
  } catch (const FailedStatement&) {
    return false;
  }
}

void demand(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const fs::path path = folder() / "Tallyfin99.sqlite";
  std::string bytes(reinterpret_cast<const char*>(data), size);
  const std::string text = bytes.substr(0, 20);
  // The length of a database is a whole number of pages. With an odd last byte the length isn't changed.
  if (bytes.empty() || bytes.back() % 2 == 0) bytes.resize((size + 4095) / 4096 * 4096);
  std::ofstream(path, std::ios::binary) << bytes;

  SettingsStore::Sections wanted;
  bool kept = false;
  {
    FileStore store(path);
    wanted = store.all();
    kept = saved(store, text);
    if (kept) wanted["Settings"]["IncAmt"] = text;
    demand(store.all() == wanted);
  }
  demand(std::distance(fs::directory_iterator(folder()), {}) == 1);
  if (kept) demand(FileStore(path).all() == wanted);
  if (!kept) demand(bytesOf(path) == bytes);
  fs::remove(path);
  return 0;
}
