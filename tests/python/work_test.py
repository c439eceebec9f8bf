"""tallyfin99.work and tallyfin99.Paycheck."""
import decimal
import threading
import unittest

import numpy
import pandas

import tallyfin99

# 1000 a week of a married person without exemptions: 118.35 + (1000 - 913) * 0.28
FEDERAL_TAX_OF_1000 = 142.71


class Work(unittest.TestCase):
    def federal_tax(self, *table, **columns):
        return tallyfin99.work(*table, **columns).federal_tax.tolist()

    def test_single_values_make_one_row(self):
        frame = tallyfin99.work(income=1000, frequency="Weekly")
        self.assertEqual(frame.shape, (1, 13))
        self.assertEqual(list(frame.columns), [*tallyfin99.results, "problem"])
        self.assertEqual(frame.federal_tax[0], FEDERAL_TAX_OF_1000)
        self.assertEqual(frame.problem[0], "")

    def test_any_kind_of_cell(self):
        for income in (1000, 1000.0, "1000", "$1,000.00", decimal.Decimal("1000.00"), numpy.int16(1000),
                       numpy.float32(1000), numpy.str_("1000")):
            for column in (income, [income], numpy.array([income]), pandas.Series([income])):
                self.assertEqual(self.federal_tax(income=column, frequency="Weekly"), [FEDERAL_TAX_OF_1000], repr(column))

    def test_any_kind_of_column(self):
        texts = pandas.Series(["Weekly", "Monthly", "Weekly"])
        for frequency in (texts, texts.astype("string"), texts.astype("category"), texts.to_numpy(), tuple(texts),
                          [0, 3, 0], pandas.Series([0, 3, 0], dtype="Int64"), numpy.array([0, 3, 0], dtype="uint8"),
                          numpy.array([0, 9, 3, 9, 0, 9])[::2], pandas.Index([0, 3, 0])):
            given = self.federal_tax(income=1000, frequency=frequency)
            self.assertEqual(sorted(given), [69.3, FEDERAL_TAX_OF_1000, FEDERAL_TAX_OF_1000], repr(frequency))

    def test_flags_are_booleans_too(self):
        for flag in (True, "Y", numpy.array([True]), pandas.Series([True], dtype="boolean"), [True]):
            self.assertEqual(tallyfin99.work(income=1000, frequency=0, self_employed=flag).fica.tolist(), [153.0], repr(flag))

    def test_missing_values_are_empty_cells(self):
        missing = pandas.Series([None, float("nan"), pandas.NA, pandas.NaT, ""], dtype=object)
        self.assertEqual(self.federal_tax(income=1000, frequency=0, rate_401k=missing), [FEDERAL_TAX_OF_1000] * 5)
        self.assertEqual(self.federal_tax(income=1000, frequency=0, exemptions=None), [FEDERAL_TAX_OF_1000])
        self.assertEqual(self.federal_tax(income=1000, frequency=0, exemptions=pandas.Series([pandas.NA], dtype="Int64")),
                         [FEDERAL_TAX_OF_1000])

    def test_a_table_keeps_its_index_and_other_columns_are_left_out(self):
        table = pandas.DataFrame({"name": ["a", "b"], " Income ": [1000, 2000], "FREQUENCY": ["Weekly", 3]}, index=["x", "y"])
        frame = tallyfin99.work(table)
        self.assertEqual(list(frame.index), ["x", "y"])
        self.assertEqual(frame.federal_tax["x"], FEDERAL_TAX_OF_1000)
        self.assertNotIn("name", frame.columns)
        self.assertEqual(self.federal_tax({"income": [1000, 1000], "frequency": "Weekly"}), [FEDERAL_TAX_OF_1000] * 2)

    def test_columns_by_name_replace_those_of_the_table(self):
        table = pandas.DataFrame({"income": [1, 2], "frequency": [0, 0]}, index=[5, 6])
        self.assertEqual(self.federal_tax(table, income=table.income * 0 + 1000), [FEDERAL_TAX_OF_1000] * 2)

    def test_no_rows(self):
        frame = tallyfin99.work(pandas.DataFrame({"income": []}), status="Single")
        self.assertEqual(frame.shape, (0, 13))
        self.assertEqual(frame.dtypes["check_amount"], numpy.float64)

    def test_rows_without_results(self):
        frame = tallyfin99.work(income=1000, frequency=["Weekly", "Daily"])
        self.assertEqual(frame.problem.tolist(), ["", "frequency: no such entry"])
        self.assertEqual(frame.check_amount.isna().tolist(), [False, True])
        units = tallyfin99.work(income=1000, frequency=["Weekly", "Daily"], units=True)
        self.assertEqual(units.federal_tax.dtype, pandas.Int64Dtype())
        self.assertEqual(units.federal_tax[0], 1427100)
        self.assertIs(units.federal_tax[1], pandas.NA)

    def test_what_is_refused(self):
        for columns, words in (({"incom": 1}, "the nearest is income"), ({"dependents": 1}, "state_dependents")):
            with self.assertRaisesRegex(KeyError, words):
                tallyfin99.work(**columns)
        with self.assertRaisesRegex(KeyError, "no column is a paycheck's: name"):
            tallyfin99.work({"name": [1]})
        with self.assertRaisesRegex(ValueError, "frequency has 2 values, others have 3"):
            tallyfin99.work(income=[1, 2, 3], frequency=[0, 0])
        with self.assertRaisesRegex(ValueError, "frequency has another index"):
            tallyfin99.work(income=pandas.Series([1, 2]), frequency=pandas.Series([0, 0], index=[1, 2]))
        with self.assertRaisesRegex(ValueError, "two columns are named income"):
            tallyfin99.work({"income": [1], "Income": [2]})
        with self.assertRaisesRegex(ValueError, "more than one dimension"):
            tallyfin99.work(income=numpy.zeros((2, 2)))
        with self.assertRaises(TypeError):
            tallyfin99.work(5)

    def test_several_threads_give_the_same(self):
        income = numpy.arange(40_000) / 4
        alone = tallyfin99.work(income=income, frequency="Weekly", state="NY")
        frames = [None] * 4

        def work(place):
            frames[place] = tallyfin99.work(income=income, frequency="Weekly", state="NY")
        threads = [threading.Thread(target=work, args=(place,)) for place in range(4)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        for frame in frames:
            pandas.testing.assert_frame_equal(frame, alone)


class Paycheck(unittest.TestCase):
    def test_results_are_decimals(self):
        paycheck = tallyfin99.Paycheck(income=1000, frequency="Weekly", state="NY")
        self.assertEqual(paycheck.federal_tax, decimal.Decimal("142.71"))
        self.assertEqual(paycheck.problem, "")

    def test_none_where_there_are_no_results(self):
        paycheck = tallyfin99.Paycheck(state="Atlantis")
        self.assertIsNone(paycheck.check_amount)
        self.assertEqual(paycheck.problem, "state: no such entry")
        self.assertEqual(paycheck.explain(), {})

    def test_explains_each_result(self):
        explained = tallyfin99.Paycheck(income=1000, frequency="Weekly").explain()
        self.assertEqual(len(explained), 12)
        self.assertIn("$142.71", "".join(explained["Federal Tax"]))

    def test_shows_itself(self):
        paycheck = tallyfin99.Paycheck(income=1000)
        self.assertIn("<td style='text-align: right'>1,000</td>", paycheck._repr_html_())
        self.assertIn("<caption>frequency: none is chosen", paycheck._repr_html_())
        self.assertIn("check_amount", repr(paycheck))

    def test_takes_single_values_alone(self):
        with self.assertRaisesRegex(ValueError, "income has several values"):
            tallyfin99.Paycheck(income=[1, 2])
        with self.assertRaises(KeyError):
            tallyfin99.Paycheck(pay=1)


if __name__ == "__main__":
    unittest.main()
