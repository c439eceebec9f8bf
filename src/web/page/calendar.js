// The kind `calendar`: shows a month, with buttons for other months; the control's date is marked.

const monthName = new Intl.DateTimeFormat('en-US', { month: 'long', year: 'numeric', timeZone: 'UTC' });
const dayName = new Intl.DateTimeFormat('en-US', { weekday: 'short', timeZone: 'UTC' });
const day = (year, month, date) => new Date(Date.UTC(year, month, date));

function leaf(text, name, onClick) {
  const button = document.createElement('button');
  button.type = 'button';
  button.textContent = text;
  button.setAttribute('aria-label', name);
  button.addEventListener('click', onClick);
  return button;
}

function draw(element, marked, year, month) {
  const table = document.createElement('table');
  const caption = table.createCaption();
  caption.textContent = monthName.format(day(year, month, 1));
  caption.setAttribute('aria-live', 'polite');
  const names = table.createTHead().insertRow();
  for (let i = 0; i < 7; ++i) {
    const name = document.createElement('th');
    name.scope = 'col';
    name.textContent = dayName.format(day(2023, 0, 1 + i)); // a Sunday comes first
    names.append(name);
  }
  const body = table.createTBody();
  const first = day(year, month, 1).getUTCDay();
  const days = day(year, month + 1, 0).getUTCDate();
  for (let cell = 0; cell < Math.ceil((first + days) / 7) * 7; ++cell) {
    const row = cell % 7 === 0 ? body.insertRow() : body.rows[body.rows.length - 1];
    const place = row.insertCell();
    const date = cell - first + 1;
    if (date < 1 || date > days) continue;
    place.textContent = date;
    if (day(year, month, date).toISOString().slice(0, 10) === marked) place.setAttribute('aria-current', 'date');
  }
  const turn = (by) => () => {
    const there = day(year, month + by, 1);
    draw(element, marked, there.getUTCFullYear(), there.getUTCMonth());
    element.querySelectorAll('button')[by < 0 ? 0 : 1].focus();
  };
  element.replaceChildren(leaf('‹', 'Previous month', turn(-1)), leaf('›', 'Next month', turn(1)), table);
}

export const calendar = {
  properties: ['date'],
  show(element, { date }) {
    const [year, month] = date.split('-').map(Number);
    draw(element, date, year, month - 1);
  },
};
