"""tallyfin99.dask."""
import unittest

import numpy
import pandas

try:
    import dask.dataframe
except ModuleNotFoundError:
    print("skipped: no Dask (tools/install-packages library)")
    raise SystemExit(77) from None
import tallyfin99
import tallyfin99.dask


class Dask(unittest.TestCase):
    def setUp(self):
        self.table = pandas.DataFrame({"income": numpy.arange(1000) * 7.25, "frequency": "Weekly", "id": 1})
        self.frame = dask.dataframe.from_pandas(self.table, npartitions=4)

    def test_gives_what_pandas_gives(self):
        for units in (False, True):
            lazy = tallyfin99.dask.work(self.frame, status="Single", units=units)
            wanted = tallyfin99.work(self.table, status="Single", units=units)
            self.assertIsInstance(lazy, dask.dataframe.DataFrame)
            self.assertEqual(lazy.dtypes.tolist(), wanted.dtypes.tolist())
            for scheduler in ("threads", "sync"):
                pandas.testing.assert_frame_equal(lazy.compute(scheduler=scheduler), wanted)

    def test_an_unknown_column_is_refused_before_the_work(self):
        with self.assertRaises(KeyError):
            tallyfin99.dask.work(self.frame, stat="Single")


if __name__ == "__main__":
    unittest.main()
