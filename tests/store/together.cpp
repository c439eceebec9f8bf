#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <new>
#include <random>
#include <string>

#include "engine/failure.h"
#include "store/store.h"

/// store_together READS ROUNDS: many instances of the store at once, each of which lives for a statement or two.
///
/// In the first part four processes open a store, read a text that is always stored, sometimes save another text,
/// and close the store. In the second part two or four processes start at once without a store, and each saves a text.
/// The exit status is 1 where a stored text was read as missing, or where a successful save was lost.

namespace {

namespace fs = std::filesystem;
using tallyfin::FailedStatement;
using tallyfin::FileStore;

constexpr int most = 4;  ///< Processes at once.

/// Long enough for slow machines, so that a refusal has another reason.
const tallyfin::Patience patience{std::chrono::minutes(5), std::chrono::minutes(5)};

struct Shared {
  std::atomic<int> waiting = 0;
  std::atomic<int> missing = 0;  ///< Texts that are stored and were read as missing.
  std::atomic<int> refused = 0;  ///< Saves that failed.
};

/// Created before the first process starts, so that all share it.
Shared& shared =
    *new (::mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) Shared;

/// Runs a function in several processes and waits for them.
template <class Work>
void inProcesses(int count, const Work& work) {
  for (int who = 0; who < count; ++who) {
    if (::fork() == 0) {
      work(who);
      ::_exit(0);
    }
  }
  for (int who = 0; who < count; ++who) {
    int status = -1;
    if (::wait(&status) < 0 || status != 0) {
      std::cerr << "a process ended with " << status << '\n';
      std::exit(1);
    }
  }
}

void save(FileStore& store, const std::string& key, const std::string& text) {
  try {
    store.write("Settings", key, text);
  } catch (const FailedStatement&) {
    ++shared.refused;
  }
}

/// Two processes save, two only read. In pauses the last instance may close, which makes a checkpoint and removes
/// the log; a text of many pages makes that slow.
void readAndClose(const fs::path& path, int reads) {
  FileStore(path).write("User", "UName", "Pat");
  inProcesses(most, [&](int who) {
    std::minstd_rand chance(static_cast<unsigned>(who) + 1);
    for (int i = 0; i < reads / most; ++i) {
      ::usleep(static_cast<useconds_t>(chance() % 2000));
      FileStore store(path, patience);
      if (store.read("User", "UName") != "Pat") ++shared.missing;
      if (who % 2 == 0) save(store, "Hours" + std::to_string(who), std::string(1 + chance() % 60'000, 'x'));
    }
  });
}

void startTogether(const fs::path& path, int count) {
  shared.waiting = count;
  inProcesses(count, [&](int who) {
    --shared.waiting;
    while (shared.waiting > 0) {
    }
    FileStore store(path, patience);
    store.read("User", "DontShow");
    save(store, std::to_string(who), "1");
  });
  FileStore store(path);
  for (int who = 0; who < count; ++who) {
    if (store.read("Settings", std::to_string(who)) != "1") ++shared.missing;
  }
}

}  // namespace

int main(int argc, char** argv) {
  const int reads = argc > 1 ? std::atoi(argv[1]) : 10000;
  const int rounds = argc > 2 ? std::atoi(argv[2]) : 300;
  // In /dev/shm no flush takes time, so more operations overlap.
  const fs::path memory = "/dev/shm";
  std::string name = ((fs::exists(memory) ? memory : fs::temp_directory_path()) / "togetherXXXXXX").string();
  const fs::path folder = ::mkdtemp(name.data());
  readAndClose(folder / "store", reads);
  std::cout << reads << " readings, " << shared.missing << " of them missing, " << shared.refused << " saves refused\n";
  int bad = shared.missing + shared.refused;
  shared.missing = shared.refused = 0;
  for (int round = 0; round < rounds; ++round) {
    startTogether(folder / std::to_string(round) / "store", round % 2 == 0 ? 2 : most);
  }
  std::cout << rounds << " starts together, " << shared.missing << " saves missing, " << shared.refused
            << " of them refused\n";
  bad += shared.missing + shared.refused;
  fs::remove_all(folder);
  return bad == 0 ? 0 : 1;
}
