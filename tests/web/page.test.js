// The web app in a real browser: its screens, its store, its network requests, printing, accessibility.

import assert from 'node:assert/strict';
import { createHash } from 'node:crypto';
import { cp, mkdir, mkdtemp, readFile, rm, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { test } from 'node:test';
import { fileURLToPath } from 'node:url';
import { browse, builtPage, firefox, onPaper, open, openWindow, screens, selector, serve, setUp, user, windows } from './browser.js';
import { crowded, differences } from './faithful.js';

const { server, fresh, freshContext } = await setUp();

const axe = await readFile(fileURLToPath(import.meta.resolve('axe-core/axe.min.js')), 'utf8');
const shownRows = (page) =>
  page.$$eval(`${selector('frmMain.dbgDisplay')} tbody tr`, (rows) => rows.map((r) => [...r.cells].map((c) => c.textContent)));

async function samplePaycheck(u) {
  await u.bar('Calc');
  await u.pick('frmMain.lstFrequency', 0);
  await u.click('frmMain.optStatus(1)');
  await u.pick('frmMain.cboExemptions', 1);
  await u.pick('frmMain.cboState', 34);
  await u.type('frmMain.txtIncome', '1000');
  await u.type('frmMain.txt401k', '6');
  await u.click('frmMain.cmdToolBar(0)');
  await u.bar('Calc');
  await u.click('frmMain.cmdToolBar(0)');
}

// Weekly, Single, 1 exemption, 6 percent of 1000 to the 401(k), Pennsylvania. Federal: 940 less 52.88 is 887.12, and
// (887.12 - 525) * 0.28 + 71.1 is 172.4936; state: 2.8 percent of the 1000; FICA: 6.2 and 1.45 percent of the 1000.
const sampleRows = [
  ['Gross Pay', '$1,000.00'],
  ['401k Deduction', '$60.00'],
  ['Non-Taxable', '$0.00'],
  ['Pre-FICA', '$0.00'],
  ['Federal Tax', '$172.49'],
  ['State Tax', '$28.00'],
  ['Local Tax', '$0.00'],
  ['FICA', '$76.50'],
  ['Social Security', '$62.00'],
  ['Medicare', '$14.50'],
  ['Total Ded', '$336.99'],
  ['Check Amt', '$663.01'],
];

test('a first visit opens Personal Information, then the main screen', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  assert.equal(await u.front(), 'frmName');
  await u.click('frmName.cmdExit');
  assert.equal(await u.front(), 'frmMain');
  assert.deepEqual(page.troubles, []);
});

test('the sample paycheck', async (t) => {
  const page = await fresh(t);
  await samplePaycheck(user(page));
  assert.deepEqual(await shownRows(page), sampleRows);
  assert.deepEqual(await differences(page), []);
  assert.deepEqual(page.troubles, []);
});

test('the sample paycheck of a Single with no exemption', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('Calc');
  await u.pick('frmMain.lstFrequency', 0);
  await u.click('frmMain.optStatus(1)');
  await u.pick('frmMain.cboExemptions', 0);
  await u.type('frmMain.txtIncome', '1000');
  await u.click('frmMain.cmdToolBar(0)');
  const rows = await shownRows(page);
  // (1000 - 525) * 0.28 + 71.1 is 204.1; 1000 less that and 76.5 of FICA is 719.4.
  assert.deepEqual([rows[4], rows[7], rows[11]], [['Federal Tax', '$204.10'], ['FICA', '$76.50'], ['Check Amt', '$719.40']]);
  assert.deepEqual(page.troubles, []);
});

/** 1280 pixels at 100, 150 and 200 percent, telephones upright and lying, and 1280 pixels at 400 percent. */
const sizes = [
  { width: 1280, height: 800 }, { width: 853, height: 533, deviceScaleFactor: 1.5 }, { width: 640, height: 400, deviceScaleFactor: 2 },
  { width: 360, height: 740 }, { width: 740, height: 360 }, { width: 320, height: 256 },
];
const ofLayout = { runOnly: ['color-contrast', 'scrollable-region-focusable'] };

