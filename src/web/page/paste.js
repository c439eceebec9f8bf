// Text pasted or dropped into a box: the first line, or the first cell of a spreadsheet selection, of limited length.

/** The greatest length of a box, the same as on the desktop. */
export const most = 32767;

const blanks = /[\u00a0\u2000-\u200b\u202f\u205f\u3000\ufeff]/g;

/** The text to insert for a pasted one. Surrounding blanks are removed only where it replaces the whole text. */
export function cleaned(text, { isAmount, replacesAll }) {
  let result = text.slice(0, most).split(/[\t\r\n\u2028\u2029]/, 1)[0];
  if (isAmount) result = result.replace(blanks, ' ').replaceAll('\u2212', '-');
  return replacesAll ? result.trim() : result;
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
