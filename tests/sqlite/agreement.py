#!/usr/bin/env python3
"""agreement.py EXTENSION BATCH [ROWS]: the extension gives the figures and problems that the batch program writes."""
import pathlib
import sqlite3
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "support"))
import paychecks

extension, batch = sys.argv[1:3]
count = int(sys.argv[3]) if len(sys.argv) > 3 else 100_000
if not hasattr(sqlite3.Connection, "enable_load_extension"):
    print("skipped: this Python can't load extensions of SQLite")
    sys.exit(77)
connection = sqlite3.connect(":memory:")
connection.enable_load_extension(True)
connection.load_extension(extension)

states = connection.execute("SELECT * FROM paycheck_state").fetchall()
if states != paychecks.states(batch):
    sys.exit("paycheck_state differs from --states")

rows = paychecks.rows(count)
columns = paychecks.COLUMNS
connection.execute(f"CREATE TABLE row({', '.join(columns)})")
connection.executemany(f"INSERT INTO row VALUES ({', '.join('?' * len(columns))})", rows)
by_name = " AND ".join(f"p.{column} = r.{column}" for column in columns)
given = connection.execute(f"SELECT p.* FROM row r JOIN paycheck p ON {by_name} ORDER BY r.rowid").fetchall()

texts = [[*map(paychecks.text, row[:-1]), row[-1] or ""] for row in given]
sys.exit(paychecks.differ(texts, paychecks.worked(batch, rows), rows))
