#pragma once

#include <filesystem>

namespace tallyfin {

/// The user's own store: Tallyfin99/Tallyfin99.sqlite in the folder of XDG_CONFIG_HOME, or in .config of the home
/// folder. A path that isn't absolute counts as none; without HOME the system's list of users tells the folder. Where
/// the folder Tallyfin99 is there and the user's, it becomes the user's alone.
std::filesystem::path usersStore();

}  // namespace tallyfin
