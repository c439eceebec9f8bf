// The page: starts the program, shows its screens and stands in for the machine around it.

import * as protocol from './protocol.js';
import * as storage from './store.js';
import { addKind, bind, elementOf, refreshChanged } from './binder.js';
import { calendar } from './calendar.js';
import { report } from './report.js';
import { openHelp, openHelpOn, prepareHelp } from './help.js';
import { prepareExplanation, refreshExplanation } from './explanation.js';

const at = (id) => document.getElementById(id);
const screenElements = [...document.querySelectorAll('[data-screen]')];
let front = '';
let printed = null;

addKind('calendar', calendar);
addKind('engine', report);

/** Carries an act out and brings the page up to date with what it changed. */
function act(deed, element) {
  const before = protocol.focused();
  deed();
  update(element);
  const now = protocol.focused();
  if (now && now !== before) followFocus(now);
}

function followFocus(address) {
  const element = elementOf(address);
  if (element && element !== document.activeElement && !element.closest('.combo')?.contains(document.activeElement)) {
    element.focus({ preventScroll: false });
  }
}

function update(element) {
  const changes = refreshChanged(element);
  if (changes.length === 0 && element === undefined) return;
  const running = protocol.ask('running');
  const { shown } = protocol.ask('screens') ?? { shown: [] };
  at('ended').hidden = running;
  for (const view of screenElements) {
    const name = view.dataset.screen;
    if (view.tagName === 'DIALOG') showBox(view, shown.includes(name));
  }
  const documents = shown.filter((name) => documentOf(name));
  showDocuments(documents);
  if (changes.some((address) => address.startsWith('frmMain'))) refreshExplanation();
}

const documentOf = (name) => document.querySelector(`section[data-screen="${name}"]`);
const titleOf = (name) => protocol.ask('get', name, 'title') ?? '';

function showBox(dialog, open) {
  for (const title of dialog.querySelectorAll('[data-title]')) title.textContent = titleOf(title.dataset.title);
  if (open && !dialog.open) dialog.showModal();
  if (!open && dialog.open) dialog.close();
}

function showDocuments(names) {
  const [active = ''] = names;
  for (const view of document.querySelectorAll('section[data-screen]')) view.hidden = view.dataset.screen !== active;
  if (active) document.querySelector(`#${active}-title`).textContent = titleOf(active);
  showTabs(names);
  if (active !== front) {
    front = active;
    window.scrollTo(0, 0);
    // The focus doesn't stay behind on a screen that has gone.
    if (active && (document.activeElement === document.body || document.activeElement === null)) {
      document.querySelector(`#${active}-title`).focus();
    }
  }
}

/** The open screens, with a way to each and one to close it. */
function showTabs(names) {
  const sorted = [...names].sort();
  const wanted = sorted.join() + front + names[0];
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

/** Prints an element of the page, a screen or another. */
function print(element) {
  update();
  printed = element;
  window.print();
}

function bindPrinting() {
  // Without a word from the program the browser prints the screen in front.
  window.addEventListener('beforeprint', () => (printed ?? documentOf(front))?.classList.add('printed'));
  window.addEventListener('afterprint', () => {
    document.querySelector('.printed')?.classList.remove('printed');
    printed = null;
  });
  at('print-report').addEventListener('click', () => print(documentOf('frmPrint')));
}

function startRun() {
  act(() => protocol.tell('start'));
  document.title = titleOf('MDIOpen');
}

function eraseStorage() {
  for (const [section, keys] of Object.entries(protocol.ask('store'))) {
    for (const key of Object.keys(keys)) protocol.tell('store', 'erase', protocol.quoted(section), protocol.quoted(key));
  }
  for (const dialog of document.querySelectorAll('dialog[open]')) dialog.close();
  protocol.tell('kill');
  startRun();
}

function bindPage() {
  bind(document.body, act);
  for (const dismiss of document.querySelectorAll('[data-dismiss]')) {
    dismiss.addEventListener('click', () => dismiss.closest('dialog').close());
  }
  for (const close of document.querySelectorAll('[data-close]')) {
    close.addEventListener('click', () => act(() => protocol.tell('close', close.dataset.close)));
  }
  for (const dialog of document.querySelectorAll('dialog[data-screen]')) {
    dialog.addEventListener('cancel', (event) => {
      event.preventDefault();
      act(() => protocol.tell('close', dialog.dataset.screen));
    });
  }
  at('again').addEventListener('click', startRun);
  at('print-form').addEventListener('click', () => act(() => protocol.tell('dblclick', 'frmW4')));
  at('erase').addEventListener('click', () => at('question').showModal());
  at('erase-yes').addEventListener('click', eraseStorage);
  at('menu').addEventListener('click', () => openMenu(at('menu').getAttribute('aria-expanded') !== 'true'));
  at('bar').addEventListener('click', (event) => event.target.closest('button') && openMenu(false));
  elementOf('frmW4.Label20').addEventListener('keydown', (event) => {
    if (event.key !== 'Enter' && event.key !== ' ') return;
    event.preventDefault();
    act(() => protocol.tell(event.key === 'Enter' ? 'dblclick' : 'click', 'frmW4.Label20'));
  });
  document.addEventListener('keydown', (event) => {
    if (event.key !== 'F1') return;
    event.preventDefault();
    openHelpOn(front);
  });
}

function openMenu(open) {
  at('menu').setAttribute('aria-expanded', String(open));
}

performance.mark('opening');
await protocol.open({
  storage,
  pagePrints: (name) => print(documentOf(name)),
  pageHelps: (file, context) => openHelp(file, context === 0 ? 'index' : String(context)),
});
performance.mark('opened');
bindPage();
bindPrinting();
prepareHelp();
prepareExplanation(print);
startRun();
at('loading').hidden = true;
document.body.dataset.ready = '';
performance.mark('ready');
navigator.serviceWorker?.register('worker.js').catch(() => {}); // without one the page still works, over the network
