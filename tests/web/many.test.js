// The page for many paychecks: files, pasted rows, progress and Stop, the result, memory, and the gross pay for a check.

import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { mkdtemp, readdir, readFile, rm, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { basename, join } from 'node:path';
import { after, before, test } from 'node:test';
import { fileURLToPath } from 'node:url';
import { browse, builtPage, firefox, onPaper, project, serve, setUp, visit } from './browser.js';

const { server, freshContext } = await setUp();
const axe = await readFile(fileURLToPath(import.meta.resolve('axe-core/axe.min.js')), 'utf8');
const batch = process.env.BATCH ?? join(project, 'build', 'dev', 'bin', 'tallyfin99-batch');
const megabytes = Number(process.env.MEGABYTES ?? 5);

let folder;
before(async () => { folder = await mkdtemp(join(tmpdir(), 'many-')); });
after(() => rm(folder, { recursive: true, force: true }));

const header = 'id,income,frequency,status,exemptions,state,rate_401k\n';
const some = `${header}7,1000,Weekly,Single,1,Pennsylvania,6\n8,x,Weekly,Single,1,PA,\n9,500,Monthly,Married,2,Ohio,0\n`;

async function enter(t, size) {
  const page = await visit(await freshContext(t), `${server.address}many.html`, size);
  page.troubles = [];
  page.on('pageerror', (error) => page.troubles.push(String(error)));
  await page.waitForSelector('body[data-ready]');
  return page;
}

async function choose(page, name, text) {
  const path = join(folder, name);
  if (text !== undefined) await writeFile(path, text);
  const box = await page.$('#file');
  await box.uploadFile(path);
}

const said = (page) => page.$eval('#said', (line) => line.textContent);
const says = (page, pattern) => page.waitForFunction((source) => new RegExp(source).test(document.querySelector('#said').textContent), { timeout: 120_000 }, pattern.source);
const shown = (page, where) => page.waitForSelector(where, { visible: true });
const wanted = (path) => execFileSync(batch, ['--quiet', '--problems-ok', path], { encoding: 'utf8', maxBuffer: 1 << 30, stdio: ['ignore', 'pipe', 'ignore'] });

/** The text of the result, read in the page, because the content security policy forbids to fetch it. */
const text = (page) => page.evaluate(async () => {
  const root = await navigator.storage.getDirectory();
  const results = await root.getDirectoryHandle('tallyfin99');
  for await (const handle of results.values()) return (await handle.getFile()).text();
  return undefined;
});
const kept = (page) => page.evaluate(async () => {
  const root = await navigator.storage.getDirectory();
  const results = await root.getDirectoryHandle('tallyfin99', { create: true });
  let count = 0;
  for await (const name of results.keys()) count += name === '' ? 0 : 1;
  return count;
});

test('a file is shown with its first rows and problems, worked, and its result is the batch program\'s', async (t) => {
  const page = await enter(t);
  await choose(page, 'pay.csv', some);
  await shown(page, '#rows tbody tr');
  const rows = await page.$$eval('#rows tbody tr', (all) => all.map((row) => [...row.cells].map((cell) => cell.textContent)));
  assert.equal(rows.length, 3);
  assert.deepEqual([rows[0][0], rows[0].at(-2), rows[0].at(-1)], ['7', '663.01', '']);
  assert.deepEqual(await page.$$eval('#problems li', (all) => all.map((line) => line.textContent)), ['Row 2: income: not a number.']);
  await page.click('#work');
  await says(page, /worked/);
  assert.equal(await said(page), '3 rows worked. 1 row with a problem, the first in line 3.');
  assert.equal(await page.$eval('#save', (link) => link.download), 'pay-worked.csv');
  assert.equal(await text(page), wanted(join(folder, 'pay.csv')));
  assert.equal(await page.evaluate(() => document.activeElement.id), 'save');
  assert.deepEqual(page.troubles, []);
});

test('another file takes the result of the one before off the page', async (t) => {
  const page = await enter(t);
  await choose(page, 'first.csv', some);
  await shown(page, '#work');
  await page.click('#work');
  await shown(page, '#save');
  await choose(page, 'second.csv', some);
  await page.waitForFunction(() => document.querySelector('#name').textContent === 'second.csv');
  assert.equal(await page.$eval('#result', (part) => part.hidden), true);
});

/** A page in a separate browser, which saves into the folder without a dialog. */
async function enterSaving(t, address = server.address) {
  const own = await browse(undefined, { prefs: { 'browser.download.folderList': 2, 'browser.download.dir': folder, 'browser.download.always_ask_before_handling_new_types': false } });
  t.after(() => own.close());
  if (!firefox) {
    const client = await own.target().createCDPSession();
    await client.send('Browser.setDownloadBehavior', { behavior: 'allow', downloadPath: folder });
  }
  const page = await visit(own, `${address}many.html`);
  await page.waitForSelector('body[data-ready]');
  return [page, own];
}

/** Presses the link, waits for the complete file, and compares it. */
async function saves(page, name, contents) {
  await page.click('#save');
  const path = join(folder, name);
  const deadline = Date.now() + 60_000;
  while ((await readFile(path, 'utf8').catch(() => '')) !== contents && Date.now() < deadline) await new Promise((done) => setTimeout(done, 50));
  assert.ok((await readFile(path, 'utf8')) === contents, 'the same bytes');
}

test('the result is saved as a file', async (t) => {
  const [page] = await enterSaving(t);
  await choose(page, 'saved.csv', some);
  await shown(page, '#work');
  await page.click('#work');
  await shown(page, '#save');
  await saves(page, 'saved-worked.csv', wanted(join(folder, 'saved.csv')));
});

test('a dropped file is taken as a chosen one', async (t) => {
  const page = await enter(t);
  await page.evaluate((csv) => {
    const data = new DataTransfer();
    data.items.add(new File([csv], 'dropped.csv'));
    document.body.dispatchEvent(new DragEvent('drop', { dataTransfer: data, bubbles: true, cancelable: true }));
  }, some);
  await shown(page, '#rows tbody tr');
  assert.equal(await page.$eval('#beginning-title', (heading) => heading.textContent), 'First rows of dropped.csv');
});

test('rows pasted from a spreadsheet are divided by tabs', async (t) => {
  const page = await enter(t);
  assert.equal(await page.$eval('#take-pasted', (button) => button.disabled), true);
  await page.$eval('#pasted', (box, rows) => { box.value = rows; box.dispatchEvent(new Event('input')); }, some.replaceAll(',', '\t'));
  await page.click('#take-pasted');
  await shown(page, '#rows tbody tr');
  assert.equal(await page.$eval('#delimiter', (list) => list.selectedOptions[0].text), 'tabs');
  await page.click('#work');
  await says(page, /worked/);
  assert.equal(await text(page), wanted(join(folder, 'pay.csv')).replaceAll(',', '\t'));
});

test('what can not be worked is told, and another choice of what divides the cells mends it', async (t) => {
  const page = await enter(t);
  await choose(page, 'other.csv', 'name,age\nAda,5\n');
  await says(page, /^other\.csv: no column is one of the program's: the header is "name,age"\.$/);
  assert.equal(await page.$eval('#work', (button) => button.checkVisibility()), false);
  await choose(page, 'zip.csv', 'PK\u0003\u0004xyz');
  await says(page, /spreadsheet's own format: save it as CSV/);
  await choose(page, 'semicolons.csv', some.replaceAll(',', ';'));
  await shown(page, '#work');
  assert.equal(await page.$eval('#delimiter', (list) => list.value), ';');
  await page.select('#delimiter', ',');
  await says(page, /divided by semicolons: choose it below/);
  await page.select('#delimiter', ';');
  await shown(page, '#work');
  await choose(page, 'lacking.csv', 'income\n5\n');
  await says(page, /there is no column frequency/);
  await choose(page, 'open.csv', 'income,frequency\n5,Weekly\n"6,Weekly\n');
  await says(page, /line 3: a quoted cell doesn't end/);
});

/** A file of at least that many megabytes. */
async function largeFile(size, name = 'large.csv') {
  const path = join(folder, name);
  const rows = Array.from({ length: 4000 }, (_, i) => `${i},${200 + i * 0.97},Weekly,Single,${i % 16},${['New York', 'Pennsylvania', 'Ohio', 'No State'][i % 4]},6\n`).join('');
  await writeFile(path, header + rows.repeat(Math.ceil((size * 1e6) / rows.length)));
  return path;
}

/** Memory of the browser's processes in megabytes, with each shared page counted once. */
async function memory(pid) {
  const parents = new Map();
  for (const name of (await readdir('/proc')).filter((entry) => /^\d+$/.test(entry))) {
    const stat = await readFile(`/proc/${name}/stat`, 'utf8').catch(() => '');
    if (stat) parents.set(Number(name), Number(stat.slice(stat.lastIndexOf(')') + 2).split(' ')[1]));
  }
  const belongs = (id) => id === pid || (parents.has(id) && parents.get(id) > 1 && belongs(parents.get(id)));
  const sizes = await Promise.all([...parents.keys()].filter(belongs).map(async (id) => {
    const rollup = await readFile(`/proc/${id}/smaps_rollup`, 'utf8').catch(() => '');
    return Number(rollup.match(/^Pss_Anon: *(\d+)/m)?.[1] ?? rollup.match(/^Pss: *(\d+)/m)?.[1] ?? 0) + Number(rollup.match(/^Pss_Shmem: *(\d+)/m)?.[1] ?? 0);
  }));
  return sizes.reduce((sum, one) => sum + one, 0) / 1024;
}

/** Works a file and returns the greatest increase of memory in megabytes. */
async function memoryFor(t, own, page, path) {
  const before = await memory(own.process().pid);
  await choose(page, basename(path));
  await shown(page, '#work');
  await page.click('#work');
  let most = 0;
  let going = true;
  const watch = (async () => {
    while (going) most = Math.max(most, await memory(own.process().pid));
  })();
  await says(page, /rows worked/);
  going = false;
  await watch;
  t.diagnostic(`${Math.round(most - before)} MB more than the ${Math.round(before)} MB of the browser with the page`);
  return most - before;
}

test(`a file of ${megabytes} MB is worked within 200 MB of memory`, async (t) => {
  const [page, own] = await enterSaving(t);
  const path = await largeFile(megabytes);
  assert.ok((await memoryFor(t, own, page, path)) < 200);
  if (megabytes <= 20) assert.ok((await text(page)) === wanted(path), 'the same bytes');
});

test('where the browser has no files for a page, the result is kept in memory, and saved', async (t) => {
  const other = await serve();
  t.after(other.close);
  const worker = await readFile(join(builtPage, 'many-worker.js'), 'utf8');
  other.faults.set('/many-worker.js', { type: 'text/javascript', body: `navigator.storage.getDirectory = () => Promise.reject(new Error('none'));\n${worker}` });
  const [page, own] = await enterSaving(t, other.address);
  const path = await largeFile(megabytes, 'kept.csv');
  await memoryFor(t, own, page, path);
  assert.equal(await kept(page), 0, 'no file');
  await saves(page, 'kept-worked.csv', wanted(path));
});

test('Stop ends the work and leaves nothing', async (t) => {
  const page = await enter(t);
  await largeFile(megabytes);
  await choose(page, 'large.csv');
  await shown(page, '#work');
  await page.evaluate(() => {
    const bar = document.querySelector('#progress');
    new MutationObserver((changes, observer) => {
      if (bar.value <= 0.1) return;
      observer.disconnect();
      document.querySelector('#stop').click();
    }).observe(bar, { attributes: true });
    document.querySelector('#work').click();
  });
  await says(page, /Stopped|worked/);
  assert.match(await said(page), /^Stopped after [\d,]+ rows\. Nothing was kept\.$/);
  assert.equal(await kept(page), 0);
  assert.equal(await page.evaluate(() => document.activeElement.id), 'work');
  assert.equal(await page.$eval('#result', (part) => part.hidden), true);
  await choose(page, 'pay.csv', some); // and it goes on
  await page.waitForFunction(() => document.querySelector('#name').textContent === 'pay.csv');
  await page.click('#work');
  await says(page, /^3 rows worked/);
});

test('the result of a tab that is gone is taken away by the next one', async (t) => {
  const context = await freshContext(t);
  const go = async () => {
    const page = await visit(context, `${server.address}many.html`);
    await page.waitForSelector('body[data-ready]');
    return page;
  };
  const blank = await context.newPage(); // keeps the context's last window
  const first = await go();
  await choose(first, 'pay.csv', some);
  await shown(first, '#work');
  await first.click('#work');
  await shown(first, '#save');
  assert.equal(await kept(first), 1);
  const beside = await go();
  assert.equal(await kept(beside), 1, 'a tab that is open keeps its own');
  await first.close();
  const next = await go();
  await next.waitForFunction(async () => {
    const results = await (await navigator.storage.getDirectory()).getDirectoryHandle('tallyfin99');
    return (await results.keys().next()).done;
  });
  await blank.close();
});

/** A page on a server of its own, whose answers can be changed, and that no service worker keeps. */
async function enterAlone(t) {
  const own = await serve();
  t.after(own.close);
  const page = await (await freshContext(t)).newPage();
  await page.evaluateOnNewDocument(() => Object.defineProperty(navigator, 'serviceWorker', { value: undefined }));
  await page.goto(`${own.address}many.html`);
  await page.waitForSelector('body[data-ready]');
  return [page, own];
}

const areaText = (page) => page.$eval('main', (area) => area.innerText.replace(/\s+/g, ' ').trim());

test('each file of the page that can not be loaded is named, and can be tried again', async (t) => {
  const [page, own] = await enterAlone(t);
  const files = [...new Set(own.counter.requests)].filter((path) => /\.(js|wasm)$/.test(path) && path !== '/start.js');
  assert.ok(['/many.js', '/wanted.js', '/many-worker.js', '/paychecks/tallyfin99.wasm'].every((file) => files.includes(file)));
  for (const [i, file] of files.entries()) {
    const [fault, words] = [[{ status: 404 }, '(404)'], [{}, '(it came as text/html)']][i % 2];
    own.faults.set(file, fault);
    await page.reload();
    await page.waitForSelector('#failure-again', { visible: true });
    assert.equal(await areaText(page), `Tallyfin 99 can't be loaded: ${basename(file)} ${words}. Try again`);
    assert.equal(await page.evaluate(() => document.activeElement.id), 'failure-again');
    own.faults.clear();
    await page.click('#failure-again');
    await page.waitForSelector('body[data-ready]');
    assert.equal(await page.$eval('#failure', (failure) => failure.hidden), true);
  }
});

/** Changes a file that the worker uses, so that it fails at an act. */
async function breakFile(own, file, change) {
  own.faults.set(file, { type: 'text/javascript', body: change(await readFile(join(builtPage, file), 'utf8')) });
}
const failing = (act) => (text) => `addEventListener('message', (event) => {
  if (event.data.act !== '${act}') return;
  event.stopImmediatePropagation();
  throw new Error('it broke');
});\n${text}`;
const trapped = (text) => text.replace('=> module.UTF8ToString', "=> name === 'workBlock' ? module._missing() : module.UTF8ToString");

test('a worker that dies is told, and another one goes on where the user tries again', async (t) => {
  const [page, own] = await enterAlone(t);
  const pressAgain = async () => {
    own.faults.clear();
    assert.equal(await page.evaluate(() => document.activeElement.id), 'again');
    await page.keyboard.press('Enter');
  };
  await breakFile(own, '/many-worker.js', failing('preview'));
  await page.reload();
  await page.waitForSelector('body[data-ready]');
  await choose(page, 'pay.csv', some);
  await says(page, /^pay\.csv can't be read: .*it broke\.$/);
  await pressAgain();
  await shown(page, '#rows tbody tr');
  assert.equal(await said(page), '');
  assert.equal(await page.$eval('#again', (button) => button.hidden), true);

  await breakFile(own, '/many-worker.js', failing('work'));
  await page.reload();
  await page.waitForSelector('body[data-ready]');
  await choose(page, 'pay.csv');
  await shown(page, '#work');
  await page.click('#work');
  await says(page, /^pay\.csv can't be worked: .*it broke\.$/);
  assert.equal(await page.$eval('#running', (row) => row.hidden), true);
  await pressAgain();
  await says(page, /^3 rows worked/);

  await breakFile(own, '/paychecks/raw.js', trapped);
  await page.reload();
  await page.waitForSelector('body[data-ready]');
  await choose(page, 'pay.csv');
  await says(page, /^pay\.csv can't be read: /);
  await pressAgain();
  await shown(page, '#rows tbody tr');
});

test('a worker that dies at the gross pay is told beside it, and the next press has another one', async (t) => {
  const [page, own] = await enterAlone(t);
  await breakFile(own, '/many-worker.js', failing('paycheck'));
  await page.reload();
  await page.waitForSelector('body[data-ready]');
  await page.type('#wanted-net', '663.01');
  await page.select('#wanted-frequency', 'Weekly');
  await page.click('#wanted button');
  await page.waitForFunction(() => /^The gross pay can't be worked out: .*it broke\. Try again\.$/.test(document.querySelector('#wanted-problem').textContent));
  own.faults.set('/many-worker.js', { status: 404 });
  await page.click('#wanted button');
  await page.waitForFunction(() => document.querySelector('#wanted-problem').textContent === "The gross pay can't be worked out: many-worker.js can't be loaded. Try again.");
  own.faults.clear();
  await page.click('#wanted button');
  await page.waitForFunction(() => document.querySelector('#wanted-results').children.length > 0);
  assert.equal(await page.$eval('#wanted-problem', (line) => line.textContent), '');
});

test('the gross pay for a check that is wanted', async (t) => {
  const page = await enter(t);
  await page.type('#wanted-net', '663.01');
  await page.select('#wanted-frequency', 'Weekly');
  await page.select('#wanted-status', 'Single');
  await page.$eval('#wanted-exemptions', (box) => { box.value = '1'; });
  await page.type('#wanted-rate', '6');
  await page.select('#wanted-state', 'Pennsylvania');
  const figures = async () => {
    await page.click('#wanted button');
    await page.waitForFunction(() => document.querySelector('#wanted-results').children.length > 0);
    return page.$$eval('#wanted-results div', (all) => Object.fromEntries(all.map((row) => [row.children[0].textContent, row.children[1].textContent])));
  };
  const found = await figures();
  assert.equal(found['Gross pay'], '$1,000.00');
  assert.equal(found.Check, '$663.01');
  assert.equal(await page.$eval('#wanted-problem', (line) => line.textContent), '');
  await page.select('#wanted-state', 'Illinois');
  const names = await page.$$eval('#state-fields label', (all) => all.map((label) => label.textContent));
  assert.deepEqual(names, ['Deduct from Taxable State Amount? 401k', 'Deduct from Taxable State Amount? Pre-Tax Amt', 'Dependents (State)',
    'For Use in Computing Illinois Tax', 'Additional Withholding Amount (State)']);
  await page.$eval('#wanted-net', (box) => { box.value = '5000000'; });
  await page.click('#wanted button');
  await page.waitForFunction(() => document.querySelector('#wanted-problem').textContent !== '');
  assert.match(await page.$eval('#wanted-problem', (line) => line.textContent), /^Net: no income up to 1000000\.00 gives that check\.$/);
});

for (const size of [{ width: 1100, height: 800 }, { width: 320, height: 256 }]) {
  test(`at ${size.width} pixels: no violation, no scrolling sideways`, async (t) => {
    const page = await enter(t, size);
    await page.evaluate(axe);
    const check = async (what) => {
      const { violations, passes } = await page.evaluate(() => window.axe.run());
      assert.ok(passes.length > 10);
      assert.deepEqual(violations.map((v) => `${v.id}: ${v.nodes.map((n) => n.target)}`), [], what);
      const [wide, view] = await page.evaluate(() => [document.scrollingElement.scrollWidth, window.innerWidth]);
      assert.ok(wide <= view, `${what} is ${wide} wide`);
    };
    await check('empty');
    await choose(page, 'pay.csv', some);
    await shown(page, '#rows tbody tr');
    await page.select('#wanted-state', 'Michigan');
    await page.click('summary');
    await check('with rows');
    await page.click('#work');
    await shown(page, '#save');
    await check('worked');
  });
}

test('the page asks no other host and keeps to its policy', async (t) => {
  const page = await enter(t);
  const hosts = new Set();
  page.on('request', (request) => hosts.add(new URL(request.url()).host));
  await choose(page, 'pay.csv', some);
  await shown(page, '#work');
  await page.click('#work');
  await shown(page, '#save');
  assert.deepEqual([...hosts].filter((host) => host !== new URL(server.address).host && host !== ''), []);
  const policies = await Promise.all(['index.html', 'many.html'].map(async (name) =>
    (await readFile(join(project, 'src', 'web', 'page', name), 'utf8')).match(/Content-Security-Policy" content="([^"]*)"/)[1]));
  assert.equal(policies[0], policies[1]);
});

test("the browser's own Print has what is on the page, without its buttons", async (t) => {
  const page = await enter(t, { width: 360, height: 740 });
  await choose(page, 'paper.csv', some);
  await shown(page, '#rows tbody tr');
  await page.type('#wanted-net', '1234.56');
  const paper = await onPaper(t, page);
  const cells = await page.$$eval('#rows :is(th, td)', (all) => all.map((cell) => cell.textContent).filter((words) => words !== ''));
  assert.ok(cells.includes('Pennsylvania'));
  const flat = paper.replace(/\s+/g, '');
  const lost = ['Many Paychecks', 'First rows of paper.csv', 'Check wanted', '1234.56', 'Self Employed', ...cells].filter((words) => !flat.includes(words.replace(/\s+/g, '')));
  assert.deepEqual(lost, []);
  assert.doesNotMatch(paper, /Work all rows|Work out the gross pay|Take the pasted rows|Screens|Stop/);
});
