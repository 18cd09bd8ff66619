#!/usr/bin/env node
// Takes the pictures of docs/designer.md again, from a build: scripts/picture-of-designer.mjs [BUILD_FOLDER]
// The monitors are those of the session that it runs in.
import { fileURLToPath } from 'node:url';
import { Home, openBrowser } from '../tests/designer/designer.mjs';

const home = new Home(process.argv[2] ?? fileURLToPath(new URL('../build/release', import.meta.url)));
const designs = [
  ['--kind', 'countdown', '--title', 'Summer holidays', '--target', '+12d', '--symbol', 'sun.max.fill', '--accent', '#40C8E0'],
  ['--kind', 'list', '--title', 'Groceries', '--item', 'Oat milk', '--item', 'Tomatoes', '--item', 'Dark chocolate', '--accent', '#FF9F0A'],
  ['--kind', 'progress', '--title', 'Reading goal', '--progress', '38%', '--symbol', 'book.fill', '--accent', '#30D158'],
  ['--kind', 'note', '--title', 'Note to self', '--primary', 'Less, but better', '--symbol', 'quote.bubble', '--accent', '#FFD60A'],
  ['--kind', 'metric', '--title', 'Active users', '--primary', '42', '--secondary', '12 more than last week', '--symbol', 'person.2.fill', '--accent', '#0A84FF'],
];
const ids = designs.map((options) => home.orvel('add', ...options).toString().trim());
home.orvel('place', ids[4]);
home.orvel('place', ids[2]);
home.orvel('place', ids[0], '--family', 'medium', '--anchor', 'bottom-left');

const designer = await home.design();
const browser = await openBrowser();

async function picture(name, { width = 1180, height = 760, ...look }, act) {
  const context = await browser.newContext({ viewport: { width, height }, locale: 'en', timezoneId: 'Europe/Berlin', ...look });
  const page = await context.newPage();
  await page.goto(designer.address);
  await page.locator('#small[src]').waitFor();
  await act(page);
  // Every picture of a design is there.
  await page.waitForFunction(() => [...document.images].every((image) => image.complete));
  await page.screenshot({ path: fileURLToPath(new URL(`../docs/${name}.png`, import.meta.url)) });
  await context.close();
}

await picture('designer', {}, async (page) => {
  await page.getByLabel('Symbol', { exact: true }).fill('person');
  await page.getByRole('option', { name: 'person.2.fill', exact: true }).waitFor();
});
home.orvel('pending', 'clear');
await picture('designer-place', { height: 860 }, async (page) => {
  await page.getByRole('button', { name: 'Place', exact: true }).click();
  await page.getByRole('dialog').waitFor();
});
await picture('designer-dark', { colorScheme: 'dark', locale: 'ar', height: 900 }, async (page) => {
  await page.locator('#designs button').last().click();
  await page.locator('#countdown-says:not([hidden])').waitFor();
  await page.evaluate(() => scrollTo(0, 0));
});
await browser.close();
await designer.ended;
home.remove();
