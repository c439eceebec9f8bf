// Compares what the elements show with the values of their controls, and finds elements that overlap or are cut off.

/** One line for each element of a shown screen that doesn't show the value of its control. */
export const differences = (page) =>
  page.evaluate(async () => {
    const { ask } = await import('./protocol.js');
    const rgb = (numbers) => `rgb(${numbers.split(',').join(', ')})`;
    const wrong = [];
    const shown = ask('screens')?.shown ?? [];
    const compare = (address, what, is, holds) => {
      if (JSON.stringify(is) !== JSON.stringify(holds)) wrong.push(`${address} ${what}: ${is} for ${holds}`);
    };
    const views = [...document.querySelectorAll('[data-screen]')].filter((view) => view.checkVisibility());
    const inFront = [...shown.filter((name) => document.querySelector(`dialog[data-screen="${name}"]`)),
      shown.find((name) => document.querySelector(`section[data-screen="${name}"]`))].filter(Boolean);
    compare('page', 'screens', views.map((view) => view.dataset.screen).sort(), inFront.sort());

    for (const view of views) {
      const name = view.dataset.screen;
      const title = view.querySelector(`[data-title="${name}"]`);
      if (title) compare(name, 'title', title.textContent, ask('get', name, 'title'));
      const ownColor = ask('get', name, 'backcolor');
      if (ownColor !== 'default') compare(name, 'background', getComputedStyle(view).backgroundColor, rgb(ownColor));
      const without = (ask('controls', name) ?? []).filter((address) => !view.querySelector(`[data-address="${address}"]`));
      compare(name, 'controls without an element that are seen', without.filter((address) => ask('get', address, 'visible') &&
        ask('get', address, 'caption') !== ''), []);
    }
    // The element with the focus has it in the program too.
    const focused = document.activeElement?.tabIndex < 0 ? undefined : document.activeElement?.dataset.address;
    if (focused && ask('running')) compare(focused, 'focused', true, ask('get', focused, 'focused'));

    const roots = [...views, document.getElementById('bar')];
    for (const element of roots.flatMap((root) => [...root.querySelectorAll('[data-address]')])) {
      const { address, kind } = element.dataset;
      const get = (property) => ask('get', address, property);
      if (get('visible') === undefined) {
        if (ask('running')) wrong.push(`${address}: no such control`);
        continue;
      }
      const option = element.closest('.option');
      const part = option ?? element.closest('.combo') ?? element;
      const outOfSight = kind === 'panel' && get('left') < 0;
      compare(address, 'visible', !part.hidden, get('visible') && !outOfSight);
      if ('disabled' in element) compare(address, 'enabled', !element.disabled, get('enabled'));
      compare(address, 'looks enabled', !part.classList.contains('off'), get('enabled'));
      const ownTooltip = element.type === 'text' && element.title === element.value && element.scrollWidth > element.clientWidth; // a long text's
      if (get('tooltip') !== '' && !ownTooltip) compare(address, 'tooltip', element.title.replace(/ \(F\d\)$/, ''), get('tooltip'));
      const caption = () => part.querySelector(':scope > [data-caption]')?.textContent ?? element.textContent;
      const kindless = kind === undefined;
      if (element.tagName === 'SELECT') {
        compare(address, 'index', element.selectedIndex, get('index'));
        compare(address, 'list', [...element.options].map((entry) => entry.text), get('list'));
      } else if (element.type === 'text') {
        compare(address, 'text', element.value, document.activeElement === element ? get('text') : get('shown') ?? get('text'));
      } else if (element.type === 'radio' || element.type === 'checkbox') {
        compare(address, 'value', element.checked, get('value'));
        if (option && !option.classList.contains('bare')) compare(address, 'caption', caption(), get('caption'));
      } else if (kind === 'dropdown') {
        compare(address, 'text', element.textContent, get('text'));
      } else if (kind === 'updown') {
        compare(address, 'value', Number(element.value), get('value'));
      } else if (kind === 'grid') {
        compare(address, 'cells', [...element.tBodies[0].rows].map((row) => [...row.cells].map((c) => c.textContent)), get('cells'));
      } else if (kind === 'engine') {
        compare(address, 'cells', [...element.querySelectorAll('tr')].map((row) => [...row.cells].map((c) => c.textContent)), get('cells'));
      } else if (kind === 'item') {
        compare(address, 'caption', caption(), get('caption'));
        compare(address, 'highlighted', element.classList.contains('highlighted'), get('highlighted'));
      } else if (kindless && !element.querySelector('img')) {
        compare(address, 'caption', caption(), get('caption'));
      }
      const open = element.role === 'combobox' && part.querySelector('[role=listbox]');
      if (open) compare(address, 'entries', [...open.children].map((entry) => entry.textContent), get('list'));
      if (kind === 'panel' && part.querySelector(':scope > [data-caption]')) compare(address, 'caption', caption(), get('caption'));
      if (kind === 'calendar') {
        // The control has a date only; the shown month is a state of the page.
        const month = new Date(`${get('date')}T12:00`).toLocaleDateString('en-US', { month: 'long', year: 'numeric' });
        const here = element.querySelector('caption').textContent === month;
        compare(address, 'date', element.querySelector('[aria-current=date]')?.textContent, here ? String(Number(get('date').slice(-2))) : undefined);
      }
      const [ink, ground] = [get('forecolor'), get('backcolor')];
      if (ink !== 'default' && get('enabled')) compare(address, 'colour', getComputedStyle(part).color, rgb(ink));
      if (ground !== 'default') compare(address, 'ground', getComputedStyle(element).backgroundColor, rgb(ground));
    }
    return wrong;
  });

/** Visible elements that overlap, or whose text or box is cut off. */
export const crowded = (page) =>
  page.evaluate(() => {
    const root = [...document.querySelectorAll('dialog[open]')].at(-1) ?? document.querySelector('section[data-screen]:not([hidden])');
    const inside = [...root.querySelectorAll('label, button, input, select, output, p, td, [data-address]')].filter((element) =>
      element.checkVisibility({ visibilityProperty: true }) && !element.closest('.unseen, .title') && element.getClientRects().length > 0 && getComputedStyle(element).opacity !== '0');
    const name = (element) => element.dataset.address ?? (element.id || `${element.tagName} ${element.textContent.slice(0, 30)}`);
    const found = inside.filter((element) => element.scrollWidth > element.clientWidth + 1 && element.clientWidth > 0 &&
      !['INPUT', 'SELECT'].includes(element.tagName) && !['auto', 'scroll'].includes(getComputedStyle(element).overflowX)).map((element) => `${name(element)} is too narrow`);
    inside.forEach((one, i) => inside.slice(i + 1).forEach((other) => {
      if (one.contains(other) || other.contains(one)) return;
      const over = ([a, b]) => Math.min(a.right, b.right) - Math.max(a.left, b.left) > 2 && Math.min(a.bottom, b.bottom) - Math.max(a.top, b.top) > 2;
      const pairs = [...one.getClientRects()].flatMap((a) => [...other.getClientRects()].map((b) => [a, b]));
      if (pairs.some(over)) found.push(`${name(one)} and ${name(other)} overlap`);
    }));
    return found;
  });
