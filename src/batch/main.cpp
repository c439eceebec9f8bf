#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>

#include "batch/run.h"

/// tallyfin99-batch [OPTION...] [FILE]: one paycheck a row, CSV in, CSV out.

namespace {

using namespace tallyfin::batch;

constexpr const char* help =
    "usage: tallyfin99-batch [OPTION...] [FILE]\n"
    "Works one paycheck a row: CSV from FILE or standard input, CSV to standard output, a row for a row.\n"
    "\n"
    "  --header     write the header line (this is so unless told otherwise)\n"
    "  --no-header  don't write it; the input has one all the same\n"
    "  --quiet      don't tell on a terminal how the work goes\n"
    "  --help       show this and end\n"
    "  --version    show the version and end\n"
    "\n"
    "The exit status is 0, or 1 where rows had problems, or 2 where the work couldn't be done.\n"
    "The columns are told in tallyfin99-batch(1).\n";

/// Thrown when the reader of the output has gone away.
struct Gone {};

struct CommandLine {
  Choices choices;
  bool quiet = false;
  std::optional<std::string> file;
};

CommandLine read(int argc, char** argv) {
  CommandLine line;
  bool options = true;
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (options && word == "--") {
      options = false;
    } else if (options && word == "--header") {
      line.choices.writeHeader = true;
    } else if (options && word == "--no-header") {
      line.choices.writeHeader = false;
    } else if (options && word == "--quiet") {
      line.quiet = true;
    } else if (options && word.size() > 1 && word.front() == '-') {
      throw Trouble("unknown option " + word + "; --help tells them");
    } else if (line.file) {
      throw Trouble("more than one file");
    } else {
      line.file = word;
    }
  }
  if (line.file == "-") line.file.reset();
  return line;
}

class Input {
 public:
  explicit Input(const std::optional<std::string>& file)
      : name_(file.value_or("standard input")), descriptor_(file ? open(file->c_str(), O_RDONLY | O_CLOEXEC) : 0) {
    struct stat about {};
    if (descriptor_ < 0 || fstat(descriptor_, &about) != 0) fail();
    if (S_ISREG(about.st_mode)) size_ = static_cast<std::uint64_t>(about.st_size);
  }

  std::size_t read(char* place, std::size_t size) {
    ssize_t count = 0;
    do {
      count = ::read(descriptor_, place, size);
    } while (count < 0 && errno == EINTR);
    if (count < 0) fail();
    done_ += static_cast<std::uint64_t>(count);
    return static_cast<std::size_t>(count);
  }

  /// How much of the file has been read, 0 to 1; unknown for what isn't a file.
  std::optional<double> share() const {
    if (size_ == 0) return std::nullopt;
    return static_cast<double>(done_) / static_cast<double>(size_);
  }

 private:
  [[noreturn]] void fail() const { throw Trouble(name_ + ": " + std::strerror(errno)); }

  std::string name_;
  int descriptor_;
  std::uint64_t size_ = 0;
  std::uint64_t done_ = 0;
};

void writeOut(std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(STDOUT_FILENO, text.data(), text.size());
    if (count >= 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno == EPIPE) {
      throw Gone{};
    } else if (errno != EINTR) {
      throw Trouble(std::string("standard output: ") + std::strerror(errno));
    }
  }
}

/// A line on the terminal that is rewritten each second.
class Progress {
 public:
  Progress(bool wanted, const Input& input) : wanted_(wanted), input_(input) {}
  ~Progress() {
    if (shown_) std::fputs("\r\033[K", stderr);
  }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void tell(std::uint64_t rows) {
    if (!wanted_) return;
    const auto now = std::chrono::steady_clock::now();
    if (now - told_ < std::chrono::seconds(1)) return;
    told_ = now;
    const double seconds = std::chrono::duration<double>(now - start_).count();
    std::fprintf(stderr, "\r%llu rows, %.0f a second", static_cast<unsigned long long>(rows),
                 static_cast<double>(rows) / seconds);
    if (const auto share = input_.share()) std::fprintf(stderr, ", %.0f %%", 100 * *share);
    std::fputs("\033[K", stderr);
    std::fflush(stderr);
    shown_ = true;
  }

 private:
  bool wanted_;
  const Input& input_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::chrono::steady_clock::time_point told_ = start_;
  bool shown_ = false;
};

Account work(const CommandLine& line) {
  Input input(line.file);
  Progress progress(!line.quiet && isatty(STDERR_FILENO) != 0, input);
  return run([&](char* place, std::size_t size) { return input.read(place, size); }, writeOut, line.choices,
             [&](std::uint64_t rows) { progress.tell(rows); });
}

bool has(int argc, char** argv, std::string_view option) {
  for (int i = 1; i < argc && std::string_view(argv[i]) != "--"; ++i) {
    if (argv[i] == option) return true;
  }
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_IGN);  // a failed write reports it instead
  try {
    if (has(argc, argv, "--help")) {
      writeOut(help);
      return 0;
    }
    if (has(argc, argv, "--version")) {
      writeOut("tallyfin99-batch " TALLYFIN_VERSION "\n");
      return 0;
    }
    const Account account = work(read(argc, argv));
    if (account.problems == 0) return 0;
    std::fprintf(stderr, "tallyfin99-batch: %llu of %llu rows had problems\n",
                 static_cast<unsigned long long>(account.problems), static_cast<unsigned long long>(account.rows));
    return 1;
  } catch (const Gone&) {
    return 0;
  } catch (const Trouble& trouble) {
    std::fprintf(stderr, "tallyfin99-batch: %s\n", trouble.what());
    return 2;
  }
}
