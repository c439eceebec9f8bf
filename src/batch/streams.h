#pragma once

#include <sys/stat.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

/// The files and the terminal of the batch program. Errors throw Trouble with the name of the file and the reason.

namespace tallyfin::batch {

/// Thrown when the reader of the output has closed it.
struct Gone {};
/// Thrown when a signal that ends the program has arrived.
struct Ended {};

bool isTerminal(std::FILE* stream);

class Input {
 public:
  /// Opens a file, or standard input.
  explicit Input(const std::optional<std::string>& file);

  /// Reads up to `size` bytes; waits where the stream is non-blocking. Returns 0 at the end.
  std::size_t read(char* place, std::size_t size);

  /// The part of the file that has been read, 0 to 1; none for anything but a regular file.
  std::optional<double> share() const;

  const std::string& name() const { return name_; }
  const struct stat& about() const { return about_; }

 private:
  [[noreturn]] void fail() const;

  std::string name_;
  int descriptor_;
  struct stat about_ {};
  std::uint64_t done_ = 0;
};

/// Standard output.
class Output {
 public:
  /// Throws Trouble where the input is the same file: it would be read as it grows.
  void refuse(const Input& input) const;

  /// Writes all of a text; waits where the stream is non-blocking.
  void write(std::string_view text);

  /// Some file systems report write errors only here.
  void close();
};

/// A line on the terminal that is rewritten each second and erased at the end.
class Progress {
 public:
  Progress(bool wanted, const Input& input) : wanted_(wanted), input_(input) {}
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void show(std::uint64_t rows);

 private:
  bool wanted_;
  const Input& input_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::chrono::steady_clock::time_point last_ = start_;
  bool shown_ = false;
};

}  // namespace tallyfin::batch
