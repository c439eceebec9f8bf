#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tallyfin {
class Control;
class Screen;
}  // namespace tallyfin

namespace tallyfin::script {

/// A property in the form of the protocol; none where this kind of control, or a screen, doesn't have it.
std::optional<std::string> property(const Control& control, std::string_view name);
std::optional<std::string> property(const Screen& screen, std::string_view name);

}  // namespace tallyfin::script
