// For every hand and eye: the keyboard, where the focus goes, colours that a user has set, letters of any size, telephones, paper.

import assert from 'node:assert/strict';
import { readFile } from 'node:fs/promises';
import { join } from 'node:path';
import { test } from 'node:test';
import { browse, emulate, firefox, onPaper, open, project, screens, selector, setUp, user, windows } from './browser.js';
import { crowded, differences } from './faithful.js';

const { server, fresh } = await setUp();

const hold = (page, address, property) =>
  page.evaluate(async (a, p) => (await import('./protocol.js')).ask('get', a, p), address, property);
const isOpen = (page, address) => page.$eval(selector(address), (box) => box.ariaExpanded === 'true' && box.parentElement.querySelector('[role=listbox]').checkVisibility());
const marked = (page) => page.$eval('[role=option][aria-selected=true]', (entry) => entry.textContent);

async function chord(page, modifier, key) {
  await page.keyboard.down(modifier);
  await page.keyboard.press(key);
  await page.keyboard.up(modifier);
}

test('letters typed on a closed drop-down open it, and only Enter chooses', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('Calc');
  await page.focus(selector('frmMain.cboState'));
  await page.keyboard.type('Mis');
  assert.equal(await marked(page), 'Mississippi');
  assert.ok(await isOpen(page, 'frmMain.cboState'));
  assert.equal(await hold(page, 'frmMain.cboState', 'text'), 'No State');
  assert.equal(await u.front(), 'frmMain');
  await page.keyboard.press('Escape');
  assert.equal(await page.$('[role=listbox]'), null);
  assert.equal(await hold(page, 'frmMain.cboState', 'text'), 'No State');
  await page.keyboard.type('penn');
  await page.keyboard.press('Enter');
  assert.equal(await hold(page, 'frmMain.cboState', 'text'), 'Pennsylvania');
  assert.equal(await page.$eval(selector('frmMain.cboState'), (box) => box.textContent), 'Pennsylvania');
  await page.keyboard.type('nnn'); // one letter again and again
  assert.equal(await marked(page), 'New Jersey');
});

test('the list of 42 states shows some twelve rows in a border, and scrolls', async (t) => {
  const page = await fresh(t, { width: 1280, height: 800 });
  await user(page).bar('Calc');
  await user(page).click('frmMain.cboState');
  const [entries, rows, border, inView] = await page.$eval('[role=listbox]', (list) => {
    const { top, bottom } = list.getBoundingClientRect();
    return [list.children.length, list.clientHeight / list.firstChild.offsetHeight, getComputedStyle(list).borderTopStyle, top > -1 && bottom < window.innerHeight + 1];
  });
  assert.deepEqual([entries, border, inView], [42, 'solid', true]);
  assert.ok(rows > 11 && rows < 13, `${rows} rows`);
});

test('a click on the label of a drop-down gives it the focus and opens nothing', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('Calc');
  for (const [label, box] of [['frmMain.lblExemp', 'frmMain.cboExemptions'], ['frmMain.lblStateTax', 'frmMain.cboState']]) {
    await u.click(label);
    assert.equal(await page.evaluate(() => document.activeElement.dataset.address), box);
    assert.equal(await page.$('[role=listbox]'), null);
  }
});

test('the four editable drop-downs open by Down, Alt+Down and F4, and hold the entries of their controls', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('StateInfo');
  const boxes = ['frmState.cboState', 'frmState.cboDeps(0)', 'frmState.cboDeps(1)', 'frmState.cboSpecialDeps'];
  const chooseState = async (name) => {
    await page.focus(selector(boxes[0]));
    await page.$eval(selector(boxes[0]), (box) => box.select());
    await page.keyboard.type(name);
    await page.keyboard.press('Enter');
  };
  await chooseState('illinois');
  await page.focus(selector(boxes[1]));
  await page.keyboard.press('Enter'); // a count of dependents enables the second one
  const opened = [];
  for (const box of boxes) {
    if (box === boxes[3]) await chooseState('michigan');
    const [arrow, enabled] = await page.$eval(selector(box), (element) => {
      const place = element.parentElement.querySelector('.arrow');
      const { width, height } = place.getBoundingClientRect();
      return [width * height > 0 && getComputedStyle(place, '::after').borderBottomStyle === 'solid', !element.disabled];
    });
    assert.ok(arrow, `${box} has an arrow`);
    if (!enabled) continue;
    opened.push(box);
    await page.focus(selector(box));
    for (const way of [() => page.keyboard.press('ArrowDown'), () => chord(page, 'Alt', 'ArrowDown'), () => page.keyboard.press('F4')]) {
      await way();
      assert.ok(await isOpen(page, box), box);
      assert.deepEqual(await differences(page), []);
      await page.keyboard.press('Escape');
      assert.equal(await isOpen(page, box).catch(() => false), false);
    }
  }
  assert.deepEqual(opened, boxes);
});

