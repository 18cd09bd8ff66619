#!/usr/bin/env node
// Makes docs/designer.png anew, from a build: scripts/picture-of-designer [BUILD_FOLDER]
import { Home, openBrowser } from '../tests/designer/designer.mjs';

const home = new Home(process.argv[2] ?? new URL('../build/release', import.meta.url).pathname);
home.orvel('add', '--kind', 'list', '--title', 'Groceries', '--item', 'Oat milk', '--item', 'Tomatoes', '--item', 'Dark chocolate', '--accent', '#FF9F0A');
home.orvel('add', '--kind', 'progress', '--title', 'Reading goal', '--progress', '0.38', '--symbol', 'book.fill', '--accent', '#30D158');
home.orvel('add', '--kind', 'note', '--title', 'Note to self', '--primary', 'Less, but better', '--symbol', 'quote.bubble', '--accent', '#FFD60A');
home.orvel('add', '--kind', 'metric', '--title', 'Active users', '--primary', '42', '--secondary', '12 more than last week', '--symbol', 'person.2.fill', '--accent', '#0A84FF');
const designer = await home.design();
const browser = await openBrowser();
const context = await browser.newContext({ viewport: { width: 1180, height: 760 }, deviceScaleFactor: 1, timezoneId: 'Europe/Berlin' });
const page = await context.newPage();
await page.goto(designer.address);
await page.locator('#small[src]').waitFor();
await page.getByLabel('Symbol').fill('person');
await page.getByRole('option', { name: 'person.2.fill', exact: true }).waitFor();
await page.waitForLoadState('networkidle', { timeout: 2000 }).catch(() => {});
await page.screenshot({ path: new URL('../docs/designer.png', import.meta.url).pathname, fullPage: true });
await browser.close();
await designer.ended;
home.remove();
