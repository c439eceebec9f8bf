// in_memory.mjs WAY FILE PACKAGE: works the rows of a CSV file that are in memory already, with the JavaScript package in that
// folder. WAY is columns or rows. Prints the seconds by the clock, those of the processor, and the sum of the checks in
// ten-thousandths of a dollar.
import { readFile } from 'node:fs/promises';
import { join } from 'node:path';

const [way, file, folder] = process.argv.slice(2);
const { load } = await import(join(folder, 'index.js'));
const { work } = await load();
const [header, ...lines] = (await readFile(file, 'utf8')).trimEnd().split('\n').map((line) => line.split(','));
const typed = (text) => (text !== '' && Number.isFinite(Number(text)) ? Number(text) : text);
const given = way === 'rows'
  ? lines.map((cells) => Object.fromEntries(cells.map((cell, i) => [header[i], typed(cell)])))
  : Object.fromEntries(header.map((name, i) => [name, lines.map((cells) => typed(cells[i]))]));

const begin = performance.now();
const used = process.cpuUsage();
const worked = work(given, { units: true });
const sum = way === 'rows' ? worked.reduce((total, row) => total + row.check_amount, 0n) : worked.check_amount.reduce((total, one) => total + one, 0n);
const { user, system } = process.cpuUsage(used);
console.log((performance.now() - begin) / 1000, (user + system) / 1e6, String(sum));
