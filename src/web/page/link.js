// The link that carries the entries of the main screen in its fragment, which a browser doesn't send to the server. It is made
// when the user asks for it, and has only the entries of that screen: no name, no Social Security number.

import { ask, quoted, tell } from './protocol.js';

const at = (id) => document.getElementById(id);
const longest = 100; // characters of an entry that are taken from a link

const boxes = { income: 'txtIncome', hours: 'txtHours', rate_401k: 'txt401k', pre_tax: 'txtPreTax', pre_fica: 'txtPreFICA' };
const lists = { frequency: 'lstFrequency', exemptions: 'cboExemptions', state: 'cboState' };
const statuses = ['frmMain.optStatus(0)', 'frmMain.optStatus(1)', 'frmMain.optStatus(2)'];
const selfEmployed = 'frmMain.chkSelfEmployed';
const address = (name) => `frmMain.${name}`;

/** The address of the page with the entries of the main screen. */
function linkToEntries() {
  const entries = new URLSearchParams();
  for (const [key, name] of Object.entries(boxes)) entries.set(key, ask('get', address(name), 'text').slice(0, longest));
  for (const [key, name] of Object.entries(lists)) {
    const text = ask('get', address(name), 'text');
    if (text !== '') entries.set(key, text);
  }
  const status = statuses.find((option) => ask('get', option, 'value'));
  if (status) entries.set('status', ask('get', status, 'caption').replaceAll('&', ''));
  if (ask('get', selfEmployed, 'value')) entries.set('self_employed', 'Y');
  const page = new URL(location.href);
  page.hash = entries;
  return page.href;
}

/** Chooses the entry of a list that a fragment names, if there is one and it isn't chosen. */
function choose(entries, key) {
  const list = address(lists[key]);
  const number = ask('get', list, 'list')?.indexOf(entries.get(key)) ?? -1;
  if (number >= 0 && ask('get', list, 'index') !== number) tell('pick', list, number);
}

/** Enters the entries of a fragment on the main screen, as the user would. Other entries don't change. */
function enter(entries) {
  tell('click', 'MDIOpen.SSListBar1(Calc)');
  choose(entries, 'frequency'); // it changes the hours
  choose(entries, 'exemptions');
  for (const [key, name] of Object.entries(boxes)) {
    if (entries.has(key)) tell('type', address(name), quoted(entries.get(key).slice(0, longest)));
  }
  const status = statuses.find((option) => ask('get', option, 'caption')?.replaceAll('&', '') === entries.get('status'));
  if (status) tell('click', status);
  if (ask('get', selfEmployed, 'value') !== (entries.get('self_employed') === 'Y')) tell('click', selfEmployed);
  choose(entries, 'state'); // State Options may open for it
}

/** Enters the entries of the page's fragment, if it has any. `act` runs an act. */
function takeEntries(act) {
  const entries = new URLSearchParams(location.hash.slice(1));
  if (!['income', 'frequency', 'state'].some((key) => entries.has(key))) return;
  history.replaceState(history.state, '', location.pathname + location.search);
  act(() => enter(entries));
}

async function offer() {
  at('link').value = linkToEntries();
  at('link-row').hidden = false;
  at('link').select();
  try {
    await navigator.clipboard.writeText(at('link').value);
    at('link-said').textContent = 'Copied';
  } catch {
    at('link-said').textContent = '';
  }
}

/** Called once the program runs. */
export function bindLink(act) {
  at('make-link').addEventListener('click', offer);
  takeEntries(act);
  window.addEventListener('hashchange', () => takeEntries(act));
}

/** Hides the link, because an entry has changed. */
export function withdrawLink() {
  at('link-row').hidden = true;
  at('link').value = at('link-said').textContent = '';
}
