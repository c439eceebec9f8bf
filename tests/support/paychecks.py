"""Random paychecks as rows: amounts, choices in all spellings, empty cells, and some that can't be understood. The same seed
gives the same rows."""
import csv
import random
import subprocess

COLUMNS = ["income", "rate_401k", "pre_tax", "pre_fica", "frequency", "status", "exemptions", "state", "self_employed",
           "state_401k", "state_pre_tax", "local_rate", "local_base", "state_dependents", "illinois_dependents",
           "state_exemptions", "state_marital", "state_method", "state_additional", "net"]
RESULTS = ["gross_pay", "amt_401k", "non_taxable", "pre_fica_pay", "federal_tax", "state_tax", "local_tax", "fica",
           "social_security", "medicare", "total_deductions", "check_amount"]
STATES = [*map(str, range(42)), "Alabama", "NY", "new york", "Mass.", "Massachusetts", "Texas", "DC", "Pennsylvania"]


def _amount(chance, largest):
    cents = int(10 ** chance.uniform(0, largest))
    return chance.choice([f"{cents / 100:.2f}", f"{cents // 100}", f"${cents / 100:,.2f}", f"{cents / 10000:.4f}"])


def _cell(chance, column):
    if chance.random() < 0.002:
        return chance.choice(["Atlantis", "-1", "1e3", "70000", "Maybe", "é"])
    if column == "income":
        return _amount(chance, 7)
    if column == "frequency":
        return chance.choice(["Weekly", "Twice A Month", "Every Two Weeks", "Monthly", "biweekly", "0", "1", "2.0", "3"])
    if column == "state":
        return chance.choice(STATES)
    if column == "net" or chance.random() < 0.5:
        return ""
    if column in ("rate_401k", "local_rate"):
        return chance.choice(["0", "6", ".05", "15.5", "1.25"])
    if column in ("pre_tax", "pre_fica", "state_additional"):
        return _amount(chance, 4)
    if column == "status":
        return chance.choice(["Married", "Single", "Married Claiming Single", "0", "1", "2"])
    if column == "exemptions":
        return str(chance.randint(0, 15))
    if column in ("self_employed", "state_401k", "state_pre_tax"):
        return chance.choice(["Y", "N", "Yes", "no", "True", "0"])
    if column == "local_base":
        return str(chance.randint(1, 5))
    return str(chance.randint(0, 4))


def rows(count, seed=99):
    """That many rows, each a list of texts in the order of the columns."""
    chance = random.Random(seed)
    return [[_cell(chance, column) for column in COLUMNS] for _ in range(count)]


def text(amount):
    """Dollars as the batch program writes them; None and NaN as no text."""
    if amount is None or amount != amount:
        return ""
    return repr(float(amount)).removesuffix(".0")


def text_of_units(units):
    """Ten-thousandths of a dollar, as the batch program writes them."""
    sign = "-" if units < 0 else ""
    return f"{sign}{abs(units) // 10_000}.{abs(units) % 10_000:04}".rstrip("0").rstrip(".")


def worked(batch, all_rows):
    """The batch program's output for the rows: for each row the twelve results and the problem, as texts."""
    cells = "\n".join(",".join(f'"{cell}"' for cell in row) for row in [COLUMNS, *all_rows]) + "\n"
    answer = subprocess.run([batch, "--problems-ok", "--quiet"], input=cells, stdout=subprocess.PIPE,
                            stderr=subprocess.DEVNULL, text=True, check=True)
    lines = csv.reader(answer.stdout.splitlines())
    assert next(lines) == [*COLUMNS, *RESULTS, "problem"]
    return [line[20:] for line in lines]


def differ(given, wanted, all_rows):
    """Compares texts by rows, prints what was found and returns whether any differ."""
    assert len(given) == len(wanted) == len(all_rows)
    different = [three for three in zip(all_rows, given, wanted) if three[1] != three[2]]
    print(f"{len(wanted):,} rows, {sum(row[-1] != '' for row in wanted):,} with problems, {len(different):,} different")
    for three in different[:3]:
        print(*three, sep="\n")
    return bool(different)


def states(batch):
    """The batch program's output for --states, without its header: tuples of texts."""
    answer = subprocess.run([batch, "--states"], stdout=subprocess.PIPE, text=True, check=True)
    return [tuple(line) for line in csv.reader(answer.stdout.splitlines())][1:]
