#include <iostream>
#include <string>

#include "script/session.h"

/// tallyfin99-script [STORE-FILE]: one command a line on standard input, one answer a line on standard output.

int main(int /*argc*/, char** /*argv*/) {
  tallyfin::MemoryStore store;
  tallyfin::script::Session session(store);
  std::string line;
  while (std::getline(std::cin, line)) {
    if (const auto answer = session.answer(line)) std::cout << *answer << '\n' << std::flush;
  }
  return 0;
}
