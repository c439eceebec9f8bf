// Failures: files that can't be loaded, a module that crashes, very long texts, the Back button.

import assert from 'node:assert/strict';
import { test } from 'node:test';
import { browse, firefox, open, selector, serve, setUp, user, visit } from './browser.js';
import { differences } from './faithful.js';

const { server, fresh, freshContext } = await setUp();

const shownText = (page) => page.$eval('main', (area) => area.innerText.trim());
const valueOf = (page, address) => page.$eval(selector(address), (box) => box.value);

for (const [file, fault, words] of [
  ['/tallyfin99.wasm', { status: 404 }, /can't be loaded: tallyfin99\.wasm \(404\)/],
  ['/tallyfin99.wasm', {}, /can't be loaded: tallyfin99\.wasm \(it came as text\/html\)/],
  ['/binder.js', { type: 'text/plain', body: 'x' }, /can't be loaded: binder\.js \(it came as text\/plain\)/],
  ['/page.js', { status: 503 }, /can't be loaded: page\.js \(503\)/],
  ['/tallyfin99.js', {}, /can't be loaded: tallyfin99\.js \(it came as text\/html\)/],
]) {
  test(`${file} as ${JSON.stringify(fault)}: the page says so, and can be tried again`, async (t) => {
    const own = await serve();
    t.after(own.close);
    own.faults.set(file, fault);
    const page = await visit(await freshContext(t), own.address);
    await page.waitForSelector('#failure-again', { visible: true });
    assert.match(await shownText(page), words);
    assert.doesNotMatch(await shownText(page), /is loading/);
    assert.equal(await page.evaluate(() => document.activeElement.textContent), 'Try again');
    own.faults.clear();
    await page.click('#failure-again');
    await page.waitForSelector('body[data-ready]');
    assert.equal(await page.$eval('#failure', (failure) => failure.hidden), true);
  });
}

test('where not even the first script comes, the page offers to try again', async (t) => {
  const own = await serve();
  t.after(own.close);
  own.faults.set('/start.js', { status: 404 });
  const page = await visit(await freshContext(t), own.address);
  const [delay, visibility] = await page.$eval('#unstarted', (line) => {
    const { animationDelay } = getComputedStyle(line);
    for (const animation of line.getAnimations()) animation.finish(); // not to wait for it
    return [animationDelay, getComputedStyle(line).visibility];
  });
  assert.equal(parseFloat(delay), 8);
  assert.equal(visibility, 'visible');
  assert.equal(await shownText(page), "Tallyfin 99 can't be loaded. Try again");
});

test('without JavaScript one sentence stands alone on both pages', async (t) => {
  const own = await browse(undefined, { prefs: { 'javascript.enabled': false } });
  t.after(() => own.close());
  const page = await own.newPage();
  if (!firefox) await page.setJavaScriptEnabled(false);
  for (const [name, frame] of [['', 'Skip to the screen Tallyfin 99'], ['many.html', 'Skip to the page Many Paychecks Screens']]) {
    await page.goto(server.address + name);
    const text = await page.evaluate(() => document.body.innerText.replace(/\s+/g, ' '));
    assert.equal(text, `${frame} Tallyfin 99 works everything out in your browser and needs JavaScript for it.`);
  }
});

test('a page that was kept broken is fetched anew', async (t) => {
  const own = await serve();
  t.after(own.close);
  const page = await open(await freshContext(t), own.address);
  await page.evaluate(async () => {
    await navigator.serviceWorker.ready;
    const [name] = await caches.keys();
    const cache = await caches.open(name);
    await cache.put('./binder.js', new Response('<p>Sign in.', { headers: { 'content-type': 'text/html' } }));
  });
  await page.goto(own.address);
  await page.waitForSelector('#failure-again', { visible: true });
  await page.click('#failure-again');
  await page.waitForSelector('body[data-ready]');
});

test('a page that is signed in elsewhere first is never kept', async (t) => {
  const own = await serve();
  t.after(own.close);
  own.faults.set('/help/Tallyfin.hlp', {});
  const page = await (await freshContext(t)).newPage();
  await page.evaluateOnNewDocument(() => Object.defineProperty(navigator.serviceWorker, 'register', { value: () => Promise.reject() }));
  await page.goto(own.address);
  await page.waitForSelector('body[data-ready]');
  const state = await page.evaluate(async () => {
    const { installing } = await ServiceWorkerContainer.prototype.register.call(navigator.serviceWorker, 'worker.js');
    return new Promise((done) => installing.addEventListener('statechange', () => done(installing.state)));
  });
  assert.equal(state, 'redundant');
});

test('the first visit fetches each file once', async (t) => {
  const own = await serve();
  t.after(own.close);
  const page = await open(await freshContext(t), own.address);
  await page.evaluate(() => navigator.serviceWorker.ready);
  // Chromium fetches the page's icon by itself.
  const twice = own.counter.requests.filter((path, i, all) => all.indexOf(path) !== i && path !== '/pictures/tallyfin99.svg');
  assert.deepEqual(twice, []);
  assert.ok(own.counter.requests.includes('/help/W4.hlp'));
  t.diagnostic(`${own.counter.requests.length} requests, ${own.counter.bytes} bytes`);
});

test('a module that dies is told, with a way to go on, and what was stored is there', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('Calc');
  await u.type('frmMain.txtIncome', '777');
  await u.click('frmMain.cmdToolBar(0)');
  await page.evaluate(() => { TextDecoder.prototype.decode = null; }); // the module's answers can't be read any more
  await u.click('frmMain.optStatus(1)');
  await page.waitForSelector('#failure-again', { visible: true });
  assert.equal(await page.$eval('#failure', (failure) => failure.innerText.replace(/\s+/g, ' ').trim()),
    'Tallyfin 99 has stopped. Everything that was stored is kept. Load again');
  assert.equal(await page.$('section[data-screen]:not([hidden])'), null);
  await page.click('#failure-again');
  await page.waitForFunction(() => document.body.dataset.ready !== undefined && document.getElementById('failure').hidden);
  await u.bar('Calc');
  assert.equal(await valueOf(page, 'frmMain.txtIncome'), '$777.00');
});

/** Copies a text by the keys, without a box that would show all of it, and pastes it over the text of a box. */
async function paste(page, text, address, { over = true } = {}) {
  await page.evaluate((words) => {
    const source = document.createElement('textarea');
    source.id = 'source';
    document.body.append(source);
    source.value = 'copied';
    source.addEventListener('copy', (event) => {
      event.clipboardData.setData('text/plain', words);
      event.preventDefault();
    });
    source.select();
  }, text);
  const withControl = async (key) => {
    await page.keyboard.down('Control');
    await page.keyboard.press(key);
    await page.keyboard.up('Control');
  };
  await withControl('c');
  await page.evaluate(() => document.getElementById('source').remove());
  await page.focus(selector(address));
  if (over) await page.$eval(selector(address), (box) => box.select());
  else await page.keyboard.press('End');
  await withControl('v');
}

test('a paste of megabytes is cut to what a box takes, and all goes on', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await paste(page, 'Ä'.repeat(6_000_000), 'frmName.txtName');
  assert.equal((await valueOf(page, 'frmName.txtName')).length, 32767);
  await u.click('frmName.cmdExit');
  assert.equal(await u.front(), 'frmMain');
  assert.deepEqual(await differences(page), []);
  assert.deepEqual(page.troubles, []);
});

test('a text of megabytes reaches the module and comes back', async (t) => {
  const page = await fresh(t);
  const length = await page.evaluate(async () => {
    const { ask, quoted, tell } = await import('./protocol.js');
    tell('type', 'frmName.txtName', quoted('x'.repeat(6_000_000)));
    return ask('get', 'frmName.txtName', 'text').length;
  });
  assert.equal(length, 6_000_000);
});

test('a paste is its first line or cell, without the blanks around it', async (t) => {
  const page = await fresh(t);
  await user(page).bar('Calc');
  const box = 'frmMain.txtIncome';
  for (const [text, wanted] of [['1000\n2000', '1000'], ['  25\r\n', '25'], ['100\t200', '100'], ['\u2212\u00a050\u200b', '- 50'], ['1\u202f000', '1 000']]) {
    await paste(page, text, box);
    assert.equal(await valueOf(page, box), wanted, JSON.stringify(text));
    assert.deepEqual(await differences(page), []);
  }
  await user(page).bar('Personal');
  await paste(page, 'Pat', 'frmName.txtName');
  await paste(page, ' Sample\nx', 'frmName.txtName', { over: false });
  assert.equal(await valueOf(page, 'frmName.txtName'), 'Pat Sample');
});

test('a save that the browser does not take is told in a line, until one is taken', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  const told = () => page.$eval('#unstored', (line) => line.checkVisibility());
  await page.evaluate(() => {
    const { setItem } = Storage.prototype;
    Storage.prototype.setItem = () => { throw new DOMException('full', 'QuotaExceededError'); };
    window.mend = () => { Storage.prototype.setItem = setItem; };
  });
  assert.equal(await told(), false);
  await u.click('frmName.cmdExit');
  assert.equal(await told(), true);
  await page.evaluate(() => window.mend());
  await u.click('frmMain.cmdToolBar(0)');
  assert.equal(await told(), false);
});

test('help that can not be loaded can be tried again', async (t) => {
  const own = await serve();
  t.after(own.close);
  own.faults.set('/help/Tallyfin.hlp', { status: 500, body: 'x' });
  const context = await freshContext(t);
  const page = await visit(context, own.address);
  await page.waitForSelector('body[data-ready]');
  await page.click('#help-here');
  await page.waitForFunction(() => document.querySelector('#help-topic').textContent.includes("The help can't be loaded."));
  own.faults.clear();
  await page.click('#help-topic button');
  await page.waitForSelector('#help-topic h3');
});

const back = (page) => page.evaluate(() => history.back());
const frontIs = (page, name) =>
  page.waitForFunction((wanted) => (document.querySelector('dialog[open]')?.id || document.querySelector('dialog[open]')?.dataset.screen ||
    document.querySelector('section[data-screen]:not([hidden])')?.dataset.screen || '') === wanted, {}, name);

test('Back closes the screen in front, as its own way back does, and nothing typed is lost', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await page.waitForFunction(() => history.state?.open === 1);
  await u.type('frmName.txtName', 'Ada');
  await back(page);
  await frontIs(page, 'frmMain');
  assert.equal(await page.evaluate(() => localStorage.getItem('Tallyfin99/User/UName')), 'Ada');
  await u.type('frmMain.txtIncome', '1234');
  for (const [open, name] of [
    [() => u.click('frmMain.cmdToolBar(1)'), 'frmPrint'],
    [() => u.click('frmMain.cmdAdditional(0)'), 'frmMisc'],
    [() => u.bar('W4'), 'frmW4'],
    [() => u.bar('About'), 'frmAbt'],
    [() => u.bar('Help'), 'help'],
    [() => u.bar('Analysis'), 'MsgBox'],
    [() => page.click('#bar .erase'), 'question'],
  ]) {
    await open();
    await frontIs(page, name);
    await back(page);
    await frontIs(page, 'frmMain');
    assert.equal((await valueOf(page, 'frmMain.txtIncome')).replace(/[$,]|\.00/g, ''), '1234');
  }
  assert.deepEqual(await differences(page), []);
  await u.bar('TwoWork');
  await u.click('frm2Workers.cmdTable1Show(0)');
  await frontIs(page, 'frmTableOne');
  await back(page);
  await frontIs(page, 'frm2Workers');
  await page.waitForFunction(() => history.state?.open === document.querySelectorAll('#tabs span').length);
  assert.deepEqual(page.troubles, []);
});

test('a screen that keeps the user keeps its entry of the history', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.type('frmName.txtName', '');
  await back(page); // the name is required
  await page.waitForFunction(() => history.state?.open === 1);
  assert.equal(await u.front(), 'frmName');
});

test('a new version is told in a line, and comes when it is loaded', async (t) => {
  const page = await fresh(t);
  await page.evaluate(() => navigator.serviceWorker.ready);
  await page.reload();
  await page.waitForSelector('body[data-ready]');
  assert.equal(await page.$eval('#newer', (line) => line.hidden), true);
  // Another worker file is another version.
  await page.evaluate(() => navigator.serviceWorker.register('worker.js?next'));
  await page.waitForSelector('#load-newer', { visible: true });
  await page.evaluate(() => { window.before = true; });
  await page.click('#load-newer');
  await page.waitForFunction(() => !window.before && document.body.dataset.ready !== undefined);
  assert.match(await page.evaluate(() => navigator.serviceWorker.controller.scriptURL), /\?next$/);
});
