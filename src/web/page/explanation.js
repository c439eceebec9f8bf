// The explanation window: where the gross pay goes, and for each figure of the results the sentences and sums that led to it.

import * as protocol from './protocol.js';

const at = (id) => document.getElementById(id);

function part(tag, text) {
  const element = document.createElement(tag);
  element.textContent = text;
  return element;
}

/** The button works once there is something to explain. */
export function refreshExplanation() {
  at('explain').disabled = protocol.explained() === null;
}

/** A figure's explanation, its title first and its amount last. */
function paragraphs([title, amount, ...lines]) {
  const result = part('p', amount);
  result.className = 'result';
  return [part('h3', title), ...lines.map((line) => part('p', line)), result];
}

function drawBar(shares) {
  at('shares').hidden = shares.length === 0;
  at('shares').replaceChildren(
    ...shares.map(([words, fraction]) => {
      const share = part('span', words);
      share.style.flexGrow = fraction;
      return share;
    }),
  );
  // Words that have no room aren't cut off: the sentence below has them all.
  for (const share of at('shares').children) {
    if (share.scrollWidth > share.clientWidth) share.textContent = '';
  }
}

function choice(figure, chosen) {
  const radio = document.createElement('input');
  radio.type = 'radio';
  radio.name = 'figure';
  radio.checked = chosen;
  radio.autofocus = chosen;
  const tell = () => at('explanation-text').replaceChildren(...paragraphs(figure));
  radio.addEventListener('change', tell);
  if (chosen) tell();
  const [title, amount] = figure;
  const label = document.createElement('label');
  label.append(radio, part('span', title), part('span', amount));
  return label;
}

/** Opens the window at the figure of a row of the results. */
function show(row) {
  const explained = protocol.explained();
  if (explained === null) return;
  const { shares, sentence, figures } = explained;
  at('shares-sentence').textContent = sentence;
  at('figures').replaceChildren(...figures.map((figure, i) => choice(figure, i === row)));
  at('explanation-paper').replaceChildren(part('p', sentence), ...figures.flatMap(paragraphs));
  at('explanation').showModal();
  drawBar(shares);
}

/** `print` prints an element of the page. */
export function prepareExplanation(print) {
  at('explain').addEventListener('click', () => show(0));
  at('results').addEventListener('dblclick', ({ target }) => {
    const row = target.closest('tbody tr');
    if (row) show(row.sectionRowIndex);
  });
  at('explanation-copy').hidden = !navigator.clipboard; // there is one on https and on this machine
  at('explanation-copy').addEventListener('click', () => navigator.clipboard.writeText(at('explanation-text').innerText));
  at('explanation-print').addEventListener('click', () => print(at('explanation-paper')));
}
