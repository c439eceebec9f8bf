// The same random acts in the web app and, as commands, in a headless session: after each act the store, the record, the
// screens and every property of every control must be equal. This finds acts that don't reach the program or the right control.

import assert from 'node:assert/strict';
import { readFile } from 'node:fs/promises';
import { join } from 'node:path';
import { test } from 'node:test';
import { browse, builtPage, dice, open, project, serve } from './browser.js';

const steps = Number(process.env.STEPS ?? 150);
const seed = Number(process.env.SEED ?? 99);
const clock = 'clock "1999-05-17T14:30:00"';
const properties = ['enabled', 'visible', 'caption', 'text', 'index', 'list', 'value', 'cells', 'left', 'highlighted', 'focused', 'date', 'zoom'];
const fields = ['grossPay', 'amt401k', 'taxableWage', 'preTax', 'preFica', 'fedTax', 'stateTax', 'localTax', 'fica', 'socSec', 'medicare', 'totalDed',
  'checkAmt', 'depsDed', 'frequency', 'maritalStat', 'exemptions', 'staMarried', 'staDeps', 'staAdd', 'localRate', 'applyTo'];
const texts = ['0', '1000', '$1,234.56', '(50)', '.06', '2', 'x', '', '99999999'];

/** The answers to all queries of a session; `answer` answers a line. Runs in Node and in the page. */
function everything(answer, names, ofRecord) {
  const ask = (line) => {
    const text = answer(line);
    return text.startsWith('= ') ? JSON.parse(text.slice(2)) : undefined;
  };
  const result = { store: ask('store'), screens: ask('screens'), running: ask('running') };
  for (const field of ofRecord) result[`record ${field}`] = answer(`pay ${field}`);
  const { shown, hidden } = result.screens ?? { shown: [], hidden: [] };
  for (const screen of [...shown, ...hidden, 'MDIOpen']) {
    for (const address of ask(`controls ${screen}`) ?? []) {
      for (const name of names) result[`${address} ${name}`] = answer(`get ${address} ${name}`);
    }
  }
  return result;
}

async function headless() {
  const { default: load } = await import(join(project, 'build', 'web-module', 'bin', 'tallyfin99.mjs'));
  const module = await load({ wasmBinary: await readFile(join(builtPage, 'tallyfin99.wasm')) });
  return (line) => module.ccall('answer', 'string', ['string'], [line]);
}

/** The elements that the user can press or type into now, except those of the dialogs of the web app. */
const placesOf = (page) =>
  page.evaluate(() => {
    const box = document.querySelector('dialog[data-screen][open]');
    const roots = box ? [box] : [...document.querySelectorAll('#bar, section[data-screen]:not([hidden])')];
    window.places = roots.flatMap((root) => [...root.querySelectorAll('button[data-address], input[data-address], select[data-address], label[data-address], [data-close]')])
      .filter((place) => !place.disabled && place.checkVisibility({ visibilityProperty: true }) && !/SSListBar1.(Help|W4Help|ExitProgram)/.test(place.dataset.address))
      .filter((place) => !['combobox'].includes(place.role) || place.tagName === 'BUTTON');
    return window.places.length;
  });

/** Where an element is clicked, which element is there, and its kind. */
const pressed = (place, entry) =>
  place.evaluate((element, n) => {
    element.scrollIntoView({ block: 'center' });
    const row = element.options?.[n % element.options.length];
    row?.scrollIntoView({ block: 'nearest' });
    const { left, top, width, height } = (row ?? element).getBoundingClientRect();
    const [x, y] = [left + Math.min(width / 2, 60), top + height / 2];
    const there = document.elementFromPoint(x, y);
    const addressed = there?.closest('.option')?.querySelector('[data-address]') ?? there?.closest('[data-address]');
    return { x, y, under: addressed?.dataset.address, role: element.role ?? element.type ?? element.tagName, closes: element.dataset.close,
      ticks: ['checkbox', 'radio'].includes(element.control?.type) ? element.control.dataset.address : undefined,
      address: element.dataset.address, entry: row ? n % element.options.length : -1, entries: element.options?.length };
  }, entry);

