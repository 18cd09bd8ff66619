// The page in each language, light and dark, at every width: nothing sticks out, axe finds nothing, and all texts are in
// that language.
// Usage: looks.mjs BUILD_FOLDER
import assert from 'node:assert/strict';
import { createRequire } from 'node:module';
import { readFileSync, readdirSync } from 'node:fs';
import { gzipSync } from 'node:zlib';
import { Home, openBrowser } from './designer.mjs';
import { byRole, eventually, patience } from './driver.mjs';

const axe = readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');
const languages = new URL('../../designer/page/languages/', import.meta.url);
const home = new Home(process.argv[2]);
home.orvel('add', '--kind', 'list', '--title', 'שלום', '--item', 'Milk', '--item', 'W'.repeat(90));
home.orvel('add', '--kind', 'progress', '--title', 'W'.repeat(60), '--progress', '38%', '--accent', '#30D158');
home.orvel('add', '--kind', 'countdown', '--title', 'Release', '--target', '2036-12-24 18:00');
const last = JSON.parse(home.orvel('list', '--json')).at(-1).id;
home.orvel('feed', 'add', 'F'.repeat(60), '--design', last, '--every', '1h', '--', 'sh', '-c', 'W'.repeat(200));
home.orvel('place', '@1', '--anchor', 'left');
home.orvel('place', '@2', '--output', 'DP-9', '--family', 'medium');

const browser = await openBrowser();
const designer = await home.design();

// Every view of the page: what opens it, and what closes it again.
const views = [
  ['the page', async () => {}],
  ['the symbols', (page) => page.locator('#symbol').click(), (page) => page.keyboard.press('Escape')],
  ['a list', (page) => page.locator('#designs button').nth(2).click()],
  ['places', (page) => page.locator('#place').click(), (page) => page.locator('#place-close').click()],
  ['sharing', (page) => page.locator('#share').click(), (page) => page.locator('#share-close').click()],
  ['a feed', async (page) => {
    await page.locator('#designs button').first().click();
    await page.locator('#feed-new').click();
    await page.locator('#feed-source').selectOption('calendar');
  }, (page) => page.locator('#feed-close').click()],
  ['a feed of the design', async (page) => {
    await page.locator('#designs button').last().click();
    await page.locator('#feeds-list article').waitFor();
  }],
  ['a new design', (page) => page.locator('#new').click()],
  ['a question', async (page) => {
    await page.locator('#title').fill('not saved');
    await page.locator('#designs button').first().click();
    await page.locator('#ask[open]').waitFor();
  }, (page) => page.locator('#ask-answers button').last().click()],
];

async function axeFinds(page) {
  const { violations } = await page.evaluate(() => window.axe.run({ resultTypes: ['violations'] }));
  return violations.flatMap(({ id, nodes }) => nodes.map(({ target, failureSummary }) => `${id}: ${target}: ${failureSummary}`));
}

// The elements that reach beyond the left or right edge of the window.
const sticksOut = (page) => page.evaluate(() => {
  const width = document.documentElement.clientWidth;
  return [...document.querySelectorAll('body *')]
    .filter((element) => element.checkVisibility({ visibilityProperty: true }) && !element.closest('.monitor, svg, option'))
    .filter((element) => element.getBoundingClientRect().left < -1 || element.getBoundingClientRect().right > width + 1)
    .map((element) => element.id || element.outerHTML.slice(0, 80));
});

async function look(locale, colorScheme, widths, withAxe) {
  const context = await browser.newContext({ locale, colorScheme, timezoneId: 'Europe/Berlin', bypassCSP: true });
  context.setDefaultTimeout(patience);
  const page = await context.newPage();
  page.on('pageerror', (error) => assert.fail(error));
  if (withAxe) await page.addInitScript(axe);
  for (const width of widths) {
    await page.setViewportSize({ width, height: 900 });
    await page.goto(designer.address);
    await page.locator('#small[src]').waitFor();
    for (const [name, open, close] of views) {
      await open(page);
      const where = `${name}, ${locale}, ${colorScheme}, ${width} px`;
      await eventually(where, [], () => sticksOut(page));
      if (withAxe) await eventually(where, [], () => axeFinds(page));
      await close?.(page);
    }
    home.orvel('pending', 'clear');
  }
  await context.close();
}

async function speaks(language) {
  const words = (await import(new URL(`${language}.js`, languages))).default;
  const context = await browser.newContext({ locale: language });
  context.setDefaultTimeout(patience);
  const page = await context.newPage();
  await page.goto(designer.address);
  await byRole(page, 'button', words.save).waitFor();
  assert.deepEqual(await page.evaluate(() => [document.documentElement.lang, document.documentElement.dir]), [language, words.direction]);
  // The warnings are in that language, too.
  if (language !== 'en') {
    const first = (text) => text.split(/\{\d\}/)[0].trim();
    await page.locator('#new').click();
    await page.getByText(words.titleEmpty).and(page.locator(':visible')).waitFor();
    await page.locator('#symbol').fill('hous');
    await page.locator('[data-field=symbol]').getByText(first(words.symbolNear)).waitFor();
    await page.locator('input[value=countdown]').check();
    await page.locator('#target').fill('soon');
    await page.getByText(words.refusedTarget).waitFor();
    home.orvel('pending', 'clear');
  }
  // Arrow keys move in the direction in which they point.
  await page.locator('#symbol').click();
  await page.locator('#symbol-1').waitFor();
  await page.keyboard.press('ArrowDown');
  await page.keyboard.press(words.direction === 'rtl' ? 'ArrowLeft' : 'ArrowRight');
  await page.locator('#symbol-1[aria-selected=true]').waitFor();
  await page.keyboard.press('Escape');
  // A language chosen by its own name stays chosen.
  await page.getByLabel(words.language, { exact: true }).selectOption({ label: language === 'ja' ? 'Deutsch' : '日本語' });
  const other = (await import(new URL(language === 'ja' ? 'de.js' : 'ja.js', languages))).default;
  await byRole(page, 'button', other.save).waitFor();
  await page.reload();
  await byRole(page, 'button', other.save).waitFor();
  await context.close();
}

// What a visit loads before the first card, compressed.
async function weighs() {
  const context = await browser.newContext({ locale: 'ar' });
  context.setDefaultTimeout(patience);
  const page = await context.newPage();
  const files = [];
  page.on('request', (request) => !request.url().includes('/api/') && files.push(request.url()));
  await page.goto(designer.address);
  await page.locator('#small[src]').waitFor();
  let bytes = 0;
  for (const url of files.filter((each) => each.startsWith('http'))) bytes += gzipSync(await (await context.request.get(url)).body()).length;
  assert.ok(bytes > 10000 && bytes <= 150000, `${bytes} bytes`);
  console.log(`the page weighs ${Math.round(bytes / 1000)} kB`);
  await context.close();
}

const watchdog = setTimeout(() => { console.error('no end'); process.exit(1); }, 550000);
try {
  for (const file of readdirSync(languages)) await speaks(file.replace('.js', ''));
  console.log('each language is spoken, and can be chosen');
  await weighs();
  for (const [locale, scheme] of [['en', 'light'], ['en', 'dark'], ['ar', 'light']]) await look(locale, scheme, [1280], true);
  console.log('axe finds nothing');
  for (const locale of ['en', 'de', 'fr', 'ar']) await look(locale, 'light', [360, 700, 2560, 3840], false);
  console.log('nothing sticks out');
} finally {
  clearTimeout(watchdog);
  designer.child.kill();
  await browser.close();
  home.remove();
}