test('every screen and window at every size: no violation, nothing cut off, shows what its controls hold', async (t) => {
  const page = await fresh(t, sizes[0]);
  const u = user(page);
  await page.evaluate(axe);
  const check = async (screen) => {
    await page.mouse.move(1, 1); // the element at the pointer would be coloured
    for (const size of sizes) {
      const name = `${screen} at ${size.width}`;
      await page.setViewport(size);
      const all = size.width === 1280 || size.width === 360; // with the list bar and without
      const { violations, passes } = await page.evaluate((rules) => window.axe.run(rules), all ? {} : ofLayout);
      assert.ok(passes.length > (all ? 10 : 0), `only ${passes.length} rules had something to look at`);
      const found = violations.map((v) => `${v.id}: ${v.nodes.map((n) => `${n.target} ${n.any[0]?.message ?? ''}`).join(' | ')}`);
      assert.deepEqual(found, [], name);
      if (all) assert.deepEqual(await differences(page), [], name);
      assert.deepEqual(await crowded(page), [], name);
      const [wide, view] = await page.evaluate(() => [document.scrollingElement.scrollWidth, window.innerWidth]);
      assert.ok(wide <= view, `${name}: ${wide} wide`);
    }
    await page.setViewport(sizes[0]);
  };
  for (const [name, go] of Object.entries(screens)) {
    await go(u);
    assert.equal(await u.front(), name.split(',')[0]);
    await check(name);
  }
  for (const [name, [go, close]] of Object.entries(windows)) {
    await go(u, page);
    await check(name);
    await page.click(close);
  }
  assert.deepEqual(page.troubles, []);
});

test('entries survive a restart of the browser, each as it was saved', async (t) => {
  const profile = await mkdtemp(join(tmpdir(), 'web-'));
  t.after(() => rm(profile, { recursive: true, force: true, maxRetries: 5 }));
  const first = await browse(profile);
  const before = await open(first, server.address);
  await user(before).type('frmName.txtName', 'Ada Grün');
  await user(before).click('frmName.chkShow');
  await user(before).click('frmName.cmdExit');
  await samplePaycheck(user(before));
  await first.close();

  const second = await browse(profile);
  t.after(() => second.close());
  const page = await open(second, server.address);
  const u = user(page);
  assert.equal(await u.front(), 'frmMain');
  const kept = await page.evaluate(() => ['User/UName', 'User/DontShow', 'Settings/IncAmt', 'Settings/State'].map(
    (name) => localStorage.getItem(`Tallyfin99/${name}`)));
  assert.deepEqual(kept, ['Ada Grün', '1', '1000', '34']);
  await u.click('frmMain.cmdToolBar(0)');
  assert.deepEqual(await shownRows(page), sampleRows);
});

const close = async (page, name) => page.click(`[aria-label="Close ${await page.$eval(`#${name}-title`, (h) => h.textContent)}"]`);
const income = (page) => page.$eval(selector('frmMain.txtIncome'), (box) => box.value);
const storedIncome = (page) => page.evaluate(() => localStorage.getItem('Tallyfin99/Settings/IncAmt'));

async function reopenMain(page) {
  await close(page, 'frmMain');
  await user(page).bar('Calc');
}

test('a full storage keeps what it has, and the page knows nothing else', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await samplePaycheck(u);
  const room = await page.evaluate(() => {
    let piece = 'x'.repeat(1 << 20);
    for (let number = 0; piece !== ''; ++number) {
      try {
        localStorage.setItem(`fill${number}`, piece);
      } catch {
        piece = piece.slice(piece.length / 2 + 0.5);
      }
    }
    return Object.entries(localStorage).reduce((sum, [name, text]) => sum + name.length + text.length, 0);
  });
  assert.ok(room > 5_000_000, `${room} characters fill it`);
  await u.type('frmMain.txtIncome', '123456789.25');
  await u.click('frmMain.cmdToolBar(0)');
  assert.deepEqual((await shownRows(page))[0], ['Gross Pay', '$123,456,789.25']);
  assert.equal(await storedIncome(page), '1000');
  await reopenMain(page);
  assert.equal(await income(page), '$1,000.00');
  assert.deepEqual(await differences(page), []);

  await page.evaluate(() => localStorage.removeItem('fill0'));
  await u.type('frmMain.txtIncome', '123456789.25');
  await u.click('frmMain.cmdToolBar(0)');
  assert.equal(await storedIncome(page), '123456789.25');
  assert.deepEqual(page.troubles, []);
});

