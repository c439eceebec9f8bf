#!/usr/bin/env python3
"""bench/ways/threads.py [ROWS]: how much faster two threads work paychecks in Python than one, on two cores of their own.

The time that a thread waits for a core, as the kernel counts it (schedstat), is taken off, so that other work on the
machine counts for nothing. What remains is work and the wait for the interpreter's lock."""
import concurrent.futures
import pathlib
import statistics
import sys
import time

here = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(here.parent), str(here.parent.parent / "build" / "bench" / "python")]
import paychecks

paychecks.build("python")
import numpy
import pandas
import tallyfin99


def waited():
    """Seconds that this thread has waited for a core."""
    return int(pathlib.Path("/proc/thread-self/schedstat").read_text().split()[1]) / 1e9


def seconds(table):
    begin, before = time.monotonic(), waited()
    tallyfin99.work(table)
    return time.monotonic() - begin - (waited() - before)


def main():
    count = int(sys.argv[1]) if len(sys.argv) > 1 else 1_000_000
    row = numpy.arange(count)
    table = pandas.DataFrame({"income": 200 + row % 400_000 / 100, "frequency": row % 4, "status": row // 4 % 3,
                              "exemptions": row % 7, "state": row % 42})
    halves = [table.iloc[:count // 2], table.iloc[count // 2:]]
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        times = [(seconds(table), max(pool.map(seconds, halves))) for _ in range(15)]
    one, two = map(statistics.median, zip(*times))
    print(f"rows a second: one thread {count / one:,.0f}, two {count / two:,.0f}, "
          f"{statistics.median(a / b for a, b in times):.2f} times (median of 15)")


main()
