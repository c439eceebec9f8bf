// Starts a page, and shows errors: a file that can't be loaded, or a later failure. It is the only script that imports no
// other. Its element names the main module (data-main), and files that a worker of the page loads (data-files).

(() => {
  const { main, files: ofWorker = '' } = document.currentScript.dataset;
  const at = (id) => document.getElementById(id);

  function fail(words, offer, goOn) {
    for (const dialog of document.querySelectorAll('dialog[open]')) dialog.close();
    for (const part of [...document.querySelectorAll('#area > :not(#failure), #bar, #menu, .header-end')]) part.hidden = true;
    at('failure-words').textContent = words;
    at('failure-again').textContent = offer;
    at('failure-again').addEventListener('click', goOn);
    at('failure').hidden = false;
    at('failure-again').focus();
  }

  const nameOf = (address) => new URL(address).pathname.split('/').at(-1);

  /** The reason why a file can't be used; none where it can. */
  async function trouble(address) {
    try {
      const response = await fetch(address, { cache: 'reload' });
      const type = response.headers.get('content-type') ?? '';
      if (!response.ok) return `${nameOf(address)} (${response.status})`;
      if (address.endsWith('.js') && !type.includes('javascript')) return `${nameOf(address)} (it came as ${type || 'no type'})`;
      return type.includes('html') ? `${nameOf(address)} (it came as ${type})` : '';
    } catch {
      return `${nameOf(address)} (no answer)`;
    }
  }

  async function sayWhatIsMissing(error) {
    const links = [...document.querySelectorAll('link[rel=modulepreload], link[rel=preload]')].map((link) => link.href);
    const files = ofWorker.split(' ').filter(Boolean).map((name) => new URL(name, document.baseURI).href);
    const troubles = (await Promise.all([...links, ...files].map(trouble))).filter((one) => one !== '');
    const what = troubles.length > 0 ? troubles.join(', ') : String(error);
    fail(`Tallyfin 99 can't be loaded: ${what}.`, 'Try again', tryAgain);
  }

  /** Removes the files kept for use without a network, which may be the cause. */
  async function tryAgain() {
    try {
      const own = (await caches.keys()).filter((name) => name.startsWith('tallyfin99-'));
      await Promise.all(own.map((name) => caches.delete(name)));
      await (await navigator.serviceWorker?.getRegistration())?.unregister();
    } finally {
      location.reload();
    }
  }

  let ended = false;
  function stop(error) {
    if (ended) return;
    ended = true;
    console.error(error);
    fail('Tallyfin 99 has stopped. Everything that was stored is kept.', 'Load again', () => location.reload());
  }

  window.addEventListener('error', ({ error, filename }) => {
    if (document.body.dataset.ready !== undefined && filename.startsWith(location.origin)) stop(error);
  });
  window.addEventListener('unhandledrejection', ({ reason }) => {
    if (document.body.dataset.ready !== undefined) stop(reason);
  });

  at('unstarted').remove();
  at('loading').hidden = false;
  import(main).catch(sayWhatIsMissing);
})();
