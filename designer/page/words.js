// The page's words in the reader's language: `t('found', { count: 3 })`. Each language is a file of languages/.
import english from './languages/en.js';

let words = english;
let language = 'en';
let plurals = new Intl.PluralRules('en');
let numbers = new Intl.NumberFormat('en');

const shown = (value) => (typeof value === 'number' ? numbers.format(value) : String(value));

export function t(key, values = {}) {
  const entry = words[key] ?? english[key];
  const text = typeof entry === 'string' ? entry : entry[plurals.select(values.count)] ?? entry.other;
  return text.replace(/\{(\w+)\}/g, (whole, name) => (name in values ? shown(values[name]) : whole));
}

export const number = (value, options) => new Intl.NumberFormat(language, options).format(value);
export const listed = (texts) => new Intl.ListFormat(language, { type: 'conjunction' }).format(texts);

// The page's own elements say which words are theirs.
export function fillIn(root = document) {
  for (const element of root.querySelectorAll('[data-text]')) element.textContent = t(element.dataset.text);
  for (const element of root.querySelectorAll('[data-label]')) element.ariaLabel = t(element.dataset.label);
  for (const element of root.querySelectorAll('[data-hint]')) element.placeholder = t(element.dataset.hint);
}
