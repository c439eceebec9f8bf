// Paychecks as rows: what is withheld from United States paychecks of tax year 1999. README.md shows how to use it.

import { cellEnd, hand, loadRaw, rowEnd, rowsOf, textFrom } from './raw.js';

const atOnce = 1000; // rows passed in one call

/** A value as the text of a cell. */
function textOf(value) {
  if (typeof value === 'number') return Number.isNaN(value) ? '' : String(value);
  if (value === null || value === undefined) return '';
  return String(value).replace(/[\x1e\x1f]/g, '?'); // separators of the table; no valid cell has them
}

const isColumn = (value) => Array.isArray(value) || (ArrayBuffer.isView(value) && 'length' in value);

export async function load(options) {
  const module = await loadRaw(options);
  const [columns, results] = rowsOf(textFrom(module, 'names'));
  const numberOf = new Map(columns.map((name, number) => [name, number]));

  /** The column of a key; letter case and blanks at either end are ignored; undefined for other keys. */
  const keys = new Map();
  const columnOf = (key) => {
    if (!keys.has(key)) keys.set(key, numberOf.get(key.trim().toLowerCase()));
    return keys.get(key);
  };

  /** The columns among some keys, each with its key. Refuses two keys for one column. */
  function columnsIn(names) {
    const found = new Map();
    for (const key of names) {
      const column = columnOf(key);
      if (column === undefined) continue;
      if (found.has(column)) throw new TypeError(`two columns are named ${columns[column]}`);
      found.set(column, key);
    }
    return found;
  }

  function refuseUnknown(names) {
    if (names.length > 0) throw new TypeError(`no column is known: ${names.slice(0, 5).join(', ')}; columns are ${columns.join(', ')}`);
  }

  /** Works `count` rows of the columns of these numbers. `cell(row, i)` returns the text of a cell; `take` receives the results. */
  function workTable(numbers, count, cell, take) {
    const head = numbers.map((number) => number + cellEnd).join('') + rowEnd;
    for (let first = 0; first < count; first += atOnce) {
      const end = Math.min(first + atOnce, count);
      let table = head;
      for (let row = first; row < end; ++row) {
        for (let i = 0; i < numbers.length; ++i) table += cell(row, i) + cellEnd;
        table += rowEnd;
      }
      hand(module, table);
      const problems = module._work() > 0 ? rowsOf(textFrom(module, 'problems')) : [];
      const states = module._rowStates();
      const [amounts, units] = [module._amounts() / 8, module._units() / 8];
      let problem = 0;
      for (let row = first; row < end; ++row) {
        const state = module.HEAPU8[states + row - first];
        const at = (row - first) * results.length;
        take(row, state & 1 ? at : -1, amounts + at, units + at, state & 2 ? problems[problem++][0] : '');
      }
    }
  }

  /** A view of the results: dollars, or ten-thousandths of a dollar as BigInt. */
  const reader = ({ units = false } = {}) => {
    if (!units) return (amount) => module.HEAPF64[amount];
    return (amount, unit) => new BigInt64Array(module.HEAPU8.buffer)[unit];
  };

  function workRows(rows, choices) {
    const keysOfRows = new Set();
    for (const row of rows) for (const key in row) keysOfRows.add(key);
    const found = columnsIn([...keysOfRows]);
    if (found.size === 0) refuseUnknown([...keysOfRows]);
    const names = [...found.values()];
    const read = reader(choices);
    const worked = new Array(rows.length);
    workTable([...found.keys()], rows.length, (row, i) => textOf(rows[row][names[i]]), (row, at, amount, unit, problem) => {
      const result = {};
      for (let i = 0; i < results.length; ++i) result[results[i]] = at < 0 ? null : read(amount + i, unit + i);
      result.problem = problem;
      worked[row] = result;
    });
    return worked;
  }

  function workColumns(table, choices) {
    const found = columnsIn(Object.keys(table));
    if (found.size === 0) refuseUnknown(Object.keys(table));
    const values = [...found.values()].map((key) => table[key]);
    const lengths = values.filter(isColumn).map(({ length }) => length);
    const count = lengths[0] ?? (values.length > 0 ? 1 : 0);
    if (lengths.some((length) => length !== count)) throw new RangeError(`the columns have different lengths: ${lengths.join(', ')}`);
    const cells = values.map((value) => (isColumn(value) ? (row) => textOf(value[row]) : () => textOf(value)));
    const read = reader(choices);
    const worked = Object.fromEntries([...results, 'problem'].map((name) => [name, new Array(count)]));
    const into = results.map((name) => worked[name]);
    workTable([...found.keys()], count, (row, i) => cells[i](row), (row, at, amount, unit, problem) => {
      for (let i = 0; i < into.length; ++i) into[i][row] = at < 0 ? null : read(amount + i, unit + i);
      worked.problem[row] = problem;
    });
    return worked;
  }

  return {
    columns,
    results,
    work(table, choices) {
      return Array.isArray(table) ? workRows(table, choices) : workColumns(table, choices);
    },
    explain(row) {
      const found = columnsIn(Object.keys(row));
      const cells = [...found.values()].map((key) => textOf(row[key]) + cellEnd);
      hand(module, [...found.keys()].map((number) => number + cellEnd).join('') + rowEnd + cells.join('') + rowEnd);
      return JSON.parse(textFrom(module, 'explanation'));
    },
    states() {
      return rowsOf(textFrom(module, 'states')).map(([state, postal, column, value, meaning]) => ({ state, postal, column, value, meaning }));
    },
  };
}
