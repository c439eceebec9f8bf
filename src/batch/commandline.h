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
  std::optional<std::string> text;  ///< To be written in place of all work: help, version or the states.
};

/// Reads the arguments; throws Trouble where they can't be understood.
CommandLine commandLine(int argc, const char* const* argv);

}  // namespace tallyfin::batch
