#!/usr/bin/env python3
"""agreement.py LIBRARY BATCH [ROWS]: the C library gives the figures and problems that the batch program writes."""
import ctypes
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "support"))
import paychecks

library = ctypes.CDLL(sys.argv[1])
library.tallyfin99_column_name.restype = library.tallyfin99_result_name.restype = ctypes.c_char_p
library.tallyfin99_new.restype = ctypes.c_void_p
library.tallyfin99_free.argtypes = [ctypes.c_void_p]
library.tallyfin99_set.argtypes = [ctypes.c_void_p, ctypes.c_int, ctypes.c_char_p, ctypes.c_size_t]
library.tallyfin99_set.restype = library.tallyfin99_work.restype = ctypes.c_bool
library.tallyfin99_work.argtypes = library.tallyfin99_problem.argtypes = [ctypes.c_void_p]
library.tallyfin99_result.argtypes = [ctypes.c_void_p, ctypes.c_int]
library.tallyfin99_result.restype = ctypes.c_int64
library.tallyfin99_problem.restype = ctypes.c_char_p

names = [library.tallyfin99_column_name(column).decode() for column in range(library.tallyfin99_columns())]
results = range(library.tallyfin99_results())
assert names == paychecks.COLUMNS
assert [library.tallyfin99_result_name(result).decode() for result in results] == paychecks.RESULTS

paycheck = library.tallyfin99_new()


def worked(row):
    for column, cell in enumerate(row):
        text = cell.encode()
        assert library.tallyfin99_set(paycheck, column, text, len(text))
    has_results = library.tallyfin99_work(paycheck)
    figures = [paychecks.text_of_units(library.tallyfin99_result(paycheck, result)) if has_results else ""
               for result in results]
    return [*figures, library.tallyfin99_problem(paycheck).decode()]


rows = paychecks.rows(int(sys.argv[3]) if len(sys.argv) > 3 else 100_000)
different = paychecks.differ([worked(row) for row in rows], paychecks.worked(sys.argv[2], rows), rows)
library.tallyfin99_free(paycheck)
sys.exit(different)
