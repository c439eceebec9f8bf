#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "library/options.h"
#include "library/paycheck.h"
#include "python/cells.h"

/// The native part of the Python package, which tallyfin99/__init__.py uses.

namespace py = pybind11;

namespace tallyfin::python {
namespace {

/// The number of rows that are worked before the GIL is taken again.
constexpr std::size_t rowsAtOnce = 8192;

/// The results of all rows, and the problems of rows that have one.
struct Worked {
  py::array figures;  ///< A row for each of the twelve results: dollars as float64, or ten-thousandths as int64.
  py::array_t<bool> missing;
  std::vector<std::pair<std::size_t, std::string>> problems;
};

std::vector<Cells> cellsOf(const std::vector<std::pair<std::size_t, py::array>>& columns, std::size_t count) {
  std::vector<Cells> cells;
  for (const auto& [column, array] : columns) {
    if (column >= library::columnCount) throw py::index_error("no such column");
    cells.emplace_back(static_cast<library::Column>(column), array);
    if (cells.back().size() != 1 && cells.back().size() != count) throw py::value_error("lengths differ");
  }
  return cells;
}

template <class Figure>
Worked workAs(std::size_t count, const std::vector<std::pair<std::size_t, py::array>>& columns,
              Figure (*figureOf)(Money), Figure none) {
  std::vector<Cells> cells = cellsOf(columns, count);
  py::array_t<Figure> figures({library::resultCount, count});
  py::array_t<bool> missing(static_cast<py::ssize_t>(count));
  Figure* const figure = figures.mutable_data();
  bool* const isMissing = missing.mutable_data();
  std::vector<std::pair<std::size_t, std::string>> problems;
  library::Paycheck paycheck;
  for (std::size_t first = 0; first < count; first += rowsAtOnce) {
    const std::size_t end = std::min(first + rowsAtOnce, count);
    for (Cells& column : cells) column.read(first, end);
    const py::gil_scoped_release withoutLock;
    for (std::size_t row = first; row < end; ++row) {
      for (const Cells& column : cells) column.set(paycheck, row);
      isMissing[row] = !paycheck.work();
      for (std::size_t result = 0; result < library::resultCount; ++result) {
        figure[result * count + row] = isMissing[row] ? none : figureOf(paycheck.result(result));
      }
      if (!paycheck.problem().empty()) problems.emplace_back(row, paycheck.problem());
    }
  }
  return {figures, missing, std::move(problems)};
}

py::tuple work(std::size_t count, const std::vector<std::pair<std::size_t, py::array>>& columns, bool units) {
  const Worked worked = units ? workAs<std::int64_t>(
                                    count, columns, [](Money amount) { return amount.units(); }, 0)
                              : workAs<double>(
                                    count, columns, [](Money amount) { return toReal(amount); },
                                    std::numeric_limits<double>::quiet_NaN());
  return py::make_tuple(worked.figures, worked.missing, worked.problems);
}

/// The title of each result with its lines.
std::vector<std::pair<std::string, std::vector<std::string>>> explain(
    const std::vector<std::pair<std::size_t, py::array>>& columns) {
  std::vector<Cells> cells = cellsOf(columns, 1);
  library::Paycheck paycheck;
  for (Cells& column : cells) {
    column.read(0, 1);
    column.set(paycheck, 0);
  }
  std::vector<std::pair<std::string, std::vector<std::string>>> titles;
  for (const Explanation& explanation : paycheck.explain()) {
    titles.emplace_back(explanation.title, explanation.printed());
  }
  return titles;
}

/// What each state reads: state, postal code, column, value, meaning.
py::list states() {
  py::list rows;
  for (const library::StateValue& entry : library::stateValues()) {
    rows.append(
        py::make_tuple(entry.state, entry.postal, library::ruleOf(entry.column).name, entry.value, entry.meaning));
  }
  return rows;
}

template <class Names>
py::tuple tupleOf(const Names& names) {
  py::list all;
  for (const auto& name : names) all.append(py::str(std::string(name)));
  return py::tuple(all);
}

py::tuple columnNames() {
  std::vector<std::string> names;
  names.reserve(library::columnRules.size());
  for (const library::ColumnRule& rule : library::columnRules) names.emplace_back(rule.name);
  return tupleOf(names);
}

}  // namespace
}  // namespace tallyfin::python

PYBIND11_MODULE(_core, module) {
  module.attr("version") = TALLYFIN_VERSION;
  module.attr("columns") = tallyfin::python::columnNames();
  module.attr("results") = tallyfin::python::tupleOf(tallyfin::library::resultNames);
  module.def("work", &tallyfin::python::work);
  module.def("explain", &tallyfin::python::explain);
  module.def("states", &tallyfin::python::states);
}
