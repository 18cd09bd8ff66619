// Where designs stand on the desktop: a dialog with the monitors to scale, and the fields of one place.
import { titleOf } from './designs.js';
import { setUpMonitors, showMonitors } from './monitors.js';
import { get, post } from './server.js';
import { button, explained, say } from './talk.js';
import { listed, t } from './words.js';

const by = (id) => document.getElementById(id);
const anchors = [
  ['top-left', 'topLeft'], ['top', 'top'], ['top-right', 'topRight'],
  ['left', 'left'], ['center', 'center'], ['right', 'right'],
  ['bottom-left', 'bottomLeft'], ['bottom', 'bottom'], ['bottom-right', 'bottomRight'],
];
const anchorName = (anchor) => t(anchors.find(([word]) => word === anchor)[1]);

let state = () => {};    // the page's
let desktop = { monitors: [], places: [], designs: [] };
let proposed;            // the place in the fields
let changed = () => {};
let queue = Promise.resolve();
let asked = 0;

const indexOf = (reference) => desktop.places.findIndex((place) => place.design === reference);
const isPlaced = () => indexOf(proposed.design) >= 0;
const designOf = (index) => state().designs.find((design) => design.id === desktop.designs[index]);
const titleAt = (index) => {
  const design = designOf(index);
  return design ? titleOf(design) : `${t('notStored')} (${desktop.places[index].design})`;
};

function monitorName(output) {
  if (output === 'primary') return t('mainMonitor');
  if (output === 'all') return t('everyMonitor');
  return desktop.monitors.some(({ name }) => name === output) ? output : t('notThere', { monitor: output });
}

function placeInWords(place) {
  const words = [anchorName(place.anchor), monitorName(place.output), t(place.family)];
  const position = /^@(\d+)$/.exec(place.design);
  if (position) words.push(t('whoever', { number: Number(position[1]) }));
  return listed(words, 'unit');
}

// The place of a stored design; one that it could have, when it has none.
function placeFor(id) {
  const index = desktop.designs.indexOf(id);
  return index >= 0
    ? { ...desktop.places[index] }
    : { design: id, family: 'small', anchor: 'top-right', margin: [24, 24], output: 'primary', layer: 'bottom' };
}

// Where a place comes to stand: one of every monitor, or of the main one, stays that.
function moved({ output }, { monitor, anchor }) {
  const isMain = output === 'primary' && desktop.monitors.find(({ name }) => name === monitor).isMain;
  return { anchor, output: isMain || output === 'all' ? output : monitor };
}

function showFields() {
  by('place-form').hidden = !proposed;
  if (!proposed) return;
  const { output } = proposed;
  const outputs = ['primary', 'all', ...desktop.monitors.map(({ name }) => name)];
  if (!outputs.includes(output)) outputs.push(output);
  by('place-output').replaceChildren(...outputs.map((name) => new Option(monitorName(name), name, false, name === output)));
  for (const radio of by('place-form').querySelectorAll('[type=radio]'))
    radio.checked = radio.value === (radio.name === 'family' ? proposed.family : proposed.anchor);
  by('place-layer').value = proposed.layer;
  for (const [index, field] of ['margin-x', 'margin-y'].entries())
    if (document.activeElement !== by(field)) by(field).value = proposed.margin[index];
}

function listedPlace(place, index) {
  const element = document.createElement('li');
  const title = titleAt(index);
  const choice = button(title, () => show(place.design));
  choice.setAttribute('aria-current', String(place.design === proposed?.design));
  const words = document.createElement('small');
  words.textContent = placeInWords(place);
  choice.append(' ', words);
  const sign = (text, name, isOff, act) => {
    const control = button(text, act);
    control.ariaLabel = name;
    control.title = name;
    control.disabled = isOff;
    return control;
  };
  const move = (to) => send('move', { id: place.design, to });
  element.append(
    choice,
    sign('↑', t('placeUp', { title }), index === 0, () => move(index - 1)),
    sign('↓', t('placeDown', { title }), index === desktop.places.length - 1, () => move(index + 1)),
    sign('×', t('placeOffNamed', { title }), false, () => send('remove', { id: place.design }, t('takenOff'))),
  );
  return element;
}

function showPlaces() {
  const focused = document.activeElement?.closest?.('#places button')?.ariaLabel;
  by('placed').hidden = desktop.places.length === 0;
  by('places').replaceChildren(...desktop.places.map(listedPlace));
  if (!focused) return;
  const again = [...by('places').querySelectorAll('button')].find((each) => each.ariaLabel === focused);
  (again && !again.disabled ? again : by('place-close')).focus();
}

function about() {
  if (!proposed) return t('saveFirst');
  if (!isPlaced()) return t(desktop.places.length === 0 ? 'noPlaceFirst' : 'noPlace');
  const index = indexOf(proposed.design);
  const { anchor, output } = desktop.places[index];
  return t('standsAt', { title: titleAt(index), position: anchorName(anchor), monitor: monitorName(output) });
}

