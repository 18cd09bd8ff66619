// The page: one design that is edited, the others beside it, and the server that keeps all of them.
import { get, post, withScale } from './server.js';
import { serverEvents } from './events.js';
import { offerKinds } from './kinds.js';
import { refreshCountdowns, setUpDesigns, showDesigns } from './designs.js';
import { refreshFeeds, setUpFeeds } from './feed.js';
import { refuse, setUpForm, showDraft } from './form.js';
import { idsOnDesktop, refreshDesktop, setUpPlace } from './place.js';
import { setUpShare } from './share.js';
import { ask, explained, hush, notice, say } from './talk.js';
import { fillIn, inLanguage, loadWords, offerLanguages, t } from './words.js';

const by = (id) => document.getElementById(id);
const opening = new Set(['/api/new', '/api/edit', '/api/duplicate', '/api/remove', '/api/undo', '/api/take-theirs']);
let state;
let waiting = new Map();  // typed, and not sent yet
let sending = null;       // the promise of what is under way
let newest = 0;           // the newest state that the server told of

function showConflict({ conflict }) {
  if (conflict === '') return hush('questions');
  notice(t(conflict === 'changed' ? 'changedElsewhere' : 'removedElsewhere'), [
    [t('keepMine'), () => run('/api/keep-mine')],
    [t('takeTheirs'), () => run('/api/take-theirs')],
  ]);
}

function showStored() {
  showDesigns(state.designs, state.draft.isNew ? undefined : state.draft.record.id);
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
  const isSameDesign = state && state.draft.record.id === next.draft.record.id && state.draft.isNew === next.draft.isNew;
  state = next;
  const { draft } = state;
  showPictures();
  if (answered || !isSame) showDraft(draft, answered, state.refusals);
  if (!isSameDesign) refreshFeeds();
  showStored();
  showConflict(draft);
  by('edit-heading').textContent = t(draft.isNew ? 'newDesign' : 'edit');
  by('none-stored').hidden = state.designs.length > 0 || state.trouble !== '';
  by('order').hidden = state.designs.length < 2;
  by('trouble').hidden = state.trouble === '';
  by('trouble').textContent = state.trouble;
  by('save').disabled = !draft.isUnsaved;
  by('front-choice').hidden = draft.isNew || state.designs[0]?.id === draft.record.id;
  by('to-front').hidden = draft.isNew || state.designs[0]?.id === draft.record.id;
  by('duplicate').disabled = draft.isNew;
  by('remove').disabled = draft.isNew && !draft.isUnsaved;
  by('undo').disabled = state.undo === '';
  by('undo').title = state.undo && t('takeBack', { what: state.undo });
  document.title = `${draft.isUnsaved ? '• ' : ''}${draft.record.title || t('newDesign')} – Orvel`;
}

// What is being typed stays as it stands, when something else of the same design changes.
async function refresh() {
  const next = await get(withScale('/api/state'));
  const isSameDesign = next.draft.record.id === state?.draft.record.id;
  show(next, isSameDesign && next.draft.revision !== state.draft.revision ? [] : undefined);
}

function fail(error) {
  notice(explained(error));
}

