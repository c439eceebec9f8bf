// Lines above the screens: the browser stores nothing, or has a new version.

const at = (id) => document.getElementById(id);

/** The storage, with a line that is shown while nothing can be saved. */
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

/** Shows a line when a new version waits. It replaces the old version when the user loads it. */
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
