from decimal import Decimal
from typing import Any, Mapping, TypedDict, Unpack

import pandas

__version__: str
columns: tuple[str, ...]
results: tuple[str, ...]

class _Columns(TypedDict, total=False):
    income: Any
    rate_401k: Any
    pre_tax: Any
    pre_fica: Any
    frequency: Any
    status: Any
    exemptions: Any
    state: Any
    self_employed: Any
    state_401k: Any
    state_pre_tax: Any
    local_rate: Any
    local_base: Any
    state_dependents: Any
    illinois_dependents: Any
    state_exemptions: Any
    state_marital: Any
    state_method: Any
    state_additional: Any
    net: Any

def work(
    table: pandas.DataFrame | Mapping[str, Any] | None = ...,
    /,
    *,
    units: bool = ...,
    **columns: Unpack[_Columns],
) -> pandas.DataFrame: ...

def states() -> pandas.DataFrame: ...

class Paycheck:
    gross_pay: Decimal | None
    amt_401k: Decimal | None
    non_taxable: Decimal | None
    pre_fica_pay: Decimal | None
    federal_tax: Decimal | None
    state_tax: Decimal | None
    local_tax: Decimal | None
    fica: Decimal | None
    social_security: Decimal | None
    medicare: Decimal | None
    total_deductions: Decimal | None
    check_amount: Decimal | None
    problem: str
    def __init__(self, **columns: Unpack[_Columns]) -> None: ...
    def explain(self) -> dict[str, list[str]]: ...
    def _repr_html_(self) -> str: ...