async function sendWaiting() {
  while (waiting.size > 0) {
    const fields = Object.fromEntries(waiting);
    waiting = new Map();
    try {
      show(await post('/api/type', { revision: state.draft.revision, fields }), Object.keys(fields));
      hush('failures');
      say(state.draft.isUnsaved ? t('keptNotSaved') : '');
    } catch (error) {
      if (error.status === 413) refuse(Object.keys(fields), explained(error));
      if (error.field !== 'revision') return fail(error);
      const mine = t('keepTyped');
      const others = await get(withScale('/api/state'));
      if (await ask(t('anotherWindow'), [mine, t('takeOther')]) === mine) {
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
    if (error.field === 'conflict') {  // the page asks about it
      await refresh();
      return false;
    }
    if (error.field !== 'unsaved') throw error;
  }
  const answer = await ask(t('unsaved'), [t('save'), t('discard'), t('keepEditing')]);
  if (answer === t('keepEditing')) return false;
  if (answer === t('save')) show(await post('/api/save', {}));
  show(await post(path, { ...body, discards: true }));
  return true;
}

// An operation, after all that was typed has arrived.
function run(path, body = {}, done = '') {
  by('fields').disabled = opening.has(path);
  return exclusively(async () => {
    await sendWaiting();
    hush();
    const { id } = state.draft.record;
    try {
      if (await request(path, body)) say(done);
    } finally {
      by('fields').disabled = false;
    }
    // What was typed meanwhile was for the design that isn't shown any more.
    if (state.draft.record.id !== id) waiting.clear();
  });
}

// Begins with the design of a JSON text; why it can't, or whether it did.
async function take(text) {
  let answer;
  await exclusively(async () => {
    await sendWaiting();
    answer = await request('/api/paste', { text }).catch((error) => {
      if (!error.status) throw error;
      return explained(error);
    });
  });
  return answer;
}

async function remove() {
  const { draft } = state;
  const isLost = draft.isNew;
  if (isLost && await ask(t('unstored'), [t('discard'), t('keepEditing')]) !== t('discard')) return;
  await run('/api/remove', {}, t(isLost ? 'discarded' : 'removed'));
}

function save() {
  return run('/api/save', { inFront: by('front').checked && !by('front-choice').hidden }, t('saved'));
}

// The files of both pictures.
function makeDownloads() {
  by('downloads').append(t('download'));
  for (const family of ['small', 'medium']) {
    for (const format of ['png', 'svg', 'pdf']) {
      const link = document.createElement('a');
      link.href = `api/card?family=${family}&format=${format}${format === 'png' ? '&scale=2' : ''}`;
      link.download = '';
      link.textContent = t('downloadFile', { format: format.toUpperCase(), size: t(family).toLocaleLowerCase() });
      by('downloads').append(' ', link);
    }
  }
}

function setUpButtons() {
  by('form').addEventListener('submit', (event) => {
    event.preventDefault();
    if (!by('save').disabled) save();
  });
  by('new').addEventListener('click', async () => {
    // One that is new already stays.
    if (!state.draft.isNew || state.draft.isUnsaved || sending || waiting.size > 0) await run('/api/new');
    by('title').focus();
  });
  by('to-front').addEventListener('click', () => run('/api/move', { id: state.draft.record.id, to: 0 }, t('moved', { number: 1 })));
  by('duplicate').addEventListener('click', () => run('/api/duplicate', {}, t('duplicated')));
  by('remove').addEventListener('click', remove);
  by('undo').addEventListener('click', () => run('/api/undo', {}, t('takenBack')));
  for (const radio of document.querySelectorAll('[name=wallpaper]'))
    radio.addEventListener('change', () => { by('wallpaper').className = radio.value; });
}

function followServer() {
  const events = serverEvents();
  events.addEventListener('changed', (event) => {
    newest = Number(event.data);
    if (!sending && newest > state.stamp) refresh().catch(fail);
  });
  events.addEventListener('desktop', refreshDesktop);
  events.addEventListener('feeds', refreshFeeds);
  events.addEventListener('keeping', (event) => {
    const { failure } = JSON.parse(event.data);
    if (failure) notice(t('cantKeep', { reason: failure }));
    else showConflict(state.draft);
  });
  // A browser connects again by itself; where it can't, the designer has ended.
  events.addEventListener('error', () => refresh().then(() => hush('failures'), fail));
}

function followClock() {
  setTimeout(() => {
    refreshCountdowns();
    if (state?.draft.shows.includes('targetISO8601') && !sending) refresh().catch(fail);
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
history.replaceState(null, '', location.pathname);
await loadWords();
fillIn();
offerLanguages(by('language'));
offerKinds(document.querySelector('.kinds'), inLanguage);
document.documentElement.classList.remove('loading');
makeDownloads();
setUpForm(typed, () => state.draft.record);
setUpDesigns((id) => run('/api/edit', { id }), (id, to) => run('/api/move', { id, to }, t('moved', { number: to + 1 })), idsOnDesktop);
setUpButtons();
setUpPlace({ state: () => state, settled: () => exclusively(sendWaiting), save }, showStored);
setUpFeeds({ state: () => state });
setUpShare({
  state: () => state,
  settled: () => exclusively(sendWaiting),
  take,
});
await refresh().catch(fail);
followServer();
refreshDesktop();
followClock();
followScale();
if (wanted) run('/api/edit', { id: wanted });
