// A worksheet set as a form: numbers, words, dotted leaders, figures in a column, the result in bold, tables opened in place.

function part(tag, className, text = '') {
  const element = document.createElement(tag);
  element.className = className;
  element.textContent = text;
  return element;
}

function tableOf({ name, of, rows, used }) {
  const details = part('details', 'form-table');
  const table = document.createElement('table');
  const heading = table.createTHead().insertRow();
  for (const words of [of, 'Gives']) {
    const cell = part('th', '', words);
    cell.scope = 'col';
    heading.append(cell);
  }
  const body = table.createTBody();
  rows.forEach(([where, given], i) => {
    const row = body.insertRow();
    if (i === used) row.setAttribute('aria-current', 'true');
    row.append(part('td', '', where), part('td', '', given));
    if (i === used) row.cells[0].prepend(part('span', 'unseen', 'Used: '));
  });
  details.append(part('summary', '', `Table ${name}`), table);
  return details;
}

/** The parts of a line; a part that refers to lines has their numbers. */
function wordsOf(parts) {
  const words = part('span', 'words');
  words.append(...parts.map(([text, ...lines]) => {
    const element = part('span', lines.length > 0 ? 'names' : '', text);
    if (lines.length > 0) element.dataset.lines = lines.join(' ');
    return element;
  }));
  return words;
}

function lineOf(line, isResult, spoken) {
  const row = part('div', isResult ? 'form-line result' : 'form-line');
  row.role = 'listitem';
  if (line.line !== undefined) row.dataset.line = line.line;
  const printed = part('div', 'form-text');
  printed.append(part('span', 'line-number', line.line ?? ''), wordsOf(line.parts));
  if (line.figure !== '') printed.append(part('span', 'leader'), part('span', 'form-figure', line.figure));
  if (spoken) {
    printed.setAttribute('aria-hidden', 'true');
    row.append(part('p', 'unseen', line.spoken));
    row.ariaLabel = line.spoken;
    row.tabIndex = -1;
  }
  row.append(printed);
  if (spoken && line.table) row.append(tableOf(line.table));
  return row;
}

const lastNumber = (lines) => lines.filter(({ line }) => line !== undefined).at(-1);

/** The elements of a form. With `spoken`, each line has its text for screen readers, its table, and can have the focus. */
export function formOf({ title, lines }, { spoken = false } = {}) {
  const result = lastNumber(lines);
  const list = part('div', 'form-lines');
  list.role = 'list';
  list.append(...lines.map((line) => lineOf(line, line === result, spoken)));
  if (spoken) list.firstChild.tabIndex = 0;
  return [part('h3', '', title), list];
}

/** The form as a text: number, words and figure of each line, separated by tabs. */
export const textOf = ({ title, lines }) =>
  [title, ...lines.map(({ line, parts, figure }) => `${line ?? ''}\t${parts.map(([text]) => text).join('')}${figure === '' ? '' : `\t${figure}`}`)].join('\n');

const moves = {
  ArrowDown: (at, last) => Math.min(at + 1, last),
  ArrowUp: (at) => Math.max(at - 1, 0),
  Home: () => 0,
  End: (at, last) => last,
};

/** Whether a key has been handled by the line with the focus. */
function take(key, row) {
  const table = row.querySelector('details');
  if (moves[key]) {
    const rows = [...row.parentElement.children];
    rows[moves[key](rows.indexOf(row), rows.length - 1)].focus();
  } else if (table && (key === 'ArrowRight' || key === 'ArrowLeft')) {
    table.open = key === 'ArrowRight';
  } else return false;
  return true;
}

/** Highlights line 4 while the pointer is at the words "line 4", or while the line with these words has the focus. The arrow
 * keys move the focus from line to line, and open tables. */
export function bindForm(view) {
  let pointed = null;
  const mark = () => {
    const named = [pointed, ...view.querySelectorAll('.form-line:focus .names')].flatMap((words) => words?.dataset.lines.split(' ') ?? []);
    for (const row of view.querySelectorAll('.form-line')) row.classList.toggle('marked', named.includes(row.dataset.line));
  };
  const point = ({ target }) => {
    pointed = target.closest('.names');
    mark();
  };
  view.addEventListener('mouseover', point);
  view.addEventListener('click', point); // touch screens have no hover
  view.addEventListener('mouseleave', point);
  view.addEventListener('focusin', ({ target }) => {
    if (target.matches('.form-line')) for (const row of target.parentElement.children) row.tabIndex = row === target ? 0 : -1;
    mark();
  });
  view.addEventListener('focusout', mark);
  view.addEventListener('keydown', (event) => {
    if (event.target.matches('.form-line') && take(event.key, event.target)) event.preventDefault();
  });
}
