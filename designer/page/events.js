// What the server tells its pages. A browser has six connections to a server, so one window listens for all of them, and
// another goes on when it is closed.
const names = ['changed', 'desktop', 'feeds', 'keeping', 'error'];

// An EventTarget for `names`, each with the server's text as `data`.
export function serverEvents() {
  const heard = new EventTarget();
  const windows = new BroadcastChannel('orvel-events');
  const hear = ({ name, data }) => heard.dispatchEvent(new MessageEvent(name, { data }));
  windows.addEventListener('message', ({ data }) => hear(data));
  navigator.locks.request('orvel-events', () => new Promise(() => {
    const server = new EventSource('api/events');
    for (const name of names) {
      server.addEventListener(name, ({ data }) => {
        hear({ name, data });
        windows.postMessage({ name, data });
      });
    }
  }));
  return heard;
}
