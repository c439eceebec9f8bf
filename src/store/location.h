#pragma once

#include <filesystem>

namespace tallyfin {

/// The user's own store: Tallyfin99/Tallyfin99.sqlite in the folder of XDG_CONFIG_HOME, or in .config of the home
/// folder. A path that isn't absolute is ignored; without HOME the folder comes from the user database. Where the
/// folder Tallyfin99 exists and belongs to the user, others lose access to it.
std::filesystem::path usersStore();

}  // namespace tallyfin
