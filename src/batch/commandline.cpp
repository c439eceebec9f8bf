#include "batch/commandline.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <thread>

#include "batch/states.h"
#include "engine/printable.h"

namespace tallyfin::batch {

namespace {

constexpr const char* help =
    "usage: tallyfin99-batch [OPTION...] [FILE]\n"
    "Works one paycheck a row: CSV from FILE or standard input, CSV to standard output, a row for a row.\n"
    "\n"
    "  --jobs N       work the rows with N threads; 0 takes one for each core\n"
    "  --delimiter C  divide cells by the character C, or by a tab for the word tab\n"
    "  --header       write the header line (default)\n"
    "  --no-header    don't write it; the input has one all the same\n"
    "  --problems-ok  end with status 0 also where rows had problems\n"
    "  --states       list what each state reads, as CSV, and end\n"
    "  --quiet        show no progress on a terminal\n"
    "  --help         show this and end\n"
    "  --version      show the version and end\n"
    "\n"
    "The exit status is 0, or 1 where rows had problems, or 2 where the work couldn't be done.\n"
    "The columns are listed in tallyfin99-batch(1).\n";

unsigned jobsOf(std::string_view text) {
  constexpr unsigned most = 1000;
  unsigned jobs = 0;  // mutation: 0 -> 1: written before it is read
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), jobs);
  if (error != std::errc{} || end != text.data() + text.size() || jobs > most) {
    throw Trouble("--jobs takes a number from 0 to " + std::to_string(most));
  }
  return jobs > 0 ? jobs : std::max(1U, std::thread::hardware_concurrency());
}

/// A quote, a line end or a character of amounts can't be the delimiter.
char delimiterOf(std::string_view text) {
  if (text == "tab") return '\t';
  if (text.size() != 1 || std::string_view("\"\r\n.-0123456789").find(text) != std::string_view::npos) {
    throw Trouble("--delimiter takes one character that isn't part of a number, or tab");
  }
  return text.front();
}

/// Parses the arguments in order.
class Reader {
 public:
  Reader(int argc, const char* const* argv) : next_(argv + 1), end_(argv + argc) {}

  CommandLine read() {
    for (; next_ != end_ && !line_.text; ++next_) {
      const std::string_view word = *next_;
      if (options_ && word.size() > 1 && word.front() == '-') {
        takeOption(word);
      } else if (line_.file) {
        throw Trouble("more than one file");
      } else {
        line_.file = word;
      }
    }
    if (line_.file == "-") line_.file.reset();
    if (states_ && !line_.text) line_.text = statesTable(line_.choices.delimiter);
    return line_;
  }

 private:
  void takeOption(std::string_view word) {
    if (word == "--") {
      options_ = false;
    } else if (word == "--header") {
      line_.choices.writeHeader = true;
    } else if (word == "--no-header") {
      line_.choices.writeHeader = false;
    } else if (word == "--quiet") {
      line_.quiet = true;
    } else if (word == "--problems-ok") {
      line_.problemsOk = true;
    } else if (word == "--help") {
      line_.text = help;
    } else if (word == "--states") {
      states_ = true;
    } else if (word == "--version") {
      line_.text = "tallyfin99-batch " TALLYFIN_VERSION "\n";
    } else if (const auto jobs = argumentOf("--jobs", word)) {
      line_.choices.jobs = jobsOf(*jobs);
    } else if (const auto delimiter = argumentOf("--delimiter", word)) {
      line_.choices.delimiter = delimiterOf(*delimiter);
    } else {
      throw Trouble("unknown option " + printable(word) + "; --help lists them");
    }
  }

  /// The argument of an option, the next word or the text after "="; none where the word isn't that option.
  std::optional<std::string_view> argumentOf(std::string_view option, std::string_view word) {
    if (!word.starts_with(option)) return std::nullopt;
    word.remove_prefix(option.size());
    if (word.starts_with('=')) return word.substr(1);
    if (!word.empty()) return std::nullopt;
    if (next_ + 1 == end_) throw Trouble(std::string(option) + " takes an argument");
    return *++next_;
  }

  const char* const* next_;
  const char* const* end_;
  bool options_ = true;
  bool states_ = false;
  CommandLine line_;
};

}  // namespace

CommandLine commandLine(int argc, const char* const* argv) { return Reader(argc, argv).read(); }

}  // namespace tallyfin::batch
