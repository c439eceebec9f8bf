from typing import Any

import dask.dataframe

def work(frame: dask.dataframe.DataFrame, /, *, units: bool = ..., **columns: Any) -> dask.dataframe.DataFrame: ...
