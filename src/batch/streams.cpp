#include "batch/streams.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "batch/run.h"
#include "engine/printable.h"
#include "process/process.h"

namespace tallyfin::batch {

namespace {

/// After a failed call: whether to try again. Waits until the stream is ready where that was the reason.
bool again(int descriptor, short event) {
  if (errno == EINTR) return true;
  if (errno != EAGAIN) return false;
  pollfd ready{descriptor, event, 0};
  return poll(&ready, 1, -1) >= 0 || errno == EINTR;
}

}  // namespace

bool isTerminal(std::FILE* stream) { return isatty(fileno(stream)) != 0; }

Input::Input(const std::optional<std::string>& file)
    : name_(file ? printable(*file, longestPath) : "standard input"),
      descriptor_(file ? open(file->c_str(), O_RDONLY | O_CLOEXEC) : 0) {
  if (descriptor_ < 0 || fstat(descriptor_, &about_) != 0) fail();
}

std::size_t Input::read(char* place, std::size_t size) {
  while (true) {
    std::array<pollfd, 2> waited{{{descriptor_, POLLIN, 0}, {endingDescriptor(), POLLIN, 0}}};
    ::poll(waited.data(), waited.size(), -1);
    if (endingSignal() != 0) throw Ended{};
    const ssize_t count = ::read(descriptor_, place, size);
    if (count >= 0) {
      done_ += static_cast<std::uint64_t>(count);
      return static_cast<std::size_t>(count);
    }
    if (!again(descriptor_, POLLIN)) fail();
  }
}

std::optional<double> Input::share() const {
  if (!S_ISREG(about_.st_mode) || about_.st_size == 0) return std::nullopt;
  return static_cast<double>(done_) / static_cast<double>(about_.st_size);
}

void Input::fail() const { throw Trouble(name_ + ": " + std::strerror(errno)); }

void Output::refuse(const Input& input) const {
  struct stat about {};
  const bool same = fstat(STDOUT_FILENO, &about) == 0 && S_ISREG(about.st_mode) &&
                    about.st_dev == input.about().st_dev && about.st_ino == input.about().st_ino;
  if (same) throw Trouble(input.name() + ": input and output are the same file");
}

void Output::write(std::string_view text) {
  struct stat about {};
  fstat(STDOUT_FILENO, &about);
  // A pipe that is ready accepts this much without blocking, so a signal is noticed when the reader has stopped.
  const std::size_t most = S_ISREG(about.st_mode) ? text.size() : PIPE_BUF;
  while (!text.empty()) {
    std::array<pollfd, 2> waited{{{STDOUT_FILENO, POLLOUT, 0}, {endingDescriptor(), POLLIN, 0}}};
    ::poll(waited.data(), waited.size(), -1);
    if (waited[0].revents == 0 && endingSignal() != 0) throw Ended{};
    const ssize_t count = ::write(STDOUT_FILENO, text.data(), std::min(text.size(), most));
    if (count >= 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno == EPIPE) {
      throw Gone{};
    } else if (!again(STDOUT_FILENO, POLLOUT)) {
      throw Trouble(std::string("standard output: ") + std::strerror(errno));
    }
  }
}

void Output::close() {
  if (::close(STDOUT_FILENO) != 0) throw Trouble(std::string("standard output: ") + std::strerror(errno));
}

Progress::~Progress() {
  if (shown_) std::fputs("\r\033[K", stderr);
}

void Progress::show(std::uint64_t rows) {
  if (!wanted_) return;
  const auto now = std::chrono::steady_clock::now();
  if (now - last_ < std::chrono::seconds(1)) return;
  last_ = now;
  const double seconds = std::chrono::duration<double>(now - start_).count();
  std::string line = "\r" + std::to_string(rows) + " rows, " +
                     std::to_string(std::llround(static_cast<double>(rows) / seconds)) + " a second";
  if (const auto share = input_.share()) line += ", " + std::to_string(std::llround(100 * *share)) + " %";
  std::fputs((line + "\033[K").c_str(), stderr);
  std::fflush(stderr);
  shown_ = true;
}

}  // namespace tallyfin::batch
