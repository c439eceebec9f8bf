// The JavaScript package from its archive, in Node and in a browser: its figures are those of the batch program, and its types
// are right.

import assert from 'node:assert/strict';
import { execFileSync, spawnSync } from 'node:child_process';
import { mkdir, mkdtemp, readFile, rm, stat, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after, before, test } from 'node:test';
import { pathToFileURL } from 'node:url';
import { gzipSync } from 'node:zlib';
import { builtPage, dice, project, serve, setUp } from './browser.js';

const { freshContext } = await setUp();
const rowCount = Number(process.env.ROWS ?? 5000);
const batch = process.env.BATCH ?? join(project, 'build', 'dev', 'bin', 'tallyfin99-batch');

let folder;
let archive;
let paychecks;

before(async () => {
  folder = await mkdtemp(join(tmpdir(), 'package-'));
  const name = execFileSync('npm', ['pack', '--silent', '--pack-destination', folder], { cwd: join(project, 'build', 'npm'), encoding: 'utf8' });
  archive = join(folder, name.trim());
  await mkdir(join(folder, 'node_modules', 'tallyfin99'), { recursive: true });
  execFileSync('tar', ['-xzf', archive, '-C', join(folder, 'node_modules', 'tallyfin99'), '--strip-components=1']);
  await writeFile(join(folder, 'index.mjs'), "export * from 'tallyfin99';\n");
  const { load } = await import(pathToFileURL(join(folder, 'index.mjs')));
  paychecks = await load();
});
after(() => rm(folder, { recursive: true, force: true }));

// Weekly, Single, 1 exemption, 6 percent of 1000 to the 401(k), Pennsylvania, as in the sample of the screens.
const sample = { income: 1000, frequency: 'Weekly', status: 'Single', exemptions: 1, state: 'PA', rate_401k: 6 };

/** Random rows, with some texts that can't be understood. */
function someRows(count, { columns, states }) {
  const random = dice(7);
  const one = (list) => list[random(list.length)];
  const amount = () => one([String(random(40000) / 100), '0', '', String(random(99)), random(9) === 0 ? one(['$1,234.56', '(50)', 'x']) : '']);
  const names = [...new Set(states.map(({ state }) => state)), 'No State', 'pa', 'Atlantis', '7'];
  const values = {
    income: () => (random(15) === 0 ? amount() : String(random(500000) / 100)),
    rate_401k: () => one(['', '6', '.06', '12.5', random(9) === 0 ? 'x' : '5']),
    pre_tax: amount,
    pre_fica: amount,
    frequency: () => one(['Weekly', 'Monthly', 'Every Two Weeks', 'twice a month', '0', '3.0', random(9) === 0 ? one(['', '4']) : 'Monthly']),
    status: () => one(['Single', 'Married', '2', '']),
    exemptions: () => String(random(30) === 0 ? 16 : random(16)),
    state: () => one(names),
    local_rate: () => one(['', '', '1', '.0125']),
    local_base: () => one(['', '1', '2', '5', random(9) === 0 ? '6' : '4']),
    state_additional: () => one(['', '5', '12.34']),
    net: () => (random(40) === 0 ? String(random(200000) / 100) : ''),
  };
  const seldom = (list) => (random(15) === 0 ? one(list) : '');
  const flag = () => seldom(['Y', 'N', 'True', 'Maybe']);
  const number = () => seldom(['0', '1', '3', '9', '10', '32', '99999']);
  return Array.from({ length: count }, () => Object.fromEntries(columns.map((name) => [name,
    (values[name] ?? (['self_employed', 'state_401k', 'state_pre_tax'].includes(name) ? flag : number))()])));
}

