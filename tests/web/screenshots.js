// Pictures of all screens, wide and narrow: node screenshots.js FOLDER.

import { mkdir } from 'node:fs/promises';
import { join } from 'node:path';
import { browse, open, screens, serve, user } from './browser.js';

const folder = process.argv[2];
await mkdir(folder, { recursive: true });
const server = await serve();
const browser = await browse();
for (const width of [1100, 360]) {
  const page = await open(browser, server.address, { width, height: 800 });
  const u = user(page);
  const shot = (name) => page.screenshot({ path: join(folder, `${name.replace(/\W+/g, '-')}-${width}.png`), fullPage: true });
  for (const [name, go] of Object.entries(screens)) {
    await go(u);
    await shot(name);
  }
  await u.bar('About');
  await shot('frmAbt');
  await page.click('[data-close=frmAbt]');
  await u.bar('Help');
  await page.waitForSelector('#help-topic h3');
  await shot('help');
  if (page.troubles.length) console.log(page.troubles);
  await page.close();
}
await browser.close();
await server.close();