test('a forbidden storage gives the defaults, without a word', async (t) => {
  const profile = await mkdtemp(join(tmpdir(), 'web-'));
  t.after(() => rm(profile, { recursive: true, force: true, maxRetries: 5 }));
  await mkdir(join(profile, 'Default'));
  const forbidding = { profile: { default_content_setting_values: { cookies: 2 } } };
  await writeFile(join(profile, 'Default', 'Preferences'), JSON.stringify(forbidding));
  const guarded = await browse(firefox ? undefined : profile, { prefs: { 'network.cookie.cookieBehavior': 2 } });
  t.after(() => guarded.close());
  const page = await open(guarded, server.address);
  const why = await page.evaluate(() => {
    try {
      return String(localStorage.length);
    } catch (error) {
      return error.name;
    }
  });
  assert.equal(why, 'SecurityError');
  const u = user(page);
  await u.type('frmName.txtName', 'Ada');
  await u.click('frmName.cmdExit');
  await u.bar('Calc');
  await u.type('frmMain.txtIncome', '1000');
  await u.click('frmMain.cmdToolBar(0)');
  assert.deepEqual((await shownRows(page))[0], ['Gross Pay', '$1,000.00']);
  await reopenMain(page);
  assert.equal(await income(page), '$0.00');
  await u.bar('Personal');
  assert.equal(await page.$eval(selector('frmName.txtName'), (box) => box.value), '-');
  assert.deepEqual(await differences(page), []);
  const ofTheBrowser = /ServiceWorker/; // it forbids that too, and says so
  assert.deepEqual(page.troubles.filter((trouble) => !ofTheBrowser.test(trouble)), []);
});

test('two tabs share the storage, key by key', async (t) => {
  const context = await freshContext(t);
  const one = await open(context, server.address);
  const other = await openWindow(context, server.address);
  await user(one).bar('Calc');
  await user(other).bar('Calc');
  await user(other).type('frmMain.txtIncome', '777');
  await user(other).click('frmMain.cmdToolBar(0)');
  assert.equal(await income(one), '$0.00'); // it was loaded before
  await reopenMain(one);
  assert.equal(await income(one), '$777.00');

  await user(one).bar('Personal');
  await user(one).type('frmName.txtName', 'Ada');
  await user(one).click('frmName.cmdExit');
  await user(other).bar('Personal');
  await close(other, 'frmName');
  await user(other).bar('Personal');
  assert.equal(await other.$eval(selector('frmName.txtName'), (box) => box.value), 'Ada');
  assert.equal(await storedIncome(one), '777');
});

test('erasing asks first, then leaves nothing and starts afresh', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await samplePaycheck(u);
  const kept = () => page.evaluate(() => Object.keys(localStorage).filter((name) => name.startsWith('Tallyfin99/')).length);
  await windows.question[0](u, page);
  await page.click('#question [data-dismiss]');
  assert.ok((await kept()) > 5);
  await page.click('#erase');
  await page.click('#erase-yes');
  assert.equal(await u.front(), 'frmName');
  assert.equal(await kept(), 0);
  await u.bar('Calc');
  assert.equal(await page.$eval(selector('frmMain.txtIncome'), (box) => box.value), '$0.00');
});

test('F1 opens the topic of the screen in front, whichever book it is in', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  for (const [way, title] of [
    ['frmMain', 'The main screen'],
    ['frmDednAdj', 'Deductions and Adjustments'],
    ['frmW4', 'Form W-4'],
  ]) {
    await screens[way](u);
    await page.keyboard.press('F1');
    await page.waitForFunction((words) => document.querySelector('#help-topic h3')?.textContent === words, {}, title);
    await page.click('#help [data-dismiss]');
  }
});

test('after one visit the page works without its server', async (t) => {
  const alone = await serve();
  const context = await freshContext(t);
  const page = await open(context, alone.address);
  await page.evaluate(() => navigator.serviceWorker.ready);
  await alone.close();
  await page.reload();
  await page.waitForSelector('body[data-ready]');
  await samplePaycheck(user(page));
  assert.deepEqual(await shownRows(page), sampleRows);
  await user(page).bar('Help');
  await page.waitForSelector('#help-topic h3');
});

