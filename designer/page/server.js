// Requests to the designer's own server. A refusal is thrown as an Error with `status` and `field`.

const scale = () => Math.min(8, Math.max(1, window.devicePixelRatio || 1));

async function answer(response) {
  const body = await response.json();
  if (response.ok) return body;
  throw Object.assign(new Error(body.reason), { status: response.status, field: body.field || '' });
}

// The page lies in a folder whose name is a secret, and so does all that it asks for.
const below = (path) => path.replace(/^\//, '');

export const withScale = (path) => `${below(path)}${path.includes('?') ? '&' : '?'}scale=${scale()}`;

export async function get(path) {
  return answer(await fetch(below(path)));
}

export async function post(path, body = {}) {
  return answer(await fetch(withScale(path), {
    method: 'POST',
    headers: { 'Content-Type': 'application/json' },
    body: JSON.stringify(body),
  }));
}
