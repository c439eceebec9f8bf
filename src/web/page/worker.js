// Keeps the whole page, so that it works without any network after its first load. The build puts the list of its files
// and their version above these lines.

const cacheName = `tallyfin99-${version}`;

self.addEventListener('install', (event) => {
  event.waitUntil(caches.open(cacheName).then((cache) => cache.addAll(['./', ...files])));
  self.skipWaiting();
});

self.addEventListener('activate', (event) => {
  const old = (name) => name.startsWith('tallyfin99-') && name !== cacheName;
  event.waitUntil(
    caches.keys().then((names) => Promise.all(names.filter(old).map((name) => caches.delete(name)))),
  );
});

self.addEventListener('fetch', (event) => {
  event.respondWith(caches.match(event.request, { ignoreSearch: true }).then((kept) => kept ?? fetch(event.request)));
});