test('a typed text that is an entry, in any case of letters, chooses it by Enter and by leaving the box', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('StateInfo');
  const box = 'frmState.cboState';
  const replace = async (text) => {
    await page.focus(selector(box));
    await page.$eval(selector(box), (element) => element.select());
    await page.keyboard.type(text);
  };
  await replace('ILLINOIS');
  assert.equal(await hold(page, box, 'index'), -1);
  await page.keyboard.press('Enter');
  assert.equal(await hold(page, box, 'text'), 'Illinois');
  await replace('massachusettes');
  await page.keyboard.press('Tab');
  assert.equal(await hold(page, box, 'text'), 'Massachusettes');
  assert.equal(await hold(page, 'frmState.op3Marital(0)', 'enabled'), true, 'its options came with it');
  await replace('Mass');
  await page.click('.combo:has(#frmState-cboState) .arrow'); // opening chooses nothing
  assert.equal(await hold(page, box, 'text'), 'Mass');
  await page.keyboard.press('Escape');
  await page.keyboard.press('Tab');
  assert.equal(await hold(page, box, 'text'), 'Mass');
  assert.equal(await hold(page, box, 'index'), -1);
  assert.deepEqual(await differences(page), []);
});

test('passing through a drop-down chooses nothing', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('StateInfo');
  await page.focus(selector('frmState.cboState'));
  await page.$eval(selector('frmState.cboState'), (box) => box.select());
  await page.keyboard.type('mississippi');
  await page.keyboard.press('Enter');
  const option = await page.$eval('[data-address^="frmState.op3Marital"]:not(:disabled)', (part) => part.dataset.address);
  await u.click(option);
  assert.equal(await hold(page, option, 'value'), true);
  await page.focus(selector('frmState.cboState'));
  await page.keyboard.press('Tab');
  assert.equal(await hold(page, option, 'value'), true);
});

/** What has the focus: the screen or window that it is in, and its name. */
const focused = (page) =>
  page.evaluate(() => {
    const element = document.activeElement;
    if (element === document.body || !element.checkVisibility({ visibilityProperty: true })) return ['nowhere', ''];
    const place = element.closest('dialog, section[data-screen]');
    const name = element.ariaLabel ?? ([...(element.labels ?? [])].map((label) => label.textContent).join(' ').trim() || element.textContent.trim());
    return [place ? place.id || place.dataset.screen : 'the frame', name];
  });

test('after every change of screen, page, box and help topic the focus stands where the user goes on, named', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  /** Where a person goes on who needn't begin at the heading. */
  const others = {
    'frmMain, results': 'Calculate',
    'frmMisc, local tax': 'Enter the Percent',
    'frmMisc, raise': 'Enter the percentage of the raise you are expecting.',
    'frmDednAdj, page 2': /^4\. {2}Enter an estimate of your 1999 adjustments to income/,
    frmPersWkSht: 'Personal Allowances Worksheet',
    'frmPersWkSht, page 2': 'Personal Allowances Worksheet',
    frmDednAdj: 'Deductions and Adjustments',
    'frm2Workers, page 2': 'Two-Earner/Two-Job Worksheet',
  };
  const expect = async (what, place, wanted) => {
    const [where, words] = await focused(page);
    assert.equal(where, place, what);
    if (wanted instanceof RegExp) assert.match(words, wanted, what);
    else assert.equal(words, wanted, what);
  };
  const title = (name) => hold(page, name, 'title');
  await expect('at the start', 'frmName', 'Personal Information');
  for (const [name, go] of Object.entries(screens)) {
    await go(u);
    const [screen] = name.split(',');
    await expect(name, screen, others[name] ?? await title(screen));
  }
  /** The place and the name of the focus in each window, and after it was closed. */
  const wanted = {
    explanation: [['explanation', /^Gross Pay/], ['frmMain', 'How this was worked out']],
    MsgBox: [['MsgBox', 'OK'], ['the frame', 'Analysis']],
    frmAbt: [['frmAbt', 'Close'], ['the frame', 'About']],
    help: [['help', 'Welcome to Tallyfin 99'], ['the frame', 'Help']],
    'help on Personal Information': [['help', 'Personal Information'], ['frmName', 'Personal Information']],
    question: [['question', 'Keep'], ['help', 'Erase what this browser keeps']],
  };
  for (const [name, [go, close]] of Object.entries(windows)) {
    await u.bar('Calc');
    await u.click('frmMain.cmdToolBar(0)');
    await go(u, page);
    await expect(name, ...wanted[name][0]);
    await page.click(close);
    await expect(`after ${name}`, ...wanted[name][1]);
    if (name === 'question') await page.click('#help [data-dismiss]');
  }

  await u.bar('Multi');
  await u.bar('W4');
  await page.evaluate(() => window.history.back());
  await page.waitForSelector('[data-screen=frmMultiCheck]:not([hidden])');
  await expect('after Back', 'frmMultiCheck', await title('frmMultiCheck'));
  await page.click('#tabs [aria-current] + button');
  const next = await u.front();
  assert.notEqual(next, 'frmMultiCheck');
  await expect('after closing a tab', next, await title(next));
  await u.bar('Multi');
  await page.click('#tabs :not([aria-current]) + button');
  await expect('after closing the tab of another screen', 'frmMultiCheck', await title('frmMultiCheck'));
  await windows.question[0](u, page);
  await page.click('#erase-yes');
  await expect('after erasing', 'frmName', 'Personal Information');
  await u.bar('ExitProgram');
  await page.click('#again');
  await expect('after Start again', 'frmName', 'Personal Information');
});

