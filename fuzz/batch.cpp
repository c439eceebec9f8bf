#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "batch/run.h"

/// Any bytes as a CSV file: the run ends, its output is the same for pieces of any size and for two threads, and it
/// counts no more problems than rows.

using namespace tallyfin::batch;

namespace {

std::string outcome(std::string_view in, std::size_t atOnce, const Choices& choices = {}) {
  std::string out;
  const auto source = [&](char* place, std::size_t size) {
    const std::size_t count = std::min({size, atOnce, in.size()});
    std::memcpy(place, in.data(), count);
    in.remove_prefix(count);
    return count;
  };
  try {
    const Account account =
        run({source, [&](std::string_view text) { out += text; }, [](std::uint64_t) {}, [](const std::string&) {}},
            choices);
    if (account.problems > account.rows) std::abort();
  } catch (const Trouble& trouble) {
    out += trouble.what();
  }
  return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view in(reinterpret_cast<const char*>(data), size);
  const std::string whole = outcome(in, in.size());
  if (whole != outcome(in, 3) || whole != outcome(in, 5, {.jobs = 2})) std::abort();
  return 0;
}
