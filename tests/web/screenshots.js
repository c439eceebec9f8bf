// Pictures of all screens, wide, narrow and narrower, light and in forced colours: node screenshots.js FOLDER [NAME...].
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
  forced: { prefs: { 'browser.display.document_color_use': 2 }, media: [{ name: 'forced-colors', value: 'active' }] },
  'forced-dark': {
    prefs: { 'browser.display.document_color_use': 2, 'browser.display.background_color': '#000000', 'browser.display.foreground_color': '#ffffff', 'ui.systemUsesDarkTheme': 1 },
    media: [{ name: 'forced-colors', value: 'active' }, { name: 'prefers-color-scheme', value: 'dark' }],
  },
};

for (const [look, { prefs, media }] of Object.entries(looks)) {
  const browser = await browse(undefined, { prefs });
  for (const width of look === 'light' ? [1280, 360, 320] : [1280, 360]) {
    const page = await open(browser, server.address, { width, height: width === 320 ? 256 : width === 360 ? 560 : 800 });
    if (media && !firefox) await emulate(page, media);
    const u = user(page);
    const shot = (name, fullPage = true) =>
      page.screenshot({ path: join(folder, `${name.replace(/\W+/g, '-')}-${width}-${look}.png`), fullPage });
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
    }
    if (page.troubles.length) console.log(page.troubles);
    await page.close();
  }
  await browser.close();
}
await server.close();
