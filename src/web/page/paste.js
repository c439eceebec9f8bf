// Text pasted or dropped into a box: the first line, or the first cell of a spreadsheet selection, of limited length.

/** The greatest length of a box, the same as on the desktop. */
export const most = 32767;

// The desktop has the same lists (src/controls/pasted.cpp); tests/controls/data/pasted.json is held against both.
const ends = /[\t\r\n\u2028\u2029]/;
const blank = /[ \v\f\u00a0\u1680\u2000-\u200b\u202f\u205f\u3000\ufeff]/;
const blanks = new RegExp(blank, 'g');

/** Without the blanks around it. */
function trimmed(text) {
  let start = 0;
  let end = text.length;
  while (start < end && blank.test(text[start])) start += 1;
  while (end > start && blank.test(text[end - 1])) end -= 1;
  return text.slice(start, end);
}

/** The text to insert for a pasted one. Surrounding blanks are removed only where it replaces the whole text. */
export function cleaned(text, { isAmount, replacesAll }) {
  let result = text.slice(0, most).split(ends, 1)[0];
  if (isAmount) result = result.replace(blanks, ' ').replaceAll('\u2212', '-');
  return replacesAll ? trimmed(result) : result;
}

export function bindPasting(root) {
  for (const box of root.querySelectorAll('input[type=text]')) box.maxLength = most;
  root.addEventListener('beforeinput', (event) => {
    const box = event.target;
    if (box.type !== 'text' || !['insertFromPaste', 'insertFromDrop'].includes(event.inputType)) return;
    const text = event.data ?? event.dataTransfer?.getData('text/plain') ?? '';
    const replacesAll = box.selectionStart === 0 && box.selectionEnd === box.value.length;
    const wanted = cleaned(text, { isAmount: box.classList.contains('amount'), replacesAll });
    if (wanted === text) return;
    event.preventDefault();
    document.execCommand('insertText', false, wanted); // can be undone, unlike a value that is set
  });
}
