// Lines above the screens for what the browser does: it stores nothing, or holds a new version.

const at = (id) => document.getElementById(id);

/** The storage, watched: while nothing can be saved, a line says so. */
export const watched = (storage) => ({
  ...storage,
  write(...texts) {
    let stored = false;
    try {
      const result = storage.write(...texts);
      stored = true;
      return result;
    } finally {
      at('unstored').hidden = stored;
    }
  },
});

/** Says when a new version waits; it takes the old one's place when the user loads it. */
function watchVersions(registration) {
  const waits = () => {
    if (registration.waiting && navigator.serviceWorker.controller) at('newer').hidden = false;
  };
  waits();
  registration.addEventListener('updatefound', () => registration.installing?.addEventListener('statechange', waits));
  at('load-newer').addEventListener('click', () => {
    navigator.serviceWorker.addEventListener('controllerchange', () => location.reload());
    if (registration.waiting) registration.waiting.postMessage('take over');
    else location.reload();
  });
  // Another tab may have loaded it.
  navigator.serviceWorker.addEventListener('controllerchange', () => { at('newer').hidden = false; });
}

/** Without a worker the page still works, over the network. */
export async function startWorker() {
  const controlled = Boolean(navigator.serviceWorker?.controller);
  try {
    const registration = await navigator.serviceWorker?.register('worker.js');
    if (registration && controlled) watchVersions(registration);
  } catch {
    // It may be forbidden.
  }
}