test('a new version waits until the old one is closed, and comes whole', async (t) => {
  const folder = await mkdtemp(join(tmpdir(), 'web-'));
  t.after(() => rm(folder, { recursive: true, force: true }));
  await cp(builtPage, folder, { recursive: true });
  const own = await serve(folder);
  t.after(own.close);
  const context = await freshContext(t);
  const page = await open(context, own.address);
  await page.evaluate(() => navigator.serviceWorker.ready);

  const change = async (file, from, to) => {
    const text = await readFile(join(folder, file), 'utf8');
    assert.ok(text.includes(from));
    await writeFile(join(folder, file), text.replace(from, to));
  };
  const hashOf = async (file) => createHash('sha256').update(await readFile(join(folder, file))).digest('base64');
  const before = await hashOf('index.html');
  await change('index.html', 'is loading', 'is on its way');
  await change('worker.js', before, await hashOf('index.html'));
  await change('worker.js', "version = '", "version = 'next");
  const words = (one) => one.$eval('#loading', (loading) => loading.textContent);
  await page.reload();
  await page.waitForSelector('body[data-ready]');
  await page.waitForFunction(async () => (await navigator.serviceWorker.getRegistration()).waiting);
  await page.reload();
  await page.waitForSelector('body[data-ready]');
  assert.equal(await words(page), 'Tallyfin 99 is loading.');

  const blank = await context.newPage(); // keeps the context's last window
  await page.close();
  await blank.close();
  const next = await open(context, own.address);
  await next.waitForFunction(async () => !(await navigator.serviceWorker.getRegistration()).waiting);
  await next.reload();
  await next.waitForSelector('body[data-ready]');
  assert.equal(await words(next), 'Tallyfin 99 is on its way.');
  const caches = await next.evaluate(() => window.caches.keys());
  assert.equal(caches.length, 1);
  assert.match(caches[0], /^tallyfin99-next/);
});

test('the page can be installed', { skip: firefox && 'Firefox does not say' }, async (t) => {
  const own = await browse();
  t.after(() => own.close());
  const page = await open(own, server.address);
  await page.evaluate(() => navigator.serviceWorker.ready);
  const client = await page.createCDPSession();
  assert.deepEqual((await client.send('Page.getInstallabilityErrors')).installabilityErrors, []);
  const { url, errors, data } = await client.send('Page.getAppManifest');
  assert.deepEqual([url, errors, JSON.parse(data).name], [`${server.address}manifest.json`, [], 'Tallyfin 99']);
});

test('the icons of home screens have their sizes, and the maskable one draws in its safe zone only', async (t) => {
  const page = await fresh(t);
  const { icons } = JSON.parse(await readFile(join(builtPage, 'manifest.json'), 'utf8'));
  const wanted = icons.filter(({ type }) => type === 'image/png').map(({ src, sizes }) => [src, sizes]);
  assert.deepEqual(wanted.map(([, size]) => size), ['192x192', '512x512', '512x512']);
  for (const [src, size] of [...wanted, [await page.$eval('link[rel=apple-touch-icon]', (link) => link.getAttribute('href')), '180x180']]) {
    const png = await readFile(join(builtPage, src));
    assert.equal(`${png.readUInt32BE(16)}x${png.readUInt32BE(20)}`, size, src);
  }
  // Systems keep at least the circle around the middle whose radius is 40 percent of the width.
  const { src } = icons.find(({ purpose }) => purpose === 'maskable');
  const outside = await page.evaluate(async (address) => {
    const image = await createImageBitmap(await (await fetch(address)).blob());
    const context = new OffscreenCanvas(image.width, image.height).getContext('2d');
    context.drawImage(image, 0, 0);
    const { data } = context.getImageData(0, 0, image.width, image.height);
    const colours = new Set();
    for (let i = 0; i < data.length; i += 4) {
      const [x, y] = [(i / 4) % image.width, Math.floor(i / 4 / image.width)];
      if (Math.hypot(x - image.width / 2, y - image.height / 2) > 0.4 * image.width) colours.add(data.slice(i, i + 4).join(' '));
    }
    return [...colours];
  }, src);
  assert.equal(outside.length, 1, String(outside.slice(0, 5)));
  assert.match(outside[0], / 255$/);
});

