// The page: one design that is edited, the others beside it, and the server that keeps all of them.
import { get, post, withScale } from './server.js';
import { serverEvents } from './events.js';
import { refreshCountdowns, setUpDesigns, showDesigns } from './designs.js';
import { setUpForm, showDraft } from './form.js';

const by = (id) => document.getElementById(id);
let state;
let waiting = new Map();  // typed, and not sent yet
let sending = null;       // the promise of what is under way
let newest = 0;           // the newest state that the server told of

function say(text) {
  by('status').textContent = text;
}

function notice(text, answers = []) {
  const element = document.createElement('p');
  element.append(text);
  for (const [name, act] of answers) {
    const button = document.createElement('button');
    button.type = 'button';
    button.textContent = name;
    button.addEventListener('click', act);
    element.append(' ', button);
  }
  by('notices').replaceChildren(element);
}

// The person's answer to a question: one of the given ones, the last of them when the question is closed.
function ask(question, answers) {
  return new Promise((resolve) => {
    by('ask-question').textContent = question;
    by('ask-answers').replaceChildren(...answers.map((name) => {
      const button = document.createElement('button');
      button.value = name;
      button.textContent = name;
      return button;
    }));
    by('ask').returnValue = answers.at(-1);
    by('ask').addEventListener('close', () => resolve(by('ask').returnValue), { once: true });
    by('ask').showModal();
  });
}

function showConflict({ conflict }) {
  if (conflict === '') return by('notices').replaceChildren();
  const what = conflict === 'changed' ? 'Another program has changed this design' : 'Another program has removed this design';
  notice(`${what} since you began.`, [
    ['Keep mine', () => run('/api/keep-mine')],
    ['Take theirs', () => run('/api/take-theirs')],
  ]);
}

function showPictures() {
  for (const family of ['small', 'medium']) {
    if (!state[family]) continue;
    by(family).src = `data:image/png;base64,${state[family]}`;
    by(family).alt = state.draft.words;
  }
  by('words').textContent = state.draft.words.replaceAll('\n', ', ');
}

function show(next, answered) {
  if (state && next.stamp < state.stamp) return;
  const isSame = state?.draft.revision === next.draft.revision;
  state = next;
  const { draft } = state;
  showPictures();
  if (answered || !isSame) showDraft(draft, answered, state.refusals);
  showDesigns(state.designs, draft.isNew ? undefined : draft.record.id);
  showConflict(draft);
  by('edit-heading').textContent = draft.isNew ? 'New design' : 'Edit';
  by('none-stored').hidden = state.designs.length > 0 || state.trouble !== '';
  by('order').hidden = state.designs.length < 2;
  by('trouble').hidden = state.trouble === '';
  by('trouble').textContent = state.trouble;
  by('save').disabled = !draft.isUnsaved;
  by('front-choice').hidden = draft.isNew || state.designs[0]?.id === draft.record.id;
  by('duplicate').disabled = draft.isNew;
  by('remove').disabled = draft.isNew && !draft.isUnsaved;
  by('undo').disabled = state.undo === '';
  by('undo').title = state.undo && `Takes back: ${state.undo}`;
  document.title = `${draft.isUnsaved ? '• ' : ''}${draft.record.title || 'New design'} – Orvel`;
}

async function refresh() {
  show(await get(withScale('/api/state')));
}

function fail(error) {
  if (error.status) notice(error.message);
  else notice('The designer has ended. Call orvel design for a new page; what you typed until then is kept.');
}

async function sendWaiting() {
  while (waiting.size > 0) {
    const fields = Object.fromEntries(waiting);
    waiting = new Map();
    try {
      show(await post('/api/type', { revision: state.draft.revision, fields }), Object.keys(fields));
      say(state.draft.isUnsaved ? 'Kept, not saved yet' : '');
    } catch (error) {
      if (error.field !== 'revision') return fail(error);
      const mine = 'Keep what I typed';
      const others = await get(withScale('/api/state'));
      if (await ask('Another window has changed this design meanwhile.', [mine, 'Take the other']) === mine) {
        state = others;
        waiting = new Map([...Object.entries(fields), ...waiting]);
      } else {
        waiting.clear();
        show(others);
      }
    }
  }
}

