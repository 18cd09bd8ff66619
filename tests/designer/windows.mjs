// More windows of the designer than a browser has connections to one server: each loads, hears of changes, and may be
// closed first; the designer ends with the last.
// Usage: windows.mjs BUILD_FOLDER
import assert from 'node:assert/strict';
import { Home, openBrowser } from './designer.mjs';

const count = 10;
const home = new Home(process.argv[2]);
home.orvel('add', '--kind', 'metric', '--title', 'First', '--primary', '1', '--accent', '#0A84FF', '--id', 'one');
const browser = await openBrowser();
const designer = await home.design();

try {
  const context = await browser.newContext();
  context.setDefaultTimeout(60000);
  const windows = [];
  for (let i = 0; i < count; ++i) {
    const page = await context.newPage();
    page.on('pageerror', (error) => assert.fail(error));
    await page.goto(designer.address);
    await page.locator('#small[src]').waitFor();
    windows.push(page);
  }
  const allShow = (title) => Promise.all(windows.map((page) =>
    page.waitForFunction((wanted) => document.getElementById('title').value === wanted, title, { timeout: 60000 })));
  await allShow('First');
  home.orvel('set', 'one', 'title=Second');
  await allShow('Second');
  // The one that listened for all is the first.
  await windows.shift().close();
  home.orvel('set', 'one', 'title=Third');
  await allShow('Third');
  for (const page of windows) await page.close();
  assert.equal(await designer.ended, 0, 'it ends with its last window');
  console.log(`${count} windows: as it should be`);
} finally {
  designer.child.kill();
  await browser.close();
  home.remove();
}