test(`${steps} acts on the page and on a headless session from seed ${seed}`, async (t) => {
  const server = await serve();
  const browser = await browse();
  t.after(() => browser.close().then(server.close));
  const page = await open(browser, server.address, { width: 1280, height: 1600 });
  const answer = await headless();
  const random = dice(seed);
  await page.evaluate(() => { window.print = () => {}; });
  await page.evaluate(async (line) => (await import('./protocol.js')).tell(line), clock);
  answer(clock);
  answer('start');
  const trail = [];
  const tell = (line) => {
    trail.push(line);
    return answer(line);
  };
  const focusedOf = (address) => answer(`get ${address} focused`) === '= true';

  for (let step = 0; step < steps; ++step) {
    const count = await placesOf(page);
    const place = await page.evaluateHandle((n) => window.places[n], random(count));
    const { x, y, under: now, role, address, closes, ticks, entry, entries } = await pressed(place, random(50));
    if (entries === 0) continue;
    await page.mouse.move(x, y);
    for (const act of now ? ['enter', 'move'] : []) tell(`${act} ${now}`);
    if (role === 'combobox') {
      await page.mouse.click(x, y);
      if (!focusedOf(address)) tell(`focus ${address}`);
      const rows = await place.evaluate((box) => box.parentElement.querySelectorAll('[role=option]').length);
      const row = random(rows);
      for (let i = 0; i < rows; ++i) await page.keyboard.press('ArrowUp');
      for (let i = 0; i < row; ++i) await page.keyboard.press('ArrowDown');
      await page.keyboard.press('Enter');
      tell(`pick ${address} ${row}`);
    } else if (role === 'text') {
      const text = texts[random(texts.length)];
      await page.mouse.click(x, y, { count: 3 });
      if (!focusedOf(address)) tell(`focus ${address}`);
      await page.keyboard.press('Backspace');
      tell(`type ${address} ""`);
      await page.keyboard.type(text);
      for (let i = 1; i <= text.length; ++i) tell(`type ${address} ${JSON.stringify(text.slice(0, i))}`);
    } else {
      await page.mouse.click(x, y);
      if (closes) tell(`close ${closes}`);
      else if (role !== 'LABEL' && !focusedOf(address)) tell(`focus ${address}`);
      if (role === 'select-one') tell(`pick ${address} ${entry}`);
      else if (!closes && role !== 'number') tell(`click ${address}`);
      if (ticks) {
        if (!focusedOf(ticks)) tell(`focus ${ticks}`);
        tell(`click ${ticks}`);
      }
    }
    await place.dispose();
    // Browsers differ in the element at the pointer after a change of screens, so the pointer is moved aside.
    await page.mouse.move(700, 3);
    if (now) tell(`leave ${now}`);
    // A click on the label of a box moves the focus there, and the page returns it where a screen was left.
    const active = await page.evaluate(() => new Promise((done) => setTimeout(() => done(document.activeElement.tabIndex < 0 ? '' : document.activeElement.dataset.address ?? ''))));
    if (active && answer(`get ${active} focused`) === '= false') tell(`focus ${active}`);

    const is = await page.evaluate(`import('./protocol.js').then(({ line }) => (${everything})(line, ${JSON.stringify(properties)}, ${JSON.stringify(fields)}))`);
    const wanted = everything(answer, properties, fields);
    const differing = Object.keys({ ...is, ...wanted }).filter((key) => JSON.stringify(is[key]) !== JSON.stringify(wanted[key]));
    assert.deepEqual(differing.map((key) => `${key}: ${JSON.stringify(is[key])} for ${JSON.stringify(wanted[key])}`), [],
      `step ${step}: ${trail.slice(-8).join(' > ')}`);
  }
  assert.deepEqual(page.troubles, []);
});
