// Every language of the page has each of its texts, with the same placeholders and all of its own plural forms; and what
// the page's elements ask for is among the texts.
// Usage: languages.mjs
import assert from 'node:assert/strict';
import { readFileSync, readdirSync } from 'node:fs';

const folder = new URL('../../designer/page/languages/', import.meta.url);
const load = async (file) => (await import(new URL(file, folder))).default;
const placeholders = (text) => [...text.matchAll(/\{(\w+)\}/g)].map(([, name]) => name).sort().join();
// The warnings that the command gives, by name.
const warnings = [...readFileSync(new URL('../../authoring/warnings.cpp', import.meta.url), 'utf8').matchAll(/Said\{\s*"(\w+)"/g)];
const english = await load('en.js');

assert.ok(warnings.length > 5);
for (const [, name] of warnings) assert.ok(name in english, `en.js lacks the warning ${name}`);

for (const file of readdirSync(folder)) {
  const language = file.replace('.js', '');
  const words = await load(file);
  assert.deepEqual(Object.keys(words).sort(), Object.keys(english).sort(), file);
  assert.match(words.direction, /^(ltr|rtl)$/, file);
  for (const [key, entry] of Object.entries(words)) {
    const where = `${file}: ${key}`;
    const isPlural = typeof english[key] !== 'string';
    assert.equal(typeof entry !== 'string', isPlural, where);
    for (const [form, text] of Object.entries(isPlural ? entry : { other: entry })) {
      assert.ok(text.trim() === text && text !== '', where);
      // "One found" needs no number.
      const wanted = form === 'other' || placeholders(text) !== '' ? placeholders(english[key].other ?? english[key]) : '';
      assert.equal(placeholders(text), wanted, `${where}, ${form}`);
    }
    if (isPlural)
      assert.deepEqual(Object.keys(entry).sort(), new Intl.PluralRules(language).resolvedOptions().pluralCategories.sort(), where);
  }
}
const { kinds } = await import(new URL('../kinds.js', folder));
const languages = readdirSync(folder).map((file) => file.replace('.js', ''));
for (const [kind, { names }] of Object.entries(kinds)) assert.deepEqual(Object.keys(names).sort(), languages, `kinds.js: ${kind}`);

const page = readFileSync(new URL('../index.html', folder), 'utf8');
for (const [, key] of page.matchAll(/ data-(?:text|label|hint)="([^"]*)"/g))
  assert.ok(key in english, `index.html asks for "${key}", which languages/en.js lacks`);
console.log('every language has every text');
