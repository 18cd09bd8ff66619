// Requests to the designer's own server. A refusal is thrown as an Error with `status` and `field`.

const scale = () => Math.min(8, Math.max(1, window.devicePixelRatio || 1));

async function answer(response) {
  const body = await response.json();
  if (response.ok) return body;
  throw Object.assign(new Error(body.reason), { status: response.status, field: body.field || '' });
}

export const withScale = (path) => `${path}${path.includes('?') ? '&' : '?'}scale=${scale()}`;

export async function get(path) {
  return answer(await fetch(path));
}

export async function post(path, body = {}) {
  return answer(await fetch(withScale(path), {
    method: 'POST',
    headers: { 'Content-Type': 'application/json' },
    body: JSON.stringify(body),
  }));
}
