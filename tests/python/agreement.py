#!/usr/bin/env python3
"""agreement.py BATCH [ROWS]: the module gives what the batch program gives, over many rows."""
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
results = pandas.DataFrame([results for results, _ in wanted], columns=paychecks.RESULTS, dtype=float)
results["problem"] = [problem for _, problem in wanted]
pandas.testing.assert_frame_equal(tallyfin99.work(table), results, check_exact=True)
print(f"{count} rows agree, {sum(results.problem != '')} with problems")
