// The fields of the design that is edited: what was typed goes out, what is stored comes in.
import { setUpSymbols } from './symbols.js';
import { setUpTarget, showTarget } from './target.js';

const mostRows = 5;
const by = (id) => document.getElementById(id);
const texts = {
  title: by('title'), primary: by('primary'), secondary: by('secondary'), progress: by('progress'),
  targetISO8601: by('target'), symbol: by('symbol'), accentHex: by('accent'),
};
const names = { primary: 'Main text', secondary: 'Second line', items: 'Items', progress: 'Progress', targetISO8601: 'Target' };
const swatches = [
  ['Blue', '#0A84FF'], ['Green', '#30D158'], ['Orange', '#FF9F0A'], ['Red', '#FF453A'], ['Pink', '#FF375F'],
  ['Purple', '#BF5AF2'], ['Indigo', '#7D7AFF'], ['Teal', '#40C8E0'], ['Yellow', '#FFD60A'], ['White', '#FFFFFF'],
];
const blocks = [...document.querySelectorAll('[data-field]')];
const notes = new Map();
const touched = new Set();  // typed into and not left since
const refused = new Map();  // what can't be as it was typed, and why
let typed = () => {};
let rows = [];

function note(field) {
  return notes.get(field);
}

function makeNotes() {
  for (const block of blocks) {
    const { field } = block.dataset;
    const element = document.createElement('p');
    element.className = 'warning';
    element.id = `${field}-note`;
    element.setAttribute('role', 'status');
    block.append(element);
    notes.set(field, element);
    texts[field]?.setAttribute('aria-describedby', element.id);
  }
}

function send(field, value) {
  typed(field, value === '' || value.length === 0 ? null : value);
}

function makeSwatches() {
  for (const [name, colour] of swatches) {
    const button = document.createElement('button');
    button.type = 'button';
    button.className = 'swatch';
    button.ariaLabel = name;
    button.title = name;
    button.dataset.colour = colour;
    button.style.setProperty('--colour', colour);
    button.addEventListener('click', () => set('accentHex', colour));
    by('swatches').append(button);
  }
}

// A control beside the text says its value.
function set(field, value) {
  texts[field].value = value;
  send(field, value);
}

function sendRows() {
  touched.add('items');
  send('items', rows);
}

function rowButton(name, sign, isOff, act) {
  const button = document.createElement('button');
  button.type = 'button';
  button.ariaLabel = name;
  button.title = name;
  button.textContent = sign;
  button.disabled = isOff;
  button.addEventListener('click', act);
  return button;
}

function exchange(index, other) {
  [rows[index], rows[other]] = [rows[other], rows[index]];
  showRows(other);
  sendRows();
}

function showRows(focusedRow = -1) {
  by('items').replaceChildren(...rows.map((row, index) => {
    const element = document.createElement('li');
    const input = document.createElement('input');
    input.type = 'text';
    input.value = row;
    input.ariaLabel = `Item ${index + 1}`;
    input.addEventListener('input', () => {
      rows[index] = input.value;
      sendRows();
    });
    input.addEventListener('keydown', (event) => {
      const other = { ArrowUp: index - 1, ArrowDown: index + 1 }[event.key];
      if (event.altKey && other >= 0 && other < rows.length) exchange(index, other);
      if (event.key === 'Enter' && rows.length < mostRows) addRow(index + 1);
      if (event.key === 'Enter' || (event.altKey && other !== undefined)) event.preventDefault();
    });
    element.append(
      input,
      rowButton(`Move row ${index + 1} up`, '↑', index === 0, () => exchange(index, index - 1)),
      rowButton(`Move row ${index + 1} down`, '↓', index === rows.length - 1, () => exchange(index, index + 1)),
      rowButton(`Delete row ${index + 1}`, '×', false, () => {
        rows.splice(index, 1);
        showRows(Math.min(index, rows.length - 1));
        if (rows.length === 0) by('add-row').focus();
        sendRows();
      }),
    );
    return element;
  }));
  by('add-row').disabled = rows.length >= mostRows;
  by('items').children[focusedRow]?.querySelector('input').focus();
}

