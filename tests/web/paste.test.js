// Pasted texts, by the table that the desktop's tests read too.

import assert from 'node:assert/strict';
import { readFile } from 'node:fs/promises';
import { test } from 'node:test';

const source = await readFile(new URL('../../src/web/page/paste.js', import.meta.url), 'utf8');
const { cleaned } = await import(`data:text/javascript,${encodeURIComponent(source)}`);
const table = JSON.parse(await readFile(new URL('../controls/data/pasted.json', import.meta.url), 'utf8'));

test('a pasted text is cleaned as the table says', () => {
  assert.ok(table.texts.length > 10);
  for (const [pasted, isAmount, replacesAll, wanted] of table.texts) {
    assert.equal(cleaned(pasted, { isAmount, replacesAll }), wanted, JSON.stringify(pasted));
  }
});

test('each blank, minus sign and end is known, and no other', () => {
  const blanks = [];
  const ends = [];
  const minuses = [];
  for (let code = 1; code < 0x10000; code += 1) {
    if (code >= 0xd800 && code < 0xe000) continue; // halves of pairs
    const character = String.fromCharCode(code);
    const result = cleaned(`1${character}2`, { isAmount: true, replacesAll: false });
    if (result === '1 2') blanks.push(code);
    if (result === '1') ends.push(code);
    if (result === '1-2' && character !== '-') minuses.push(code);
    const trimmed = cleaned(`${character}x${character}`, { isAmount: false, replacesAll: true }) === 'x';
    assert.equal(trimmed, result === '1 2', `${code}`);
  }
  assert.deepEqual({ blanks, ends, minuses }, { blanks: table.blanks, ends: table.ends, minuses: table.minuses });
});
