// Keeps the whole page, so that it works without any network after its first load. The build puts the list of its files,
// each with the hash of its bytes, and their version above these lines. A new version waits until the old one is open
// nowhere or the user loads it: the two are never mixed.

const prefix = 'tallyfin99-';
const kept = () => caches.open(prefix + version);

/** A file as it stands in the list. The page has just loaded most of them; what the browser still has of it is taken, if it
 * is this version's. */
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
