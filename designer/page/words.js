// The page's words in the reader's language: `t('found', { count: 3 })`. Each language is a file of languages/, and a
// name for each kind in kinds.js: its own name, its plurals and its numbers are the browser's.
import { kinds } from './kinds.js';
import codes from './languages.js';
import english from './languages/en.js';

const cookie = 'orvel-designer-language';  // for all ports, as a designer's port is another one each time
let words = english;
let language = 'en';
let plurals = new Intl.PluralRules(language);

// Within a text that runs from right to left, a value keeps its own direction (Unicode's isolates).
function shown(value) {
  const text = typeof value === 'number' ? number(value) : String(value);
  return words.direction === 'rtl' ? `\u2068${text}\u2069` : text;
}

export const number = (value, options) => new Intl.NumberFormat(language, options).format(value);
export const listed = (texts, type = 'conjunction') => new Intl.ListFormat(language, { type }).format(texts);
export const moment = (date) => new Intl.DateTimeFormat(language, { dateStyle: 'full', timeStyle: 'short' }).format(date);

// A time, and its day if that isn't today.
export function shortly(date) {
  const isToday = date.toDateString() === new Date().toDateString();
  return new Intl.DateTimeFormat(language, { timeStyle: 'medium', ...(isToday ? {} : { dateStyle: 'medium' }) }).format(date);
}

export function t(key, values = {}) {
  const entry = words[key] ?? english[key];
  const text = typeof entry === 'string' ? entry : entry[plurals.select(values.count)] ?? entry.other;
  return text.replace(/\{(\w+)\}/g, (whole, name) => (name in values ? shown(values[name]) : whole));
}

// Of a text for each language, the reader's.
export const inLanguage = (texts) => texts[language] ?? texts.en;

export const kindName = (kind) => inLanguage(kinds[kind].names);

// An arrow key's direction in what follows the text's: to the left is forwards where texts run from right to left.
export function arrow({ key }) {
  if (t('direction') === 'ltr') return key;
  return { ArrowLeft: 'ArrowRight', ArrowRight: 'ArrowLeft' }[key] ?? key;
}

// What the server says in English, in the reader's language, where that has words for it.
export function said({ text, name, values = [] }) {
  return language === 'en' || !(name in words) ? text : t(name, values);
}

const known = (tag) => [tag, tag.split('-')[0]].find((code) => codes.includes(code));

function chosen() {
  const pair = document.cookie.split('; ').find((each) => each.startsWith(`${cookie}=`));
  return pair?.slice(cookie.length + 1) ?? '';
}

// What the person has chosen here, or else the first of the browser's languages that there is.
export async function loadWords() {
  language = [chosen(), ...navigator.languages].map(known).find(Boolean) ?? 'en';
  if (language !== 'en') words = (await import(`./languages/${language}.js`)).default;
  plurals = new Intl.PluralRules(language);
  document.documentElement.lang = language;
  document.documentElement.dir = t('direction');
}

// Each language by its own name.
export function offerLanguages(select) {
  const name = (code) => {
    const own = new Intl.DisplayNames([code], { type: 'language' }).of(code);
    return own.charAt(0).toLocaleUpperCase(code) + own.slice(1);
  };
  for (const code of [...codes].sort((a, b) => name(a).localeCompare(name(b)))) {
    const option = new Option(name(code), code, false, code === language);
    option.lang = code;
    select.append(option);
  }
  select.addEventListener('change', () => {
    document.cookie = `${cookie}=${select.value}; path=/; max-age=31536000; samesite=strict`;
    location.reload();
  });
}

// The page's own elements say which words are theirs.
export function fillIn(root = document) {
  for (const element of root.querySelectorAll('[data-text]')) element.textContent = t(element.dataset.text);
  for (const element of root.querySelectorAll('[data-label]')) element.ariaLabel = t(element.dataset.label);
  for (const element of root.querySelectorAll('[data-hint]')) element.placeholder = t(element.dataset.hint);
}
