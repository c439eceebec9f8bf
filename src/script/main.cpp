#include <sys/stat.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <new>
#include <string>
#include <string_view>

#include "engine/printable.h"
#include "process/process.h"
#include "script/session.h"
#include "script/streams.h"
#include "store/store.h"

/// tallyfin99-script [STORE-FILE]: one command a line on standard input, one answer a line on standard output. With
/// STORE-FILE it uses a store in that file, like the desktop program; else a store in memory.

namespace {

using namespace tallyfin;
using namespace tallyfin::script;

constexpr const char* usage = "usage: tallyfin99-script [STORE-FILE]\n";

constexpr const char* noMemory = "! memory\n";

std::string help() {
  std::string text = usage;
  text +=
      "Drives the screens of Tallyfin 99: one command a line on standard input, one answer a line on standard\n"
      "output. STORE-FILE is the file of settings; without one they end with the process.\n"
      "\n"
      "  --help     show this and end\n"
      "  --version  show the version and end\n"
      "\n"
      "Commands, described in tallyfin99-script(1):";
  for (const std::string_view command : Session::commandNames()) (text += ' ') += command;
  return text + '\n';
}

std::unique_ptr<SettingsStore> storeAt(const std::string& name) {
  if (name.empty()) throw Trouble("the store's file has no name");
  std::error_code failed;
  const auto path = std::filesystem::absolute(name, failed);
  if (failed) throw Trouble(printable(name, longestPath) + ": " + failed.message());
  return std::make_unique<FileStore>(path);
}

/// The answer to a line. Without memory the whole command has failed; texts that it had stored stay stored.
std::optional<std::string> answerTo(Session& session, Lines::Reading reading, const std::string& line) {
  try {
    if (reading == Lines::Reading::tooLong) return noMemory;
    auto answer = session.answer(line);
    if (answer) *answer += '\n';
    return answer;
  } catch (const std::bad_alloc&) {
    return noMemory;
  }
}

void work(SettingsStore& store) {
  Session session(store);
  Lines lines;
  std::string line;
  while (true) {
    const Lines::Reading reading = lines.next(line);
    if (reading == Lines::Reading::end) return;
    if (const auto answer = answerTo(session, reading, line)) writeOut(*answer);
  }
}

int start(int argc, char** argv) {
  const std::string_view argument = argc == 2 ? argv[1] : "";
  if (argument == "--help") return writeOut(help()), 0;
  if (argument == "--version") return writeOut("tallyfin99-script " TALLYFIN_VERSION "\n"), 0;
  if (argc > 2 || argument.starts_with("--")) {
    std::fputs(usage, stderr);
    return 2;
  }
  const auto store = argc == 2 ? storeAt(argv[1]) : std::make_unique<MemoryStore>();
  work(*store);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  umask(S_IRWXG | S_IRWXO);       // files are accessible by the user only
  std::signal(SIGPIPE, SIG_IGN);  // a failed write reports the error
  std::signal(SIGXFSZ, SIG_IGN);
  hideMemory();
  if (!fillStandardStreams()) {
    std::fputs("tallyfin99-script: standard input or output is closed\n", stderr);
    return 2;
  }
  awaitEndings();
  int status = 2;
  try {
    status = start(argc, argv);
  } catch (const std::bad_alloc&) {
    std::fputs("tallyfin99-script: there is not enough memory\n", stderr);
  } catch (const Trouble& trouble) {
    for (const char* part : {"tallyfin99-script: ", trouble.what(), "\n"}) std::fputs(part, stderr);
  }
  if (endingSignal() != 0) endBySignal();
  return status;
}
