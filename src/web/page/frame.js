// The frame around the screens: the one in front, its title, its tab, its item in the list bar, and the focus.

import * as protocol from './protocol.js';
import { elementOf } from './binder.js';
import { followHistory } from './history.js';

const at = (id) => document.getElementById(id);
const screenElements = [...document.querySelectorAll('[data-screen]')];
const documentElements = screenElements.filter((view) => view.tagName !== 'DIALOG');
const boxes = screenElements.filter((view) => view.tagName === 'DIALOG');
/** What had the focus when a screen was left, while it stays open behind another. */
const left = new Map();
let open = [];

export const documentOf = (name) => documentElements.find((view) => view.dataset.screen === name);
const titleOf = (name) => protocol.ask('get', name, 'title') ?? '';
const front = () => open[0] ?? '';

export const frontScreen = () => documentOf(front());

/** Screens and windows that can be closed, the one in front first. */
export const openWindows = () => [...document.querySelectorAll('dialog[open]')].reverse();
export const countOpen = () => open.length + openWindows().length;

/** Closes the window or screen in front; `act` runs acts. Presses the screen's data-way-back button, where it has one. */
export function closeFront(act) {
  const [box] = openWindows();
  if (box?.dataset.screen) return act(() => protocol.tell('close', box.dataset.screen));
  if (box) return box.close();
  const name = front();
  const view = documentOf(name);
  const ways = [...view.querySelectorAll('[data-way-back]')].filter((button) => button.checkVisibility() && !button.disabled);
  act(() => ways.length === 0 || protocol.tell('click', ways[0].dataset.address) !== 'ok' ? protocol.tell('close', name) : 'ok');
}

const usable = (element) => element?.isConnected && element.checkVisibility({ visibilityProperty: true }) && !element.disabled;

/** The heading of the screen or window in front; of its page, where it has several. */
function headingOf(view) {
  const page = [...view.querySelectorAll('[data-kind=panel] .heading')].find((heading) => heading.checkVisibility());
  page?.setAttribute('tabindex', '-1');
  return page ?? view.querySelector('[data-title]');
}

/** Gives the focus to the element that had it before, or to the heading. */
export function moveFocus() {
  const view = frontScreen();
  if (!view) return (at('ended').hidden ? document.querySelector('h1') : at('again')).focus();
  const before = left.get(front());
  (usable(before) ? before : headingOf(view)).focus();
}

/** Moves the focus where its element has been hidden or removed. */
export function keepFocus() {
  if (openWindows().length > 0 || !at('failure').hidden) return;
  if (document.activeElement === document.body || !usable(document.activeElement)) moveFocus();
}

/** Moves the focus to the control to which the program has moved it. */
export function followFocus(address) {
  const element = elementOf(address);
  if (element && element !== document.activeElement && !element.closest('.combo')?.contains(document.activeElement)) element.focus();
}

function showBox(dialog, shown) {
  for (const title of dialog.querySelectorAll('[data-title]')) title.textContent = titleOf(title.dataset.title);
  if (shown && !dialog.open) dialog.showModal();
  if (!shown && dialog.open) dialog.close();
}

/** Updates the frame. `fromBar` is set for an act of the list bar; `act` runs the acts of the tabs. */
export function updateFrame({ fromBar, act }) {
  const { shown } = protocol.ask('screens') ?? { shown: [] };
  at('ended').hidden = protocol.ask('running');
  const names = shown.filter((name) => documentOf(name));
  const before = open;
  const [active = ''] = names;
  const returns = before.includes(active) && before[0] !== active;
  if (before.length > 0 && documentOf(before[0]).contains(document.activeElement)) left.set(before[0], document.activeElement);
  if (!returns) left.delete(active);
  open = names;

  for (const view of documentElements) view.hidden = view.dataset.screen !== active;
  for (const box of boxes) showBox(box, shown.includes(box.dataset.screen));
  const title = active ? titleOf(active) : '';
  if (active) frontScreen().querySelector(`#${active}-title`).textContent = title;
  const program = titleOf('MDIOpen') || 'Tallyfin 99';
  document.title = title ? `${title} - ${program}` : program;
  showTabs(names, act);
  for (const item of document.querySelectorAll('#bar [data-opens]')) {
    if (item.dataset.opens === active) item.setAttribute('aria-current', 'page');
    else item.removeAttribute('aria-current');
  }

  if (active !== (before[0] ?? '')) {
    window.scrollTo(0, 0);
    turnKeys(before[0], active);
  }
  if (openWindows().length === 0 && (active !== (before[0] ?? '') || (fromBar && at('failure').hidden))) moveFocus();
  followHistory();
}

/** Makes the data-letter letters of the screen in front access keys. */
function turnKeys(from, to) {
  for (const part of documentOf(from)?.querySelectorAll('[data-letter]') ?? []) part.accessKey = '';
  for (const part of documentOf(to)?.querySelectorAll('[data-letter]') ?? []) part.accessKey = part.dataset.letter;
}

/** The tabs of the open screens, each with a button that closes it. */
function showTabs(names, act) {
  const sorted = [...names].sort();
  const wanted = `${sorted} ${names[0]}`;
  const tabs = at('tabs');
  if (tabs.dataset.shows === wanted) return;
  tabs.dataset.shows = wanted;
  tabs.hidden = names.length === 0;
  tabs.replaceChildren(
    ...sorted.map((name) => {
      const tab = document.createElement('span');
      const title = titleOf(name);
      tab.append(
        button(title, () => act(() => protocol.tell('click', name)), name === names[0]),
        button('×', () => act(() => protocol.tell('close', name)), false, `Close ${title}`),
      );
      return tab;
    }),
  );
}

function button(text, onClick, current, name) {
  const element = document.createElement('button');
  element.type = 'button';
  element.textContent = text;
  if (current) element.setAttribute('aria-current', 'page');
  if (name) element.setAttribute('aria-label', name);
  element.addEventListener('click', onClick);
  return element;
}
