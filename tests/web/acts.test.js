// The effects of each act of the user on the program, the browser's storage and the page, and nothing else.

import assert from 'node:assert/strict';
import { test } from 'node:test';
import { open, screens, selector, setUp, user, windows } from './browser.js';

const { server, fresh, freshContext } = await setUp();

const ask = (page, ...words) => page.evaluate(async (line) => (await import('./protocol.js')).ask(...line), words);
const shown = async (page) => (await ask(page, 'screens')).shown;
const tabs = (page) => page.$$eval('#tabs span', (all) => all.map((tab) => tab.firstChild.textContent));
const topic = (page) => page.$eval('#help-topic h3', (heading) => heading.textContent);
const topicIs = (page, title) => page.waitForFunction((words) => document.querySelector('#help-topic h3')?.textContent === words, {}, title);

test("erasing takes this program's entries and nobody else's, and what was worked out is gone", async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await page.evaluate(() => localStorage.setItem('Another/Settings/IncAmt', '5'));
  await u.click('frmName.cmdExit');
  await u.click('frmMain.cmdToolBar(0)');
  assert.equal(await page.$eval('#explain', (button) => button.disabled), false);
  await page.click('#bar .erase');
  await page.click('#erase-yes');
  assert.equal(await page.$eval('#explain', (button) => button.disabled), true);
  assert.deepEqual(await page.evaluate(() => Object.entries(localStorage)), [['Another/Settings/IncAmt', '5']]);
  await u.bar('Calc');
  assert.equal(await page.$eval('#explain', (button) => button.disabled), true, 'on a main screen of its own too');
});

test("a new version takes its own old files away and nobody else's", async (t) => {
  const page = await fresh(t);
  await page.evaluate(async () => {
    await navigator.serviceWorker.ready;
    await caches.open('another program');
    await caches.open('tallyfin99-older');
    const next = (await navigator.serviceWorker.register('worker.js?next')).installing;
    await new Promise((done) => next.addEventListener('statechange', () => next.state === 'installed' && done()));
    next.postMessage('take over');
    await new Promise((done) => next.addEventListener('statechange', () => next.state === 'activated' && done()));
  });
  assert.deepEqual((await page.evaluate(() => caches.keys())).map((name) => name.replace(/-.*/, '')).sort(), ['another program', 'tallyfin99']);
});

test("a tab's cross closes its own screen, not the one in front", async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await screens.frmPrint(u);
  await page.click('[aria-label="Close Calculations"]');
  assert.deepEqual(await shown(page), ['frmPrint']);
  assert.deepEqual(await tabs(page), ['Print Preview']);
});

test('six open screens have six tabs, and each leads to its screen', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('Calc');
  await u.click('frmMain.cmdAdditional(0)');
  await u.bar('W4');
  await u.bar('TwoWork');
  await u.click('frm2Workers.cmdTable1Show(0)');
  await u.bar('W4');
  await page.click('#tabs span:first-child button'); // the worksheet's, by its name
  assert.equal(await u.front(), 'frm2Workers');
  await u.click('frm2Workers.cmdW4Back(0)');
  await u.click('frm2Workers.cmdW4Back(2)');
  const open = await shown(page);
  assert.equal(open.length, 6);
  assert.equal((await tabs(page)).length, 6);
  for (let number = 1; number <= 6; ++number) {
    await page.click(`#tabs span:nth-child(${number}) button`);
    assert.equal(await u.front(), [...open].sort()[number - 1]);
    assert.equal((await shown(page))[0], await u.front());
  }
});

test('Escape closes a box for the program too', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  for (const [item, box] of [['About', 'frmAbt'], ['Analysis', 'MsgBox']]) {
    await u.bar(item);
    assert.ok((await shown(page)).includes(box));
    await page.keyboard.press('Escape');
    assert.deepEqual(await shown(page), ['frmName'], box);
    assert.equal(await page.$('dialog[open]'), null);
  }
});

test('the focus goes where the rules set it', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.type('frmName.txtName', '');
  await u.click('frmName.cmdExit'); // the name is required
  assert.equal(await page.evaluate(() => document.activeElement.dataset.address), 'frmName.txtName');
  await u.type('frmName.txtName', 'Ada');
  await u.bar('Calc');
  await u.click('frmMain.cmdAdditional(0)');
  assert.equal(await page.evaluate(() => document.activeElement.dataset.address), 'frmMisc.txtTaxPerCnt');
});

test('the zoom of the report changes its size', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await screens.frmPrint(u);
  const width = () => page.$eval('.letter', (sheet) => sheet.getBoundingClientRect().width);
  const whole = await width();
  await u.type('frmPrint.udZoom', '50');
  await page.keyboard.press('Enter');
  await page.keyboard.press('Tab');
  assert.ok(Math.abs((await width()) / whole - 0.5) < 0.01, `${await width()} of ${whole}`);
});

