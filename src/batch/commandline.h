#pragma once

#include <optional>
#include <string>

#include "batch/run.h"

/// The options of the batch program.

namespace tallyfin::batch {

struct CommandLine {
  Choices choices;
  bool quiet = false;
  bool problemsOk = false;
  std::optional<std::string> file;  ///< None for standard input.
  std::optional<std::string> text;  ///< Written instead of working a file: help, version or the states.
};

/// Parses the arguments; throws Trouble where they can't be understood.
CommandLine commandLine(int argc, const char* const* argv);

}  // namespace tallyfin::batch