test('the page asks no other host, and its policy forbids it', async (t) => {
  const page = await fresh(t);
  const hosts = new Set();
  page.on('request', (request) => hosts.add(new URL(request.url()).host));
  await samplePaycheck(user(page));
  await page.reload();
  await page.waitForSelector('body[data-ready]');
  assert.deepEqual([...hosts], [new URL(server.address).host]);
  const policy = await page.$eval('meta[http-equiv=Content-Security-Policy]', (meta) => meta.content);
  assert.match(policy, /^default-src 'none'; /);
  assert.doesNotMatch(policy, /unsafe-inline|'unsafe-eval'|\*|https?:/);
  const refused = await page.evaluate(async () => {
    const script = document.createElement('script');
    script.textContent = 'window.ran = true';
    document.head.append(script);
    const far = await fetch('https://example.org/').then(() => 'reached', () => 'refused');
    return [window.ran ?? 'refused', far];
  });
  assert.deepEqual(refused, ['refused', 'refused']);
});

test('module and page are below 400 KB over the wire', async (t) => {
  const { counter, address, close } = await serve();
  t.after(close);
  const context = await freshContext(t);
  const page = await context.newPage();
  await page.evaluateOnNewDocument(() => Object.defineProperty(navigator, 'serviceWorker', { value: undefined }));
  await page.goto(address);
  await page.waitForSelector('body[data-ready]');
  t.diagnostic(`${counter.requests.length} files, ${counter.bytes} bytes`);
  assert.ok(counter.requests.includes('/tallyfin99.wasm'));
  assert.ok(counter.bytes < 400_000, `${counter.bytes} bytes`);
});

test('printing the form hides what the paper does not have, and shows it again', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('W4');
  await page.evaluate(() => {
    window.print = () => {
      window.printed = ['frmW4.lblPrint', 'frmW4.cmdW4Exit', 'frmW4.Label2'].map(
        (address) => document.querySelector(`[data-address="${address}"]`).checkVisibility({ visibilityProperty: true }));
    };
  });
  await page.click('#print-form');
  assert.deepEqual(await page.evaluate(() => window.printed), [false, false, true]);
  assert.deepEqual(await differences(page), []);
  assert.ok(await page.$eval(selector('frmW4.cmdW4Exit'), (button) => button.checkVisibility({ visibilityProperty: true })));

  const form = await onPaper(t, page, '-layout');
  assert.match(form, /Employee's Withholding Allowance Certificate/);
  assert.doesNotMatch(form, /Double Click|Print Form|Calculations/);
  assert.equal(form.split('\f').length, 2, 'one page');

  await samplePaycheck(u);
  await u.click('frmMain.cmdToolBar(1)');
  await page.click('#print-report');
  const report = await onPaper(t, page, '-layout');
  assert.match(report, /Prepared for - on/);
  assert.match(report, /Check Amount +\$663\.01/);
  assert.doesNotMatch(report, /Zoom|Personal/);
  assert.equal(report.split('\f').length, 2, 'one page');

  await u.bar('Calc');
  const byTheBrowser = await onPaper(t, page, '-layout');
  assert.match(byTheBrowser, /Check Amt +\$663\.01/);
  assert.doesNotMatch(byTheBrowser, /Personal|Zoom|Withholding/);
});

test('by the keyboard alone', async (t) => {
  const page = await fresh(t);
  const focusOn = async (address) => {
    await page.focus('#skip');
    for (let i = 0; i < 80; ++i) {
      if ((await page.evaluate(() => document.activeElement?.dataset?.address)) === address) return;
      await page.keyboard.press('Tab');
    }
    assert.fail(`the Tab key doesn't reach ${address}`);
  };
  await focusOn('MDIOpen.SSListBar1(Calc)');
  await page.keyboard.press('Enter');
  await focusOn('frmMain.txtIncome');
  await page.keyboard.type('1000');
  await focusOn('frmMain.lstFrequency');
  await page.keyboard.press('ArrowDown');
  await focusOn('frmMain.optStatus(0)');
  await page.keyboard.press('ArrowDown');
  await focusOn('frmMain.cmdToolBar(0)');
  await page.keyboard.press(' ');
  const rows = await shownRows(page);
  assert.deepEqual(rows[0], ['Gross Pay', '$1,000.00']);
  assert.deepEqual(await differences(page), []);

  await focusOn('MDIOpen.SSListBar1(W4)');
  await page.keyboard.press('Enter');
  await focusOn('frmW4.Label20');
  const exempt = () => page.$eval(selector('frmW4.Label27'), (label) => label.checkVisibility({ visibilityProperty: true }));
  await page.keyboard.press('Enter');
  assert.equal(await exempt(), true);
  await page.keyboard.press(' ');
  assert.equal(await exempt(), false);
});

