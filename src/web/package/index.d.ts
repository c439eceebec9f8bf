/** What a cell may hold. An empty text, null, undefined and NaN are an empty cell, which means the program's default. */
export type Cell = string | number | bigint | boolean | null | undefined;

/** The columns of a paycheck. Letter case and other properties of a row are ignored. */
export type ColumnName =
  | 'income' | 'rate_401k' | 'pre_tax' | 'pre_fica' | 'frequency' | 'status' | 'exemptions' | 'state'
  | 'self_employed' | 'state_401k' | 'state_pre_tax' | 'local_rate' | 'local_base' | 'state_dependents'
  | 'illinois_dependents' | 'state_exemptions' | 'state_marital' | 'state_method' | 'state_additional' | 'net';

export type ResultName =
  | 'gross_pay' | 'amt_401k' | 'non_taxable' | 'pre_fica_pay' | 'federal_tax' | 'state_tax' | 'local_tax' | 'fica'
  | 'social_security' | 'medicare' | 'total_deductions' | 'check_amount';

/** A paycheck as a row. */
export type Row = { [column in ColumnName]?: Cell };

/** Paychecks as columns: arrays of one length, or a single value for all rows. */
export type Columns = { [column in ColumnName]?: Cell | ArrayLike<Cell> } & { length?: never };

/** The results of a row: dollars, with up to four decimals; null where a column can't be understood. */
export type Results<Amount = number> = { [result in ResultName]: Amount | null } & {
  /** The problem of the row; empty for none. A row with results may have a problem too. */
  problem: string;
};

/** The results of rows as columns. */
export type ResultColumns<Amount = number> = { [result in ResultName]: (Amount | null)[] } & { problem: string[] };

/** A part of a formula: an operand, or an operation and its operands. */
export type Operand = { [key: string]: unknown } | Operation;
export interface Operation extends ReadonlyArray<string | Operand> {}

/** A line of a worksheet. */
export interface Line {
  line?: number;
  title?: string;
  words: string;
  value?: string;
  kind?: 'amount' | 'count' | 'rate' | 'single';
  from?: Operand;
  table?: { [key: string]: unknown };
}

/** A value that a state offers for a column. */
export interface StateValue {
  state: string;
  postal: string;
  column: ColumnName;
  value: string;
  meaning: string;
}

export interface Tallyfin99 {
  readonly columns: readonly ColumnName[];
  readonly results: readonly ResultName[];

  /**
   * Works paychecks. Throws a TypeError where no column is known or two are the same, a RangeError where columns have
   * different lengths. With `units`, amounts are whole ten-thousandths of a dollar.
   */
  work(rows: readonly (Row)[], choices?: { units?: false }): Results[];
  work(rows: readonly (Row)[], choices: { units: true }): Results<bigint>[];
  work(columns: Columns, choices?: { units?: false }): ResultColumns;
  work(columns: Columns, choices: { units: true }): ResultColumns<bigint>;

  /** The worksheet behind each result, by its title in the results; null where the row has no results. */
  explain(row: Row): { [title: string]: Line[] } | null;

  /** The values that each state reads of the columns for states. */
  states(): StateValue[];
}

/** Loads the module. `wasm` has the bytes of tallyfin99.wasm, for when they can't be loaded from the folder of this file. */
export function load(options?: { wasm?: ArrayBuffer | Uint8Array }): Promise<Tallyfin99>;
