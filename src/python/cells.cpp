#include "python/cells.h"

#include <utility>

namespace py = pybind11;

namespace tallyfin::python {

Cells::Cells(library::Column column, py::array array)
    : column_(column), array_(std::move(array)), single_(array_.size() == 1) {
  if (array_.dtype().is(py::dtype::of<std::int64_t>())) {
    kind_ = Kind::integers;
  } else if (array_.dtype().is(py::dtype::of<double>())) {
    kind_ = Kind::reals;
  } else if (array_.dtype().kind() == 'O') {
    kind_ = Kind::objects;
    missing_ = py::module_::import("pandas").attr("NA");
    noTime_ = py::module_::import("pandas").attr("NaT");
  } else {
    throw py::value_error("an array of neither int64, float64 nor objects");
  }
}

void Cells::read(std::size_t first, std::size_t end) {
  first_ = first;
  if (kind_ != Kind::objects || (single_ && !cells_.empty())) return;
  cells_.clear();
  texts_.clear();
  const auto* objects = static_cast<PyObject* const*>(array_.data());
  if (single_) {
    cells_.push_back(cellOf(objects[0]));
  } else {
    for (std::size_t row = first; row < end; ++row) cells_.push_back(cellOf(objects[row]));
  }
}

void Cells::set(library::Paycheck& paycheck, std::size_t row) const {
  const std::size_t place = single_ ? 0 : row;
  if (kind_ == Kind::integers) {
    paycheck.setInteger(column_, static_cast<const std::int64_t*>(array_.data())[place]);
  } else if (kind_ == Kind::reals) {
    paycheck.setReal(column_, static_cast<const double*>(array_.data())[place]);
  } else {
    const Cell& cell = cells_[single_ ? 0 : row - first_];
    switch (cell.holds) {
      case Cell::integer: paycheck.setInteger(column_, cell.number); break;
      case Cell::real: paycheck.setReal(column_, cell.value); break;
      default: paycheck.set(column_, cell.characters); break;
    }
  }
}

Cells::Cell Cells::cellOf(py::handle object) {
  if (PyUnicode_Check(object.ptr())) return textOf(py::reinterpret_borrow<py::object>(object));
  if (object.is_none() || object.is(missing_) || object.is(noTime_)) return {};
  Cell cell;
  if (PyFloat_Check(object.ptr())) {
    cell.holds = Cell::real;
    cell.value = PyFloat_AS_DOUBLE(object.ptr());
    return cell;
  }
  if (PyIndex_Check(object.ptr()) != 0) {
    const auto number = py::reinterpret_steal<py::object>(PyNumber_Index(object.ptr()));
    if (!number) throw py::error_already_set();
    int overflow = 0;
    cell.holds = Cell::integer;
    cell.number = PyLong_AsLongLongAndOverflow(number.ptr(), &overflow);
    if (overflow == 0) return cell;
  }
  return textOf(py::str(object));
}

Cells::Cell Cells::textOf(py::object text) {
  Py_ssize_t size = 0;
  const char* characters = PyUnicode_AsUTF8AndSize(text.ptr(), &size);
  if (characters == nullptr) throw py::error_already_set();
  Cell cell;
  cell.holds = Cell::text;
  cell.characters = {characters, static_cast<std::size_t>(size)};
  texts_.push_back(std::move(text));
  return cell;
}

}  // namespace tallyfin::python
