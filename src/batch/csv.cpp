#include "batch/csv.h"

#include <algorithm>

namespace tallyfin::batch {

namespace {

// mutation: 256 -> 257: how much is read at once changes no row
constexpr std::size_t blockSize = std::size_t{256} << 10U;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// The bytes between two pointers. (The C++ library of WebAssembly has no such constructor.)
std::string_view between(const char* begin, const char* end) { return {begin, static_cast<std::size_t>(end - begin)}; }

std::size_t linesIn(std::string_view bytes) {
  return static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n'));
}

}  // namespace

std::string_view Cell::text(std::string& storage) const {
  if (!quoted) return raw;
  const std::string_view inside = raw.substr(1);
  const std::size_t quote = inside.find('"');
  if (quote + 1 == inside.size()) return inside.substr(0, quote);
  // A doubled quote means one quote. Text after the closing quote is kept unchanged.
  storage.clear();
  bool open = true;
  for (std::size_t i = 0; i < inside.size(); ++i) {
    if (inside[i] == '"' && open) {
      // mutation: 1 -> 2 and < -> <=: behind a doubled quote the closing one is still to come
      const bool doubled = i + 1 < inside.size() && inside[i + 1] == '"';
      open = doubled;
      if (!doubled) continue;
      ++i;
    }
    storage += inside[i];
  }
  return storage;
}

// --- Blocks ----------------------------------------------------------------------------------------------------------

bool BlockReader::next(Block& block) {
  block.bytes.swap(rest_);
  rest_.clear();
  block.trouble = nullptr;
  seen_ = rowsEnd_ = 0;
  inQuotes_ = false;
  while (!finished_) {
    readMore(block.bytes);
    if (!started_) skipByteOrderMark(block.bytes);
    findRows(block.bytes);
    if (finished_ || rowsEnd_ > 0) break;
    if (block.bytes.size() > longestRow) {
      stop(block, inQuotes_ ? "a quoted cell doesn't end" : "the row is too long");
      return true;
    }
  }
  if (finished_ && inQuotes_) {
    stop(block, "a quoted cell doesn't end");
  } else if (!finished_) {
    rest_.assign(block.bytes, rowsEnd_);
    block.bytes.resize(rowsEnd_);
  }
  return !block.bytes.empty() || block.trouble != nullptr;
}

void BlockReader::readMore(std::string& bytes) {
  const std::size_t before = bytes.size();
  bytes.resize(before + std::max(blockSize, before));
  const std::size_t read = source_(bytes.data() + before, bytes.size() - before);
  bytes.resize(before + read);
  finished_ = read == 0;
}

void BlockReader::skipByteOrderMark(std::string& bytes) {
  if (bytes.size() < byteOrderMark.size() && !finished_) return;
  started_ = true;
  beginning_ = bytes.substr(0, 64);  // mutation: 64 -> 65: enough to know a file by
  if (bytes.starts_with(byteOrderMark)) bytes.erase(0, byteOrderMark.size());
}

void BlockReader::findRows(std::string_view bytes) {
  if (!started_) return;
  while (true) {
    if (inQuotes_ && !skipQuoted(bytes)) return;
    const std::size_t quote = std::min(bytes.find('"', seen_), bytes.size());
    const std::size_t lineEnd = bytes.substr(seen_, quote - seen_).rfind('\n');
    if (lineEnd != std::string_view::npos) rowsEnd_ = seen_ + lineEnd + 1;
    seen_ = quote;
    if (quote == bytes.size()) return;
    // A quote opens a cell only at its beginning.
    inQuotes_ = quote == 0 || bytes[quote - 1] == delimiter_ || bytes[quote - 1] == '\n';
    if (inQuotes_) quote_ = quote;
    ++seen_;
  }
}

/// Moves behind the quote that closes the cell; false where the bytes end before that is known.
bool BlockReader::skipQuoted(std::string_view bytes) {
  while (true) {
    const std::size_t quote = bytes.find('"', seen_);
    if (quote == std::string_view::npos) {
      seen_ = bytes.size();
      return false;
    }
    seen_ = quote;
    if (quote + 1 == bytes.size() && !finished_) return false;  // it may be doubled
    seen_ = quote + 1;
    if (seen_ == bytes.size() || bytes[seen_] != '"') break;
    ++seen_;
  }
  inQuotes_ = false;
  return true;
}

void BlockReader::stop(Block& block, const char* reason) {
  const std::size_t place = inQuotes_ ? quote_ : rowsEnd_;
  block.trouble = reason;
  block.troubleLine = linesIn(std::string_view(block.bytes).substr(0, place));
  block.bytes.resize(rowsEnd_);
  finished_ = true;
}

// --- Rows ------------------------------------------------------------------------------------------------------------

RowCutter::RowCutter(Block& block, char delimiter) : delimiter_(delimiter) {
  // A sentinel behind the last byte, so that the searches need no test for the end.
  const std::size_t size = block.bytes.size();
  block.bytes += '\n';
  at_ = block.bytes.data();
  end_ = at_ + size;
}

bool RowCutter::next(CsvRow& row) {
  if (at_ == end_) return false;
  row.cells.clear();
  row.line = line_;
  const char delimiter = delimiter_;
  const char* const begin = at_;
  const char* at = begin;
  while (true) {
    const char* const cell = at;
    const bool quoted = *at == '"';
    if (quoted) {
      do {
        const char* const quote = std::find(at + 1, end_, '"');
        line_ += static_cast<std::size_t>(std::count(at, quote, '\n'));
        at = quote + 1;
      } while (*at == '"');
    }
    while (*at != delimiter && *at != '\n') ++at;
    if (*at == delimiter) {
      row.cells.push_back({between(cell, at), quoted});
      ++at;
      continue;
    }
    const char* const last = at != end_ && at != cell && at[-1] == '\r' ? at - 1 : at;
    at_ = at == end_ ? at : at + 1;
    row.bytes = between(begin, last);
    row.ending = between(last, at_);
    if (last != begin) row.cells.push_back({between(cell, last), quoted});
    ++line_;
    return true;
  }
}

}  // namespace tallyfin::batch
