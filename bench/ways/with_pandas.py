"""with_pandas.py IN OUT: works a CSV file with pandas."""
import sys

import pandas
import tallyfin99

table = pandas.read_csv(sys.argv[1])
pandas.concat([table, tallyfin99.work(table)], axis=1).to_csv(sys.argv[2], index=False)
