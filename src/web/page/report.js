// The kind `engine`: the report as a sheet of Letter paper, zoomed on the screen, and on paper.

import { tell } from './protocol.js';

function part(tag, className, text) {
  const element = document.createElement(tag);
  element.className = className;
  element.textContent = text;
  return element;
}

function tableOf({ cells, columns, kinds }) {
  const table = document.createElement('table');
  cells.forEach((texts, number) => {
    const row = table.insertRow();
    row.dataset.row = kinds[number];
    texts.forEach((text, i) => {
      const cell = document.createElement(kinds[number] === 'heading' ? 'th' : 'td');
      if (kinds[number] === 'heading') cell.scope = 'col';
      cell.textContent = text;
      cell.style.width = `${columns[i].width / 1440}in`;
      cell.style.textAlign = columns[i].align;
      row.append(cell);
    });
  });
  return table;
}

const full = 816; // pixels of a sheet's width at 100 percent

/** Sets the zoom so that the sheet is as wide as the preview. */
export function fit(preview) {
  const { paddingLeft, paddingRight } = getComputedStyle(preview);
  const room = preview.clientWidth - parseFloat(paddingLeft) - parseFloat(paddingRight);
  const [least, most] = [10, 400];
  tell('pick', 'frmPrint.udZoom', Math.min(most, Math.max(least, Math.floor((100 * room) / full))));
}

export const report = {
  properties: ['header', 'footer', 'columns', 'cells', 'kinds', 'zoom', 'pages'],
  show(element, { header, footer, zoom, pages, ...table }) {
    element.replaceChildren();
    if (pages === 0) return;
    const sheet = part('div', 'letter', '');
    sheet.style.zoom = zoom / 100;
    sheet.append(part('p', 'report-header', header), tableOf(table), part('p', 'report-footer', footer));
    element.append(sheet);
  },
};