test('the focus comes back to what led to a screen, and follows the rules to another page', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  const expect = async (what, place) => assert.equal((await focused(page))[0], place, what);
  await u.bar('TwoWork');
  await u.click('frm2Workers.cmdTable1Show(0)');
  await expect('the table', 'frmTableOne');
  await page.focus(selector('frmTableOne.lstTableOne'));
  await page.keyboard.press('ArrowDown');
  await page.keyboard.press('Enter');
  await expect('from the table', 'frm2Workers');
  assert.equal(await page.evaluate(() => document.activeElement.dataset.address), 'frm2Workers.cmdTable1Show(0)');

  // Pages, of which the rules move the focus on one.
  await u.bar('Ded');
  await u.click('frmDednAdj.cmdW4Back(0)');
  assert.equal(await page.evaluate(() => document.activeElement.dataset.address), 'frmDednAdj.txtAdjustments');
  await u.click('frmDednAdj.cmdW4Back(1)');
  await expect('back to page 1', 'frmDednAdj');

  await u.bar('Help');
  await page.waitForFunction(() => document.activeElement.matches('#help-topic h3'));
  await page.click('#help-contents a:nth-child(3)');
  await page.waitForFunction((words) => document.activeElement.textContent === words, {}, await page.$eval('#help-contents a:nth-child(3)', (link) => link.textContent));
  await page.click('#help-back');
  await page.waitForFunction(() => document.activeElement.matches('#help-topic h3'));
  await page.click('#help [data-dismiss]');

  await u.bar('ExitProgram');
  assert.deepEqual(await focused(page), ['the frame', 'Start again']);
});

test('the Tab key stays on what is in view', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  for (const name of ['frmPersWkSht', 'frmPersWkSht, page 2', 'frm2Workers', 'frm2Workers, page 2', 'frmMisc, local tax']) {
    await screens[name](u);
    for (let i = 0; i < 12; ++i) {
      await page.keyboard.press('Tab');
      const [inView, last] = await page.evaluate(() => [document.activeElement === document.body || document.activeElement.checkVisibility({ visibilityProperty: true }),
        document.activeElement === [...document.querySelectorAll('section:not([hidden]) :is(button, input, select)')].filter((stop) => stop.checkVisibility() && !stop.disabled).at(-1)]);
      assert.ok(inView, name);
      if (last) break;
    }
  }
});

test('title, mark in the list bar, skip link and access keys follow the screen', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  const marks = () => page.$$eval('#bar [aria-current=page]', (items) => items.map((item) => item.textContent.trim()));
  assert.equal(await page.title(), 'Personal Information - Tallyfin 99');
  assert.deepEqual(await marks(), ['Personal Information']);
  await u.bar('Multi');
  assert.equal(await page.title(), 'Multiple Check Worksheet - Tallyfin 99');
  assert.deepEqual(await marks(), ['Multiple Paychecks']);
  await page.focus('#skip');
  await page.keyboard.press('Enter');
  assert.equal(await page.evaluate(() => document.activeElement.closest('section').dataset.screen), 'frmMultiCheck');
  await u.bar('Calc');
  const keys = () => page.$$eval('[accesskey]:not([accesskey=""])', (parts) => parts.map((part) => [part.accessKey, part.dataset.address]));
  const here = await keys();
  assert.ok(here.every(([, address]) => address.startsWith('frmMain.')));
  assert.equal(new Set(here.map(([key]) => key.toLowerCase())).size, here.length, 'each letter once');
  assert.deepEqual(here.find(([key]) => key === 'I'), ['I', 'frmMain.txtIncome']);
  await u.bar('ExitProgram');
  assert.deepEqual(await keys(), []);
  assert.equal(await page.title(), 'Tallyfin 99');
});

/** The Alt letters of the desktop by the heading of their table in the help, each with its words. */
async function lettersOfHelp() {
  const help = await readFile(join(project, 'help', 'Tallyfin.hlp'), 'utf8');
  const tables = help.slice(help.indexOf('<h1 id="keys">')).matchAll(/<h2>([^<]*)<\/h2>\s*<table.*?<\/table>/gs);
  return new Map([...tables].map(([table, title]) => [title, [...table.matchAll(/<td>Alt\+(.)<\/td><td>([^<]*)</g)].map(([, letter, words]) => [letter, words])]));
}

