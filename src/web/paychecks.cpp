#include <emscripten.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "batch/csv.h"
#include "batch/header.h"
#include "batch/rows.h"
#include "library/cells.h"
#include "library/columns.h"
#include "library/options.h"
#include "library/paycheck.h"

/// The module of the JavaScript package: paychecks as rows, and whole files of them. JavaScript writes texts into
/// room() and reads results at the addresses that functions return. A table is passed as one text: a cell ends with
/// U+001F, a row with U+001E after that; no cell contains these characters.

// clang-format off
/// Reads the next bytes of the open file; returns their number, 0 at the end.
EM_JS(int, fileGives, (char* place, int size), { return Module["read"](HEAPU8.subarray(place, place + size)); });
// clang-format on

namespace tallyfin::web {

namespace {

constexpr char cellEnd = '\x1F';
constexpr char rowEnd = '\x1E';

void addCell(std::string& table, std::string_view text) {
  const std::size_t begin = table.size();
  table += text;
  const auto divides = [](char c) { return c == cellEnd || c == rowEnd; };
  std::replace_if(table.begin() + static_cast<std::ptrdiff_t>(begin), table.end(), divides, ' ');
  table += cellEnd;
}

void addRow(std::string& table, std::initializer_list<std::string_view> cells) {
  for (const std::string_view cell : cells) addCell(table, cell);
  table += rowEnd;
}

/// Removes the part of a text before a divider, and the divider, and returns the part.
std::string_view cutTo(std::string_view& text, char divider) {
  const std::size_t end = text.find(divider);
  const std::string_view part = text.substr(0, end);
  text.remove_prefix(std::min(text.size(), part.size() + 1));
  return part;
}

/// Works tables of paychecks.
class Paychecks {
 public:
  char* room(std::size_t size) {
    text_.resize(size);
    return text_.data();
  }
  std::string_view text() const { return text_; }

  /// Works the rows of a table whose first row has the numbers of the columns. Returns the number of rows with a
  /// problem.
  std::size_t work() {
    std::string_view rows = text_;
    readColumns(cutTo(rows, rowEnd));
    amounts_.clear();
    units_.clear();
    states_.clear();
    problems_.clear();
    std::size_t problems = 0;
    while (!rows.empty()) {
      set(cutTo(rows, rowEnd));
      const bool worked = paycheck_.work();
      for (std::size_t row = 0; row < library::resultCount; ++row) {
        amounts_.push_back(toReal(paycheck_.result(row)));
        units_.push_back(paycheck_.result(row).units());
      }
      const bool hasProblem = !paycheck_.problem().empty();
      states_.push_back(static_cast<char>((worked ? 1 : 0) + (hasProblem ? 2 : 0)));
      if (!hasProblem) continue;
      ++problems;
      addRow(problems_, {paycheck_.problem()});
    }
    return problems;
  }

  /// For each row a character: 1 for results plus 2 for a problem.
  const std::string& states() const { return states_; }
  const std::string& problems() const { return problems_; }
  const double* amounts() const { return amounts_.data(); }
  const std::int64_t* units() const { return units_.data(); }

  /// The explanation of the single row.
  std::string explanation() {
    std::string_view rows = text_;
    readColumns(cutTo(rows, rowEnd));
    set(cutTo(rows, rowEnd));
    paycheck_.work();
    return paycheck_.explainAsJson();
  }

 private:
  void readColumns(std::string_view numbers) {
    columns_.clear();
    while (!numbers.empty()) {
      std::size_t number = 0;
      for (const char digit : cutTo(numbers, cellEnd)) number = 10 * number + static_cast<std::size_t>(digit - '0');
      columns_.push_back(static_cast<library::Column>(number));
    }
    paycheck_.clear();
  }

  void set(std::string_view cells) {
    for (const library::Column column : columns_) paycheck_.set(column, cutTo(cells, cellEnd));
  }

  std::string text_;
  std::vector<library::Column> columns_;
  library::Paycheck paycheck_;
  std::vector<double> amounts_;
  std::vector<std::int64_t> units_;
  std::string states_;
  std::string problems_;
};

Paychecks& paychecks() {
  static Paychecks all;
  return all;
}

/// A file of paychecks, read and worked block by block.
class File {
 public:
  /// Throws Trouble where the file can't be worked.
  explicit File(char delimiter)
      : reader_(read, delimiter),
        beginning_(batch::readBeginning(reader_, delimiter)),
        worker_(beginning_.header, beginning_.ending, delimiter),
        out_(beginning_.out + beginning_.ending) {}

  std::string lacks() const { return beginning_.header.lacks(); }

  /// Works the next block. Throws Trouble where nothing can be read after it.
  void step() {
    if (begun_) {
      ended_ = !reader_.next(block_);
      if (ended_) return;
    } else {
      block_ = std::move(beginning_.rest);
      begun_ = true;
    }
    const batch::Worked& worked = worker_.work(block_);
    out_ += worked.out;
    tally_.add(worked, block_);
  }
  bool ended() const { return ended_; }

  /// The output that hasn't been taken yet.
  std::string& out() { return out_; }
  batch::Account account() const { return tally_.account(); }

 private:
  static std::size_t read(char* place, std::size_t size) {
    return static_cast<std::size_t>(fileGives(place, static_cast<int>(size)));
  }

