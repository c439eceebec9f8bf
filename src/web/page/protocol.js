// The module and its line protocol: one command in, one answer out.

import load from './tallyfin99.js';

let module;

/** Loads the module; `page` has the platform functions of the program. */
export async function open(page) {
  module = await load(page);
}

/** Passes a text on the heap: a long one would overflow the stack. */
function call(name, text) {
  if (text === undefined) return module.ccall(name, 'string', [], []);
  const place = module.allocateUTF8(text);
  if (place === 0) throw new Error('no memory');
  try {
    return module.ccall(name, 'string', ['number'], [place]);
  } finally {
    module._free(place);
  }
}

/** The unchanged answer to a line. */
export const line = (text) => call('answer', text);

/** Sends a command. Returns the first word of the answer: "ok", or the reason. Quote texts with `quoted`. */
export function tell(...words) {
  const answer = line(words.join(' '));
  return answer === 'ok' ? 'ok' : answer.split(' ')[1];
}

export const quoted = JSON.stringify;

/** The answer of a query, parsed as JSON; undefined where it was refused. */
export function ask(...words) {
  const answer = line(words.join(' '));
  return answer.startsWith('= ') ? JSON.parse(answer.slice(2)) : undefined;
}

/** The addresses that have changed since the last call. */
export const changed = () => JSON.parse(call('changed'));

/** The address of the control that has the focus, empty where none has. */
export const focused = () => call('focused');

/** Whether there is something to explain. */
export const calculated = () => Boolean(module._calculated());

/** The explanation of the last calculation; null before the first. */
export const explained = () => JSON.parse(call('explained'));
