// Drop-downs: a box or a button, the control's element, and the list of its entries while it is open. Letters typed on a
// closed one open it. Arrow keys move the marker; a click or Enter chooses; Escape changes nothing.

import * as protocol from './protocol.js';

const pause = 1000; // milliseconds after which typed letters start a new search

let act;
let open = null; // { box, list, marked, typed, at }
let edited = null; // the editable box whose text has been typed and not chosen

const entriesOf = (box) => protocol.ask('get', box.dataset.address, 'list') ?? [];
const choose = (box, number) => {
  edited = null;
  act(() => protocol.tell('pick', box.dataset.address, number), box);
};
const isEditable = (box) => box.tagName === 'INPUT';
const beginsWith = (text, beginning) => text.toLowerCase().startsWith(beginning.toLowerCase());

/** Moves the marker; -1 marks nothing. */
function mark(number) {
  open.marked = number;
  [...open.list.children].forEach((row, i) => row.setAttribute('aria-selected', String(i === number)));
  const row = open.list.children[number];
  row?.scrollIntoView({ block: 'nearest' });
  if (row) open.box.setAttribute('aria-activedescendant', row.id);
  else open.box.removeAttribute('aria-activedescendant');
}

function show(box) {
  if (open?.box === box || box.disabled) return;
  close();
  const list = document.createElement('ul');
  list.id = `${box.id}-entries`;
  list.role = 'listbox';
  list.ariaLabel = box.labels[0]?.textContent ?? box.ariaLabel;
  list.append(
    ...entriesOf(box).map((text, i) => {
      const row = document.createElement('li');
      row.id = `${list.id}-${i}`;
      row.role = 'option';
      row.textContent = text;
      return row;
    }),
  );
  list.addEventListener('mousedown', (event) => event.preventDefault()); // the box keeps the focus
  list.addEventListener('click', ({ target }) => {
    const number = [...list.children].indexOf(target);
    close();
    if (number >= 0) choose(box, number);
  });
  box.parentElement.append(list);
  box.setAttribute('aria-expanded', 'true');
  box.setAttribute('aria-controls', list.id);
  open = { box, list, marked: -1, typed: '', at: 0 };
  mark(protocol.ask('get', box.dataset.address, 'index') ?? -1);
  list.scrollIntoView({ block: 'nearest' });
}

function close() {
  if (!open) return;
  const { box, list } = open;
  open = null;
  list.remove();
  box.setAttribute('aria-expanded', 'false');
  box.removeAttribute('aria-controls');
  box.removeAttribute('aria-activedescendant');
}

/** The first entry from a row on that begins with a text, or -1. */
function find(beginning, from = 0) {
  const rows = [...open.list.children];
  return rows.findIndex((row, i) => i >= from && beginsWith(row.textContent, beginning));
}

/** Marks the entry that begins with the typed letters; the same letter repeated moves through its entries. */
function search(letter, at) {
  if (at - open.at > pause) open.typed = '';
  open.at = at;
  const wanted = open.typed + letter;
  let row = find(wanted);
  if (row < 0 && [...wanted].every((one) => one === letter)) {
    row = find(letter, open.marked + 1);
    if (row < 0) row = find(letter);
  }
  if (row < 0) return;
  open.typed = wanted;
  mark(row);
}

/** The new marker for each key in an open list, from the marker and the last row. */
const moves = {
  ArrowDown: (marked, last) => Math.min(marked + 1, last),
  ArrowUp: (marked) => Math.max(marked - 1, 0),
  PageDown: (marked, last) => Math.min(marked + 10, last),
  PageUp: (marked) => Math.max(marked - 10, 0),
  Home: () => 0,
  End: (marked, last) => last,
};

/** Chooses the entry that equals an editable text, in any letter case. */
function chooseTyped(box) {
  const wanted = box.value.toLowerCase();
  const number = entriesOf(box).findIndex((text) => text.toLowerCase() === wanted);
  if (number >= 0) choose(box, number);
  edited = null;
}

/** Whether a key has been handled. */
function take(box, event) {
  const { key } = event;
  const opened = open?.box === box;
  const letter = key.length === 1 && !event.ctrlKey && !event.metaKey && !event.altKey;
  if (key === 'Escape' && opened) close();
  else if (key === 'F4' || (event.altKey && (key === 'ArrowDown' || key === 'ArrowUp'))) opened ? close() : show(box);
  else if (key === 'Enter' || (key === ' ' && !isEditable(box) && !open?.typed)) {
    if (!opened) return isEditable(box) ? (chooseTyped(box), true) : (show(box), true);
    const { marked } = open;
    close();
    if (marked >= 0) choose(box, marked);
  } else if (moves[key] && !(isEditable(box) && (key === 'Home' || key === 'End'))) {
    if (opened) mark(moves[key](open.marked, open.list.children.length - 1));
    else show(box);
  } else if (letter && !isEditable(box)) {
    show(box);
    search(key, event.timeStamp);
  } else return false;
  return true;
}

/** Binds all drop-downs below `root`; `carryOut` runs an act and updates the page. */
export function bindDropDowns(root, carryOut) {
  act = carryOut;
  const boxOf = ({ target }) => (target.role === 'combobox' ? target : null);
  root.addEventListener('keydown', (event) => {
    const box = boxOf(event);
    if (box && take(box, event)) event.preventDefault();
  });
  root.addEventListener('pointerdown', (event) => {
    if (open && !open.box.parentElement.contains(event.target)) close();
  });
  root.addEventListener('mousedown', (event) => {
    const arrow = event.target.closest('.combo .arrow');
    if (arrow) event.preventDefault(); // the focus goes to the box
  });
  // A click on the label gives a drop-down the focus, like a box. By default it would press the button and open the list.
  root.addEventListener('click', (event) => {
    const box = event.target.closest('label')?.control;
    if (box?.role !== 'combobox') return;
    event.preventDefault();
    box.focus();
  });
  root.addEventListener('click', ({ target }) => {
    const arrow = target.closest('.combo .arrow');
    const box = arrow ? arrow.parentElement.querySelector('[role=combobox]') : target.closest('button[role=combobox]');
    if (!box || box.disabled) return;
    if (open?.box === box) return close();
    box.focus();
    show(box);
  });
  root.addEventListener('input', (event) => {
    const box = boxOf(event);
    if (!box) return;
    edited = box;
    if (open?.box === box) mark(find(box.value));
  });
  root.addEventListener('focusout', (event) => {
    const box = boxOf(event);
    if (!box) return;
    if (open?.box === box) close();
    if (edited === box) chooseTyped(box);
  });
}