test("a screen's access keys are the desktop's Alt letters", async (t) => {
  const page = await fresh(t);
  const u = user(page);
  const letters = await lettersOfHelp();
  // The grid doesn't take the focus, the preview fits in one way, and a browser's key would press a check box of a line.
  const others = { frmMain: 'T', frmPrint: 'A', frmPersWkSht: 'ABCEF', frmW4: '347' };
  for (const name of Object.keys(screens).filter((one) => !one.includes(', ') || one === 'frmMisc, raise')) {
    await screens[name](u);
    const [screen] = name.split(',');
    const here = await page.$$eval('section[data-screen]:not([hidden]) [data-letter]', (parts) => parts.map((part) => [part.accessKey.toUpperCase(),
      part.ariaLabel ?? ([...(part.labels ?? [])].map((label) => label.textContent).join(' ').trim() || part.textContent.trim())]));
    const wanted = (letters.get(screen === 'frmTableOne' ? 'The tables' : await hold(page, screen, 'title')) ?? []).filter(([letter]) => !(others[screen] ?? '').includes(letter));
    assert.deepEqual(here.map(([letter]) => letter).sort(), wanted.map(([letter]) => letter).sort(), screen);
    for (const [letter, words] of wanted) {
      const [, own] = here.find(([one]) => one === letter);
      // The web app's buttons say in a word what the desktop's tooltips say.
      const said = { 'Go To Main Worksheet': 'Use as income', 'Fit width': 'Fit' }[words] ?? words;
      if (!/^Line .$/.test(words)) assert.equal(own, said, `${screen}: ${letter}`);
    }
  }
});

test('F9 calculates, and the button says so', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('Calc');
  await u.type('frmMain.txtIncome', '1000');
  await page.keyboard.press('F9');
  assert.equal(await page.$eval('#results tbody tr', (row) => row.cells[1].textContent), '$1,000.00');
  assert.equal(await page.$eval(selector('frmMain.cmdToolBar(0)'), (button) => button.title), 'Calculate (F9)');
});

test('why the federal tax is nothing is said where no frequency is chosen', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  const said = () => page.$eval('#no-frequency', (line) => line.checkVisibility());
  await u.bar('Calc');
  assert.equal(await said(), false);
  await u.click('frmMain.cmdToolBar(0)');
  assert.equal(await said(), true);
  await u.pick('frmMain.lstFrequency', 0);
  await u.click('frmMain.cmdToolBar(0)');
  assert.equal(await said(), false);
});

test('the arrow keys go through a worksheet line by line, and mark the lines that the current one names', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('Calc');
  await u.pick('frmMain.lstFrequency', 0);
  await u.click('frmMain.optStatus(1)');
  await u.type('frmMain.txtIncome', '1000');
  await u.click('frmMain.cmdToolBar(0)');
  await page.click('#results tbody tr:nth-child(5)', { count: 2 });
  const here = () => page.evaluate(() => {
    const line = document.activeElement.closest('.form-line');
    return line && { line: line.dataset.line, spoken: line.ariaLabel, outlined: getComputedStyle(line).outlineStyle,
      names: [...line.querySelectorAll('.names')].flatMap((part) => part.dataset.lines.split(' ')), open: line.querySelector('details')?.open };
  });
  const marked = () => page.$$eval('#explanation-text .marked', (all) => all.map((row) => row.dataset.line));
  await page.keyboard.press('Tab');
  const count = await page.$$eval('#explanation-text .form-line', (all) => all.length);
  const met = [];
  for (let i = 0; i < count; ++i) {
    met.push(await here());
    assert.equal(met[i].outlined, 'solid');
    assert.deepEqual(await marked(), [...new Set(met[i].names)].sort((a, b) => a - b), met[i].spoken);
    if (met[i].open === false) {
      await page.keyboard.press('ArrowRight');
      assert.equal((await here()).open, true);
      await page.keyboard.press('ArrowLeft');
      assert.equal((await here()).open, false);
    }
    await page.keyboard.press('ArrowDown');
  }
  assert.deepEqual(await here(), met.at(-1), 'the last line is the last');
  assert.equal(met[0].spoken, 'Marital status: Single');
  assert.match(met.at(-1).spoken, /^Line \d+\. .*204 dollars 10\.$/);
  assert.ok(met.some(({ names }) => names.length > 1) && met.some(({ open }) => open === false));
  await page.keyboard.press('Home');
  assert.deepEqual(await here(), met[0]);
  await page.keyboard.press('End');
  assert.deepEqual(await here(), met.at(-1));
  await page.keyboard.down('Shift');
  await page.keyboard.press('Tab');
  await page.keyboard.press('Tab');
  await page.keyboard.up('Shift');
  assert.deepEqual(await marked(), []);
});

/** The number of colours in a picture of a part of the page, as the browser has drawn it. */
async function coloursOf(page, element) {
  const picture = await element.screenshot({ encoding: 'base64' });
  return page.evaluate(async (data) => {
    const image = await createImageBitmap(new Blob([Uint8Array.from(atob(data), (c) => c.charCodeAt(0))]));
    const context = new OffscreenCanvas(image.width, image.height).getContext('2d');
    context.drawImage(image, 0, 0);
    const { data: bytes } = context.getImageData(0, 0, image.width, image.height);
    const luminance = new Set();
    for (let i = 0; i < bytes.length; i += 4) luminance.add(Math.round((bytes[i] * 2 + bytes[i + 1] * 5 + bytes[i + 2]) / 8));
    return Math.max(...luminance) - Math.min(...luminance);
  }, picture);
}