  batch::BlockReader reader_;
  batch::Beginning beginning_;
  batch::RowWorker worker_;
  batch::Block block_;
  batch::Tally tally_{1 + beginning_.lines};
  bool begun_ = false;
  bool ended_ = false;
  std::string out_;
};

std::optional<File>& file() {
  static std::optional<File> theFile;
  return theFile;
}

/// A text that is valid until the next call.
const char* handOver(std::string text) {
  static std::string kept;
  kept = std::move(text);
  return kept.c_str();
}

/// The error of a function on a file; empty for none.
template <class Act>
const char* troubleOf(Act act) {
  try {
    act();
    return handOver("");
  } catch (const batch::Trouble& trouble) {
    return handOver(trouble.what());
  }
}

/// The rows of a CSV text as a table.
std::string cellsOf(std::string_view text, char delimiter) {
  batch::Block block{.bytes = std::string(text)};
  batch::RowCutter rows(block, delimiter);
  batch::CsvRow row;
  std::string storage;
  std::string table;
  while (rows.next(row)) {
    for (const batch::Cell& cell : row.cells) addCell(table, cell.text(storage));
    table += rowEnd;
  }
  return table;
}

}  // namespace

}  // namespace tallyfin::web

using tallyfin::web::file;
using tallyfin::web::handOver;
using tallyfin::web::paychecks;

extern "C" {

/// A row of the names of the columns, and one of those of the results.
EMSCRIPTEN_KEEPALIVE const char* names() {
  std::string table;
  for (const auto& rule : tallyfin::library::columnRules) tallyfin::web::addCell(table, rule.name);
  table += tallyfin::web::rowEnd;
  for (const std::string_view name : tallyfin::library::resultNames) tallyfin::web::addCell(table, name);
  return handOver(table + tallyfin::web::rowEnd);
}

/// A row for each column that is chosen from a list: its name, then the entries' captions by their numbers.
EMSCRIPTEN_KEEPALIVE const char* entries() {
  using namespace tallyfin::library;
  std::string table;
  for (const Column column : {Column::frequency, Column::status, Column::state}) {
    tallyfin::web::addCell(table, ruleOf(column).name);
    int next = 0;
    for (const Named& entry : namesOf(column)) {
      if (entry.number != next) continue;  // a further name of an entry
      tallyfin::web::addCell(table, entry.name);
      ++next;
    }
    table += tallyfin::web::rowEnd;
  }
  return handOver(std::move(table));
}

/// A row for each value that a state offers: state, postal code, column, value, meaning.
EMSCRIPTEN_KEEPALIVE const char* states() {
  std::string table;
  for (const auto& entry : tallyfin::library::stateValues()) {
    const std::string_view column = tallyfin::library::ruleOf(entry.column).name;
    tallyfin::web::addRow(table, {entry.state, entry.postal, column, entry.value, entry.meaning});
  }
  return handOver(std::move(table));
}

/// A buffer of that many bytes for a text, which the next call reads.
EMSCRIPTEN_KEEPALIVE char* room(std::size_t size) { return paychecks().room(size); }

/// Works the table in the buffer, whose first row has the numbers of its columns. Returns the number of rows with a
/// problem.
EMSCRIPTEN_KEEPALIVE std::size_t work() { return paychecks().work(); }
EMSCRIPTEN_KEEPALIVE const double* amounts() { return paychecks().amounts(); }
EMSCRIPTEN_KEEPALIVE const std::int64_t* units() { return paychecks().units(); }
EMSCRIPTEN_KEEPALIVE const char* rowStates() { return paychecks().states().data(); }
EMSCRIPTEN_KEEPALIVE const char* problems() { return paychecks().problems().c_str(); }

/// The explanation of the one row of such a table, as JSON.
EMSCRIPTEN_KEEPALIVE const char* explanation() { return handOver(paychecks().explanation()); }

/// Opens the file that Module.read reads. Returns the reason where it can't be worked.
EMSCRIPTEN_KEEPALIVE const char* openFile(char delimiter) {
  file().reset();
  return tallyfin::web::troubleOf([&] { file().emplace(delimiter); });
}
/// A warning about missing columns.
EMSCRIPTEN_KEEPALIVE const char* fileLacks() { return handOver(file()->lacks()); }
/// Works a block, unless the file has ended. Returns the reason where it can't be read on.
EMSCRIPTEN_KEEPALIVE const char* workBlock() {
  return tallyfin::web::troubleOf([] { file()->step(); });
}
EMSCRIPTEN_KEEPALIVE bool fileEnded() { return file()->ended(); }
/// The output since the last `outTaken`.
EMSCRIPTEN_KEEPALIVE const char* out() { return file()->out().data(); }
EMSCRIPTEN_KEEPALIVE std::size_t outSize() { return file()->out().size(); }
EMSCRIPTEN_KEEPALIVE void outTaken() { file()->out().clear(); }
EMSCRIPTEN_KEEPALIVE double fileRows() { return static_cast<double>(file()->account().rows); }
EMSCRIPTEN_KEEPALIVE double fileProblems() { return static_cast<double>(file()->account().problems); }
EMSCRIPTEN_KEEPALIVE double firstProblem() { return static_cast<double>(file()->account().firstProblem); }

/// The rows of the CSV text in the buffer.
EMSCRIPTEN_KEEPALIVE const char* cells(char delimiter) {
  return handOver(tallyfin::web::cellsOf(paychecks().text(), delimiter));
}
}
