// The fields of the design that is edited: what was typed goes out, what is stored comes in.
import { setUpSymbols } from './symbols.js';
import { setUpTarget, showCountdown, showTarget } from './target.js';
import { button } from './talk.js';
import { listed, number, said, t } from './words.js';

const mostRows = 5;
const by = (id) => document.getElementById(id);
const texts = {
  title: by('title'), primary: by('primary'), secondary: by('secondary'), progress: by('progress'),
  targetISO8601: by('target'), symbol: by('symbol'), accentHex: by('accent'),
};
const names = { primary: 'mainText', secondary: 'secondLine', items: 'items', progress: 'progress', targetISO8601: 'target' };
const refusedAs = { progress: 'refusedProgress', targetISO8601: 'refusedTarget' };
const standardAccent = '#3D2A9A';
const easyToSee = 3;  // WCAG 2.2, success criterion 1.4.11
const swatches = [
  ['blue', '#0A84FF'], ['green', '#30D158'], ['orange', '#FF9F0A'], ['red', '#FF453A'], ['pink', '#FF375F'],
  ['purple', '#BF5AF2'], ['indigo', '#7D7AFF'], ['teal', '#40C8E0'], ['yellow', '#FFD60A'], ['white', '#FFFFFF'],
];
const blocks = [...document.querySelectorAll('[data-field]')];
const notes = new Map();
const touched = new Set();  // typed into and not left since
const refused = new Map();  // what can't be as it was typed, and why
let typed = () => {};
let rows = [];
let shown = [];  // the warnings

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
    element.dir = 'auto';
    block.append(element);
    notes.set(field, element);
    texts[field]?.setAttribute('aria-describedby', element.id);
  }
}

// A portion as a person writes it: 38 is meant in per cent, and a comma may stand before the decimals.
function portion(text) {
  const plain = text.trim().replace(',', '.');
  return /^\d+(\.\d+)?$/.test(plain) && Number(plain) > 1 ? `${plain}%` : plain;
}

function send(field, text) {
  const value = field === 'progress' ? portion(text) : text;
  typed(field, value === '' || value.length === 0 ? null : value);
}

function makeSwatches() {
  for (const [name, colour] of swatches) {
    const swatch = button('', () => set('accentHex', colour));
    swatch.className = 'swatch';
    swatch.ariaLabel = t(name);
    swatch.title = t(name);
    swatch.dataset.colour = colour;
    swatch.style.setProperty('--colour', colour);
    by('swatches').append(swatch);
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
  const element = button(sign, act);
  element.ariaLabel = name;
  element.title = name;
  element.disabled = isOff;
  return element;
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
    input.dir = 'auto';
    const at = { number: index + 1 };
    input.ariaLabel = t('item', at);
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
      rowButton(t('moveUp', at), '↑', index === 0, () => exchange(index, index - 1)),
      rowButton(t('moveDown', at), '↓', index === rows.length - 1, () => exchange(index, index + 1)),
      rowButton(t('deleteRow', at), '×', false, () => {
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

function showAccent({ accent: { colour, contrast }, record }) {
  const isStandard = record.accentHex.toUpperCase() === standardAccent;
  if (document.activeElement !== by('accent-well')) by('accent-well').value = colour.toLowerCase();
  for (const swatch of by('swatches').children)
    swatch.setAttribute('aria-pressed', String(swatch.dataset.colour.toLowerCase() === colour.toLowerCase()));
  const ratio = number(contrast, { minimumFractionDigits: 1, maximumFractionDigits: 1 });
  const verdict = t(contrast >= easyToSee ? 'contrastGood' : 'contrastBad', { ratio, wanted: easyToSee });
  by('contrast').textContent = isStandard ? `${t('standardAccent')} ${verdict}` : verdict;
}

function showKept({ record, shows }) {
  const kept = Object.keys(names).filter((field) => record[field] !== undefined && !shows.includes(field));
  by('kept').hidden = kept.length === 0;
  by('kept').textContent = t('alsoKept', { fields: listed(kept.map((field) => t(names[field]))) });
}

function showNotes(warnings) {
  shown = warnings;
  const general = [];
  for (const element of notes.values()) element.textContent = '';
  for (const warning of warnings) {
    const { field } = warning;
    if (note(field) && !refused.has(field)) note(field).textContent = said(warning);
    else if (!note(field)) general.push(said(warning));
  }
  for (const [field, text] of refused) {
    if (note(field)) note(field).textContent = text;
    else general.push(text);
  }
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
  for (const { field, text } of refusals) refused.set(field, said({ text, name: refusedAs[field] }));
  for (const block of blocks) block.hidden = !draft.shows.includes(block.dataset.field);
  showFields(draft.record);
  if (draft.countdown) showCountdown(draft.record.targetISO8601 ?? '', draft.countdown);
  showAccent(draft);
  showKept(draft);
  showNotes(draft.warnings);
}

// These fields stay as they were typed, though that can't be kept.
export function refuse(fields, reason) {
  for (const field of fields) refused.set(field, reason);
  showNotes(shown);
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