for (const [look, prefs, media] of [
  ['light', {}, []],
  ['dark', { 'browser.display.background_color': '#000000', 'browser.display.foreground_color': '#ffffff', 'ui.systemUsesDarkTheme': 1 }, [{ name: 'prefers-color-scheme', value: 'dark' }]],
]) {
  test(`in ${look} forced colours every picture, mark and part is seen`, async (t) => {
    const own = await browse(undefined, { prefs: { 'browser.display.document_color_use': 2, ...prefs } });
    t.after(() => own.close());
    const page = await open(own, server.address);
    if (!firefox) await emulate(page, [{ name: 'forced-colors', value: 'active' }, ...media]);
    const u = user(page);
    assert.ok(await page.evaluate(() => matchMedia('(forced-colors: active)').matches));
    for (const way of ['frmMain', 'frmPrint', 'frm2Workers, page 2']) {
      await screens[way](u);
      await page.mouse.move(600, 3);
      for (const picture of await page.$$('section:not([hidden]) button:not(:disabled) img')) {
        if (!(await picture.evaluate((image) => image.checkVisibility() && !image.closest('.seal')))) continue;
        assert.ok((await coloursOf(page, picture)) > 80, `${way}: ${await picture.evaluate((image) => image.src)}`);
      }
    }
    await screens['frmMain, results'](u);
    for (const item of await page.$$('#bar :is(button, a):has(img)')) {
      await item.hover();
      assert.ok((await coloursOf(page, await item.$('img'))) > 150, `under the pointer: ${await item.evaluate((one) => one.textContent)}`);
    }
    const outlined = (where) => page.$eval(where, (element) => getComputedStyle(element).outlineStyle);
    assert.equal(await outlined('#bar [aria-current]'), 'solid');
    await u.pick('frmMain.lstFrequency', 0);
    await u.click('frmMain.cmdToolBar(0)');
    await page.click('#explain');
    assert.equal(await page.$eval('#shares span', (part) => getComputedStyle(part).borderLeftStyle), 'solid');
    assert.equal(await outlined('#figures label:has(:checked)'), 'solid');
    await page.click('#figures label:nth-child(5)');
    await page.focus('#explanation-text .form-line:has([data-lines])');
    assert.equal(await outlined('.form-line.marked > .form-text'), 'solid');
    await page.click('#explanation [data-dismiss]');
    await u.click('frmMain.cboState');
    assert.equal(await outlined('.combo li[aria-selected=true]'), 'solid');
    await page.keyboard.press('Escape');
    await screens.frmCalendar(u);
    assert.equal(await outlined('.calendar [aria-current]'), 'solid');
    await windows.help[0](u, page);
    assert.equal(await outlined('#help-contents a[aria-current]'), 'solid');
    await page.click('#help [data-dismiss]');
    for (const [name, go] of Object.entries(screens)) {
      await go(u);
      for (const size of [{ width: 360, height: 740 }, { width: 1280, height: 800 }]) {
        await page.setViewport(size);
        assert.deepEqual(await crowded(page), [], `${name} at ${size.width}`);
      }
    }
  });
}

test('the lists of four and five rows show them all, whatever is chosen, at every scale', async (t) => {
  for (const deviceScaleFactor of [1, 1.5, 2]) {
    const page = await fresh(t, { width: 1280, height: 800, deviceScaleFactor });
    const u = user(page);
    await u.bar('Calc');
    const rows = (address) => page.$eval(selector(address), (list) => {
      const { top, bottom } = list.getBoundingClientRect();
      return [list.scrollTop, [...list.options].every((row) => row.getBoundingClientRect().top >= top && row.getBoundingClientRect().bottom <= bottom)];
    });
    await u.pick('frmMain.lstFrequency', 3);
    assert.deepEqual(await rows('frmMain.lstFrequency'), [0, true]);
    await u.click('frmMain.cmdAdditional(0)');
    await u.pick('frmMisc.lstGrossPay', 1);
    assert.deepEqual(await rows('frmMisc.lstGrossPay'), [0, true]);
  }
});

test("letters have the size that the browser's user has set", async (t) => {
  const own = await browse(undefined, { prefs: { 'font.size.variable.x-western': 24 } });
  t.after(() => own.close());
  const page = await open(own, server.address, { width: 1280, height: 800 });
  if (!firefox) {
    const client = await page.createCDPSession();
    await client.send('Page.setFontSizes', { fontSizes: { standard: 24 } });
  }
  const sizes = await page.evaluate(() => ['html', 'input[type=text]', 'button'].map((where) => parseFloat(getComputedStyle(document.querySelector(where)).fontSize)));
  assert.deepEqual(sizes, [24, 24, 24]);
  await user(page).bar('Calc');
  const [wide, view] = await page.evaluate(() => [document.scrollingElement.scrollWidth, window.innerWidth]);
  assert.ok(wide <= view, `${wide} wide`);
});

test('all check boxes and option boxes have 16 pixels', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  let count = 0;
  for (const [name, go] of Object.entries(screens)) {
    await go(u);
    const sizes = await page.$$eval('[type=checkbox], [type=radio]', (all) => all.filter((box) => box.checkVisibility()).map((box) => {
      const { width, height } = box.getBoundingClientRect();
      return [box.dataset.address, Math.min(width, height)];
    }));
    count += sizes.length;
    assert.deepEqual(sizes.filter(([, size]) => size < 16), [], name);
  }
  assert.ok(count > 20, `${count} boxes`);
});

