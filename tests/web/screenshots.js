// Pictures of all screens and of the page for many paychecks, at several sizes and zooms, light, dark and in forced colours:
// node screenshots.js FOLDER [NAME...].
// BROWSER=firefox takes them there; names are beginnings of screens' names.

import { mkdir } from 'node:fs/promises';
import { join } from 'node:path';
import { browse, emulate, firefox, open, screens, serve, user, windows } from './browser.js';

const [folder, ...names] = process.argv.slice(2);
const wanted = (name) => names.length === 0 || names.some((beginning) => name.startsWith(beginning));
await mkdir(folder, { recursive: true });
const server = await serve();

/** What makes a browser show colours as some users have set them. */
const looks = {
  light: {},
  dark: { prefs: { 'ui.systemUsesDarkTheme': 1 }, media: [{ name: 'prefers-color-scheme', value: 'dark' }] },
  forced: { prefs: { 'browser.display.document_color_use': 2 }, media: [{ name: 'forced-colors', value: 'active' }] },
  'forced-dark': {
    prefs: { 'browser.display.document_color_use': 2, 'browser.display.background_color': '#000000', 'browser.display.foreground_color': '#ffffff', 'ui.systemUsesDarkTheme': 1 },
    media: [{ name: 'forced-colors', value: 'active' }, { name: 'prefers-color-scheme', value: 'dark' }],
  },
};

/** 1280 pixels at 100, 150 and 200 percent; a telephone; 1280 pixels at 400 percent. */
const sizes = [
  { width: 1280, height: 800 }, { width: 853, height: 533, deviceScaleFactor: 1.5 }, { width: 640, height: 400, deviceScaleFactor: 2 },
  { width: 360, height: 560 }, { width: 320, height: 256 },
];

/** Waits until the page is drawn with the masks of its pictures, which no event reports. */
async function whole(page) {
  await page.evaluate(() => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done))));
  await page.waitForNetworkIdle({ idleTime: 100 });
}

/** The worksheet of a federal tax: with the table open, and a line marked that words name. */
async function worksheet(page, u, shot) {
  await u.bar('Calc');
  await u.pick('frmMain.lstFrequency', 0);
  await u.type('frmMain.txtIncome', '1000');
  await u.click('frmMain.cmdToolBar(0)');
  await page.click('#results tbody tr:nth-child(5)', { count: 2 });
  await page.click('.form-table summary');
  await page.hover('#explanation-text .names');
  await shot('worksheet', false);
  await page.click('#explanation [data-dismiss]');
}

/** The page for many paychecks: empty, with rows and a problem, and with a result and the gross pay for a check. */
async function manyPaychecks(page, size, media, shotOf) {
  await page.setViewport(size);
  if (media && !firefox) await emulate(page, media);
  const shot = shotOf(page);
  await page.goto(`${server.address}many.html`);
  await page.waitForSelector('body[data-ready]');
  await shot('many');
  await page.type('#pasted', 'id,income,frequency,status,exemptions,state\n7,1000,Weekly,Single,1,Pennsylvania\n8,x,Weekly,Single,1,PA\n');
  await page.click('#take-pasted');
  await page.waitForSelector('#rows tbody tr', { visible: true });
  await page.click('#work');
  await page.waitForSelector('#save', { visible: true });
  await page.type('#wanted-net', '663.01');
  await page.select('#wanted-frequency', 'Weekly');
  await page.select('#wanted-state', 'Michigan');
  await page.click('#wanted button');
  await page.waitForFunction(() => document.querySelector('#wanted-results').children.length > 0);
  await shot('many, worked');
  await page.close();
}

for (const [look, { prefs, media }] of Object.entries(looks)) {
  const browser = await browse(undefined, { prefs });
  for (const size of look === 'light' ? sizes : sizes.filter(({ width }) => width === 1280 || width === 360)) {
    const { width } = size;
    const page = await open(browser, server.address, size);
    if (media && !firefox) await emulate(page, media);
    const u = user(page);
    const shotOf = (shown) => (name, fullPage = true) =>
      whole(shown).then(() => shown.screenshot({ path: join(folder, `${name.replace(/\W+/g, '-')}-${width}-${look}.png`), fullPage }));
    const shot = shotOf(page);
    for (const [name, go] of Object.entries(screens)) {
      if (!wanted(name)) continue;
      await go(u);
      await shot(name, name !== 'frmMain, results' || width > 400);
    }
    for (const [name, [go, close]] of Object.entries(windows)) {
      if (!wanted(name)) continue;
      await go(u, page);
      await shot(name, false);
      await page.click(close);
      if (name === 'question') await page.click('#help [data-dismiss]'); // the one below
    }
    if (wanted('worksheet')) await worksheet(page, u, shot);
    if (wanted('many')) await manyPaychecks(await browser.newPage(), { ...size, height: 800 }, media, shotOf);
    if (page.troubles.length) console.log(page.troubles);
    await page.close();
  }
  await browser.close();
}
await server.close();
