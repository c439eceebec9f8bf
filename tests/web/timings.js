// Speed of the web app on this machine: node timings.js. First paint and ready beside an empty page, each in a new browser
// context; Calculate from the click to the end of layout, and to the next frame.

import { browse, open, serve, user } from './browser.js';

const rounds = 15;
const middle = (numbers) => [...numbers].sort((a, b) => a - b)[Math.floor(numbers.length / 2)];
const highest = (numbers) => Math.max(...numbers);
const line = (what, numbers) =>
  console.log(`${what.padEnd(34)} median ${middle(numbers).toFixed(1)} ms, slowest ${highest(numbers).toFixed(1)} ms`);

const server = await serve();
const browser = await browse();

const paint = (page) =>
  page.waitForFunction(() => performance.getEntriesByName('first-contentful-paint')[0]?.startTime).then((h) => h.jsonValue());

async function loadTimes(kept) {
  const paints = [];
  const readies = [];
  const context = kept ? await browser.createBrowserContext() : null;
  for (let round = 0; round < rounds + (kept ? 1 : 0); ++round) {
    const own = kept ? context : await browser.createBrowserContext();
    const page = await open(own, server.address);
    if (kept) await page.evaluate(() => navigator.serviceWorker.ready);
    if (!kept || round > 0) {
      paints.push(await paint(page));
      readies.push(await page.evaluate(() => performance.getEntriesByName('ready')[0].startTime));
    }
    await (kept ? page.close() : own.close());
  }
  return [paints, readies];
}

async function emptyTimes() {
  const paints = [];
  for (let round = 0; round < rounds; ++round) {
    const page = await browser.newPage();
    await page.goto('data:text/html,<!DOCTYPE html><p>Empty.');
    paints.push(await paint(page));
    await page.close();
  }
  return paints;
}

line('an empty page, first paint', await emptyTimes());
for (const kept of [false, true]) {
  const [paints, readies] = await loadTimes(kept);
  const what = kept ? 'a later visit' : 'a first visit';
  line(`${what}, first paint`, paints);
  line(`${what}, ready`, readies);
}

const page = await open(browser, server.address);
const u = user(page);
await u.bar('Calc');
await u.pick('frmMain.lstFrequency', 0);
await u.pick('frmMain.cboState', 34);
await u.type('frmMain.txtIncome', '1000');
const [work, frame] = await page.evaluate(async () => {
  const button = document.querySelector('[data-address="frmMain.cmdToolBar(0)"]');
  const all = [[], []];
  for (let round = 0; round < 100; ++round) {
    await new Promise((done) => setTimeout(done, 20));
    const start = performance.now();
    button.click();
    document.body.getBoundingClientRect();
    all[0].push(performance.now() - start);
    await new Promise((done) => requestAnimationFrame(done));
    all[1].push(performance.now() - start);
  }
  return all;
});
line('Calculate, click to laid out', work);
line('Calculate, click to next frame', frame);
await browser.close();
await server.close();
