// The symbol's field: a text, and below it the symbols that go with its words, to choose from.
import { get } from './server.js';
import { arrow, t } from './words.js';

const field = document.getElementById('symbol');
const grid = document.getElementById('symbols');
const popup = document.getElementById('symbols-popup');
const count = document.getElementById('symbols-count');
let asked = 0;
let more;  // loads what follows, as long as there is more
let choose = () => {};

function picture(path) {
  const ns = 'http://www.w3.org/2000/svg';
  const svg = document.createElementNS(ns, 'svg');
  svg.setAttribute('viewBox', '0 0 100 100');
  svg.setAttribute('aria-hidden', 'true');
  const shape = document.createElementNS(ns, 'path');
  shape.setAttribute('d', path);
  svg.append(shape);
  return svg;
}

const options = () => [...grid.children];

function point(option) {
  for (const other of options()) other.setAttribute('aria-selected', other === option);
  if (!option) return field.removeAttribute('aria-activedescendant');
  field.setAttribute('aria-activedescendant', option.id);
  option.scrollIntoView({ block: 'nearest' });
}

function option({ name, path }, index) {
  const element = document.createElement('div');
  element.id = `symbol-${index}`;
  element.role = 'option';
  element.title = name;
  element.dataset.name = name;
  element.ariaLabel = name;
  element.ariaSelected = 'false';
  element.append(picture(path));
  return element;
}

// The found ones from there on; none of an answer that comes too late.
async function load(words, from) {
  const question = ++asked;
  const answer = await get(`/api/symbols?words=${encodeURIComponent(words)}&from=${from}`);
  if (question !== asked) return false;
  if (from === 0) grid.replaceChildren();
  grid.append(...answer.symbols.map((symbol, index) => option(symbol, from + index)));
  const isWhole = answer.next >= answer.count;
  const shown = options().length;
  more = isWhole ? undefined : () => load(words, answer.next);
  if (shown === 0) count.textContent = t('noneFound');
  else count.textContent = isWhole ? t('found', { count: shown }) : t('firstOf', { shown, count: answer.count });
  return true;
}

async function open(words) {
  if (!await load(words, 0)) return;
  popup.hidden = false;
  grid.hidden = options().length === 0;
  grid.scrollTop = 0;
  field.ariaExpanded = 'true';
  field.removeAttribute('aria-activedescendant');
}

function onScroll() {
  const isNearEnd = grid.scrollTop + 2 * grid.clientHeight > grid.scrollHeight;
  const next = more;
  more = undefined;
  if (isNearEnd && next) next();
  else more = next;
}

function close() {
  ++asked;
  popup.hidden = true;
  grid.replaceChildren();
  more = undefined;
  field.ariaExpanded = 'false';
  field.removeAttribute('aria-activedescendant');
  count.textContent = '';
}

function take(option) {
  close();
  choose(option.dataset.name);
}

function columns() {
  const all = options();
  const second = all.findIndex((option) => option.offsetTop > all[0].offsetTop);
  return second < 0 ? all.length : second;
}

function onKey(event) {
  const all = options();
  const at = all.findIndex((option) => option.id === field.getAttribute('aria-activedescendant'));
  if (event.key === 'Escape' && !popup.hidden) {
    close();
  } else if (event.key === 'ArrowDown' && popup.hidden) {
    open('');
  } else if (event.key === 'Enter' && !popup.hidden && at >= 0) {
    take(all[at]);
  } else {
    const steps = { ArrowDown: at < 0 ? 1 : columns(), ArrowUp: -columns(), ArrowRight: 1, ArrowLeft: -1 };
    const step = steps[arrow(event)];
    if (popup.hidden || !step || (at < 0 && event.key !== 'ArrowDown')) return;
    point(all[at + step] || (at + step < 0 ? undefined : all[at]));
  }
  event.preventDefault();
}

// `typed` is told each text of the field, `chosen` the name that was picked.
export function setUpSymbols(typed, chosen) {
  choose = chosen;
  field.addEventListener('input', () => {
    typed(field.value);
    open(field.value);
  });
  field.addEventListener('click', () => popup.hidden && open(''));
  field.addEventListener('keydown', onKey);
  field.addEventListener('blur', close);
  // The field keeps the focus.
  grid.addEventListener('scroll', onScroll);
  grid.addEventListener('mousedown', (event) => event.preventDefault());
  grid.addEventListener('click', (event) => {
    const option = event.target.closest('[role=option]');
    if (option) take(option);
  });
}
