#include "script/streams.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <new>

#include "process/process.h"

namespace tallyfin::script {

Lines::Reading Lines::next(std::string& line) {
  line.clear();
  bool fits = true;
  bool begun = false;
  while (!unread_.empty() || fill()) {
    begun = true;
    const auto length = unread_.find('\n');
    const std::string_view part = unread_.substr(0, length);
    unread_.remove_prefix(length == std::string_view::npos ? unread_.size() : length + 1);
    try {
      if (fits) line += part;
    } catch (const std::exception&) {  // bad_alloc or length_error
      fits = false;
      std::string().swap(line);
    }
    if (length != std::string_view::npos) return fits ? Reading::line : Reading::tooLong;
  }
  if (!begun || endingSignal() != 0) return Reading::end;  // an incomplete line isn't a command
  return fits ? Reading::line : Reading::tooLong;
}

/// False at the end of the input, or when a signal has come.
bool Lines::fill() {
  while (true) {
    std::array<pollfd, 2> waited{{{STDIN_FILENO, POLLIN, 0}, {endingDescriptor(), POLLIN, 0}}};
    ::poll(waited.data(), waited.size(), -1);
    if (endingSignal() != 0) return false;
    const ssize_t count = ::read(STDIN_FILENO, buffer_.data(), buffer_.size());
    if (count >= 0) {
      unread_ = {buffer_.data(), static_cast<std::size_t>(count)};
      return count > 0;
    }
    if (errno != EINTR && errno != EAGAIN) throw Trouble(std::string("standard input: ") + std::strerror(errno));
  }
}

void writeOut(std::string_view text) {
  while (!text.empty()) {
    std::array<pollfd, 2> waited{{{STDOUT_FILENO, POLLOUT, 0}, {endingDescriptor(), POLLIN, 0}}};
    ::poll(waited.data(), waited.size(), -1);
    if (waited[0].revents == 0 && endingSignal() != 0) return;  // the reader has stopped
    const ssize_t count = ::write(STDOUT_FILENO, text.data(), std::min<std::size_t>(text.size(), PIPE_BUF));
    if (count >= 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno != EINTR && errno != EAGAIN) {
      throw Trouble(std::string("standard output: ") + std::strerror(errno));
    }
  }
}

}  // namespace tallyfin::script
