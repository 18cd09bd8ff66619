// The stored designs as drawn cards: to pick one for editing, and to put them in order.
import { withScale } from './server.js';
import { arrow, t } from './words.js';

const list = document.getElementById('designs');
let shown = [];
let edited = '';
let pick = () => {};
let move = () => {};
let dragged = '';
let minute = 0;
let onDesktop = () => [];

export const titleOf = (design) => design.title || t('untitled');

// A stored design's picture, as an address.
export function pictureOf(design, family) {
  const time = design.followsClock ? `&at=${minute}` : '';
  return withScale(`/api/stored?version=${design.version}&family=${family}${time}`);
}

function made(id) {
  const element = document.createElement('li');
  const button = document.createElement('button');
  button.type = 'button';
  button.dataset.id = id;
  button.draggable = true;
  button.setAttribute('aria-keyshortcuts', 'Alt+ArrowUp Alt+ArrowDown Alt+Home');
  const picture = document.createElement('img');
  picture.alt = '';
  picture.width = 170;
  picture.height = 170;
  picture.loading = 'lazy';
  picture.draggable = false;
  const words = document.createElement('span');
  words.dir = 'auto';
  const mark = document.createElement('small');
  mark.textContent = t('onDesktop');
  button.append(picture, words, mark);
  element.append(button);
  return element;
}

function fill(element, design) {
  const button = element.firstChild;
  const [picture, words, mark] = button.children;
  const source = pictureOf(design, 'small');
  if (picture.getAttribute('src') !== source) picture.src = source;
  if (words.textContent !== titleOf(design)) words.textContent = titleOf(design);
  mark.hidden = !onDesktop(shown).includes(design.id);
  if (design.id === edited) button.setAttribute('aria-current', 'true');
  else button.removeAttribute('aria-current');
  button.setAttribute('aria-description', design.words.replaceAll('\n', ', '));
}

// A card that stays keeps its element: one that is being pressed or dragged isn't taken from under the pointer.
export function showDesigns(designs, editedId) {
  shown = designs;
  edited = editedId;
  const focused = document.activeElement;
  const before = new Map([...list.children].map((element) => [element.firstChild.dataset.id, element]));
  designs.forEach((design, index) => {
    const element = before.get(design.id) ?? made(design.id);
    before.delete(design.id);
    fill(element, design);
    if (list.children[index] !== element) list.insertBefore(element, list.children[index] ?? null);
  });
  while (list.children.length > designs.length) list.lastChild.remove();
  if (focused !== document.activeElement && list.contains(focused)) focused.focus();
}

// Countdowns show another time each minute.
export function refreshCountdowns() {
  ++minute;
  [...list.querySelectorAll('img')].forEach((picture, index) => {
    if (shown[index].followsClock) picture.src = pictureOf(shown[index], 'small');
  });
}

const idAt = (event) => event.target.closest('button[data-id]')?.dataset.id;
const indexOf = (id) => shown.findIndex((design) => design.id === id);

function onKey(event) {
  const id = idAt(event);
  if (!event.altKey || id === undefined) return;
  const at = indexOf(id);
  const to = { ArrowUp: at - 1, ArrowLeft: at - 1, ArrowDown: at + 1, ArrowRight: at + 1, Home: 0 }[arrow(event)];
  if (to === undefined) return;
  event.preventDefault();
  if (to >= 0 && to < shown.length && to !== at) move(id, to);
}

// `placed(designs)` are the ids of those on the desktop.
export function setUpDesigns(picked, moved, placed) {
  pick = picked;
  move = moved;
  onDesktop = placed;
  list.addEventListener('click', (event) => idAt(event) !== undefined && pick(idAt(event)));
  list.addEventListener('keydown', onKey);
  list.addEventListener('dragstart', (event) => {
    dragged = idAt(event);
    event.dataTransfer.effectAllowed = 'move';
    event.dataTransfer.setData('text/plain', '');
  });
  list.addEventListener('dragover', (event) => idAt(event) !== undefined && event.preventDefault());
  list.addEventListener('drop', (event) => {
    event.preventDefault();
    const to = indexOf(idAt(event));
    if (dragged !== '' && to >= 0 && idAt(event) !== dragged) move(dragged, to);
    dragged = '';
  });
}
