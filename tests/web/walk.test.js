// A random walk over the page with real clicks and keys: after each step every element shows what its control holds.

import assert from 'node:assert/strict';
import { test } from 'node:test';
import { browse, open, serve } from './browser.js';
import { differences } from './faithful.js';

const steps = Number(process.env.STEPS ?? 250);
const seed = Number(process.env.SEED ?? 99);

/** Numbers from 0 to below n, the same for the same seed. */
function dice(start) {
  let state = start >>> 0;
  return (n) => {
    state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
    return Math.floor((state / 2 ** 32) * n);
  };
}

const texts = ['0', '1000', '$1,234.56', '(50)', '.06', '2', '-3', 'x', '', '1e3', '99999999', 'ä€'];

test(`a walk of ${steps} steps from seed ${seed}`, async (t) => {
  const server = await serve();
  const browser = await browse();
  t.after(() => browser.close().then(server.close));
  const page = await open(browser, server.address);
  const random = dice(seed);
  const trail = [];
  const kinds = new Set();
  for (let step = 0; step < steps; ++step) {
    // Half of the steps stay on the screen that is open.
    const within = random(2) === 0 ? '#bar, #tabs, ' : '';
    const modal = (await page.$('dialog[open]')) !== null;
    const roots = modal ? 'dialog[open]' : `${within}section[data-screen]:not([hidden]), #ended`;
    const all = (await page.$$(roots.split(', ').flatMap((root) => ['button', 'input', 'select', 'output', 'p[data-address]']
      .map((tag) => `${root} ${tag}`)).join(', ')));
    const places = [];
    for (const place of all) if (await place.evaluate((e) => !e.disabled && e.checkVisibility({ visibilityProperty: true }))) places.push(place);
    if (places.length === 0) {
      await page.click('#bar button');
      continue;
    }
    const place = places[random(places.length)];
    const [tag, name] = await place.evaluate((e) => [e.type ?? e.tagName, e.dataset.address ?? e.id ?? e.textContent]);
    trail.push(`${tag} ${name}`);
    kinds.add(tag);
    if (tag === 'select-one') {
      const entries = await place.evaluate((e) => e.options.length);
      if (entries > 0) {
        const entry = random(entries);
        await place.evaluate((e, n) => {
          e.focus();
          e.selectedIndex = n;
          e.dispatchEvent(new Event('change', { bubbles: true }));
        }, entry);
      }
    } else if (tag === 'text') {
      await place.click({ count: 3 });
      await page.keyboard.press('Backspace');
      await page.keyboard.type(texts[random(texts.length)]);
      if (random(2)) await page.keyboard.press('Tab');
    } else {
      await place.click({ count: 1 + random(2) });
    }
    await page.evaluate(() => new Promise((done) => setTimeout(done)));
    assert.deepEqual(await differences(page), [], trail.slice(-5).join(' > '));
  }
  assert.deepEqual(page.troubles, []);
  t.diagnostic(`kinds of elements met: ${[...kinds].join(', ')}`);
  assert.ok(kinds.size >= 5);
});