/** What a finger would miss: targets of less than 44 pixels, without links inside of a text. */
const smallTargets = (page, name) =>
  page.evaluate((screen) => {
    const modal = [...document.querySelectorAll('dialog[open]')].at(-1);
    const size = (part) => {
      const places = [part, part.closest('.option, #figures label'), ...(part.labels ?? [])].filter((place) => place).map((place) => place.getBoundingClientRect());
      return ['width', 'height'].map((side) => Math.max(...places.map((place) => place[side])));
    };
    return [...(modal ?? document).querySelectorAll('button, input, textarea, select, option, summary, nav a, header a, .arrow, [role=combobox]')]
      .filter((part) => (part.closest('select') ?? part).checkVisibility({ visibilityProperty: true }) && part.id !== 'skip' && !(part.tagName === 'OPTION' && !part.parentElement.size))
      .map((part) => [part, ...size(part)])
      .filter(([part, wide, high]) => Math.min(wide, part.matches('.arrow') ? 44 : high) < 43.5)
      .map(([part, wide, high]) => `${screen}: ${part.dataset.address ?? (part.id || part.className || part.textContent)}, ${wide} by ${high}`);
  }, name);

for (const [width, height] of [[360, 560], [320, 256]]) {
  test(`on a telephone of ${width} by ${height} Calculate leads to the check, and all can be touched`, async (t) => {
    const own = await browse(undefined, { prefs: { 'ui.primaryPointerCapabilities': 1, 'ui.allPointerCapabilities': 1 } });
    t.after(() => own.close());
    const page = await open(own, server.address, { width, height, ...(firefox ? {} : { hasTouch: true, isMobile: true }) });
    assert.ok(await page.evaluate(() => matchMedia('(pointer: coarse)').matches));
    const u = user(page);
    await u.bar('Calc');
    await u.type('frmMain.txtIncome', '1000');
    await u.click('frmMain.cmdToolBar(0)');
    const inView = (where) => page.$eval(where, (element) => {
      const { top, bottom } = element.getBoundingClientRect();
      return top >= 0 && bottom <= window.innerHeight;
    });
    await page.waitForFunction(() => document.querySelector('#explain').getBoundingClientRect().bottom <= window.innerHeight);
    assert.ok(await inView('#results [data-row=result]'));
    assert.ok(await inView('#explain'));
    const small = [];
    for (const [name, go] of Object.entries(screens)) {
      await go(u);
      small.push(...await smallTargets(page, name));
      const [wide, view] = await page.evaluate(() => [document.scrollingElement.scrollWidth, window.innerWidth]);
      assert.ok(wide <= view, `${name} is ${wide} wide`);
    }
    await page.click('#menu');
    small.push(...await smallTargets(page, 'menu'));
    for (const [name, [go, close]] of Object.entries(windows)) {
      await u.bar('Calc');
      await u.click('frmMain.cmdToolBar(0)');
      await go(u, page);
      small.push(...await smallTargets(page, name));
      if (name === 'explanation') {
        await page.click('#figures label:nth-child(4)');
        small.push(...await smallTargets(page, 'worksheet'));
      }
      await page.click(close);
      if (name === 'question') await page.click('#help [data-dismiss]');
    }
    assert.deepEqual([...new Set(small)], []);
    for (const name of ['help', 'explanation']) {
      const [go, close] = windows[name];
      await u.bar('Calc');
      await go(u, page);
      const taken = await page.$eval(`#${name}`, (dialog) => [dialog.offsetWidth / document.documentElement.clientWidth, dialog.offsetHeight / window.innerHeight, dialog.scrollWidth - dialog.clientWidth]);
      assert.ok(taken[0] > 0.95 && taken[1] > 0.95 && taken[2] <= 0, `${name}: ${taken}`);
      if (name === 'explanation') {
        await page.click('#figures label:nth-child(2)');
        assert.ok(await inView('#explanation-text .form-line'));
      }
      await page.click(close);
    }
    await page.goto(`${server.address}many.html`);
    await page.waitForSelector('body[data-ready]');
    assert.deepEqual(await smallTargets(page, 'many paychecks'), []);
  });
}

test('the four buttons of the paycheck have words, wide and narrow', async (t) => {
  const page = await fresh(t);
  await user(page).bar('Calc');
  for (const width of [1280, 360, 320]) {
    await page.setViewport({ width, height: 740 });
    const words = await page.$$eval('[role=toolbar] .picture span', (all) => all.filter((word) => word.checkVisibility() && word.offsetWidth > 20).map((word) => word.innerText));
    assert.deepEqual(words, ['Clear', 'Calculate', 'Print', 'Exit'], `at ${width}`);
  }
});

