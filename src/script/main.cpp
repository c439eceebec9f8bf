#include <sys/stat.h>

#include <iostream>
#include <memory>
#include <string>

#include "script/session.h"
#include "ui/qt/store.h"

/// tallyfin99-script [STORE-FILE]: one command a line on standard input, one answer a line on standard output. With
/// STORE-FILE it works on the desktop program's store at that path, otherwise on one that ends with the process.

namespace {

std::unique_ptr<tallyfin::SettingsStore> storeAt(const char* path) {
  auto store = std::make_unique<tallyfin::qt::Store>(QString::fromLocal8Bit(path));
  if (const QString trouble = store->trouble(); !trouble.isEmpty()) {
    std::cerr << "tallyfin99-script: " << trouble.toLocal8Bit().toStdString() << '\n';
  }
  return store;
}

}  // namespace

int main(int argc, char** argv) {
  umask(S_IRWXG | S_IRWXO);  // whatever the program writes is the user's alone
  if (argc > 2) {
    std::cerr << "usage: tallyfin99-script [STORE-FILE]\n";
    return 2;
  }
  const auto store = argc == 2 ? storeAt(argv[1]) : std::make_unique<tallyfin::MemoryStore>();
  tallyfin::script::Session session(*store);
  std::string line;
  while (std::getline(std::cin, line)) {
    if (const auto answer = session.answer(line)) std::cout << *answer << '\n' << std::flush;
  }
  return 0;
}