test('the calendar goes from December to the January of the next year, and back', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await page.evaluate(async () => (await import('./protocol.js')).tell('clock', '"1999-12-15T12:00:00"'));
  await screens.frmCalendar(u);
  const month = () => page.$eval('.calendar caption', (caption) => caption.textContent);
  assert.equal(await month(), 'December 1999');
  await page.click('[aria-label="Next month"]');
  assert.equal(await month(), 'January 2000');
  assert.equal(await page.$eval('.calendar tbody tr', (week) => week.cells[6].textContent), '1'); // a Saturday
  await page.click('[aria-label="Previous month"]');
  await page.click('[aria-label="Previous month"]');
  assert.equal(await month(), 'November 1999');
});

test('a calendar that has turned keeps the focus on the button that turned it', async (t) => {
  const page = await fresh(t);
  await screens.frmCalendar(user(page));
  for (const name of ['Next month', 'Previous month', 'Previous month']) {
    await page.click(`[aria-label="${name}"]`);
    assert.equal(await page.evaluate(() => document.activeElement.ariaLabel), name);
  }
});

test('links within a help file stay in it', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('W4Help');
  await page.waitForSelector('#help-topic h3');
  const titles = await page.$$eval('#help-contents a', (links) => links.map((link) => link.textContent));
  for (const number of [2, titles.length]) {
    await page.click(`#help-contents a:nth-child(${number})`);
    await topicIs(page, titles[number - 1]);
  }
  assert.deepEqual(await page.$$eval('#help-contents a', (links) => links.map((link) => link.textContent)), titles);
});

test('Back in help goes one topic back, and never into an earlier opening', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('Help');
  await page.waitForSelector('#help-topic h3');
  const follow = async (number) => {
    const title = await page.$eval(`#help-contents a:nth-child(${number})`, (link) => link.textContent);
    await page.click(`#help-contents a:nth-child(${number})`);
    await topicIs(page, title);
    return title;
  };
  const first = await topic(page);
  const second = await follow(3);
  await follow(5);
  await page.click('#help-back');
  await topicIs(page, second);
  await page.click('#help-back');
  await topicIs(page, first);
  await follow(4);
  await page.click('#help [data-dismiss]');
  await u.bar('Help');
  await topicIs(page, first);
  assert.equal(await page.$eval('#help-back', (button) => button.disabled), true);
});

test('Copy takes the explanation that is read, without the captions around it', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('Calc');
  await u.type('frmMain.txtIncome', '1000');
  await u.click('frmMain.cmdToolBar(0)');
  await windows.explanation[0](u, page);
  const said = () => page.$eval('#explanation-said', (line) => line.textContent);
  await page.evaluate(() => { navigator.clipboard.writeText = async (text) => { window.copied = text; }; });
  assert.equal(await said(), '');
  await page.click('#explanation-copy');
  await page.waitForFunction(() => document.querySelector('#explanation-said').textContent === 'Copied');
  assert.equal(await page.evaluate(() => window.copied), 'Gross Pay\n1\tIncome, as entered\t$1,000.00');
  await page.keyboard.press('ArrowDown'); // another figure, which isn't copied
  await page.click('#figures label:nth-child(5)');
  assert.equal(await said(), '');
  await page.evaluate(() => { navigator.clipboard.writeText = () => Promise.reject(new Error('forbidden')); });
  await page.click('#explanation-copy');
  await page.waitForFunction(() => document.querySelector('#explanation-said').textContent === "The browser doesn't allow to copy");
});

test('the explanation on paper is that of the last calculation', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('Calc');
  for (const [income, words] of [['1000', '$1,000.00'], ['2000', '$2,000.00']]) {
    await u.type('frmMain.txtIncome', income);
    await u.click('frmMain.cmdToolBar(0)');
    await page.click('#explain');
    const paper = await page.$eval('#explanation-paper', (sheet) => sheet.textContent);
    assert.ok(paper.includes(`Of the gross pay of ${words}: `), paper);
    await page.click('#explanation [data-dismiss]');
  }
});

