// Pictures of all screens, wide, narrow and at 200 percent: node screenshots.js FOLDER.

import { mkdir } from 'node:fs/promises';
import { join } from 'node:path';
import { browse, open, screens, serve, user } from './browser.js';

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
  await u.bar('Calc');
  await page.click('#explain');
  await shot('explanation');
  await page.click('#explanation [data-dismiss]');
  await u.click('frmMain.cmdToolBar(2)');
  await u.bar('Analysis');
  await shot('MsgBox');
  await u.click('MsgBox.OK');
  await u.bar('About');
  await shot('frmAbt');
  await page.click('[data-close=frmAbt]');
  await u.bar('Help');
  await page.waitForSelector('#help-topic h3');
  await shot('help');
  await page.click('#help [data-dismiss]');
  await u.bar('Personal');
  await page.keyboard.press('F1');
  await page.waitForSelector('#erase', { visible: true });
  await shot('erase');
  await page.click('#erase');
  await shot('question');
  await page.click('#question [data-dismiss]');
  await page.click('#help [data-dismiss]');
  await u.bar('ExitProgram');
  await shot('ended');
  if (page.troubles.length) console.log(page.troubles);
  await page.close();
}
await browser.close();
await server.close();
