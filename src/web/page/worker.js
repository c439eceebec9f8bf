// Keeps the whole page, so that it works without any network after its first load. The build puts the list of its files
// and their version above these lines. A new version waits until the old one is open nowhere: the two are never mixed.

const prefix = 'tallyfin99-';
const kept = () => caches.open(prefix + version);

self.addEventListener('install', (event) => {
  const anew = ['./', ...files].map((file) => new Request(file, { cache: 'reload' }));
  event.waitUntil(kept().then((cache) => cache.addAll(anew)));
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