test('what is stored can be erased from the menu of a telephone', async (t) => {
  const page = await fresh(t, { width: 360, height: 560 });
  const u = user(page);
  await u.click('frmName.cmdExit');
  const kept = () => page.evaluate(() => Object.keys(localStorage).length);
  assert.ok((await kept()) > 0);
  await page.click('#menu');
  await page.click('#bar .erase');
  await page.click('#erase-yes');
  assert.equal(await kept(), 0);
  assert.equal(await u.front(), 'frmName');
});

/** The words of a text that have a letter or a digit, sorted; without hyphens, which may stand at the end of a line. */
const wordsIn = (text) => text.replaceAll('-', '').split(/\s+/).filter((word) => /[\p{L}\p{N}]/u.test(word)).sort();

/** In the page: the texts of the screen without its buttons, with the values of its boxes and the entries of its lists. */
function wordsOfScreen() {
  const screen = document.querySelector('section[data-screen=frmPrint]:not([hidden]) .letter') ?? document.querySelector('section[data-screen]:not([hidden])');
  const texts = [...screen.querySelectorAll('input[type=text]')].filter((box) => box.checkVisibility()).map((box) => box.value);
  const nodes = document.createTreeWalker(screen, NodeFilter.SHOW_TEXT);
  while (nodes.nextNode()) {
    const place = nodes.currentNode.parentElement;
    if (place.closest('.unseen, .title, .not-printed, button:not(.wordy, [role=combobox])')) continue;
    if ((place.closest('select') ?? place).checkVisibility({ visibilityProperty: true })) texts.push(nodes.currentNode.data);
  }
  return texts;
}

test("the browser's own Print of any screen cuts nothing off and prints no buttons", async (t) => {
  const page = await fresh(t);
  const u = user(page);
  const address = '17 North Second Street, Apartment 3, in the yard behind the bakery, second stairs, third floor, the door at the left side of the hall';
  await u.type('frmName.txtAddress', address);
  const flat = (text) => text.replace(/[_\s]+/g, ' ');
  assert.ok(flat(await onPaper(t, page)).includes(address));
  await u.click('frmName.cmdExit');
  await u.bar('W4');
  assert.ok(flat(await onPaper(t, page)).includes(address), 'the form');
  await screens.frmTableOne(u);
  const entries = await hold(page, 'frmTableOne.lstTableOne', 'list');
  const table = await onPaper(t, page);
  assert.deepEqual(entries.filter((entry) => !table.includes(entry)), []);
  for (const [name, go] of Object.entries(screens)) {
    await go(u);
    const shown = await page.evaluate(wordsOfScreen);
    assert.ok(shown.length > 5, name);
    assert.deepEqual(wordsIn(await onPaper(t, page)), wordsIn(shown.join(' ')), name);
  }
  await u.bar('Help');
  await page.waitForSelector('#help-topic h3');
  const help = await onPaper(t, page);
  assert.match(help, /Welcome to Tallyfin 99/);
  assert.doesNotMatch(help, /Close|Alabama/);
  assert.equal(await page.$('.on-paper'), null);
});

test("where the system is dark, the colours are the program's own", async (t) => {
  const own = await browse(undefined, { prefs: { 'ui.systemUsesDarkTheme': 1 } });
  t.after(() => own.close());
  const [dark, light] = [await open(own, server.address), await fresh(t)];
  if (!firefox) await emulate(dark, [{ name: 'prefers-color-scheme', value: 'dark' }]);
  const isDark = (page) => page.evaluate(() => matchMedia('(prefers-color-scheme: dark)').matches);
  assert.deepEqual([await isDark(dark), await isDark(light)], [true, false]);
  const colours = async (page, go) => {
    await go(user(page));
    await page.mouse.move(1, 1);
    return page.$$eval('section:not([hidden]), section:not([hidden]) *, #bar *', (all) => all.map((element) => {
      const { color, backgroundColor, borderTopColor, colorScheme } = getComputedStyle(element);
      return [color, backgroundColor, borderTopColor, colorScheme].join(' ');
    }));
  };
  for (const name of ['frmMain, results', 'frmState', 'frmMultiCheck', 'frmW4']) assert.deepEqual(await colours(dark, screens[name]), await colours(light, screens[name]), name);
});

test('the report can be fitted to the preview, and opens at the zoom of the rules', async (t) => {
  const page = await fresh(t, { width: 700, height: 700 });
  const u = user(page);
  await screens.frmPrint(u);
  assert.equal(await hold(page, 'frmPrint.udZoom', 'value'), 100);
  await page.click('#fit-report');
  const [sheet, preview] = await page.evaluate(() => ['.letter', '#report'].map((where) => document.querySelector(where).getBoundingClientRect()).map(({ width }) => width));
  assert.ok(sheet < preview && sheet > preview * 0.8, `${sheet} in ${preview}`);
  assert.equal(await page.$eval('#report', (view) => view.scrollWidth <= view.clientWidth), true);
  assert.deepEqual(await differences(page), []);
});

