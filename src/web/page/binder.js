// Binds elements to controls. An element has the address of its control; what it shows and which acts it allows depends
// on its kind. Nothing here depends on a screen.

import * as protocol from './protocol.js';

const always = ['enabled', 'visible', 'forecolor', 'backcolor', 'tooltip'];
const ink = '#20282c';

/** Elements by the address of their control: an editable drop-down has two. */
const elements = new Map();

const setText = (element, text) => {
  if (element.textContent !== text) element.textContent = text;
};

const colour = (value) => (value === 'default' ? '' : `rgb(${value})`);

/** The part of a control that is shown, hidden and coloured as a whole. */
const whole = (element) => element.closest('.option, .combo') ?? element;

const captionPlace = (element) => whole(element).querySelector(':scope > [data-caption]');

function showCaption(element, caption) {
  const place = captionPlace(element) ?? (element.querySelector('img') ? null : element);
  if (place) setText(place, caption);
}

function fillList(select, entries) {
  const now = [...select.options].map((option) => option.text);
  if (now.length === entries.length && now.every((text, i) => text === entries[i])) return;
  select.replaceChildren(...entries.map((text) => new Option(text)));
}

function showInBox(element, { text, shown, selstart, sellength }) {
  const editing = document.activeElement === element;
  const wanted = editing ? text : shown ?? text;
  if (element.value !== wanted) element.value = wanted;
  if (editing && sellength > 0) element.setSelectionRange(selstart, selstart + sellength);
  if (editing) return;
  element.scrollLeft = 0;
  element.title = element.scrollWidth > element.clientWidth ? element.value : element.dataset.tooltip ?? '';
}

function showGrid(table, { cells, kinds: kindsOfRows }) {
  const body = table.tBodies[0];
  const rows = cells.map((texts, i) => {
    const row = document.createElement('tr');
    row.dataset.row = kindsOfRows[i];
    for (const text of texts) row.insertCell().textContent = text;
    return row;
  });
  body.replaceChildren(...rows);
}

const click = (element, address) => protocol.tell('click', address);

/** A kind: the properties that it shows, how, and the commands for the user's events. */
const kinds = {
  text: {
    properties: ['text', 'shown', 'selstart', 'sellength'],
    show: showInBox,
    input: (element, address) => protocol.tell('type', address, protocol.quoted(element.value)),
  },
  list: {
    properties: ['index', 'list'],
    show(element, { index, list }) {
      fillList(element, list);
      if (element.selectedIndex !== index) element.selectedIndex = index;
    },
  },
  dropdown: {
    properties: ['text'],
    show: (element, { text }) => setText(element, text),
  },
  updown: {
    properties: ['value'],
    show: (element, { value }) => (element.value = value),
    change: (element, address) => protocol.tell('pick', address, element.value),
  },
  option: {
    properties: ['caption', 'value'],
    show(element, { caption, value }) {
      if (captionPlace(element)) showCaption(element, caption);
      element.checked = value;
    },
    click,
  },
  button: {
    properties: ['caption'],
    show: (element, { caption }) => showCaption(element, caption),
    click,
  },
  item: {
    properties: ['caption', 'highlighted'],
    show(element, { caption, highlighted }) {
      showCaption(element, caption);
      element.classList.toggle('highlighted', highlighted);
    },
    click,
  },
  image: { properties: [], click },
  label: {
    properties: ['caption'],
    show: (element, { caption }) => setText(element, caption),
    click,
    dblclick: (element, address) => protocol.tell('dblclick', address),
  },
  panel: {
    properties: ['left', 'caption'],
    show(element, { left, caption }) {
      if (captionPlace(element)) showCaption(element, caption);
      if (left < 0) element.hidden = true; // out of view
    },
  },
  grid: { properties: ['cells', 'kinds'], show: showGrid },
};

/** Adds a kind that needs more than a few lines. */
export function addKind(name, kind) {
  kinds[name] = kind;
}

function kindOf(element) {
  if (element.dataset.kind) return kinds[element.dataset.kind];
  if (element.tagName === 'SELECT') return kinds.list;
  if (element.tagName === 'BUTTON') return kinds.button;
  if (element.tagName !== 'INPUT') return kinds.label;
  return element.type === 'text' ? kinds.text : kinds.option;
}

function values(element, address) {
  const all = {};
  for (const name of [...always, ...kindOf(element).properties]) {
    const value = protocol.ask('get', address, name);
    if (value !== undefined) all[name] = value;
  }
  return all;
}

/** The tooltip: the control's text and its key. */
function tooltip(element, now) {
  const key = element.getAttribute('aria-keyshortcuts');
  return key ? `${now.tooltip || element.textContent.trim()} (${key})` : now.tooltip;
}

