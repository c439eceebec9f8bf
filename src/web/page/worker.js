// The service worker: keeps all files, so that the web app works without a network after its first load. The build writes the
// list of files with their hashes, and the version, above these lines. A new version waits until the old one is open in no
// tab, or the user loads it: files of two versions are never mixed.

const prefix = 'tallyfin99-';
const kept = () => caches.open(prefix + version);

/** Loads a file of the list. The browser's cache has most of them; a cached file is used if its hash is that of the list. */
async function right(file, integrity) {
  try {
    return await fetch(file, { cache: 'force-cache', integrity });
  } catch {
    return fetch(file, { cache: 'reload', integrity });
  }
}

async function keep(cache, [file, integrity]) {
  const response = await right(file === './index.html' ? './' : file, integrity);
  if (!response.ok) throw new Error(`${file}: ${response.status}`);
  if (file === './index.html') await cache.put('./', response.clone());
  await cache.put(file, response);
}

self.addEventListener('install', (event) => {
  event.waitUntil(kept().then((cache) => Promise.all(Object.entries(files).map((entry) => keep(cache, entry)))));
});

self.addEventListener('message', ({ data }) => {
  if (data === 'take over') self.skipWaiting();
});

self.addEventListener('activate', (event) => {
  const old = (name) => name.startsWith(prefix) && name !== prefix + version;
  event.waitUntil(
    caches.keys().then((names) => Promise.all(names.filter(old).map((name) => caches.delete(name)))),
  );
});

self.addEventListener('fetch', (event) => {
  const find = async () => (await (await kept()).match(event.request, { ignoreSearch: true })) ?? fetch(event.request);
  event.respondWith(find());
});
