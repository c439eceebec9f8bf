// The explanation window: the shares of the gross pay, and the worksheet of each figure of the results.

import * as protocol from './protocol.js';
import { bindForm, formOf, textOf } from './form.js';

const at = (id) => document.getElementById(id);

function part(tag, text) {
  const element = document.createElement(tag);
  element.textContent = text;
  return element;
}

/** Enables the button when there is something to explain. */
export function refreshExplanation() {
  at('explain').disabled = !protocol.calculated();
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
  // Words that don't fit are left out: the sentence below has them all.
  for (const share of at('shares').children) {
    if (share.scrollWidth > share.clientWidth) share.textContent = '';
  }
}

let shownForm = null;

function choice(form, chosen) {
  const radio = document.createElement('input');
  radio.type = 'radio';
  radio.name = 'figure';
  radio.checked = chosen;
  radio.autofocus = chosen;
  const tell = () => {
    shownForm = form;
    at('explanation-said').textContent = '';
    at('explanation-text').replaceChildren(...formOf(form, { spoken: true }));
    at('explanation-text').scrollTop = 0;
  };
  radio.addEventListener('change', () => {
    tell();
    at('explanation-text').querySelector('.form-line')?.scrollIntoView({ block: 'nearest' }); // on a small screen it may be below
  });
  if (chosen) tell();
  const label = document.createElement('label');
  label.append(radio, part('span', form.title), part('span', form.figure));
  return label;
}

/** Opens the window at the figure of a row of the results. */
function show(row) {
  const explained = protocol.explained();
  if (explained === null) return;
  const { shares, sentence, heading, forms } = explained;
  const entries = heading.map(([title, entry]) => `${title}: ${entry}`).join('; ');
  at('explanation-heading').textContent = entries;
  at('shares-sentence').textContent = sentence;
  at('figures').replaceChildren(...forms.map((form, i) => choice(form, i === row)));
  at('explanation-paper').replaceChildren(part('h2', at('explanation-title').textContent), part('p', entries), part('p', sentence),
    ...forms.flatMap((form) => formOf(form)));
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
  at('explanation-copy').hidden = !navigator.clipboard; // browsers have it on https and on localhost
  at('explanation-copy').addEventListener('click', async () => {
    const said = at('explanation-said');
    said.textContent = '';
    try {
      await navigator.clipboard.writeText(textOf(shownForm));
      said.textContent = 'Copied';
    } catch {
      said.textContent = "The browser doesn't allow to copy";
    }
  });
  bindForm(at('explanation-text'));
  at('explanation-print').addEventListener('click', () => print(at('explanation-paper')));
}
