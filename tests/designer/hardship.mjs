// The page when things go badly: a designer that is killed, a script that writes all the time, texts nobody would write.
// Usage: hardship.mjs BUILD_FOLDER [short]
import assert from 'node:assert/strict';
import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { Home, openBrowser } from './designer.mjs';
import { Driver, byRole, edit, eventually, press } from './driver.mjs';

const isShort = process.argv[3] === 'short';
const home = new Home(process.argv[2]);
const browser = await openBrowser();
let designer = await home.design();
const context = await browser.newContext({ timezoneId: 'Europe/Berlin' });
let driver = new Driver(home, context, designer.address);
const { stored, pending } = driver;
const titleField = (page) => page.getByLabel('Title', { exact: true });
const design = (page, id) => page.locator(`#designs [data-id="${id}"]`);

async function aScriptWritesAllTheTime() {
  const theirs = home.orvel('add', '--kind', 'metric', '--title', 'Theirs', '--primary', '0', '--accent', '#0A84FF').toString().trim();
  const mine = home.orvel('add', '--kind', 'note', '--title', 'Mine', '--primary', 'x', '--accent', '#0A84FF').toString().trim();
  const page = await driver.open();
  await edit(page, mine);
  const changes = isShort ? 40 : 200;
  const script = spawn('bash', ['-c', `for i in $(seq ${changes}); do orvel set ${theirs} primary=$i || exit; sleep .03; done`],
    { env: home.environment, stdio: ['ignore', 'inherit', 'inherit'] });
  const ended = once(script, 'exit');
  const text = 'Each key that is pressed while others write as well arrives, and in its turn.';
  await titleField(page).fill('');
  await titleField(page).pressSequentially(text, { delay: 20 });
  assert.equal(await titleField(page).inputValue(), text);
  await press(page, 'Save');
  await eventually('mine is stored', text, async () => stored().find(({ id }) => id === mine).title);
  assert.deepEqual(await ended, [0, null], 'and so is each of theirs');
  assert.equal(stored().find(({ id }) => id === theirs).primary, String(changes));
  await eventually('the page shows the last one', true,
    async () => (await design(page, theirs).getAttribute('aria-description')).includes(String(changes)));
  assert.equal(await page.locator('#notices').innerText(), '');

  // The same design: the page asks once, and keeps what was typed meanwhile.
  await titleField(page).fill('Mine again');
  await eventually('it is pending', 'Mine again', async () => pending()?.title);
  for (let i = 0; i < 10; ++i) home.orvel('set', mine, `title=Theirs ${i}`);
  await byRole(page, 'button', 'Keep mine').waitFor();
  await titleField(page).press('End');
  await titleField(page).pressSequentially(' and again');
  await press(page, 'Keep mine');
  await press(page, 'Save');
  await eventually('mine is stored over theirs', ['Mine again and again', 'x'],
    async () => stored().filter(({ id }) => id === mine).flatMap(({ title, primary }) => [title, primary]));
  await page.close();
}

async function theDesignerIsKilled() {
  const page = await driver.open();
  await titleField(page).fill('Typed before the crash');
  await eventually('it is pending', 'Typed before the crash', async () => pending()?.title);
  designer.child.kill('SIGKILL');
  await designer.ended;
  await page.getByText('The designer has ended').waitFor();
  designer = await home.design();
  driver = new Driver(home, context, designer.address);
  await page.close();
  const next = await driver.open();
  assert.equal(await titleField(next).inputValue(), 'Typed before the crash');
  await press(next, 'Save');
  await eventually('it is stored', true, async () => stored().some(({ title }) => title === 'Typed before the crash'));
  await next.close();
}

const hostile = [
  ['markup', '</textarea></script><img src=x onerror=alert(1)>'],
  ['quotes', `'"\`\${7*7}{{7*7}}&amp;&#60;`],
  ['controls', 'a\u0000b\u0007c\u001bd\re\nf\u2028g\u2029h\ufeff'],
  ['right to left', '\u202e\u2066שלום مرحبا\u2069 abc'],
  ['a hundred marks on a letter', `a${'\u0301'.repeat(100)}`],
  isShort ? ['a megabyte', 'long '.repeat(200_000)] : ['ten megabytes', 'long '.repeat(2 << 20)],
];

async function hostileTextsAreTexts() {
  const page = await driver.open();
  page.on('dialog', () => assert.fail('a text of a design ran'));
  for (const [what, text] of hostile) {
    const record = { kind: 'list', title: text, items: [text.slice(0, 1000), 'short'], accentHex: text.slice(0, 100), symbol: text.slice(0, 100) };
    const id = home.orvel('add', '--json', home.file('hostile.json', JSON.stringify(record))).toString().trim();
    await edit(page, id);
    // As in every browser, a field of one line has no line breaks.
    const shown = text.replace(/[\n\r]/g, '');
    await eventually(`${what}: in its field`, [shown.length, true],
      async () => page.evaluate((all) => [document.getElementById('title').value.length, document.getElementById('title').value === all], shown));
    assert.equal(await page.locator('#designs img[onerror], #form img, #words img').count(), 0);
    await byRole(page, 'textbox', 'Item 2').fill('changed');
    await press(page, 'Save');
    await eventually(`${what}: only what was typed is another one`, true,
      async () => { const [front] = stored(); return front.title === text && front.items[0] === text.slice(0, 1000) && front.items[1] === 'changed'; });
    home.orvel('remove', id);
  }
  // More than the server takes is refused by a sentence, and stays where it was typed.
  const long = 'x'.repeat(3 << 20);
  await press(page, 'New design');
  await titleField(page).fill(long);
  await page.locator('[data-field=title]').getByText('more than 1 MB').waitFor();
  await page.locator('#primary').focus();
  assert.equal((await titleField(page).inputValue()).length, long.length);
  await titleField(page).fill('short');
  await eventually('what is shorter is kept', 'short', async () => pending()?.title);
  await press(page, 'Share');
  await page.getByLabel('A design as JSON').fill(`{"kind":"note","title":"${long}"}`);
  await press(page, 'Edit this design');
  await page.locator('#paste-trouble').getByText('more than 1 MB').waitFor();
  await page.close();
}

const watchdog = setTimeout(() => { console.error('no end'); process.exit(1); }, 600000);
try {
  for (const part of [aScriptWritesAllTheTime, theDesignerIsKilled, hostileTextsAreTexts]) {
    await part();
    console.log(`${part.name}: as it should be`);
  }
} catch (error) {
  for (const page of context.pages()) console.error((await page.evaluate(() => document.body.innerText)).slice(0, 3000));
  throw error;
} finally {
  clearTimeout(watchdog);
  designer.child.kill();
  await browser.close();
  home.remove();
}
