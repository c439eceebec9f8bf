// The help viewer: topics of the two help files, with contents and links.

import { followHistory } from './history.js';

const at = (id) => document.getElementById(id);
const program = 'Tallyfin.hlp';
const form = 'W4.hlp';
const books = new Map();
const past = [];
let here = null;

/** The topics of a help file: each is a heading with an id and the elements after it. */
async function book(file) {
  if (books.has(file)) return books.get(file);
  const response = await fetch(`help/${file}`);
  if (!response.ok) throw new Error(`${file}: ${response.status}`);
  const text = await response.text();
  const source = new DOMParser().parseFromString(text, 'text/html');
  const topics = new Map();
  let topic = null;
  for (const node of [...source.body.childNodes]) {
    if (node.nodeName === 'H1') {
      topic = { title: node.textContent, nodes: [] };
      topics.set(node.id, topic);
    }
    topic?.nodes.push(node);
  }
  books.set(file, topics);
  return topics;
}

/** Adapts the markup of a topic: heading levels, and attributes that the style sheet replaces. */
function shown(node) {
  const copy = document.importNode(node, true);
  if (copy.nodeType !== Node.ELEMENT_NODE) return copy;
  for (const table of [copy, ...copy.querySelectorAll('*')]) {
    for (const name of ['border', 'cellpadding', 'cellspacing', 'style']) table.removeAttribute(name);
  }
  if (!/^H[12]$/.test(copy.nodeName)) return copy;
  const heading = document.createElement(copy.nodeName === 'H1' ? 'h3' : 'h4');
  heading.append(...copy.childNodes);
  return heading;
}

async function show(file, id) {
  let topics;
  try {
    topics = await book(file);
  } catch {
    return offerAgain(file, id);
  }
  const topic = topics.get(id) ?? [...topics.values()][0];
  here = { file, id };
  at('help-topic').replaceChildren(...topic.nodes.map(shown));
  at('help-topic').scrollTop = 0;
  at('help-contents').replaceChildren(
    ...[...topics].map(([key, { title }]) => {
      const link = document.createElement('a');
      link.href = `#${key}`;
      link.textContent = title;
      if (key === id) link.setAttribute('aria-current', 'page');
      return link;
    }),
  );
  at('erase-row').hidden = !(file === program && (id === 'frmName' || id === 'privacy'));
  at('help-back').disabled = past.length === 0;
  const heading = at('help-topic').querySelector('h3');
  heading.tabIndex = -1;
  heading.focus();
}

/** Shows that the help file can't be loaded. */
function offerAgain(file, id) {
  const words = document.createElement('p');
  words.textContent = "The help can't be loaded.";
  const again = document.createElement('button');
  again.type = 'button';
  again.textContent = 'Try again';
  again.addEventListener('click', () => show(file, id));
  at('help-topic').replaceChildren(words, again);
  again.focus();
}

/** Opens a help file at a topic. */
export async function openHelp(file, id) {
  past.length = 0;
  if (!at('help').open) {
    at('help').showModal();
    followHistory();
  }
  await show(file, id);
}

/** Opens the help file that has the topic, at the topic. */
export async function openHelpOn(id) {
  const found = await Promise.all([program, form].map((file) => book(file).then((topics) => topics.has(id), () => false)));
  return found[1] ? openHelp(form, id) : openHelp(program, found[0] ? id : 'index');
}

export function prepareHelp() {
  at('help').addEventListener('click', (event) => {
    const link = event.target.closest('a');
    if (!link) return;
    event.preventDefault();
    const [file, id] = link.getAttribute('href').split('#');
    past.push(here);
    show(file || here.file, id);
  });
  at('help-back').addEventListener('click', () => {
    const { file, id } = past.pop();
    show(file, id);
  });
}
