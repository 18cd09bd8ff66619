// The monitors to scale, with the cards where they stand. What the fields do for everybody is for the pointer here: a click
// says where a card shall stand, and so does a card that is dragged there.
import { pictureOf } from './designs.js';
import { t } from './words.js';

const plane = document.getElementById('monitors');
const columns = ['left', '', 'right'];
const lines = ['top', '', 'bottom'];
const clickReach = 4;  // CSS pixels that a pointer may move and still click
let act = {};
let isDragging = false;
let redraw;  // what has changed during a drag

const percent = (part, whole) => `${(100 * part) / whole}%`;

function lay(element, box, within) {
  element.style.left = percent(box.x - within.x, within.width);
  element.style.top = percent(box.y - within.y, within.height);
  element.style.width = percent(box.width, within.width);
  element.style.height = percent(box.height, within.height);
  return element;
}

// The monitor under the pointer, and the position in whose ninth of it that is.
function spotAt({ clientX, clientY }) {
  for (const element of plane.children) {
    const { left, top, width, height } = element.getBoundingClientRect();
    const [column, line] = [(3 * (clientX - left)) / width, (3 * (clientY - top)) / height].map(Math.floor);
    if (column < 0 || column > 2 || line < 0 || line > 2) continue;
    return { monitor: element.dataset.name, anchor: [lines[line], columns[column]].filter(Boolean).join('-') || 'center' };
  }
  return undefined;
}

function makeDraggable(picture, place) {
  let from;
  const end = () => {
    from = undefined;
    picture.style.translate = '';
    isDragging = false;
    redraw?.();
  };
  const moved = (event) => [event.clientX - from.clientX, event.clientY - from.clientY];
  picture.addEventListener('pointerdown', (event) => {
    from = event;
    isDragging = true;
    picture.setPointerCapture(event.pointerId);
  });
  picture.addEventListener('pointermove', (event) => {
    if (from) picture.style.translate = moved(event).map((length) => `${length}px`).join(' ');
  });
  picture.addEventListener('pointercancel', end);
  picture.addEventListener('pointerup', (event) => {
    if (!from) return;
    const isDragged = Math.hypot(...moved(event)) > clickReach;
    const spot = spotAt(event);
    if (isDragged) picture.addEventListener('click', (click) => click.stopPropagation(), { once: true });
    end();
    if (isDragged && spot) act.dropped(place, spot);
  });
}

function drawnCard(card, monitor, { places, designs, chosen }) {
  const place = places[card.place];
  const design = designs.find(({ id }) => id === card.id);
  const picture = document.createElement('img');
  picture.alt = '';
  picture.draggable = false;
  if (design) picture.src = pictureOf(design, place?.family ?? 'small');
  picture.classList.toggle('chosen', place !== undefined && place.design === chosen);
  if (place) makeDraggable(picture, place);
  return lay(picture, card, { x: 0, y: 0, width: monitor.width, height: monitor.height });
}

function drawnMonitor(monitor, within, shown) {
  const element = lay(document.createElement('div'), monitor, within);
  element.className = 'monitor';
  element.dataset.name = monitor.name;
  const name = document.createElement('span');
  name.textContent = monitor.name;
  name.title = t('monitorSize', { width: monitor.width, height: monitor.height });
  element.append(name, ...monitor.cards.map((card) => drawnCard(card, monitor, shown)));
  element.addEventListener('click', (event) => {
    const spot = spotAt(event);
    if (spot) act.clicked(spot);
  });
  return element;
}

// `shown` has the places and the designs, and the chosen place's design.
export function showMonitors(monitors, shown) {
  redraw = isDragging ? () => showMonitors(monitors, shown) : undefined;
  if (isDragging) return;
  const x = Math.min(...monitors.map((monitor) => monitor.x));
  const y = Math.min(...monitors.map((monitor) => monitor.y));
  const width = Math.max(...monitors.map((monitor) => monitor.x + monitor.width)) - x;
  const height = Math.max(...monitors.map((monitor) => monitor.y + monitor.height)) - y;
  plane.hidden = monitors.length === 0;
  plane.style.setProperty('--ratio', width / height || 1);
  plane.replaceChildren(...monitors.map((monitor) => drawnMonitor(monitor, { x, y, width, height }, shown)));
}

// `clicked(spot)` and `dropped(place, spot)` get a spot as { monitor, anchor }.
export function setUpMonitors(acts) {
  act = acts;
}