/** Whether the focus is on the last element that the Tab key reaches. */
const isLast = () => {
  const element = document.activeElement;
  const after = [...document.querySelectorAll('a[href], button, input, select, [tabindex="0"]')].filter((other) =>
    element.compareDocumentPosition(other) & Node.DOCUMENT_POSITION_FOLLOWING && other.checkVisibility({ visibilityProperty: true }) &&
    !other.disabled && !(other.type === 'radio' && other.name === element.name));
  return after.length === 0;
};

test('the focus can be seen wherever the Tab key leads', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await page.evaluate(() => { window.print = () => {}; });
  for (const [name, go] of Object.entries(screens)) {
    await go(u);
    await page.focus('#skip');
    const seen = new Set();
    for (let i = 0; i < 80; ++i) {
      await page.keyboard.press('Tab');
      const [what, outlined] = await page.evaluate(() => {
        const element = document.activeElement;
        const { outlineStyle, outlineWidth } = getComputedStyle(element);
        return [element === document.body ? '' : element.dataset.address ?? (element.id || element.ariaLabel || element.textContent), outlineStyle === 'solid' && outlineWidth === '2px'];
      });
      if (what === '' || seen.has(what)) break; // beyond the end
      seen.add(what);
      assert.ok(outlined, `${name}: ${what}`);
      if (await page.evaluate(isLast)) break; // the next one is the browser's
    }
    assert.ok(seen.size > 15, `${name}: ${seen.size} places`); // the list bar alone has fourteen
  }
});

test('nothing moves where the user wants no motion', async (t) => {
  const fading = async (reduced) => {
    const own = await browse(undefined, { prefs: { 'ui.prefersReducedMotion': Number(reduced) }, moving: !reduced });
    t.after(() => own.close());
    const page = await open(own, server.address);
    return page.$$eval('*', (all) => all.filter((element) => {
      const { transitionDuration, animationName } = getComputedStyle(element);
      return transitionDuration !== '0s' || animationName !== 'none';
    }).length);
  };
  assert.ok((await fading(false)) > 0);
  assert.equal(await fading(true), 0);
});

test('a table row is chosen by a click or by Enter, not by the arrows', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await screens.frmTableOne(u);
  await page.focus(selector('frmTableOne.lstTableOne'));
  await page.keyboard.press('ArrowDown');
  await page.keyboard.press('ArrowDown');
  assert.equal(await u.front(), 'frmTableOne');
  assert.equal(await page.$eval(selector('frmTableOne.lstTableOne'), (list) => list.value), '$4,001 - $7,000');
  await page.keyboard.press('Enter');
  assert.equal(await u.front(), 'frm2Workers');
  assert.equal(await page.$eval(selector('frm2Workers.lbl2WkerT1'), (figure) => figure.textContent), '2');
});

test('Exit ends the run, and it can start again', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('ExitProgram');
  assert.equal(await page.$('section[data-screen]:not([hidden])'), null);
  await page.click('#again');
  assert.equal(await u.front(), 'frmName');
});

