// The gross pay for a wanted check: a form with the columns of one paycheck.

const at = (id) => document.getElementById(id);
const dollars = new Intl.NumberFormat('en-US', { style: 'currency', currency: 'USD' });
const titles = {
  gross_pay: 'Gross pay', amt_401k: '401(k)', federal_tax: 'Federal tax', state_tax: 'State tax', local_tax: 'Local tax',
  fica: 'FICA', total_deductions: 'Total deductions', check_amount: 'Check',
};

function fill(select, entries, first) {
  if (first !== undefined) select.append(new Option(first, ''));
  select.append(...entries.map((caption) => new Option(caption)));
}

/** An element for a column for which a state offers these values. */
function fieldFor(offers) {
  const [{ value }] = offers;
  if (value === 'an amount') {
    const box = document.createElement('input');
    box.type = 'text';
    box.inputMode = 'decimal';
    return box;
  }
  const select = document.createElement('select');
  select.append(new Option('', ''));
  const [, from, to] = value.match(/^(\d+) to (\d+)$/) ?? [];
  const same = new Set(offers.map(({ meaning }) => meaning)).size < offers.length;
  if (value === 'Y or N') select.append(new Option('Yes', 'Y'), new Option('No', 'N'));
  else if (to !== undefined) for (let n = Number(from); n <= Number(to); ++n) select.append(new Option(n));
  else select.append(...offers.map((offer) => (same ? new Option(offer.value) : new Option(offer.meaning, offer.value))));
  return select;
}

/** The fields for the columns that only this state reads. */
function showState(states, name) {
  const byColumn = new Map();
  for (const offer of states) {
    if (offer.state === name) byColumn.set(offer.column, [...(byColumn.get(offer.column) ?? []), offer]);
  }
  at('state-fields').replaceChildren(...[...byColumn].flatMap(([column, offers]) => {
    const field = fieldFor(offers);
    field.name = column;
    field.id = `wanted-${column}`;
    const label = document.createElement('label');
    label.htmlFor = field.id;
    label.textContent = column === 'state_marital' ? 'Marital status for the state' : offers[0].meaning;
    return [label, field];
  }));
}

function show(result) {
  at('wanted-results').replaceChildren(...Object.entries(titles).map(([name, title]) => {
    const row = document.createElement('div');
    const [term, figure] = ['dt', 'dd'].map((tag) => document.createElement(tag));
    term.textContent = title;
    figure.textContent = result[name] === null ? '' : dollars.format(result[name]);
    row.append(term, figure);
    return row;
  }));
  at('wanted-problem').textContent = result.problem && `${result.problem[0].toUpperCase()}${result.problem.slice(1)}.`;
}

/** `lists` has the entries of columns and the values of states; `ask` sends a request to the worker. */
export function bindWanted({ entries, states }, ask) {
  const form = at('wanted');
  fill(form.elements.frequency, entries.frequency, '');
  fill(form.elements.status, entries.status);
  fill(form.elements.state, entries.state);
  form.elements.state.addEventListener('change', ({ target }) => showState(states, target.value));
  form.addEventListener('submit', async (event) => {
    event.preventDefault();
    try {
      show(await ask('paycheck', { row: Object.fromEntries(new FormData(form)) }));
    } catch (error) {
      at('wanted-results').replaceChildren();
      at('wanted-problem').textContent = `The gross pay can't be worked out: ${error.message}. Try again.`;
    }
  });
}
