// The module and its line protocol: one command in, one answer out.

import load from './tallyfin99.js';

let module;

/** Loads the module; `page` has the functions that the program asks of the machine. */
export async function open(page) {
  module = await load(page);
}

/** A text goes over the heap, for the stack has no room for a long one. */
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

/** The answer to a line as it is. */
export const line = (text) => call('answer', text);

/** Carries a command out. Returns the answer's first word: "ok", or why not. Texts are quoted by `quoted`. */
export function tell(...words) {
  const answer = line(words.join(' '));
  return answer === 'ok' ? 'ok' : answer.split(' ')[1];
}

export const quoted = JSON.stringify;

/** The answer of a command that asks, read as JSON; undefined where it was refused. */
export function ask(...words) {
  const answer = line(words.join(' '));
  return answer.startsWith('= ') ? JSON.parse(answer.slice(2)) : undefined;
}

/** Addresses of what has changed since the last call. */
export const changed = () => JSON.parse(call('changed'));

/** The address of the control that has the focus, empty where none has. */
export const focused = () => call('focused');

/** Whether there is something to explain. */
export const calculated = () => Boolean(module._calculated());

/** How the last calculation was worked out; null before the first. */
export const explained = () => JSON.parse(call('explained'));
