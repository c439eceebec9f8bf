// The page for many paychecks: a file or pasted rows, their first rows and problems, the work and its result; and the gross
// pay for a wanted check. many-worker.js does the work.

import { bindWanted } from './wanted.js';

const at = (id) => document.getElementById(id);
const shownRows = 10;
const shownProblems = 5;

const own = `${Date.now()}-${Math.random().toString(36).slice(2)}`; // of this tab
const lockOf = (name) => `tallyfin99 ${name}`;
const waiting = new Map();
let worker = null;
let asked = 0;

/** Sends a request to the worker; rejects with the worker's error. */
function ask(act, choices = {}) {
  worker ??= startWorker();
  const id = ++asked;
  worker.postMessage({ id, act, ...choices });
  return new Promise((done, fail) => waiting.set(id, { done, fail }));
}

function startWorker() {
  const next = new Worker('many-worker.js', { type: 'module' });
  next.addEventListener('message', ({ data: { id, answer, failure, progress } }) => {
    if (progress) return showProgress(progress);
    if (failure !== undefined) return endWorker(next, failure);
    waiting.get(id).done(answer);
    waiting.delete(id);
  });
  next.addEventListener('error', (event) => {
    event.preventDefault();
    endWorker(next, event.message || "many-worker.js can't be loaded");
  });
  return next;
}

/** Ends a worker that has failed, because its module may be damaged. The next request starts another one. */
function endWorker(failed, words) {
  failed.terminate();
  if (failed !== worker) return;
  worker = null;
  for (const { fail } of waiting.values()) fail(new Error(words));
  waiting.clear();
}

let again = null; // the act that failed

function say(words, deed = null) {
  at('said').textContent = words;
  at('again').hidden = deed === null;
  again = deed;
  if (deed) at('again').focus();
}
const number = (value) => value.toLocaleString('en-US');
const count = (value, one) => `${number(value)} ${one}${value === 1 ? '' : 's'}`;

let chosen = null; // { blob, name }
let saved = ''; // the address of the result

function part(tag, text) {
  const element = document.createElement(tag);
  element.textContent = text;
  return element;
}

function showRows({ header, rows }) {
  const heading = document.createElement('tr');
  for (const name of header) {
    const cell = part('th', name);
    cell.scope = 'col';
    heading.append(cell);
  }
  at('rows').tHead.replaceChildren(heading);
  at('rows').tBodies[0].replaceChildren(...rows.slice(0, shownRows).map((cells) => {
    const row = document.createElement('tr');
    row.append(...cells.map((text) => part('td', text)));
    return row;
  }));
  const problems = rows.map((cells, i) => [i + 1, cells.at(-1)]).filter(([, words]) => words !== '');
  const more = problems.length - shownProblems;
  at('problems').replaceChildren(...problems.slice(0, shownProblems).map(([row, words]) => part('li', `Row ${row}: ${words}.`)));
  if (more > 0) at('problems').append(part('li', `${count(more, 'more row')} of the first ${number(rows.length)} with a problem.`));
}

function forget() {
  URL.revokeObjectURL(saved);
  saved = '';
  at('result').hidden = true;
}

/** Takes a file or a text, and shows its beginning. */
async function take(blob, name, delimiter = '') {
  chosen = { blob, name };
  forget();
  try {
    const { delimiter: found, trouble, lacks, ...first } = await ask('preview', { blob, delimiter });
    at('delimiter').value = found;
    at('beginning').hidden = false;
    at('name').textContent = name;
    const refused = trouble !== '' && !first.header;
    for (const id of ['work', 'rows-view', 'problems']) at(id).hidden = refused;
    if (!refused) showRows(first);
    say(trouble ? `${name}: ${trouble}.` : lacks ? `${name}: ${lacks}.` : '');
    at('beginning-title').focus();
  } catch (error) {
    say(`${name} can't be read: ${error.message}.`, () => take(blob, name, delimiter));
  }
}

function showProgress({ read, rows }) {
  at('progress').value = chosen.blob.size === 0 ? 1 : read / chosen.blob.size;
  at('done').textContent = count(rows, 'row');
}

function running(is) {
  for (const id of ['work', 'file', 'pasted', 'take-pasted', 'delimiter']) at(id).disabled = is;
  at('running').hidden = !is;
}

async function work() {
  const { blob, name } = chosen;
  forget();
  say('');
  showProgress({ read: 0, rows: 0 });
  running(true);
  at('stop').focus();
  try {
    const { stopped, trouble, result, rows, problems, first } = await ask('work', { blob, delimiter: at('delimiter').value, name: own });
    running(false);
    if (stopped) {
      at('work').focus();
      return say(`Stopped after ${count(rows, 'row')}. Nothing was kept.`);
    }
    const told = problems > 0 ? ` ${count(problems, 'row')} with a problem, the first in line ${number(first)}.` : '';
    say(`${count(rows ?? 0, 'row')} worked.${told}${trouble ? ` It ends early: ${trouble}.` : ''}`);
    if (result) offer(result, name);
  } catch (error) {
    running(false);
    say(`${name} can't be worked: ${error.message}.`, work);
  }
}

function offer(result, name) {
  saved = URL.createObjectURL(result);
  at('save').href = saved;
  at('save').download = `${name.replace(/\.[^.]*$/, '')}-worked.csv`;
  at('result').hidden = false;
  at('save').focus();
}

/** Removes the results of closed tabs: each open tab holds a lock. */
async function tidy() {
  if (!navigator.locks || !navigator.storage?.getDirectory) return;
  navigator.locks.request(lockOf(own), () => new Promise(() => {}));
  try {
    const folder = await (await navigator.storage.getDirectory()).getDirectoryHandle('tallyfin99', { create: true });
    for await (const name of folder.keys()) {
      await navigator.locks.request(lockOf(name), { ifAvailable: true }, (lock) => lock && folder.removeEntry(name));
    }
  } catch {
    // The browser has no such files, or not for this page.
  }
}

at('file').addEventListener('change', ({ target }) => target.files[0] && take(target.files[0], target.files[0].name));
at('take-pasted').addEventListener('click', () => take(new Blob([at('pasted').value]), 'Pasted rows'));
at('pasted').addEventListener('input', () => { at('take-pasted').disabled = at('pasted').value.trim() === ''; });
at('delimiter').addEventListener('change', ({ target }) => take(chosen.blob, chosen.name, target.value));
at('work').addEventListener('click', work);
at('stop').addEventListener('click', () => worker?.postMessage({ act: 'stop' }));
at('again').addEventListener('click', () => again());
document.addEventListener('dragover', (event) => event.preventDefault());
document.addEventListener('drop', (event) => {
  const [file] = event.dataTransfer.files;
  if (!file) return;
  event.preventDefault();
  if (!at('file').disabled) take(file, file.name);
});

tidy();
const lists = await ask('lists');
at('columns').textContent = lists.columns.join(', ');
bindWanted(lists, ask);
at('loading').hidden = true;
for (const id of ['choosing', 'searching']) at(id).hidden = false;
document.body.dataset.ready = '';
navigator.serviceWorker?.register('worker.js').catch(() => {});