async function exclusively(work) {
  while (sending) await sending;
  sending = work().catch(fail).finally(() => { sending = null; });
  await sending;
  if (!sending && waiting.size > 0) return exclusively(sendWaiting);
  if (!sending && newest > state.stamp) refresh().catch(fail);
}

function typed(field, value) {
  waiting.set(field, value);
  if (!sending) exclusively(sendWaiting);
}

async function request(path, body) {
  try {
    show(await post(path, body));
    return true;
  } catch (error) {
    if (error.field === 'conflict') await refresh();
    if (error.field !== 'unsaved') throw error;
  }
  const answer = await ask('What you typed isn’t saved yet.', ['Save', 'Discard', 'Keep editing']);
  if (answer === 'Keep editing') return false;
  if (answer === 'Save') show(await post('/api/save', {}));
  show(await post(path, { ...body, discards: true }));
  return true;
}

// An operation, after all that was typed has arrived.
function run(path, body = {}, done = '') {
  return exclusively(async () => {
    await sendWaiting();
    by('notices').replaceChildren();
    const { id } = state.draft.record;
    if (await request(path, body)) say(done);
    // What was typed meanwhile was for the design that isn't shown any more.
    if (state.draft.record.id !== id) waiting.clear();
  });
}

async function remove() {
  const { draft } = state;
  const isLost = draft.isNew;
  if (isLost && await ask('This design isn’t stored; nothing brings it back.', ['Discard', 'Keep editing']) !== 'Discard') return;
  await run('/api/remove', {}, isLost ? 'Discarded' : 'Removed. Undo brings it back.');
}

function setUpButtons() {
  by('form').addEventListener('submit', (event) => {
    event.preventDefault();
    if (!by('save').disabled) run('/api/save', { inFront: by('front').checked && !by('front-choice').hidden }, 'Saved');
  });
  by('new').addEventListener('click', async () => {
    await run('/api/new');
    by('title').focus();
  });
  by('duplicate').addEventListener('click', () => run('/api/duplicate', {}, 'Duplicated. This is the copy.'));
  by('remove').addEventListener('click', remove);
  by('undo').addEventListener('click', () => run('/api/undo', {}, 'Taken back'));
  for (const radio of document.querySelectorAll('[name=wallpaper]'))
    radio.addEventListener('change', () => { by('wallpaper').className = radio.value; });
}

function followServer() {
  const events = serverEvents();
  events.addEventListener('changed', (event) => {
    newest = Number(event.data);
    if (!sending && newest > state.stamp) refresh().catch(fail);
  });
  events.addEventListener('keeping', (event) => {
    const { failure } = JSON.parse(event.data);
    if (failure) notice(`What you typed can’t be kept: ${failure}`);
    else showConflict(state.draft);
  });
  events.addEventListener('error', () => fail(new Error()));
}

function followClock() {
  setTimeout(() => {
    refreshCountdowns();
    if (state.draft.record.kind === 'countdown' && !sending) refresh().catch(fail);
    followClock();
  }, 60000 - (Date.now() % 60000) + 50);
}

async function followScale() {
  matchMedia(`(resolution: ${window.devicePixelRatio}dppx)`).addEventListener('change', () => {
    refresh().catch(fail);
    followScale();
  }, { once: true });
}

const wanted = new URLSearchParams(location.search).get('design');
// The secret isn't for the history, and a reload begins where this page is.
history.replaceState(null, '', '/');
setUpForm(typed, () => state.draft.record);
setUpDesigns((id) => run('/api/edit', { id }), (id, to) => run('/api/move', { id, to }, `Moved to position ${to + 1}`));
setUpButtons();
await refresh().catch(fail);
followServer();
followClock();
followScale();
if (wanted) run('/api/edit', { id: wanted });
