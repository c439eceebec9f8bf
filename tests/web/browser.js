// Shared by the tests: a server of the built page on the loopback address, a browser, and the screens' names.

import { execFileSync } from 'node:child_process';
import { mkdtemp, readFile, rm, stat, writeFile } from 'node:fs/promises';
import { createServer } from 'node:http';
import { tmpdir } from 'node:os';
import { dirname, extname, join, normalize } from 'node:path';
import { fileURLToPath } from 'node:url';
import { after } from 'node:test';
import { gzipSync } from 'node:zlib';
import puppeteer from 'puppeteer-core';
import { browseWebkit } from './webkit.js';

export const project = join(dirname(fileURLToPath(import.meta.url)), '..', '..');
export const builtPage = join(project, 'build', 'web');

const types = {
  '.html': 'text/html', '.css': 'text/css', '.js': 'text/javascript', '.wasm': 'application/wasm',
  '.svg': 'image/svg+xml', '.json': 'application/json',
};

/** Serves the page; `bytes` counts the gzipped bytes that were sent. `faults` has other answers for paths. */
export async function serve(folder = builtPage) {
  const counter = { bytes: 0, requests: [] };
  const faults = new Map();
  const zipped = new Map(); // each file once, until it changes
  const bodyOf = async (path) => {
    const name = `${path} of ${(await stat(path)).mtimeMs}`;
    if (!zipped.has(name)) zipped.set(name, gzipSync(await readFile(path), { level: 9 }));
    return zipped.get(name);
  };
  const server = createServer(async (request, response) => {
    const path = normalize(new URL(request.url, 'http://x').pathname).replace(/\/$/, '/index.html');
    try {
      counter.requests.push(path);
      const fault = faults.get(path);
      if (fault) return response.writeHead(fault.status ?? 200, { 'content-type': fault.type ?? 'text/html' }).end(fault.body ?? '<p>Sign in.');
      const body = await bodyOf(join(folder, path));
      counter.bytes += body.length;
      const type = types[extname(path)] ?? 'application/octet-stream';
      response.writeHead(200, { 'content-type': type, 'content-encoding': 'gzip' }).end(body);
    } catch {
      response.writeHead(404).end();
    }
  });
  await new Promise((done) => server.listen(0, '127.0.0.1', done));
  return {
    counter,
    faults,
    address: `http://127.0.0.1:${server.address().port}/`,
    close: () => new Promise((done) => { server.closeAllConnections(); server.close(done); }),
  };
}

/** The browser under test: BROWSER=firefox, BROWSER=webkit, else Chromium. */
export const firefox = process.env.BROWSER === 'firefox';
export const webkit = process.env.BROWSER === 'webkit';

/** Starts the browser; `prefs` are preferences of Firefox, `args` arguments of Chromium. */
export const browse = (profile, { prefs = {}, args = [], moving = false } = {}) =>
  webkit ? browseWebkit() : firefox
    ? puppeteer.launch({
        browser: 'firefox',
        executablePath: process.env.FIREFOX ?? '/usr/bin/firefox-esr',
        userDataDir: profile,
        extraPrefsFirefox: { 'ui.prefersReducedMotion': 1, ...prefs },
      })
    : puppeteer.launch({
        executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
        userDataDir: profile,
        args: ['--no-sandbox', ...(moving ? [] : ['--force-prefers-reduced-motion']), ...args], // the page is the project's own
      });

/** Opens the page and waits until it is ready; errors and refused resources of the page end up in `page.troubles`. */
export async function open(browser, address, size = { width: 1100, height: 800 }) {
  return enter(await browser.newPage(), address, size);
}

/** The same in a separate window, so that both pages are visible. */
export async function openWindow(context, address, size = { width: 1100, height: 800 }) {
  if (firefox) return open(context, address, size); // works in a background tab too
  const client = await context.browser().target().createCDPSession();
  const before = new Set(context.targets());
  await client.send('Target.createTarget', { url: 'about:blank', browserContextId: context.id, newWindow: true });
  const target = await context.waitForTarget((one) => one.type() === 'page' && !before.has(one));
  return enter(await target.page(), address, size);
}

/** A server and a browser for the tests of a file, and functions that open a page with an empty store during a test. */
export async function setUp() {
  const server = await serve();
  const browser = await browse();
  after(() => browser.close().then(server.close));
  const freshContext = async (t) => {
    const context = await browser.createBrowserContext();
    t.after(() => context.close());
    return context;
  };
  return { server, freshContext, fresh: async (t, size) => open(await freshContext(t), server.address, size) };
}

/** Opens the page, ready or not. */
export async function visit(context, address, size = { width: 1100, height: 800 }) {
  const page = await context.newPage();
  await page.setViewport(size);
  await page.goto(address);
  return page;
}

async function enter(page, address, size) {
  page.troubles = [];
  if (firefox) await page.bringToFront(); // a window in the background shows no focus
  page.on('pageerror', (error) => page.troubles.push(String(error)));
  page.on('console', (message) => message.type() === 'error' && page.troubles.push(message.text()));
  await page.setViewport(size);
  await page.goto(address);
  await page.waitForSelector('body[data-ready]');
  return page;
}

/** Media features of a page in Chromium; Firefox has preferences for them. */
export async function emulate(page, features) {
  const client = await page.createCDPSession();
  await client.send('Emulation.setEmulatedMedia', { features });
}

export const selector = (address) => `[data-address="${address}"]`;

