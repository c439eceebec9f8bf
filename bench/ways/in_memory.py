"""in_memory.py WAY FILE EXTENSION: works the rows of a CSV file that are in memory already. WAY is texts or numbers, as
states and other choices are given to pandas, or threads (numbers, two threads), or sqlite. Prints the seconds by the
clock, those of the processor, and the sum of the checks in ten-thousandths of a dollar."""
import concurrent.futures
import sqlite3
import sys
import time

import pandas
import tallyfin99

numbers = {"frequency": {"Weekly": 0}, "status": {"Single": 1},
           "state": {"No State": 0, "California": 4, "Illinois": 12, "Maryland": 19, "New York": 28, "Pennsylvania": 34}}


def work(table):
    return int(tallyfin99.work(table, units=True).check_amount.sum())


def prepared(way, table, extension):
    """The function to time."""
    if way == "sqlite":
        connection = sqlite3.connect(":memory:")
        connection.enable_load_extension(True)
        connection.load_extension(extension)
        table.to_sql("row", connection, index=False)
        conditions = " AND ".join(f"p.{name} = r.{name}" for name in table.columns)
        query = f"SELECT sum(CAST(round(10000 * check_amount) AS INTEGER)) FROM row r JOIN paycheck p ON {conditions}"
        return lambda: connection.execute(query).fetchone()[0]
    if way == "texts":
        return lambda: work(table)
    for name, entries in numbers.items():
        table[name] = table[name].map(entries)
    if way == "numbers":
        return lambda: work(table)
    halves = [table.iloc[:len(table) // 2], table.iloc[len(table) // 2:]]
    pool = concurrent.futures.ThreadPoolExecutor(2)
    return lambda: sum(pool.map(work, halves))


def main():
    way, file, extension = sys.argv[1:]
    timed = prepared(way, pandas.read_csv(file).drop(columns="id"), extension)
    begin, used = time.monotonic(), time.process_time()
    total = timed()
    print(time.monotonic() - begin, time.process_time() - used, total)


main()
