"""The same on Dask DataFrames, lazily, for as many machines as the scheduler has."""
import pandas

import tallyfin99

__all__ = ["work"]


def work(frame, /, *, units=False, **columns):
    """Works a paycheck for each row of a Dask DataFrame, partition by partition, as tallyfin99.work does.

    columns: single values, which hold for all rows. Returns a Dask DataFrame; nothing is worked before it is computed.
    """
    meta = tallyfin99.work(pandas.DataFrame({"income": []}), units=units)
    meta.index = frame._meta.index
    # A column that doesn't exist raises an error at once.
    tallyfin99.work(frame._meta, units=units, **columns)
    return frame.map_partitions(tallyfin99.work, units=units, meta=meta, **columns)
