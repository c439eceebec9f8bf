// The settings in the browser's local storage, one item for each key: "Tallyfin99/Settings/IncAmt". Each function returns a
// list of texts, and throws where the storage is full or forbidden.

const application = 'Tallyfin99/';
const nameOf = (section, key) => `${application}${section}/${key}`;

/** The stored text, or nothing. */
export function read(section, key) {
  const text = localStorage.getItem(nameOf(section, key));
  return text === null ? [] : [text];
}

export function write(section, key, text) {
  localStorage.setItem(nameOf(section, key), text);
  return [];
}

export function erase(section, key) {
  localStorage.removeItem(nameOf(section, key));
  return [];
}

/** Section, key and text of each item, alternating. */
export function all() {
  return Object.keys(localStorage).flatMap((name) => {
    const [, section, key] = name.startsWith(application) ? name.match(/^[^/]*\/([^/]*)\/(.*)$/s) ?? [] : [];
    return section === undefined ? [] : [section, key, localStorage.getItem(name)];
  });
}
