// The explanation window: for each figure of the grid the sentences and sums that lead to it.

import * as protocol from './protocol.js';

const at = (id) => document.getElementById(id);

/** The button stands there where the program can explain, and works once there is something to explain. */
export function refreshExplanation() {
  const explained = protocol.ask('explain');
  at('explain').hidden = explained === undefined;
  at('explain').disabled = !explained;
}

function show() {
  const parts = Object.entries(protocol.ask('explain')).flatMap(([title, sentences]) => {
    const heading = document.createElement('h3');
    heading.textContent = title;
    return [
      heading,
      ...sentences.map((sentence) => {
        const line = document.createElement('p');
        line.textContent = sentence;
        return line;
      }),
    ];
  });
  at('explanation-text').replaceChildren(...parts);
  at('explanation').showModal();
}

export function prepareExplanation() {
  at('explain').addEventListener('click', show);
}
