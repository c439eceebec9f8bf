from typing import Unpack

import dask.dataframe

from tallyfin99 import _Columns

def work(
    frame: dask.dataframe.DataFrame, /, *, units: bool = ..., **columns: Unpack[_Columns]
) -> dask.dataframe.DataFrame: ...