test('the link carries the entries of the main screen, and neither name nor number', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.type('frmName.txtName', 'Ada');
  await u.type('frmName.txtSSN', '123456789');
  await u.click('frmName.cmdExit');
  await u.type('frmMain.txtIncome', '1234.5');
  await u.type('frmMain.txt401k', '6');
  await u.pick('frmMain.lstFrequency', 2);
  await u.type('frmMain.txtHours', '70');
  await u.click('frmMain.optStatus(1)');
  await u.pick('frmMain.cboExemptions', 3);
  await u.click('frmMain.chkSelfEmployed');
  assert.equal(await page.$eval('#link', (box) => box.value), '', 'made when asked for');
  await page.click('#make-link');
  await page.waitForSelector('#link', { visible: true });
  const link = await page.$eval('#link', (box) => box.value);
  assert.ok(link.startsWith(`${server.address}#`), link);
  assert.deepEqual(Object.fromEntries(new URLSearchParams(new URL(link).hash.slice(1))), {
    income: '1234.5', hours: '70', rate_401k: '6', pre_tax: '0', pre_fica: '0', frequency: 'Every Two Weeks', exemptions: '3', state: 'No State', status: 'Single',
    self_employed: 'Y' });
  await u.type('frmMain.txtIncome', '5');
  assert.equal(await page.$eval('#link-row', (row) => row.hidden), true, 'out of date');

  const other = await open(await freshContext(t), link);
  assert.equal(await user(other).front(), 'frmMain');
  const held = (address, property) => ask(other, 'get', address, property);
  assert.deepEqual([await held('frmMain.txtIncome', 'text'), await held('frmMain.txt401k', 'text'), await held('frmMain.txtHours', 'text'), await held('frmMain.lstFrequency', 'index'),
    await held('frmMain.optStatus(1)', 'value'), await held('frmMain.cboExemptions', 'index'), await held('frmMain.chkSelfEmployed', 'value')],
  ['1234.5', '6', '70', 2, true, 3, true]);
  assert.equal(await other.evaluate(() => location.hash), '', 'reloaded, it is not taken again');
  assert.equal(await other.evaluate(() => localStorage.getItem('Tallyfin99/Settings/IncAmt')), null, 'nothing is stored before Calculate');
  assert.deepEqual(other.troubles, []);
});

test('a link to a state with options ends on them, with all other entries made', async (t) => {
  const page = await open(await freshContext(t), `${server.address}#income=1000&frequency=Weekly&status=Single&self_employed=Y&state=Michigan`);
  assert.equal(await user(page).front(), 'frmState');
  const held = (address, property) => ask(page, 'get', address, property);
  assert.deepEqual([await held('frmState.cboState', 'text'), await held('frmMain.txtIncome', 'text'), await held('frmMain.lstFrequency', 'index'),
    await held('frmMain.optStatus(1)', 'value'), await held('frmMain.chkSelfEmployed', 'value')], ['Michigan', '1000', 0, true, true]);
  assert.deepEqual(page.troubles, []);
});

test('a link is no more than entries: what it has besides, and what is no entry, counts for nothing', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('Calc');
  await page.evaluate(() => { location.hash = 'name=Eve&income=7"%0Astore%20put%20User%20UName%20"x&frequency=Daily&state=Atlantis&exemptions=99&status=None'; });
  await page.waitForFunction(() => location.hash === '');
  assert.equal(await ask(page, 'get', 'frmMain.txtIncome', 'text'), '7"\nstore put User UName "x');
  assert.equal(await ask(page, 'get', 'frmMain.lstFrequency', 'index'), -1);
  assert.equal(await ask(page, 'get', 'frmMain.cboState', 'index'), 0);
  assert.equal((await ask(page, 'store')).User?.UName, await page.evaluate(() => localStorage.getItem('Tallyfin99/User/UName') ?? undefined));
  assert.deepEqual(page.troubles, []);
});

test('the item of the list bar under the pointer is lit until the pointer leaves', async (t) => {
  const page = await fresh(t);
  const item = 'MDIOpen.SSListBar1(Multi)';
  const lit = async () => [await page.$eval(selector(item), (button) => button.classList.contains('highlighted')), await ask(page, 'get', item, 'highlighted')];
  await page.hover(selector(item));
  assert.deepEqual(await lit(), [true, true]);
  await page.mouse.move(700, 500);
  assert.deepEqual(await lit(), [false, false]);
});

test('a click on the entry that is chosen already chooses it again', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('Calc');
  await u.click('frmMain.cmdAdditional(0)');
  await u.pick('frmMisc.lstGrossPay', 2);
  await page.evaluate(() => localStorage.clear());
  await u.pick('frmMisc.lstGrossPay', 2);
  assert.ok((await page.evaluate(() => Object.keys(localStorage))).some((name) => name.startsWith('Tallyfin99/Settings/')));
  await u.bar('Calc');
  await u.pick('frmMain.cboState', 1);
  assert.equal(await u.front(), 'frmState');
  await u.click('frmState.cmdAccept');
  await u.pick('frmMain.cboState', 1);
  assert.equal(await u.front(), 'frmState');
});
