// The WebAssembly module. A table is passed as one text: a cell ends with U+001F, a row with U+001E after that.

import loadModule from './module.js';

export const cellEnd = '\x1f';
export const rowEnd = '\x1e';

/** The rows of a table as the module writes it. */
export const rowsOf = (table) => table.split(rowEnd).slice(0, -1).map((row) => row.split(cellEnd).slice(0, -1));

async function bytesOf(address) {
  if (address.protocol === 'file:') return (await import('node:fs/promises')).readFile(address);
  const response = await fetch(address);
  if (!response.ok) throw new Error(`${address} can't be loaded: ${response.status}`);
  return response.arrayBuffer();
}

/** Loads the module. `read` returns the bytes of the file that is worked. */
export async function loadRaw({ wasm, read } = {}) {
  return loadModule({ wasmBinary: wasm ?? (await bytesOf(new URL('tallyfin99.wasm', import.meta.url))), read });
}

/** The text that an export of the module returns. */
export const textFrom = (module, name, ...numbers) => module.UTF8ToString(module[`_${name}`](...numbers));

/** Writes a text into the buffer of the module. */
export function hand(module, text) {
  const bytes = new TextEncoder().encode(text);
  const place = module._room(bytes.length);
  module.HEAPU8.set(bytes, place);
}
