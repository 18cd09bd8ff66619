// Sharing designs: the command line is run by shells, the JSON is pasted back, and what is wrong is refused.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { byRole, edit, eventually, press } from './driver.mjs';

const dialog = (page) => byRole(page, 'dialog', 'Share');

const hostile = [
  { kind: 'metric', title: 'It\'s "quoted" `date` $(reboot) $HOME \\ ~ *', primary: '-5', secondary: '', accentHex: '#0A84FF' },
  { kind: 'note', title: '--title', primary: '[a,b]', secondary: 'line\nline\t\u001b[31m\u0000end' },
  { kind: 'list', title: '!! {a,b} ;&|<>', items: ['-', '', 'a,b', 'ünï‮ \u{1F600}'], symbol: 'no.such' },
  { kind: 'list', title: 'empty', items: [] },
  { kind: 'progress', title: '', progress: 0.1234567890123456 },
  { kind: 'countdown', title: 'sometime', targetISO8601: '2036-12-24T18:00:00+01:00', accentHex: 'no colour' },
  { kind: 'countdown', title: 'a day', targetISO8601: '2036-12-24', primary: 'kept' },
  { kind: 'note', title: 'x'.repeat(200000), primary: 'long' },
];

const content = ({ id, createdAt, ...fields }) => fields;

export async function sharing(page, { home, stored, pending, context, environment }) {
  await context.grantPermissions(['clipboard-read', 'clipboard-write']);
  const copied = async (name) => {
    await byRole(dialog(page), 'button', name).click();
    await dialog(page).getByText('Copied').waitFor();
    return page.evaluate(() => navigator.clipboard.readText());
  };
  for (const design of hostile) {
    const id = home.orvel('add', '--json', home.file('design.json', JSON.stringify(design))).toString().trim();
    await edit(page, id);
    await press(page, 'Share');
    const line = await copied('Copy the command');
    const original = stored()[0];
    for (const shell of ['bash', 'sh']) {
      const added = execFileSync(shell, [], { input: `${line}\n`, env: environment }).toString().trim();
      assert.notEqual(added, id);
      assert.deepEqual(content(stored()[0]), content(original), `${shell}: ${line.slice(0, 200)}`);
      home.orvel('remove', added);
    }
    assert.deepEqual(JSON.parse(await copied('Copy the JSON')), original);
    await press(page, 'Close');
  }

  // The lines for a script.
  home.orvel('add', '--kind', 'metric', '--title', 'Load', '--primary', '1');
  await edit(page, stored()[0].id);
  await press(page, 'Share');
  const lines = (await copied('Copy the lines for a script')).split('\n');
  for (const [index, line] of lines.entries()) {
    execFileSync('bash', ['-c', `command() { echo ${index + 7}; }; ${line}`], { env: environment });
    assert.deepEqual([stored()[0].primary, stored()[0].title], [`${index + 7}`, 'Load'], line);
  }

  // Pasted.
  const paste = async (text) => {
    await dialog(page).getByLabel('A design as JSON').fill(text);
    await byRole(dialog(page), 'button', 'Edit this design').click();
  };
  await paste('{"title":"T","kind":"photo"}');
  await dialog(page).getByText('1:21: "kind" must be metric').waitFor();
  await paste('[{"title":"<i>pasted</i>","kind":"progress","progress":38,"colour":"red"}]');
  await eventually('it is pending', ['<i>pasted</i>', 1], async () => [pending()?.title, pending()?.progress]);
  for (const said of ['did you mean 38%', '"colour"']) await page.locator('#form').getByText(said).waitFor();
  assert.equal(await page.getByLabel('Title', { exact: true }).inputValue(), '<i>pasted</i>');

  // A design that is stored is edited.
  await press(page, 'Share');
  await paste(JSON.stringify({ ...stored()[0], primary: 'by hand' }));
  await press(page, 'Discard');
  await eventually('it is taken', 'by hand', () => page.getByLabel('Main text').inputValue());
  await press(page, 'Save');
  await eventually('in its place', 'by hand', async () => stored()[0].primary);
}