const quoted = (text) => (/[",\n]/.test(text) ? `"${text.replaceAll('"', '""')}"` : text);
const line = (cells) => `${cells.map(quoted).join(',')}\n`;

/** Ten-thousandths as dollars, in the format of the batch program. */
function dollars(units) {
  const digits = String(units < 0n ? -units : units).padStart(5, '0');
  const cents = digits.slice(-4).replace(/0+$/, '');
  return `${units < 0n ? '-' : ''}${digits.slice(0, -4)}${cents === '' ? '' : `.${cents}`}`;
}

test(`${rowCount} rows give the bytes of the batch program`, async () => {
  const { columns, results, states, work } = paychecks;
  const rows = someRows(rowCount, { columns, states: states() });
  const file = join(folder, 'rows.csv');
  await writeFile(file, line(columns) + rows.map((row) => line(Object.values(row))).join(''));
  const wanted = execFileSync(batch, ['--quiet', '--problems-ok', file], { encoding: 'utf8', maxBuffer: 1 << 30, stdio: ['ignore', 'pipe', 'ignore'] });
  const header = line([...columns, ...results, 'problem']);
  const written = (worked, text) => header + rows.map((row, i) =>
    line([...Object.values(row), ...results.map((name) => (worked(i, name) === null ? '' : text(worked(i, name)))), worked(i, 'problem')])).join('');

  const byRows = work(rows);
  assert.ok(written((i, name) => byRows[i][name], String) === wanted, 'as rows');
  const table = Object.fromEntries(columns.map((name) => [name, rows.map((row) => row[name])]));
  const byColumns = work(table, { units: true });
  assert.ok(written((i, name) => byColumns[name][i], (value) => (typeof value === 'bigint' ? dollars(value) : value)) === wanted, 'as columns');
  const problems = byRows.filter(({ problem }) => problem !== '').length;
  assert.ok(problems > rowCount / 10 && problems < rowCount * 0.9 && rows.some(({ net }) => net !== ''), `${problems} with problems`);
});

test('a cell may be a text, a number, a truth value or nothing', () => {
  const { work } = paychecks;
  const [paid] = work([sample]);
  assert.equal(paid.check_amount, 663.01);
  assert.equal(paid.problem, '');
  assert.deepEqual(work([{ ...sample, income: '1,000', exemptions: 1n, self_employed: false, pre_tax: null, net: undefined, name: 'Ada', local_rate: NaN }]), [paid]);
  assert.equal(work([{ ...sample, self_employed: true }])[0].fica, 153);
  assert.equal(work([{ ...sample, income: 'a\u001eb\u001f\u{1F600}' }])[0].problem, 'income: not a number');
  assert.equal(work([{ ...sample, state: 'Atlantis' }])[0].check_amount, null);
  assert.deepEqual(work([]), []);
  assert.equal(work([{ ...sample, income: undefined, net: 663.01 }])[0].gross_pay, 1000);
});

test('columns are arrays of one length, typed or not, or single values', () => {
  const { work } = paychecks;
  const { gross_pay: gross, problem } = work({ Income: new Float64Array([100, 200.5, NaN]), frequency: 'Weekly', note: 'x' });
  assert.deepEqual(gross, [100, 200.5, 0]);
  assert.deepEqual(problem, ['', '', '']);
  assert.deepEqual(work({ income: [1, 2], frequency: ['Weekly', 'Monthly'] }, { units: true }).gross_pay, [10000n, 20000n]);
  assert.equal(work(sample).check_amount.length, 1);
  assert.throws(() => work({ income: [1, 2], frequency: ['Weekly'] }), RangeError);
});

test('what can not be meant is refused with the columns there are', () => {
  const { work } = paychecks;
  assert.throws(() => work([{ imcome: 5 }]), /no column is known: imcome; columns are income, rate_401k/);
  assert.throws(() => work({ imcome: [5] }), TypeError);
  assert.throws(() => work([{ income: 5, Income: 6 }]), /two columns are named income/);
});

test('explain gives the worksheet of each result, states what each state reads', () => {
  const { explain, states } = paychecks;
  const lines = explain(sample)['Federal Tax'];
  assert.equal(lines.at(-1).value, '172.49');
  assert.match(lines.at(-1).words, /whole cents$/);
  assert.equal(explain({ state: 'Atlantis' }), null);
  assert.deepEqual(states().find(({ state, column }) => state === 'Illinois' && column === 'illinois_dependents'),
    { state: 'Illinois', postal: 'IL', column: 'illinois_dependents', value: '0 to 15', meaning: 'For Use in Computing Illinois Tax' });
});

test('the archive is below 400 KB, has what a package needs, and nothing else', async (t) => {
  const { size } = await stat(archive);
  t.diagnostic(`${size} bytes`);
  assert.ok(size < 400_000, `${size} bytes`);
  const names = execFileSync('tar', ['-tzf', archive], { encoding: 'utf8' }).trim().split('\n').map((name) => name.replace('package/', ''));
  for (const name of ['LICENSE', 'README.md', 'index.d.ts', 'index.js', 'module.js', 'package.json', 'raw.js', 'tallyfin99.wasm', 'third-party-notices']) assert.ok(names.includes(name), name);
  const { version } = JSON.parse(await readFile(join(folder, 'node_modules', 'tallyfin99', 'package.json')));
  assert.match(await readFile(join(project, 'CMakeLists.txt'), 'utf8'), new RegExp(`VERSION ${version} `));
});

test('the modules are below 300 KB gzipped', async (t) => {
  for (const name of ['tallyfin99.wasm', 'paychecks/tallyfin99.wasm']) {
    const { length } = gzipSync(await readFile(join(builtPage, name)), { level: 9 });
    t.diagnostic(`${name}: ${length} bytes`);
    assert.ok(length < 300_000, `${name}: ${length} bytes`);
  }
});

test('the types fit: what is right compiles, what is wrong does not', async () => {
  await writeFile(join(folder, 'try.mts'), `
    import { load } from 'tallyfin99';
    const { work, explain, states } = await load();
    const rows: { income: number; frequency: string; name: string }[] = [{ income: 1, frequency: 'Weekly', name: 'Ada' }];
    const check: number | null = work(rows)[0].check_amount;
    const units: (bigint | null)[] = work({ income: new Float64Array(3), frequency: 'Weekly' }, { units: true }).fica;
    const words: string | undefined = explain({ net: 500 })?.['Check Amt'].at(-1)?.words;
    const problem: string = work(rows)[0].problem;
    const column: string = states()[0].column;
    export { check, units, words, problem, column };
    // @ts-expect-error: a cell of a row isn't a list
    work([{ income: [1] }]);
    // @ts-expect-error: a result is a number
    const text: string = work([{ income: 1 }])[0].fica;
    // @ts-expect-error: there is no such result
    work([{ income: 1 }])[0].tax;
    // @ts-expect-error: there is no such column
    work([{ imcome: 1 }]);
  `);
  const tsc = join(project, 'tests', 'web', 'node_modules', 'typescript', 'bin', 'tsc');
  const { status, stdout } = spawnSync(process.execPath, [tsc, '--noEmit', '--strict', '--target', 'es2022', '--module', 'nodenext', 'try.mts'],
    { cwd: folder, encoding: 'utf8' });
  assert.equal(stdout, '');
  assert.equal(status, 0);
});

test('in the browser it gives the same', async (t) => {
  await writeFile(join(folder, 'index.html'), '<!DOCTYPE html><title>x</title>');
  const own = await serve(folder);
  t.after(own.close);
  const page = await (await freshContext(t)).newPage();
  await page.goto(`${own.address}index.html`);
  const rows = someRows(500, { columns: paychecks.columns, states: paychecks.states() });
  const inBrowser = await page.evaluate(async (table) => {
    const { load } = await import('/node_modules/tallyfin99/index.js');
    const { work, states } = await load();
    return { worked: work(table), states: states().length };
  }, rows);
  assert.deepEqual(inBrowser.worked, paychecks.work(rows));
  assert.equal(inBrowser.states, paychecks.states().length);
});
