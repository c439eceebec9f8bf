#include "batch/rows.h"

#include <algorithm>
#include <array>

#include "engine/numbertext.h"

namespace tallyfin::batch {

namespace {

/// The most characters that a row's results take, with a delimiter before each and one behind.
// mutation: 1 -> 2: room in a buffer
constexpr std::size_t longestResults = library::resultCount * (1 + longestAmount) + 1;

}  // namespace

Beginning readBeginning(BlockReader& reader, char delimiter) {
  Beginning beginning;
  Block& block = beginning.rest;
  reader.next(block);
  RowCutter rows(block, delimiter);
  CsvRow row;
  if (!rows.next(row)) {
    // A file that isn't text may look like a row without an end.
    if (block.trouble == nullptr) throw Trouble("there is no header");
    if (const auto format = otherFormat(reader.beginning())) throw Trouble(*format);
    throw troubleIn(block, 1);
  }
  if (const auto reason = beginning.header.take(row, delimiter)) throw Trouble(*reason);
  beginning.ending = row.ending.empty() ? "\n" : row.ending;

  beginning.out = row.bytes;
  for (const std::string_view name : library::resultNames) appendCell(beginning.out += delimiter, name, delimiter);
  appendCell(beginning.out += delimiter, library::problemName, delimiter);

  block.bytes.pop_back();  // the cutter's sentinel
  const std::size_t taken = row.bytes.size() + row.ending.size();
  beginning.lines = rows.lines();
  block.bytes.erase(0, taken);
  return beginning;
}

const Worked& RowWorker::work(Block& block) {
  worked_.out.clear();
  worked_.account = {};
  RowCutter rows(block, delimiter_);
  while (rows.next(row_)) workRow();
  worked_.lines = rows.lines();
  return worked_;
}

void RowWorker::workRow() {
  std::string& out = worked_.out;
  const std::string_view ending = row_.ending.empty() ? std::string_view(ending_) : row_.ending;
  if (row_.cells.empty()) {  // an empty line is no row
    out += ending;
    return;
  }
  ++worked_.account.rows;
  // As many cells as the header has columns: others are dropped, missing ones filled in.
  const std::size_t columns = header_.size();
  const std::size_t taken = std::min(row_.cells.size(), columns);
  const std::string_view last = row_.cells[taken - 1].raw;
  out.append(row_.bytes.data(), last.data() + last.size());
  out.append(columns - taken, delimiter_);
  if (hasSurplus(taken)) {
    writeNoResults();
    writeProblem("more cells than the header has columns");
  } else {
    workCells();
  }
  out += ending;
}

/// Whether a cell beyond the columns isn't empty.
bool RowWorker::hasSurplus(std::size_t taken) {
  return std::any_of(row_.cells.begin() + static_cast<std::ptrdiff_t>(taken), row_.cells.end(),
                     [&](const Cell& cell) { return !cell.text(storage_).empty(); });
}

void RowWorker::workCells() {
  for (const auto& [column, place] : header_.known()) {
    paycheck_.set(column, place < row_.cells.size() ? row_.cells[place].text(storage_) : std::string_view());
  }
  paycheck_.work() ? writeResults() : writeNoResults();
  writeProblem(paycheck_.problem());
}

void RowWorker::writeResults() {
  std::array<char, longestResults> results;
  char* end = results.data();
  for (std::size_t row = 0; row < library::resultCount; ++row) {
    *end++ = delimiter_;
    end = writeText(end, paycheck_.result(row));
  }
  *end++ = delimiter_;
  worked_.out.append(results.data(), end);
}

void RowWorker::writeProblem(std::string_view problem) {
  if (problem.empty()) return;
  appendCell(worked_.out, problem, delimiter_);
  Account& account = worked_.account;
  if (account.problems++ == 0) account.firstProblem = row_.line;
}

void Tally::add(const Worked& worked, const Block& block) {
  if (account_.problems == 0) account_.firstProblem = line_ + worked.account.firstProblem;
  account_.rows += worked.account.rows;
  account_.problems += worked.account.problems;
  if (block.trouble != nullptr) throw troubleIn(block, line_);
  line_ += worked.lines;
}

Trouble troubleIn(const Block& block, std::size_t line) {
  return Trouble("line " + std::to_string(line + block.troubleLine) + ": " + block.trouble);
}

void appendCell(std::string& out, std::string_view text, char delimiter) {
  const auto plain = [=](char c) { return c != '"' && c != '\r' && c != '\n' && c != delimiter; };
  if (std::all_of(text.begin(), text.end(), plain)) {
    out += text;
    return;
  }
  out += '"';
  for (const char c : text) {
    if (c == '"') out += '"';
    out += c;
  }
  out += '"';
}

}  // namespace tallyfin::batch
