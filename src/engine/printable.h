#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tallyfin {

/// Bytes for a terminal: in quotes, with escapes for all but printable ASCII; of a longer text the first `most` bytes.
std::string printable(std::string_view bytes, std::size_t most = 60);

/// For paths, which stay whole.
inline constexpr std::size_t longestPath = 4096;

}  // namespace tallyfin
