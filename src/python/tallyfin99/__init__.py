"""Withholding from United States paychecks of tax year 1999.

    >>> import tallyfin99
    >>> tallyfin99.work(income=[1000, 1200], frequency="Weekly", status="Single", state="NY").check_amount
    >>> tallyfin99.Paycheck(income=1000, frequency="Weekly").federal_tax

The columns of a paycheck are in `columns`, its results in `results`; `man tallyfin99-batch` says what each holds.
"""
import collections.abc
import decimal
import difflib
import html

import numpy
import pandas

from . import _core

__version__ = _core.version
columns = _core.columns
results = _core.results

__all__ = ["Paycheck", "columns", "results", "states", "work"]


def work(table=None, /, *, units=False, **columns):
    """Works a paycheck for each row.

    table: a DataFrame or a mapping of columns; those that aren't a paycheck's are left out of the answer.
    columns: arrays, Series or single values; they replace the table's of that name. Missing values are empty cells.
    units: ten-thousandths of a dollar as Int64 instead of dollars as float64.

    Returns a DataFrame on the table's index: the twelve results, missing where a row has none, and `problem`, empty for
    none. Raises KeyError for a column that doesn't exist, and ValueError for lengths or indexes that differ.
    """
    given, index = _gather(table, columns)
    arrays = [(place, _array(name, value)) for name, place, value in given]
    length = _length([name for name, _, _ in given], arrays, index)
    if index is None:
        index = pandas.RangeIndex(length)
    figures, missing, problems = _core.work(length, arrays, units)
    if units:
        frame = pandas.DataFrame({name: pandas.arrays.IntegerArray(row, missing.copy())
                                  for name, row in zip(results, figures)}, index=index)
    else:
        frame = pandas.DataFrame(figures.T, columns=list(results), index=index)
    texts = numpy.full(length, "", dtype=object)
    for row, text in problems:
        texts[row] = text
    frame["problem"] = texts
    return frame


class Paycheck:
    """One paycheck: its results as decimal.Decimal (None where there are none), and its `problem`, empty for none."""

    __slots__ = ("_given", "problem", *results)

    def __init__(self, **columns):
        given, _ = _gather(None, columns)
        self._given = [(place, _array(name, value, single=True)) for name, place, value in given]
        figures, missing, problems = _core.work(1, self._given, True)
        for name, units in zip(results, figures[:, 0].tolist()):
            setattr(self, name, None if missing[0] else decimal.Decimal(units).scaleb(-4))
        self.problem = problems[0][1] if problems else ""

    def explain(self):
        """How each result comes about: a dict of its title to its lines. Empty where there are no results."""
        return dict(_core.explain(self._given))

    def _repr_html_(self):
        rows = "".join(f"<tr><th style='text-align: left'>{name}</th><td style='text-align: right'>{_text(self, name)}</td></tr>"
                       for name in results)
        problem = f"<caption>{html.escape(self.problem)}</caption>" if self.problem else ""
        return f"<table>{problem}{rows}</table>"

    def __repr__(self):
        return "\n".join([f"{name:16} {_text(self, name):>15}" for name in results] + [self.problem] * bool(self.problem))


def states():
    """What each state reads, as a DataFrame: a row for each value that a column takes, and what it means."""
    return pandas.DataFrame(_core.states(), columns=["state", "postal", "column", "value", "meaning"])


def _text(paycheck, name):
    amount = getattr(paycheck, name)
    return "" if amount is None else f"{amount:,.4f}".rstrip("0").rstrip(".")


def _place(name):
    """The number of a column, letter case and blanks aside; None for none."""
    name = str(name).strip(" \t").lower()
    return columns.index(name) if name in columns else None


def _gather(table, by_name):
    """The columns as (name, number, value), and the index of the answer; None where nothing has one."""
    given = {}
    index = getattr(table, "index", None)
    if table is not None:
        if not isinstance(table, (pandas.DataFrame, collections.abc.Mapping)):
            raise TypeError(f"neither a DataFrame nor a mapping: {type(table).__name__}")
        for name in table.keys():
            place = _place(name)
            if place in given:
                raise ValueError(f"two columns are named {columns[place]}")
            if place is not None:
                given[place] = table[name]
        if not given and not by_name:
            raise KeyError(f"no column is a paycheck's: {', '.join(map(str, table.keys()))}")
    for name, value in by_name.items():
        place = _place(name)
        if place is None:
            near = difflib.get_close_matches(name.lower(), columns, 1, 0)[0]
            raise KeyError(f"{name}: no such column; the nearest is {near}")
        given[place] = value
    for place, value in given.items():
        if isinstance(value, pandas.Series):
            if index is None:
                index = value.index
            elif not index.equals(value.index):
                raise ValueError(f"{columns[place]} has another index")
    return [(columns[place], place, value) for place, value in sorted(given.items())], index


def _array(name, value, single=False):
    """The cells as an array of int64, float64 or objects."""
    if isinstance(value, (pandas.Series, pandas.Index)) and not isinstance(value.dtype, numpy.dtype):
        value = value.astype(object).to_numpy()
    if not isinstance(value, numpy.ndarray):
        value = numpy.asarray(value) if isinstance(value, pandas.Series) else _objects(value)
    if value.ndim > 1 or (single and value.ndim == 1):
        raise ValueError(f"{name} has {'several values' if single else 'more than one dimension'}")
    if value.dtype.kind in "bi":
        value = value.astype(numpy.int64, copy=False)
    elif value.dtype.kind == "f":
        value = value.astype(numpy.float64, copy=False)
    elif value.dtype.kind != "O":
        value = value.astype(object)
    return value if value.ndim == 0 else numpy.ascontiguousarray(value)


def _objects(value):
    """A list of any values keeps them as they are; anything else that isn't an array is a single value."""
    if isinstance(value, (str, bytes)) or not hasattr(value, "__iter__"):
        single = numpy.empty((), dtype=object)
        single[()] = value
        return single
    if hasattr(value, "__array__"):
        return numpy.asarray(value)
    values = list(value)
    array = numpy.empty(len(values), dtype=object)
    array[:] = values
    return array


def _length(names, arrays, index):
    """How many rows there are."""
    length = None if index is None else len(index)
    for name, (_, array) in zip(names, arrays):
        if array.ndim == 0:
            continue
        if length is not None and len(array) != length:
            raise ValueError(f"{name} has {len(array)} values, others have {length}")
        length = len(array)
    return 1 if length is None else length