/** Shows the control's properties in an element. */
function refresh(element) {
  const { address } = element.dataset;
  const now = values(element, address);
  if (now.enabled === undefined) return; // its screen isn't loaded
  const part = whole(element);
  if ('disabled' in element) element.disabled = !now.enabled;
  part.classList.toggle('off', !now.enabled);
  part.hidden = !now.visible;
  const onGround = now.backcolor !== 'default' && kindOf(element) === kinds.label;
  part.style.color = now.enabled ? colour(now.forecolor) || (onGround ? ink : '') : '';
  element.style.backgroundColor = colour(now.backcolor);
  if (!element.title) element.title = element.dataset.tooltip = tooltip(element, now);
  kindOf(element).show?.(element, now);
}

/** Updates everything that changed; `also` shows a control that the user has just changed, even if the act was refused. */
export function refreshChanged(also) {
  const addresses = protocol.changed();
  for (const address of addresses) elements.get(address)?.forEach(refresh);
  if (also && !addresses.includes(also.dataset.address)) refresh(also);
  return addresses;
}

export const elementOf = (address) => elements.get(address)?.[0];

/** The addressed element at or around a node, including the text of an option. */
function addressedAt(place) {
  if (!(place instanceof Element)) return null;
  const option = place.closest('.option')?.querySelector('[data-address]');
  return option ?? place.closest('[data-address]');
}

/** The element, where it is a text box, which shows another text while it has the focus. Not a list: in some browsers a click
 * that gives it the focus has already moved its marker, and an update would undo the click. */
const boxOf = (element) => (element.dataset.address && kindOf(element) === kinds.text ? element : undefined);

/** Binds all elements below `root`. `act` runs a function and then updates the page. */
export function bind(root, act) {
  for (const element of root.querySelectorAll('[data-address]')) {
    const { address } = element.dataset;
    elements.set(address, [...(elements.get(address) ?? []), element]);
  }

  const on = (event, find = (target) => target.closest?.('[data-address]')) =>
    root.addEventListener(event, ({ target }) => {
      const element = find(target);
      const deed = element && kindOf(element)[event];
      if (deed) act(() => deed(element, element.dataset.address), element);
    });
  on('input');
  on('change');
  on('click');

  // A double click is Click and DblClick. The browser reports both clicks before the double click.
  root.addEventListener('dblclick', (event) => {
    const element = event.target.closest('[data-address]');
    if (element && !kindOf(element).dblclick) return;
    const address = element?.dataset.address ?? event.target.closest('[data-screen]')?.dataset.screen;
    if (address) act(() => protocol.tell('dblclick', address));
  });

  bindLists(root, act);
  bindPointer(root, act);

  root.addEventListener('focusin', ({ target }) => {
    const { address } = target.dataset;
    if (!address || target.getAttribute('tabindex') === '-1') return; // a heading isn't a control that can have the focus
    act(() => {
      if (protocol.focused() !== address) protocol.tell('focus', address);
    }, boxOf(target));
  });
  // A box shows its formatted text when editing ends.
  root.addEventListener('focusout', ({ target }) => {
    if (boxOf(target)) setTimeout(() => act(() => {}, target));
  });
}

/** A list takes a choice at once, one with data-choose="enter" a click or Enter. */
function bindLists(root, act) {
  const listOf = ({ target }) => target.closest?.('select[data-address]');
  const pick = (list) => act(() => protocol.tell('pick', list.dataset.address, list.selectedIndex), list);
  let byKey = false;
  let picked = false;

  root.addEventListener('change', (event) => {
    const list = listOf(event);
    if (!list || (byKey && list.dataset.choose === 'enter')) return;
    picked = true;
    pick(list);
  });
  root.addEventListener('pointerdown', () => {
    byKey = false;
    picked = false;
  });
  root.addEventListener('click', (event) => {
    const list = listOf(event);
    if (list && event.target.tagName === 'OPTION' && !picked) pick(list); // a click on the chosen entry chooses it again
  });
  root.addEventListener('keydown', (event) => {
    byKey = true;
    const list = listOf(event);
    if (event.key !== 'Enter' || list?.dataset.choose !== 'enter' || list.selectedIndex < 0) return;
    event.preventDefault(); // the choice may move the focus to a button, which the key must not press
    pick(list);
  });
}

function bindPointer(root, act) {
  let under = null;
  const turnTo = (element) => {
    if (element === under) return;
    const before = under;
    under = element;
    act(() => {
      if (before) protocol.tell('leave', before.dataset.address);
      if (element) protocol.tell('enter', element.dataset.address);
    });
  };
  root.addEventListener('mouseover', ({ target }) => turnTo(addressedAt(target)));
  root.addEventListener('mouseleave', () => turnTo(null));
  root.addEventListener('mousemove', ({ target }) => {
    const element = addressedAt(target);
    if (element) act(() => protocol.tell('move', element.dataset.address));
  });
}