test('the toolbar of the report begins with Fit, and the Tab key follows it', async (t) => {
  const page = await fresh(t);
  await screens.frmPrint(user(page));
  const wanted = ['Fit', 'New report', 'Close', 'Print', 'Zoom'];
  const parts = await page.$$eval('[aria-label=Report] :is(button, label)', (all) => all.map((part) => [part.innerText.trim(), part.getBoundingClientRect().left]));
  assert.deepEqual(parts.map(([words]) => words), wanted);
  assert.deepEqual(parts.map(([, left]) => left), parts.map(([, left]) => left).sort((a, b) => a - b));
  const met = [];
  for (let i = 0; i < wanted.length; ++i) {
    await page.keyboard.press('Tab');
    met.push((await focused(page))[1]);
  }
  assert.deepEqual(met, wanted);
});

test('short pages stand well in a large window', async (t) => {
  const page = await fresh(t, { width: 1920, height: 1080 });
  const u = user(page);
  for (const name of ['frmAnalysis', 'frmName', 'frmMisc, local tax']) {
    await screens[name](u);
    const [frame, content, area] = await page.evaluate(() => {
      const view = document.querySelector('section[data-screen]:not([hidden])');
      const edges = (element) => { const { left, right } = element.getBoundingClientRect(); return { left, right, width: right - left }; };
      const parts = [...view.querySelectorAll('dt, dd, input, button, p, select, label')].filter((part) => part.checkVisibility()).map(edges);
      return [edges(view), Math.max(...parts.map(({ right }) => right)) - Math.min(...parts.map(({ left }) => left)), edges(document.querySelector('#area'))];
    });
    assert.ok(frame.width < content * 1.25, `${name}: ${frame.width} for ${content}`);
    assert.ok(Math.abs((frame.left - area.left) - (area.right - frame.right)) < 4, `${name} isn't in the middle`);
  }
});

test('a text longer than its box shows its beginning, and whole as the tooltip', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  const long = '17 North Second Street, Apartment 3, in the yard behind the bakery, second stairs, third floor, the door at the left side of the hall';
  const box = () => page.$eval(selector('frmName.txtAddress'), ({ scrollLeft, scrollWidth, clientWidth, title }) => ({ scrollLeft, longer: scrollWidth > clientWidth, title }));
  await u.type('frmName.txtAddress', long);
  await page.keyboard.press('Tab');
  await page.waitForFunction((where) => document.querySelector(where).title !== '', {}, selector('frmName.txtAddress'));
  assert.deepEqual(await box(), { scrollLeft: 0, longer: true, title: long });
  await u.type('frmName.txtAddress', '3 Elm St');
  await page.keyboard.press('Tab');
  await page.waitForFunction((where) => document.querySelector(where).title === '', {}, selector('frmName.txtAddress'));
});

test('the warning has its sign, and Calculate is the one yellow button', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('Calc');
  const yellow = await page.$$eval('section:not([hidden]) button', (all) => all.filter((button) => getComputedStyle(button).backgroundColor === 'rgb(255, 255, 128)').map((button) => button.innerText.trim()));
  assert.deepEqual(yellow, ['Calculate']);
  await windows.MsgBox[0](u, page);
  const sign = await (await page.$('dialog[open] .warning svg')).boundingBox();
  assert.ok(sign.width >= 32 && sign.height >= 32);
});

test('the help topics on what is kept have the button that erases it, others not', async (t) => {
  const page = await fresh(t);
  await windows.help[0](user(page), page);
  const offers = async (topic) => {
    await page.click(`#help-contents [href="#${topic}"]`);
    await page.waitForSelector(`#help-contents [href="#${topic}"][aria-current]`);
    return page.$eval('#erase', (button) => button.checkVisibility());
  };
  assert.deepEqual([await offers('privacy'), await offers('keys'), await offers('frmName')], [true, false, true]);
});

test("the browser's own Print with the explanation open has its worksheets, no heading alone at a page's end", async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('Calc');
  await u.pick('frmMain.lstFrequency', 0);
  await u.type('frmMain.txtIncome', '1000');
  await u.click('frmMain.cmdToolBar(0)');
  await page.click('#explain');
  const titles = await page.$$eval('#explanation-paper h3', (all) => all.map((heading) => heading.textContent));
  const paper = await onPaper(t, page, '-layout');
  const lines = paper.split('\n').map((line) => line.trim());
  assert.deepEqual(titles.filter((title) => !lines.includes(title)), []);
  assert.match(paper, /How this was worked out/);
  assert.doesNotMatch(paper, /Copy|Close|Clear/);
  const pages = paper.split('\f').filter((text) => text.trim() !== '').map((text) => text.trim().split('\n').at(-1).trim());
  assert.ok(pages.length > 1);
  assert.deepEqual(pages.filter((last) => titles.includes(last)), []);
});

test('F1 in a box opens its help topic above it, and closing that leads back to the button of the box', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  for (const [box, button] of [['MsgBox', 'OK'], ['frmAbt', 'Close']]) {
    const [go, close] = windows[box];
    await go(u, page);
    await page.keyboard.press('F1');
    await page.waitForFunction(() => document.activeElement.matches('#help-topic h3'));
    assert.equal(await page.$eval('#help-contents [aria-current]', (link) => link.getAttribute('href')), `#${box}`);
    await page.click('#help [data-dismiss]');
    assert.deepEqual(await focused(page), [box, button]);
    await page.click(close);
  }
  assert.deepEqual(await differences(page), []);
});