function addRow(at) {
  rows.splice(at, 0, '');
  showRows(at);
  sendRows();
}

function showText(field, value) {
  if (touched.has(field)) return;
  if (texts[field].value !== value) texts[field].value = value;
}

function showFields(record) {
  for (const field of Object.keys(texts)) showText(field, String(record[field] ?? ''));
  for (const radio of document.querySelectorAll('[name=kind]')) radio.checked = radio.value === record.kind;
  by('progress-slider').value = record.progress ?? 0;
  showTarget(record.targetISO8601 ?? '');
  if (!touched.has('items') && JSON.stringify(record.items ?? []) !== JSON.stringify(rows)) {
    rows = [...(record.items ?? [])];
    showRows();
  }
}

function showAccent({ colour, contrast }) {
  if (document.activeElement !== by('accent-well')) by('accent-well').value = colour.toLowerCase();
  for (const button of by('swatches').children)
    button.setAttribute('aria-pressed', String(button.dataset.colour.toLowerCase() === colour.toLowerCase()));
  const verdict = contrast >= 3 ? 'easy to see' : 'hard to see; 3 or more is easy';
  by('contrast').textContent = `Contrast with the card ${contrast.toFixed(1)} : 1, ${verdict}`;
}

function showKept({ record, shows }) {
  const kept = Object.keys(names).filter((field) => record[field] !== undefined && !shows.includes(field));
  by('kept').hidden = kept.length === 0;
  by('kept').textContent = `Kept for the kinds that show it: ${kept.map((field) => names[field]).join(', ')}`;
}

function showNotes(warnings) {
  const general = [];
  for (const element of notes.values()) element.textContent = '';
  for (const { field, text } of warnings) {
    if (note(field) && !refused.has(field)) note(field).textContent = text;
    else if (!note(field)) general.push(text);
  }
  for (const [field, text] of refused) note(field).textContent = text;
  for (const field of Object.keys(texts)) texts[field].setAttribute('aria-invalid', String(refused.has(field)));
  by('warnings').replaceChildren(...general.map((text) => {
    const element = document.createElement('li');
    element.textContent = text;
    return element;
  }));
}

// `answered` are the fields that this is the server's answer to; without them it comes from elsewhere.
export function showDraft(draft, answered, refusals) {
  if (!answered) {
    touched.clear();
    refused.clear();
  }
  for (const field of answered ?? []) refused.delete(field);
  for (const { field, text } of refusals) refused.set(field, text);
  for (const block of blocks) block.hidden = !draft.shows.includes(block.dataset.field);
  showFields(draft.record);
  showAccent(draft.accent);
  showKept(draft);
  showNotes(draft.warnings);
}

// A field that was left shows what is stored, unless it can't be as it was typed.
function leave(field, record) {
  if (refused.has(field)) return;
  touched.delete(field);
  showFields(record);
}

// `typedInto(field, value)` is told every change; `record()` is what is stored.
export function setUpForm(typedInto, record) {
  typed = typedInto;
  makeNotes();
  makeSwatches();
  for (const [field, control] of Object.entries(texts)) {
    if (field !== 'symbol') control.addEventListener('input', () => { touched.add(field); send(field, control.value); });
    control.addEventListener('blur', () => leave(field, record()));
  }
  setUpSymbols((text) => { touched.add('symbol'); send('symbol', text); }, (name) => set('symbol', name));
  setUpTarget((text) => set('targetISO8601', text));
  by('kind').addEventListener('change', (event) => typed('kind', event.target.value));
  by('progress-slider').addEventListener('input', (event) => set('progress', event.target.value));
  by('accent-well').addEventListener('input', (event) => set('accentHex', event.target.value.toUpperCase()));
  by('items').addEventListener('focusout', (event) => {
    if (!by('items').contains(event.relatedTarget)) touched.delete('items');
  });
  by('add-row').addEventListener('click', () => addRow(rows.length));
}
