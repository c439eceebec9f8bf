#include <csignal>
#include <cstdio>
#include <exception>
#include <new>
#include <string>

#include "batch/commandline.h"
#include "batch/run.h"
#include "batch/streams.h"
#include "process/process.h"

/// tallyfin99-batch [OPTION...] [FILE]: one paycheck a row, CSV in, CSV out.

namespace {

using namespace tallyfin::batch;

void say(const std::string& words) { std::fputs(("tallyfin99-batch: " + words + "\n").c_str(), stderr); }

Account work(const CommandLine& line) {
  Input input(line.file);
  Output output;
  output.refuse(input);
  Progress progress(!line.quiet && isTerminal(stderr), input);
  const Account account =
      run({[&](char* place, std::size_t size) { return input.read(place, size); },
           [&](std::string_view text) { output.write(text); }, [&](std::uint64_t rows) { progress.show(rows); }, say},
          line.choices);
  output.close();
  return account;
}

int report(const Account& account, bool problemsOk) {
  if (account.problems == 0) return 0;
  say(std::to_string(account.problems) + " of " + std::to_string(account.rows) +
      " rows had problems, the first in line " + std::to_string(account.firstProblem));
  return problemsOk ? 0 : 1;
}

int start(int argc, char** argv) {
  const CommandLine line = commandLine(argc, argv);
  if (line.text) {
    Output output;
    output.write(*line.text);
    output.close();
    return 0;
  }
  return report(work(line), line.problemsOk);
}

}  // namespace

int main(int argc, char** argv) {
  // A failed write reports these instead.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  tallyfin::hideMemory();
  tallyfin::awaitEndings();
  try {
    return start(argc, argv);
  } catch (const Gone&) {
    return 0;
  } catch (const Ended&) {
    tallyfin::endBySignal();
  } catch (const std::bad_alloc&) {
    std::fputs("tallyfin99-batch: there is not enough memory\n", stderr);
  } catch (const std::exception& trouble) {  // without memory, of which there may be none
    for (const char* part : {"tallyfin99-batch: ", trouble.what(), "\n"}) std::fputs(part, stderr);
  }
  return 2;
}
