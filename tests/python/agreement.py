#!/usr/bin/env python3
"""agreement.py BATCH [ROWS]: the module gives the figures and problems that the batch program writes."""
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "support"))
import pandas
import paychecks
import tallyfin99

states = tallyfin99.states()
assert list(states.itertuples(index=False, name=None)) == paychecks.states(sys.argv[1])
assert list(states.columns) == ["state", "postal", "column", "value", "meaning"]

count = int(sys.argv[2]) if len(sys.argv) > 2 else 100_000
rows = paychecks.rows(count)
wanted = paychecks.worked(sys.argv[1], rows)
table = pandas.DataFrame(rows, columns=paychecks.COLUMNS)
dollars = tallyfin99.work(table)
texts = [[*map(paychecks.text, row[:-1]), row[-1]] for row in dollars.itertuples(index=False, name=None)]
units = tallyfin99.work(table, units=True)
exact = [["" if figure is pandas.NA else paychecks.text_of_units(figure) for figure in row[:-1]] + [row[-1]]
         for row in units.itertuples(index=False, name=None)]
differences = [paychecks.differ(given, wanted, rows) for given in (texts, exact)]
sys.exit(any(differences))
