// Pictures of all screens, wide, narrow and at 200 percent: node screenshots.js FOLDER.

import { mkdir } from 'node:fs/promises';
import { join } from 'node:path';
import { browse, open, screens, serve, user, windows } from './browser.js';

const folder = process.argv[2];
await mkdir(folder, { recursive: true });
const server = await serve();
const browser = await browse();
for (const [width, scale] of [[1100, 1], [360, 1], [550, 2]]) {
  const page = await open(browser, server.address, { width, height: 800, deviceScaleFactor: scale });
  const u = user(page);
  const shot = (name) => page.screenshot({ path: join(folder, `${name.replace(/\W+/g, '-')}-${width}.png`), fullPage: true });
  for (const [name, go] of Object.entries(screens)) {
    await go(u);
    await shot(name);
  }
  for (const [name, [go, close]] of Object.entries(windows)) {
    await go(u, page);
    await shot(name);
    await page.click(close);
  }
  await page.click('#help [data-dismiss]');
  await u.bar('ExitProgram');
  await shot('ended');
  if (page.troubles.length) console.log(page.troubles);
  await page.close();
}
await browser.close();
await server.close();
