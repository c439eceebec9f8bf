#pragma once

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "library/paycheck.h"

namespace tallyfin::python {

/// The cells of one column: a contiguous array of int64, float64 or objects, or a single value for all rows.
class Cells {
 public:
  /// Throws pybind11::value_error for an array of another type.
  Cells(library::Column column, pybind11::array array);

  std::size_t size() const { return static_cast<std::size_t>(array_.size()); }

  /// Reads the objects of some rows, so that set() needs no interpreter. The caller must hold the GIL.
  void read(std::size_t first, std::size_t end);

  /// Sets the paycheck's column to the cell of a row among those read last. Doesn't need the GIL.
  void set(library::Paycheck& paycheck, std::size_t row) const;

 private:
  enum class Kind { integers, reals, objects };

  /// The value of an object.
  struct Cell {
    enum { empty, integer, real, text } holds = empty;
    std::int64_t number = 0;
    double value = 0;
    std::string_view characters;
  };

  Cell cellOf(pybind11::handle object);
  Cell textOf(pybind11::object text);

  library::Column column_;
  pybind11::array array_;
  Kind kind_;
  bool single_;
  std::size_t first_ = 0;
  std::vector<Cell> cells_;              ///< The values of objects.
  std::vector<pybind11::object> texts_;  ///< Keeps their characters.
  pybind11::object missing_;             ///< pandas.NA
  pybind11::object noTime_;              ///< pandas.NaT
};

}  // namespace tallyfin::python
