// Printing of an element, such as a screen: without its buttons, with complete texts and lists.

import { documentOf, frontScreen, openWindows } from './frame.js';

const at = (id) => document.getElementById(id);
let wanted = null;
let undo = [];

/** The element that the browser's own Print prints: the window in front, else the screen. */
function inFront() {
  const [box] = openWindows();
  if (box?.id === 'explanation') return at('explanation-paper');
  return box?.id === 'help' ? box : frontScreen();
}

/** Makes boxes and lists show their whole content on paper. */
function unfold(element) {
  for (const box of element.querySelectorAll('input[type=text]')) {
    const text = document.createElement('span');
    text.className = `on-paper ${box.className}`;
    text.textContent = box.value;
    box.after(text);
    undo.push(() => text.remove());
  }
  for (const list of element.querySelectorAll('select[size]')) {
    const { size } = list;
    list.size = Math.max(size, list.options.length);
    undo.push(() => { list.size = size; });
  }
}

function prepare() {
  restore();
  const element = wanted ?? inFront();
  if (!element) return;
  element.classList.add('printed');
  undo.push(() => element.classList.remove('printed'));
  unfold(element);
}

function restore() {
  for (const step of undo.reverse()) step();
  undo = [];
}

/** Prints an element. */
export function print(element) {
  wanted = element;
  window.print();
}

export const printScreen = (name) => print(documentOf(name));

export function bindPrinting() {
  window.addEventListener('beforeprint', prepare);
  window.addEventListener('afterprint', () => {
    restore();
    wanted = null;
  });
  at('print-report').addEventListener('click', () => printScreen('frmPrint'));
}
