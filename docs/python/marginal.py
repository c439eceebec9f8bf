#!/usr/bin/env python3
"""marginal.py FILE: plots what is withheld of one more dollar in each state, over the weekly pay of a single person."""
import sys

import matplotlib
matplotlib.use("Agg")  # a notebook leaves this line out
import matplotlib.pyplot as plt
import numpy
import pandas

import tallyfin99

# Wide steps: some states round their tax to whole dollars.
pay = numpy.arange(100, 3000, 50)
states = range(42)
table = pandas.DataFrame({"state": numpy.repeat(states, len(pay)), "income": numpy.tile(pay, len(states)),
                          "frequency": "Weekly", "status": "Single"})
checks = tallyfin99.work(table).check_amount.to_numpy().reshape(len(states), len(pay))
rates = 100 - 100 * numpy.diff(checks, axis=1) / numpy.diff(pay)

figure, axes = plt.subplots(figsize=(9, 5))
for state in states:
    axes.plot(pay[:-1], rates[state], color="tab:blue", alpha=0.25, linewidth=0.8)
axes.plot(pay[:-1], numpy.median(rates, axis=0), color="black", label="median of the states")
axes.set(xlabel="weekly pay in dollars", ylabel="withheld of one more dollar, percent", ylim=(0, 60),
         title="Marginal withholding of 1999, single")
axes.legend()
figure.savefig(sys.argv[1])
