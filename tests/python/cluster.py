"""cluster.py [ROWS [PARTITIONS]]: Dask works paychecks in worker processes on this computer. One of them is killed during
its work, and the sum must be that of the same rows worked here."""
import os
import pathlib
import signal
import sys
import tempfile
import time

import numpy
import pandas

try:
    import dask.dataframe
    import distributed
except ModuleNotFoundError:
    print("skipped: no Dask (tools/install-packages library)")
    raise SystemExit(77) from None
import tallyfin99
import tallyfin99.dask

rows = int(sys.argv[1]) if len(sys.argv) > 1 else 200_000
partitions = int(sys.argv[2]) if len(sys.argv) > 2 else 20


def partition(number):
    """Paychecks of all states and frequencies."""
    row = numpy.arange(number * rows // partitions, (number + 1) * rows // partitions)
    return pandas.DataFrame({"income": 200 + row % 400_000 / 100, "frequency": row % 4, "status": row // 4 % 3,
                             "exemptions": row % 7, "state": row % 42})


def partition_of_a_mortal(number, killed):
    """The same; the first worker that gets the partition in the middle is killed."""
    if number == partitions // 2:
        try:
            os.close(os.open(killed, os.O_CREAT | os.O_EXCL))
            os.kill(os.getpid(), signal.SIGKILL)
        except FileExistsError:
            pass
    return partition(number)


def main():
    begin = time.monotonic()
    here = sum(int(tallyfin99.work(partition(number), units=True).check_amount.sum()) for number in range(partitions))
    print(f"{rows:,} rows here: {here / 10_000:,.4f}, {time.monotonic() - begin:.1f} s", flush=True)
    with tempfile.TemporaryDirectory() as folder:
        killed = pathlib.Path(folder, "killed")
        begin = time.monotonic()
        with distributed.LocalCluster(n_workers=2, threads_per_worker=1, processes=True, host="127.0.0.1",
                                      dashboard_address=None, local_directory=folder) as cluster, \
                distributed.Client(cluster) as client:
            frame = dask.dataframe.from_map(partition_of_a_mortal, range(partitions), killed=str(killed),
                                            meta=partition(0).iloc[:0])
            lazy = tallyfin99.dask.work(frame, units=True).check_amount.sum()
            there = int(client.compute(lazy).result())
        assert killed.exists(), "no worker was killed"
    print(f"in worker processes, of which one was killed: {there / 10_000:,.4f}, {time.monotonic() - begin:.1f} s")
    return here != there


if __name__ == "__main__":
    sys.exit(main())
