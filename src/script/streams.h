#pragma once

#include <array>
#include <stdexcept>
#include <string>
#include <string_view>

/// Standard input by lines, and standard output, of the headless program. Errors throw Trouble.

namespace tallyfin::script {

/// An error, with a message for the user.
struct Trouble : std::runtime_error {
  using runtime_error::runtime_error;
};

/// The lines of standard input, until a signal that ends the program.
class Lines {
 public:
  enum class Reading {
    line,
    tooLong,  ///< There was no memory for it; the next line follows.
    end
  };

  Reading next(std::string& line);

 private:
  bool fill();

  std::array<char, 65'536> buffer_{};
  std::string_view unread_;
};

/// Writes all of a text.
void writeOut(std::string_view text);

}  // namespace tallyfin::script
