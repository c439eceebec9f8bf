// The settings in the browser's own storage, one item for each key: "Tallyfin99/Settings/IncAmt".

const application = 'Tallyfin99/';

function items() {
  try {
    return Object.keys(localStorage).filter((name) => name.startsWith(application));
  } catch {
    return []; // the storage is forbidden
  }
}

/** Hands over every stored text. */
export function readAll(take) {
  for (const name of items()) {
    const [, section, key] = name.match(/^[^/]*\/([^/]*)\/(.*)$/s) ?? [];
    if (section !== undefined) take(section, key, localStorage.getItem(name));
  }
}

/** Stores a text, or takes the key away where there is none. A storage that is full or forbidden keeps what it has. */
export function keep(section, key, text) {
  try {
    const name = `${application}${section}/${key}`;
    if (text === null) localStorage.removeItem(name);
    else localStorage.setItem(name, text);
  } catch {
    // A statement that fails is skipped; the text counts for this run.
  }
}

export function eraseAll() {
  for (const name of items()) localStorage.removeItem(name);
}
