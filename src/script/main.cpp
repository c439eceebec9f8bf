#include <sys/stat.h>

#include <iostream>
#include <memory>
#include <string>

#include "script/session.h"
#include "store/store.h"

/// tallyfin99-script [STORE-FILE]: one command a line on standard input, one answer a line on standard output. With
/// STORE-FILE it works on the desktop program's store at that path, otherwise on one that ends with the process.

int main(int argc, char** argv) {
  umask(S_IRWXG | S_IRWXO);  // whatever the program writes is the user's alone
  if (argc > 2) {
    std::cerr << "usage: tallyfin99-script [STORE-FILE]\n";
    return 2;
  }
  std::unique_ptr<tallyfin::SettingsStore> store = std::make_unique<tallyfin::MemoryStore>();
  if (argc == 2) store = std::make_unique<tallyfin::FileStore>(argv[1]);
  tallyfin::script::Session session(*store);
  std::string line;
  while (std::getline(std::cin, line)) {
    if (const auto answer = session.answer(line)) std::cout << *answer << '\n' << std::flush;
  }
  return 0;
}