// With the fields of that place, or of the one that was shown.
function show(reference) {
  const focused = document.activeElement;
  if (reference) proposed = { ...desktop.places[indexOf(reference)] };
  const { draft } = state();
  by('place-about').textContent = about();
  by('place-save').hidden = Boolean(proposed);
  by('place-unsaved').hidden = !proposed || !draft.isUnsaved || desktop.designs[indexOf(proposed.design)] !== draft.record.id;
  by('place-on').hidden = !proposed || isPlaced();
  by('place-off').hidden = !proposed || !isPlaced();
  showMonitors(desktop.monitors, { places: desktop.places, designs: state().designs, chosen: proposed?.design });
  by('no-monitors').hidden = desktop.monitors.length > 0;
  by('monitors-hint').hidden = desktop.monitors.length === 0 || !proposed;
  showFields();
  showPlaces();
  // What was done can be undone by the button that comes instead.
  if (focused.hidden) by(isPlaced() ? 'place-off' : 'place-on').focus();
}

function take(next) {
  desktop = next;
  if (proposed && isPlaced()) proposed = { ...desktop.places[indexOf(proposed.design)] };
  by('place-trouble').textContent = '';
  if (by('place-dialog').open) show();
  changed();
}

// One after the other; only the last answer is news. A question among the changes waits for them too: an answer from
// before one of them would bring back what it changed.
function inTurn(ask, answered) {
  const mine = ++asked;
  queue = queue.then(async () => {
    try {
      const answer = await ask();
      if (mine === asked) take(answer);
      answered();
    } catch (error) {
      by('place-trouble').textContent = explained(error);
    }
  });
  return queue;
}

function send(operation, body, done = '') {
  return inTurn(() => post(`/api/desktop/${operation}`, body), () => {
    if (done) by('place-about').textContent = done;
    say(done);
  });
}

const put = (done) => send('put', { text: JSON.stringify([proposed]) }, done);

// A design that has a place moves at once.
function choose(part) {
  proposed = { ...proposed, ...part };
  if (isPlaced()) put();
  else show();
}

export function refreshDesktop() {
  return inTurn(() => get('/api/desktop'), () => {});
}

// Which designs are on the desktop, by their ids.
export function idsOnDesktop(designs) {
  return desktop.places.length > 0 ? desktop.designs : designs.slice(0, 1).map(({ id }) => id);
}

async function open() {
  const { draft } = state();
  await refreshDesktop();
  proposed = draft.isNew ? undefined : placeFor(draft.record.id);
  by('place-dialog').showModal();
  show();
}

function makeAnchors() {
  by('anchors').replaceChildren(...anchors.map(([word, name]) => {
    const radio = document.createElement('input');
    radio.type = 'radio';
    radio.name = 'anchor';
    radio.value = word;
    radio.ariaLabel = t(name);
    radio.title = t(name);
    return radio;
  }));
}

// Arrow keys move in both directions.
function onAnchorKey(event) {
  const step = { ArrowUp: -3, ArrowDown: 3, ArrowLeft: -1, ArrowRight: 1 }[event.key];
  const radios = [...by('anchors').children];
  const at = radios.indexOf(event.target);
  if (!step || at < 0) return;
  event.preventDefault();
  const leavesRow = Math.abs(step) === 1 && Math.floor((at + step) / 3) !== Math.floor(at / 3);
  if (!leavesRow && radios[at + step]) {
    radios[at + step].focus();
    choose({ anchor: radios[at + step].value });
  }
}

// `page.state()` is what the page shows, when `page.settled()` has come; `page.save()` stores the design that is edited.
// `desktopChanged` is called when other designs have places.
export function setUpPlace(page, desktopChanged) {
  state = page.state;
  changed = desktopChanged;
  makeAnchors();
  setUpMonitors({
    clicked: (spot) => proposed && choose(moved(proposed, spot)),
    dropped: (place, spot) => {
      proposed = { ...place };
      choose(moved(place, spot));
    },
  });
  by('place').addEventListener('click', async () => {
    await page.settled();
    open();
  });
  by('place-form').addEventListener('submit', (event) => event.preventDefault());
  by('place-form').addEventListener('change', ({ target }) => {
    if (target.type === 'radio') choose({ [target.name]: target.value });
    if (target === by('place-output')) choose({ output: target.value });
    if (target === by('place-layer')) choose({ layer: target.value });
    const isMargin = target.type === 'number' && target.reportValidity();
    if (isMargin) choose({ margin: [by('margin-x').valueAsNumber, by('margin-y').valueAsNumber] });
  });
  by('anchors').addEventListener('keydown', onAnchorKey);
  by('place-on').addEventListener('click', () => put(t('placed')));
  by('place-off').addEventListener('click', () => send('remove', { id: proposed.design }, t('takenOff')));
  by('place-save').addEventListener('click', async () => {
    await page.save();
    const { draft } = state();
    if (!draft.isNew) proposed = placeFor(draft.record.id);
    show();
  });
  by('place-close').addEventListener('click', () => by('place-dialog').close());
}
