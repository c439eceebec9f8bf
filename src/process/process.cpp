#include "process/process.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <csignal>
#ifdef __linux__
#include <sys/prctl.h>
#endif

namespace tallyfin {

namespace {

std::array<int, 2> ends{-1, -1};
volatile std::sig_atomic_t came = 0;

void note(int signal) {
  came = signal;
  const char byte = 0;
  [[maybe_unused]] const auto written =
      ::write(ends[1], &byte, 1);  // it fails only where the pipe is full, and so readable
}

}  // namespace

void hideMemory() {
#if defined(__linux__) && defined(NDEBUG)
  ::prctl(PR_SET_DUMPABLE, 0, 0, 0, 0);
#endif
}

bool fillStandardStreams() {
  int number = 0;
  bool whole = true;
  while ((number = ::open("/dev/null", O_RDWR | O_CLOEXEC)) >= 0 && number <= STDERR_FILENO) {
    whole = whole && number == STDERR_FILENO;
  }
  ::close(number);
  return whole;
}

void awaitEndings() {
  if (::pipe(ends.data()) != 0) return;
  for (const int end : ends) {
    ::fcntl(end, F_SETFD, FD_CLOEXEC);
    ::fcntl(end, F_SETFL, O_NONBLOCK);
  }
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    struct sigaction action {};
    ::sigaction(signal, nullptr, &action);
    if (action.sa_handler == SIG_IGN) continue;
    action = {};
    action.sa_handler = note;
    action.sa_flags = static_cast<int>(SA_RESETHAND);  // a second signal ends the process at once
    ::sigaction(signal, &action, nullptr);
  }
}

int endingDescriptor() { return ends[0]; }

int endingSignal() { return came; }

void endBySignal() {
  std::signal(came, SIG_DFL);
  std::raise(came);
  ::_exit(128 + came);
}

}  // namespace tallyfin
