// A worker for paychecks: the first rows of a file, whole files block by block, and single paychecks. A file is read while
// it is worked, and the result is written to a file of the browser, so memory doesn't grow with the size of the file.

const previewSize = 256 * 1024;
const folderName = 'tallyfin99';
const reader = new FileReaderSync();
const code = (character) => character.charCodeAt(0);

let hand, rowsOf, textFrom; // of raw.js
let module;
let paychecks;
let file = null; // the Blob that is read, and the position
let position = 0;
let stopped = false;

function read(place) {
  const bytes = new Uint8Array(reader.readAsArrayBuffer(file.slice(position, position + place.length)));
  place.set(bytes);
  position += bytes.length;
  return bytes.length;
}

/** The delimiter of a header: the candidate that occurs most often. */
function delimiterOf(header) {
  const counts = [',', ';', '\t', '|'].map((character) => [header.split(character).length, character]);
  return counts.reduce((best, one) => (one[0] > best[0] ? one : best))[1];
}

/** Replaces advice about command-line options, which the web app doesn't have. */
const inWords = (trouble) => trouble.replace(/: use (--delimiter .*|no --delimiter)$/, ': choose it below');

/** The output so far, as bytes that are valid until the next call of the module. */
function takeOut(use) {
  const place = module._out();
  const used = use(module.HEAPU8.subarray(place, place + module._outSize()));
  module._outTaken();
  return used;
}

function openFile(blob, delimiter) {
  file = blob;
  position = 0;
  return inWords(textFrom(module, 'openFile', code(delimiter)));
}

/** The first rows of a file with their results, and the problems among them. */
function preview(blob, wanted) {
  const beginning = new TextDecoder().decode(reader.readAsArrayBuffer(blob.slice(0, previewSize)));
  const whole = blob.size <= previewSize ? beginning : beginning.slice(0, beginning.lastIndexOf('\n') + 1);
  const delimiter = wanted || delimiterOf(beginning.split(/[\r\n]/, 1)[0]);
  const trouble = openFile(new Blob([whole]), delimiter);
  if (trouble !== '') return { delimiter, trouble };
  const lacks = textFrom(module, 'fileLacks');
  let broken = '';
  while (broken === '' && !module._fileEnded()) broken = textFrom(module, 'workBlock');
  hand(module, takeOut((bytes) => new TextDecoder().decode(bytes)));
  const [header, ...rows] = rowsOf(textFrom(module, 'cells', code(delimiter)));
  return { delimiter, lacks, trouble: blob.size <= previewSize ? broken : '' /* the truncation may cause it */, header, rows: rows.filter((row) => row.length > 0) };
}

/** Removes a file that has just been closed. Firefox may hold it for a moment longer. */
async function remove(folder, name, tries = 100) {
  try {
    await folder.removeEntry(name);
  } catch (error) {
    if (tries === 0) throw error;
    await new Promise((done) => setTimeout(done, 20));
    await remove(folder, name, tries - 1);
  }
}

/** Storage of a result: a file on the disk, or memory where the browser has no such files. */
async function openResult(name) {
  try {
    const folder = await (await navigator.storage.getDirectory()).getDirectoryHandle(folderName, { create: true });
    const handle = await folder.getFileHandle(name, { create: true });
    const access = await handle.createSyncAccessHandle();
    access.truncate(0);
    return {
      write: (bytes) => access.write(bytes),
      async end() {
        access.close();
        return handle.getFile();
      },
      async drop() {
        access.close();
        await remove(folder, name);
      },
    };
  } catch {
    const parts = [];
    return { write: (bytes) => parts.push(new Blob([bytes])), end: async () => new Blob(parts, { type: 'text/csv' }), drop: async () => {} };
  }
}

const turn = () => new Promise((done) => setTimeout(done)); // lets a message to stop arrive

const account = () => ({ rows: module._fileRows(), problems: module._fileProblems(), first: module._firstProblem() });

/** Works a whole file. `tell` reports the part that is read and the number of rows done. */
async function workFile(blob, delimiter, name, tell) {
  stopped = false;
  const trouble = openFile(blob, delimiter);
  if (trouble !== '') return { trouble };
  const result = await openResult(name);
  try {
    let met = '';
    while (met === '' && !module._fileEnded()) {
      met = textFrom(module, 'workBlock');
      takeOut(result.write);
      tell({ read: position, rows: module._fileRows() });
      await turn();
      if (stopped) {
        await result.drop();
        return { stopped: true, ...account() };
      }
    }
    return { trouble: inWords(met), result: await result.end(), ...account() };
  } catch (error) {
    await result.drop();
    throw error;
  }
}

const acts = {
  preview: ({ blob, delimiter }) => preview(blob, delimiter),
  work: ({ blob, delimiter, name }, tell) => workFile(blob, delimiter, name, tell),
  paycheck: ({ row }) => paychecks.work([row])[0],
  lists: () => ({
    entries: Object.fromEntries(rowsOf(textFrom(module, 'entries')).map(([column, ...captions]) => [column, captions])),
    states: paychecks.states(),
    columns: paychecks.columns,
  }),
};

/** Loads what this worker uses. Firefox reports no error of a worker whose static imports fail. */
async function loadAll() {
  const raw = await import('./paychecks/raw.js');
  ({ hand, rowsOf, textFrom } = raw);
  module = await raw.loadRaw({ read });
  paychecks = await (await import('./paychecks/index.js')).load();
}

async function answer({ id, act, ...choices }) {
  try {
    if (!paychecks) await loadAll();
    postMessage({ id, answer: await acts[act](choices, (progress) => postMessage({ progress })) });
  } catch (error) {
    postMessage({ id, failure: error.message });
  }
}

let last = Promise.resolve();
addEventListener('message', ({ data }) => {
  if (data.act === 'stop') stopped = true;
  else last = last.then(() => answer(data)); // one after another, because they share the module
});
