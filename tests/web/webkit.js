// WebKit behind the few calls of the driver of the other browsers that the tests of the sample paycheck and the walk need:
// WebKitWebDriver drives MiniBrowser by the classic WebDriver protocol, on a virtual display of its own.

import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { createServer } from 'node:net';

const keys = {
  Tab: '\uE004', Enter: '\uE007', Backspace: '\uE003', Escape: '\uE00C', Shift: '\uE008', ArrowUp: '\uE013', ArrowDown: '\uE015', F1: '\uE031',
};
const browserProgram = process.env.WEBKIT ?? '/usr/lib/x86_64-linux-gnu/webkit2gtk-4.1/MiniBrowser';

async function freePort() {
  const server = createServer().listen(0, '127.0.0.1');
  await once(server, 'listening');
  const { port } = server.address();
  server.close();
  await once(server, 'close');
  return port;
}

/** A virtual display: its name, and the process. */
async function display() {
  const process = spawn('Xvfb', ['-displayfd', '3', '-screen', '0', '1400x1100x24', '-nolisten', 'tcp'], { stdio: ['ignore', 'ignore', 'ignore', 'pipe'] });
  const [number] = await once(process.stdio[3], 'data');
  return { name: `:${String(number).trim()}`, process };
}

/** Answers commands of the protocol: send('POST', '/session', {...}). */
function sender(port) {
  return async (method, path, body) => {
    const answer = await fetch(`http://127.0.0.1:${port}${path}`, { method, body: body && JSON.stringify(body) });
    const { value } = await answer.json();
    if (!answer.ok) throw new Error(`${method} ${path}: ${value.error}: ${value.message}`);
    return value;
  };
}

async function ready(send) {
  for (;;) {
    const status = await send('GET', '/status').catch(() => undefined);
    if (status?.ready) return;
    await new Promise((done) => setTimeout(done, 50));
  }
}

/** Starts the browser. Each page is a session, and with it a browser, of its own. */
export async function browseWebkit() {
  const screen = await display();
  const port = await freePort();
  const driver = spawn('WebKitWebDriver', [`--port=${port}`, '--host=127.0.0.1'],
    { env: { ...process.env, DISPLAY: screen.name, GDK_BACKEND: 'x11', LIBGL_ALWAYS_SOFTWARE: '1' }, stdio: 'ignore' });
  const send = sender(port);
  await ready(send);
  const open = new Set();
  const newPage = async () => {
    const options = { binary: browserProgram, args: ['--automation'] };
    const { sessionId } = await send('POST', '/session', { capabilities: { alwaysMatch: { 'webkitgtk:browserOptions': options } } });
    const end = () => open.delete(end) && send('DELETE', `/session/${sessionId}`);
    open.add(end);
    return pageOf((method, path, body) => send(method, `/session/${sessionId}${path}`, body), end);
  };
  return {
    newPage,
    createBrowserContext: async () => {
      const pages = [];
      return { newPage: async () => { pages.push(await newPage()); return pages.at(-1); }, close: () => Promise.all(pages.map((page) => page.close())) };
    },
    close: async () => {
      await Promise.all([...open].map((end) => end()));
      driver.kill();
      screen.process.kill();
    },
  };
}

/** The acts of a pointer and of a keyboard. */
const pointer = (actions) => ({ actions: [{ type: 'pointer', id: 'mouse', parameters: { pointerType: 'mouse' }, actions }] });
const typed = (actions) => ({ actions: [{ type: 'key', id: 'keyboard', actions }] });
const stroke = (key) => [{ type: 'keyDown', value: key }, { type: 'keyUp', value: key }];
const clicks = (where, count) => pointer([{ type: 'pointerMove', duration: 0, ...where },
  ...Array.from({ length: count }, () => [{ type: 'pointerDown', button: 0 }, { type: 'pointerUp', button: 0 }]).flat()]);

function pageOf(send, close) {
  const page = { troubles: [], on: () => page, close, bringToFront: async () => {} };
  /** Runs an expression in the page; what went wrong there since is kept in `troubles`. */
  const answerOf = async (expression, args = []) => {
    const script = `return Promise.resolve(${expression}).then((value) => ({ value, troubles: window.troubles?.splice(0) ?? [] }));`;
    const { value, troubles } = await send('POST', '/execute/sync', { script, args: args.map((one) => one?.element ?? one) });
    page.troubles.push(...troubles);
    return value;
  };
  const run = (work, ...args) => answerOf(typeof work === 'function' ? `(${work})(...arguments)` : `(() => { ${work} })()`, args);
  /** Scrolls an element into view; the middle of its first box. */
  const middleOf = (element) => run((node) => {
    node.scrollIntoView({ block: 'center', inline: 'nearest' });
    const { left, top, width, height } = node.getClientRects()[0];
    return { origin: 'viewport', x: Math.round(left + width / 2), y: Math.round(top + height / 2) };
  }, element);
  const handleOf = (element) => ({
    element,
    evaluate: (work, ...args) => run(work, element, ...args),
    click: async ({ count = 1 } = {}) => send('POST', '/actions', clicks(await middleOf(element), count)),
    hover: async () => send('POST', '/actions', clicks(await middleOf(element), 0)),
    dispose: async () => {},
  });
  page.evaluate = run;
  page.evaluateHandle = async (...work) => handleOf(await run(...work));
  page.$ = async (selector) => handleOf(await send('POST', '/element', { using: 'css selector', value: selector }));
  page.$eval = async (selector, work, ...args) => (await page.$(selector)).evaluate(work, ...args);
  page.$$eval = (selector, work) => answerOf(`(${work})([...document.querySelectorAll(${JSON.stringify(selector)})])`);
  page.click = async (selector, options) => (await page.$(selector)).click(options);
  page.keyboard = {
    down: (key) => send('POST', '/actions', typed([{ type: 'keyDown', value: keys[key] ?? key }])),
    up: (key) => send('POST', '/actions', typed([{ type: 'keyUp', value: keys[key] ?? key }])),
    press: (key) => send('POST', '/actions', typed(stroke(keys[key] ?? key))),
    type: async (text) => { if (text) await send('POST', '/actions', typed([...text].flatMap(stroke))); },
  };
  page.mouse = { click: (x, y) => send('POST', '/actions', clicks({ origin: 'viewport', x: Math.round(x), y: Math.round(y) }, 1)) };
  page.setViewport = ({ width, height }) => send('POST', '/window/rect', { width, height: height + 100 }); // with the browser's own bar
  page.goto = async (url) => {
    await send('POST', '/url', { url });
    await run(() => {
      window.troubles = [];
      window.addEventListener('error', (event) => window.troubles.push(event.message));
      window.addEventListener('unhandledrejection', (event) => window.troubles.push(String(event.reason)));
    });
  };
  page.waitForSelector = async (selector) => {
    while (!(await run((what) => document.querySelector(what) !== null, selector))) await new Promise((done) => setTimeout(done, 50));
  };
  return page;
}
