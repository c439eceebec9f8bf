// Each open screen and window is an entry of the browser's history, so that Back closes the one in front.

let depthOf;
let closeFront;
let travelling = false;

const depth = () => history.state?.open ?? 0;

/** Adds or removes history entries until there is one for each open screen and window. */
export function followHistory() {
  if (travelling) return;
  const wanted = depthOf();
  for (let at = depth(); at < wanted; ++at) history.pushState({ open: at + 1 }, '');
  if (depth() > wanted) {
    travelling = true;
    history.go(wanted - depth());
  }
}

/** `countOpen` returns the number of screens and windows that Back can close, `close` closes the one in front. */
export function bindHistory(countOpen, close) {
  depthOf = countOpen;
  closeFront = close;
  history.replaceState({ open: 0 }, '');
  window.addEventListener('popstate', () => {
    if (!travelling) {
      for (let excess = depthOf() - depth(); excess > 0; --excess) closeFront();
    }
    travelling = false;
    followHistory();
  });
}
