#include "batch/csv.h"

#include <algorithm>
#include <cstring>

namespace tallyfin::batch {

namespace {

constexpr std::size_t blockSize = std::size_t{256} << 10U;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

}  // namespace

std::string_view Cell::text(std::string& storage) const {
  if (!quoted) return raw;
  const std::string_view inside = raw.substr(1);
  const std::size_t quote = inside.find('"');
  if (quote + 1 == inside.size()) return inside.substr(0, quote);
  // A doubled quote stands for one. What follows the closing quote is taken as it is.
  storage.clear();
  bool open = true;
  for (std::size_t i = 0; i < inside.size(); ++i) {
    if (inside[i] == '"' && open) {
      const bool doubled = i + 1 < inside.size() && inside[i + 1] == '"';
      open = doubled;
      if (!doubled) continue;
      ++i;
    }
    storage += inside[i];
  }
  return storage;
}

CsvReader::CsvReader() : buffer_(blockSize + 1) {}

bool CsvReader::skipByteOrderMark() {
  if (started_) return true;
  if (end_ < byteOrderMark.size() && !finished_) return false;
  started_ = true;
  if (std::string_view(buffer_.data(), end_).starts_with(byteOrderMark)) begin_ = byteOrderMark.size();
  return true;
}

CsvReader::Outcome CsvReader::unfinished(bool inQuotes) {
  if (finished_) return Outcome::openQuote;
  if (end_ - begin_ <= longestRow) return Outcome::needsMore;
  return inQuotes ? Outcome::openQuote : Outcome::tooLong;
}

CsvReader::Outcome CsvReader::next(Row& row) {
  troubleLine_ = nextLine_;
  if (!skipByteOrderMark()) return Outcome::needsMore;
  if (begin_ == end_) return finished_ ? Outcome::end : Outcome::needsMore;

  row.cells.clear();
  // A sentinel behind the last byte, so that the searches need no test for the end; found there, it isn't a line end.
  buffer_[end_] = '\n';
  const char* const begin = buffer_.data() + begin_;
  const char* const end = buffer_.data() + end_;
  const char* at = begin;
  std::size_t lines = 1;
  while (true) {
    const char* const cell = at;
    const bool quoted = *at == '"';
    if (quoted) {
      troubleLine_ = nextLine_ + lines - 1;
      for (++at;; ++at) {
        const char* const quote = std::find(at, end, '"');
        lines += static_cast<std::size_t>(std::count(at, quote, '\n'));
        if (quote == end) return unfinished(true);
        at = quote + 1;
        if (*at != '"') break;
      }
    }
    while (*at != ',' && *at != '\n') ++at;
    if (at == end && !finished_) return unfinished(false);
    if (*at == ',') {
      row.cells.push_back({{cell, at}, quoted});
      ++at;
      continue;
    }
    const char* const last = at != end && at != cell && at[-1] == '\r' ? at - 1 : at;
    row.bytes = {begin, last};
    row.ending = {last, at == end ? at : at + 1};
    if (last != begin) row.cells.push_back({{cell, last}, quoted});
    break;
  }
  troubleLine_ = nextLine_;
  nextLine_ += lines;
  begin_ += row.bytes.size() + row.ending.size();
  return Outcome::row;
}

void CsvReader::readMore(const Source& source) {
  std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
  end_ -= begin_;
  begin_ = 0;
  if (buffer_.size() - 1 - end_ < blockSize / 2) buffer_.resize(2 * buffer_.size());
  const std::size_t read = source(buffer_.data() + end_, buffer_.size() - 1 - end_);
  end_ += read;
  if (read == 0) finished_ = true;
}

}  // namespace tallyfin::batch