/** Chooses an entry of a list or a drop-down by clicks. */
async function pick(page, address, number) {
  const box = await page.$(`${selector(address)}`);
  const isList = await box.evaluate((element) => element.tagName === 'SELECT');
  if (!isList) await page.click(await box.evaluate((element) => element.tagName === 'BUTTON') ? selector(address) : `.combo:has(${selector(address)}) .arrow`);
  const [x, y] = await box.evaluate((element, n) => {
    const entry = element.options?.[n] ?? element.parentElement.querySelectorAll('[role=option]')[n];
    element.scrollIntoView({ block: 'nearest' });
    entry.scrollIntoView({ block: 'nearest' });
    const { x: left, y: top, height } = entry.getBoundingClientRect();
    return [left + 20, top + height / 2];
  }, number);
  await page.mouse.click(x, y);
  await box.dispose();
}

/** The user's acts, by the mouse and the keyboard. */
export const user = (page) => ({
  click: (address) => page.click(selector(address)),
  async type(address, text) {
    await page.click(selector(address), { count: 3 });
    await page.keyboard.press('Backspace');
    await page.keyboard.type(text);
  },
  pick: (address, number) => pick(page, address, number),
  bar: async (key) => {
    if (await page.$eval('#menu', (menu) => menu.checkVisibility() && menu.ariaExpanded !== 'true')) await page.click('#menu');
    await page.click(selector(`MDIOpen.SSListBar1(${key})`));
  },
  front: () => page.$eval('section[data-screen]:not([hidden])', (screen) => screen.dataset.screen),
});

/** The commands that open each screen from a fresh main screen; a second page of a screen has its own line. */
export const screens = {
  frmName: (u) => u.bar('Personal'),
  frmMain: async (u) => { await u.bar('Calc'); },
  'frmMain, results': async (u) => {
    await u.bar('Calc');
    await u.type('frmMain.txtIncome', '1000');
    await u.click('frmMain.cmdToolBar(0)');
  },
  frmState: (u) => u.bar('StateInfo'),
  'frmMisc, local tax': async (u) => { await u.bar('Calc'); await u.click('frmMain.cmdAdditional(0)'); },
  'frmMisc, raise': async (u) => {
    await u.bar('Calc');
    await u.click('frmMain.cmdToolBar(0)');
    await u.click('frmMain.cmdAdditional(1)');
  },
  frmMultiCheck: (u) => u.bar('Multi'),
  frmAnalysis: async (u) => { await u.bar('Calc'); await u.type('frmMain.txtIncome', '1234.5'); await u.click('frmMain.cmdToolBar(0)'); await u.bar('Analysis'); },
  frmPrint: async (u) => { await u.bar('Calc'); await u.click('frmMain.cmdToolBar(1)'); },
  frmPersWkSht: (u) => u.bar('Pers'),
  'frmPersWkSht, page 2': async (u) => { await u.bar('Pers'); await u.click('frmPersWkSht.cmdW4Back(0)'); },
  frmDednAdj: (u) => u.bar('Ded'),
  'frmDednAdj, page 2': async (u) => { await u.bar('Ded'); await u.click('frmDednAdj.cmdW4Back(0)'); },
  frm2Workers: (u) => u.bar('TwoWork'),
  'frm2Workers, page 2': async (u) => { await u.bar('TwoWork'); await u.click('frm2Workers.cmdW4Back(0)'); },
  frmTableOne: async (u) => { await u.bar('TwoWork'); await u.click('frm2Workers.cmdTable1Show(0)'); },
  frmCalendar: async (u) => { await u.bar('TwoWork'); await u.click('frm2Workers.cmdW4Back(0)'); await u.click('frm2Workers.cmdW4Back(2)'); },
  frmW4: (u) => u.bar('W4'),
};

async function helpOnPersonal(u, page) {
  await u.bar('Personal');
  await page.keyboard.press('F1');
  await page.waitForFunction(() => document.querySelector('#help-topic h3')?.textContent === 'Personal information' || document.querySelector('#erase').checkVisibility());
}

/** The dialogs above the screens: the commands that open each, and the element that closes it. */
export const windows = {
  explanation: [async (u, page) => { await u.bar('Calc'); await page.click('#explain'); }, '#explanation [data-dismiss]'],
  MsgBox: [async (u) => { await u.bar('Calc'); await u.click('frmMain.cmdToolBar(2)'); await u.bar('Analysis'); }, selector('MsgBox.OK')],
  frmAbt: [(u) => u.bar('About'), '[data-close=frmAbt]'],
  help: [async (u, page) => { await u.bar('Help'); await page.waitForSelector('#help-topic h3'); }, '#help [data-dismiss]'],
  'help on Personal Information': [helpOnPersonal, '#help [data-dismiss]'],
  question: [async (u, page) => { await helpOnPersonal(u, page); await page.click('#erase'); }, '#question [data-dismiss]'],
};

/** Numbers from 0 to below n, the same for the same seed. */
export function dice(start) {
  let state = start >>> 0;
  return (n) => {
    state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
    return Math.floor((state / 2 ** 32) * n);
  };
}

/** The text that the page would print. */
export async function onPaper(t, page, ...options) {
  const folder = await mkdtemp(join(tmpdir(), 'web-'));
  t.after(() => rm(folder, { recursive: true, force: true }));
  await writeFile(join(folder, 'x.pdf'), await page.pdf({ preferCSSPageSize: true }));
  return execFileSync('pdftotext', [...options, join(folder, 'x.pdf'), '-'], { encoding: 'utf8' }).normalize('NFKC'); // without ligatures
}
