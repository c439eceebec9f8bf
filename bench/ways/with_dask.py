"""with_dask.py IN OUT: works a CSV file with Dask, in a worker process for each core."""
import os
import sys

import dask.dataframe
import distributed
import pandas
import tallyfin99


def worked(table):
    return pandas.concat([table, tallyfin99.work(table)], axis=1)


if __name__ == "__main__":
    with distributed.LocalCluster(n_workers=os.cpu_count(), threads_per_worker=1, host="127.0.0.1",
                                  dashboard_address=None) as cluster, distributed.Client(cluster):
        table = dask.dataframe.read_csv(sys.argv[1], blocksize=10_000_000)
        table.map_partitions(worked).to_csv(sys.argv[2], index=False, single_file=True)
