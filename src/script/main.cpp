#include <sys/stat.h>

#include <iostream>
#include <memory>
#include <string>
#include <string_view>

#include "script/session.h"
#include "store/store.h"

/// tallyfin99-script [STORE-FILE]: one command a line on standard input, one answer a line on standard output. With
/// STORE-FILE it works on the desktop program's store at that path, otherwise on one that ends with the process.

namespace {

constexpr const char* usage = "usage: tallyfin99-script [STORE-FILE]\n";

void help() {
  std::cout
      << usage
      << "Drives the screens of Tallyfin 99: one command a line on standard input, one answer a line on standard\n"
         "output. STORE-FILE is the file of settings; without one they end with the process.\n"
         "\n"
         "  --help     show this and end\n"
         "  --version  show the version and end\n"
         "\n"
         "Commands, told in tallyfin99-script(1):";
  for (const std::string_view command : tallyfin::script::Session::commandNames()) std::cout << ' ' << command;
  std::cout << '\n';
}

}  // namespace

int main(int argc, char** argv) {
  umask(S_IRWXG | S_IRWXO);  // whatever the program writes is the user's alone
  const std::string_view argument = argc == 2 ? argv[1] : "";
  if (argument == "--help") return help(), 0;
  if (argument == "--version") {
    std::cout << "tallyfin99-script " TALLYFIN_VERSION "\n";
    return 0;
  }
  if (argc > 2 || argument.starts_with("--")) {
    std::cerr << usage;
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
