// The main module: starts the program, carries out the user's acts, and provides the platform functions.

import * as protocol from './protocol.js';
import * as storage from './store.js';
import { addKind, bind, elementOf, refreshChanged } from './binder.js';
import { bindDropDowns } from './dropdown.js';
import { bindPasting } from './paste.js';
import { calendar } from './calendar.js';
import { fit, report } from './report.js';
import { bindHistory, followHistory } from './history.js';
import { bindLink, withdrawLink } from './link.js';
import { bindPrinting, print, printScreen } from './printing.js';
import { closeFront, countOpen, followFocus, frontScreen, keepFocus, moveFocus, updateFrame } from './frame.js';
import { openHelp, openHelpOn, prepareHelp } from './help.js';
import { prepareExplanation, refreshExplanation } from './explanation.js';
import { startWorker, watched } from './notices.js';

const at = (id) => document.getElementById(id);
const calculate = 'frmMain.cmdToolBar(0)';

addKind('calendar', calendar);
addKind('engine', report);

/** Carries out an act and updates the page with its changes. */
function act(deed, element) {
  const before = protocol.focused();
  const had = document.activeElement;
  deed();
  const now = protocol.focused();
  update(element);
  if (now && now !== before) followFocus(now);
  if (had !== document.body) keepFocus();
  if (element?.dataset.address === calculate) showResults();
}

function update(element) {
  const changes = refreshChanged(element);
  if (changes.length === 0 && element === undefined) return;
  updateFrame({ fromBar: at('bar').contains(element ?? null), act });
  if (changes.some((address) => address.startsWith('frmMain'))) {
    refreshExplanation();
    sayWhyNoFederalTax();
    withdrawLink();
  }
}

/** Scrolls the check and the button of its explanation into view. */
function showResults() {
  at('explain').scrollIntoView({ block: 'nearest' });
}

/** Shows a hint while no frequency is chosen, because there is no federal tax without one. */
function sayWhyNoFederalTax() {
  const cells = protocol.ask('get', 'frmMain.dbgDisplay', 'cells') ?? [];
  at('no-frequency').hidden = cells.length === 0 || protocol.ask('get', 'frmMain.lstFrequency', 'index') !== -1;
}

function startRun() {
  act(() => protocol.tell('start'), at('again'));
}

function eraseStorage() {
  for (const [section, keys] of Object.entries(protocol.ask('store'))) {
    for (const key of Object.keys(keys)) protocol.tell('store', 'erase', protocol.quoted(section), protocol.quoted(key));
  }
  for (const dialog of document.querySelectorAll('dialog[open]')) dialog.close();
  protocol.tell('kill');
  startRun();
  refreshExplanation();
}

/** Opens a dialog of the web app. */
function openWindow(dialog) {
  dialog.showModal();
  followHistory();
}

function bindWindows() {
  for (const dismiss of document.querySelectorAll('[data-dismiss]')) {
    dismiss.addEventListener('click', () => dismiss.closest('dialog').close());
  }
  for (const close of document.querySelectorAll('[data-close]')) {
    close.addEventListener('click', () => act(() => protocol.tell('close', close.dataset.close)));
  }
  for (const dialog of document.querySelectorAll('dialog')) {
    dialog.addEventListener('close', () => {
      keepFocus();
      followHistory();
    });
    if (!dialog.dataset.screen) continue;
    dialog.addEventListener('cancel', (event) => {
      event.preventDefault();
      act(() => protocol.tell('close', dialog.dataset.screen));
    });
  }
  for (const button of document.querySelectorAll('.erase')) button.addEventListener('click', () => openWindow(at('question')));
  at('erase-yes').addEventListener('click', eraseStorage);
}

const boxInFront = () => document.querySelector('dialog[data-screen][open]');
const helpOnFront = () => openHelpOn((boxInFront() ?? frontScreen())?.dataset.screen);

/** Keys that work for any focus. */
const keys = {
  F1: helpOnFront,
  F9: () => [...(frontScreen()?.querySelectorAll('[aria-keyshortcuts=F9]') ?? [])].find((button) => button.checkVisibility())?.click(),
};

function bindPage() {
  // With forced colours a picture is drawn as a mask.
  for (const picture of document.querySelectorAll('img')) picture.style.setProperty('--picture', `url("${picture.src}")`);
  bind(document.body, act);
  bindDropDowns(document.body, act);
  bindPasting(document.body);
  bindWindows();
  at('skip').addEventListener('click', (event) => {
    event.preventDefault();
    moveFocus();
  });
  at('again').addEventListener('click', startRun);
  at('help-here').addEventListener('click', helpOnFront);
  at('print-form').addEventListener('click', () => act(() => protocol.tell('dblclick', 'frmW4')));
  at('fit-report').addEventListener('click', () => act(() => fit(at('report')), at('frmPrint-udZoom')));
  at('menu').addEventListener('click', () => openMenu(at('menu').getAttribute('aria-expanded') !== 'true'));
  at('bar').addEventListener('click', (event) => event.target.closest('button') && openMenu(false));
  elementOf('frmW4.Label20').addEventListener('keydown', (event) => {
    if (event.key !== 'Enter' && event.key !== ' ') return;
    event.preventDefault();
    act(() => protocol.tell(event.key === 'Enter' ? 'dblclick' : 'click', 'frmW4.Label20'));
  });
  document.addEventListener('keydown', (event) => {
    const deed = keys[event.key];
    if (!deed || (boxInFront() && event.key !== 'F1')) return;
    event.preventDefault();
    deed();
  });
}

function openMenu(open) {
  at('menu').setAttribute('aria-expanded', String(open));
}

performance.mark('opening');
await protocol.open({
  storage: watched(storage),
  pagePrints: (name) => {
    update();
    printScreen(name);
  },
  pageHelps: (file, context) => openHelp(file, context === 0 ? 'index' : String(context)),
});
performance.mark('opened');
bindPage();
bindPrinting();
prepareHelp();
prepareExplanation(print);
at('loading').hidden = true;
bindHistory(countOpen, () => closeFront(act));
startRun();
bindLink(act);
document.body.dataset.ready = '';
performance.mark('ready');
startWorker();
