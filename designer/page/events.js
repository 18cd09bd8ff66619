// What the server tells its pages. A browser has six connections to a server, so one window listens for all of them, and
// another goes on when it is closed.
import { post } from './server.js';

const names = ['changed', 'desktop', 'feeds', 'keeping', 'error'];

// The designer ends soon after its last window was closed, but not when a browser drops one that nobody has seen for
// long: it will be loaded again.
let isLeft = false;

function tellPresence() {
  if (!isLeft) post('/api/presence', { text: document.visibilityState === 'hidden' ? 'hidden' : 'shown' }).catch(() => {});
}

function followPresence() {
  document.addEventListener('visibilitychange', tellPresence);
  window.addEventListener('pagehide', () => {
    isLeft = true;  // what is left also becomes hidden
    navigator.sendBeacon('api/presence', new Blob(['{"text":"left"}'], { type: 'application/json' }));
  });
  // One that comes back from the browser's memory has heard nothing meanwhile.
  window.addEventListener('pageshow', ({ persisted }) => persisted && location.reload());
}

// An EventTarget for `names`, each with the server's text as `data`.
export function serverEvents() {
  const heard = new EventTarget();
  const windows = new BroadcastChannel('orvel-events');
  const hear = ({ name, data }) => heard.dispatchEvent(new MessageEvent(name, { data }));
  windows.addEventListener('message', ({ data }) => hear(data));
  followPresence();
  navigator.locks.request('orvel-events', () => new Promise(() => {
    const server = new EventSource('api/events');
    server.addEventListener('open', tellPresence);
    for (const name of names) {
      server.addEventListener(name, ({ data }) => {
        hear({ name, data });
        windows.postMessage({ name, data });
      });
    }
  }));
  return heard;
}