test('the figures of a calculation are explained, once there are some', async (t) => {
  const page = await fresh(t);
  const u = user(page);
  await u.bar('Calc');
  assert.equal(await page.$eval('#explain', (button) => button.disabled), true);
  await samplePaycheck(u);
  await page.click('#explain');
  const figures = await page.$$eval('#figures label', (labels) => labels.map((label) => [...label.children].slice(1).map((part) => part.textContent)));
  assert.deepEqual(figures.map(([title]) => title), sampleRows.map(([title]) => title));
  assert.deepEqual(figures[4], ['Federal Tax', '$172.49']);
  assert.equal(await page.$eval('#explanation-text h3', (heading) => heading.textContent), 'Gross Pay');
  for (let row = 0; row < 4; ++row) await page.keyboard.press('ArrowDown');
  const lines = await page.$$eval('#explanation-text .form-line', (rows) => rows.map((row) =>
    ['.line-number', '.words', '.form-figure'].map((where) => row.querySelector(where)?.textContent)));
  assert.ok(lines.some(([number, words]) => number === '' && words === 'Pay frequency: Weekly'));
  assert.ok(lines.some(([, words, figure]) => /where line \d is over \$525\.00/.test(words) && figure === '$172.4936'), JSON.stringify(lines));
  assert.equal(lines.at(-1)[2], '$172.49');
  assert.match(await page.$eval('#explanation-heading', (heading) => heading.textContent), /Tax year: 1999; .*Weekly.*; State: Pennsylvania/);
  // 60, 172.49, 28, 0, 76.5 and 663.01 of 1000.
  assert.equal(await page.$eval('#shares-sentence', (sentence) => sentence.textContent),
    'Of the gross pay of $1,000.00: 401(k) 6%, federal tax 17.2%, state tax 2.8%, FICA 7.7%, check 66.3%.');
  const parts = await page.$$eval('#shares span', (spans) => spans.map((span) => span.getBoundingClientRect().width));
  const whole = await page.$eval('#shares', (bar) => bar.getBoundingClientRect().width);
  [0.06, 0.17249, 0.028, 0, 0.0765, 0.66301].forEach((fraction, i) => assert.ok(Math.abs(parts[i] - fraction * whole) < 1));
  await page.evaluate(axe);
  const { violations } = await page.evaluate(() => window.axe.run());
  assert.deepEqual(violations.map((v) => v.id), []);

  await page.evaluate(() => { window.print = () => {}; });
  await page.click('#explanation-print');
  const paper = await onPaper(t, page, '-layout');
  assert.deepEqual(sampleRows.map(([title]) => title).filter((title) => !paper.includes(title)), []);
  assert.doesNotMatch(paper, /Close|Calculations|dollars/);
  assert.match(paper, /State: Pennsylvania/);

  await page.click('#explanation [data-dismiss]');
  await page.click('#results tbody tr:nth-child(12)', { count: 2 });
  assert.equal(await page.$eval('#explanation-text h3', (heading) => heading.textContent), 'Check Amt');
});

test('a worksheet is set as a form: the line that words name is marked, tables open in place', async (t) => {
  const page = await fresh(t);
  await samplePaycheck(user(page));
  await page.click('#results tbody tr:nth-child(5)', { count: 2 });
  const rows = await page.$$eval('#explanation-text .form-line', (all) => all.map((row) => {
    const figure = row.querySelector('.form-figure');
    return { line: row.dataset.line, bold: getComputedStyle(row.querySelector('.form-text')).fontWeight, right: figure && Math.round(figure.getBoundingClientRect().right),
      leader: row.querySelector('.leader')?.getBoundingClientRect().width ?? 0, spoken: row.querySelector('.unseen').textContent,
      silent: row.querySelector('.form-text').ariaHidden };
  }));
  const numbered = rows.filter(({ line }) => line !== undefined);
  assert.deepEqual(numbered.map(({ line }) => line), numbered.map((_, i) => String(i + 1)));
  assert.equal(new Set(numbered.map(({ right }) => right)).size, 1, 'figures in a column');
  assert.ok(numbered.every(({ leader }) => leader >= 20));
  assert.deepEqual(rows.filter(({ bold }) => Number(bold) >= 700), [numbered.at(-1)]);
  assert.match(numbered.at(-1).spoken, /^Line \d+\. .*172 dollars 49\.$/);
  assert.equal(rows[0].spoken, 'Pay frequency: Weekly');
  assert.ok(rows.every(({ silent }) => silent === 'true'), 'said once');

  const marked = () => page.$$eval('#explanation-text .marked', (all) => all.map((row) => row.dataset.line));
  assert.deepEqual(await marked(), []);
  const named = await page.$$('#explanation-text .names');
  assert.ok(named.length > 0);
  for (const words of named) {
    await words.hover();
    assert.deepEqual(await marked(), await words.evaluate((part) => part.dataset.lines.split(' ')));
  }
  await page.hover('#explanation-title');
  assert.deepEqual(await marked(), []);

  const used = () => page.$eval('.form-table [aria-current]', (row) => row.checkVisibility() && [...row.cells].map((cell) => cell.textContent));
  assert.equal(await used(), false);
  await page.click('.form-table summary');
  assert.deepEqual(await used(), ['Used: over $525.00 but not over $1,125.00', '$71.10 plus 28% of the amount over $525.00']);
  await page.evaluate(axe);
  const { violations } = await page.evaluate(() => window.axe.run());
  assert.deepEqual(violations.map((v) => v.id), []);
});
