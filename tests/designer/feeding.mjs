// What keeps a card current, set up on the page: from a template, by a command, beside a person who types, and ended.
import assert from 'node:assert/strict';
import { byRole, edit, eventually, press } from './driver.mjs';

const section = (page) => byRole(page, 'region', 'Feed');
const dialog = (page) => page.locator('#feed-dialog');
const pressIn = (part, name) => byRole(part, 'button', name).click();

async function setUp(page, values) {
  await press(page, 'Keep this card current…');
  for (const [label, value] of Object.entries(values)) {
    const field = dialog(page).getByLabel(label);
    if (label === 'What to show') await field.selectOption(value);
    else await field.fill(value);
  }
  await pressIn(dialog(page), 'Apply');
}

export async function feeding(page, { home, stored, feeds }) {
  const id = home.orvel('add', '--kind', 'note', '--title', 'Fed', '--primary', 'by hand').toString().trim();
  await edit(page, id);
  const fed = () => stored().find((spec) => spec.id === id);
  const only = async () => feeds().map(({ design, command, every }) => [design, command, every]);

  // A template shows what it is about, and is run at once.
  await setUp(page, { 'What to show': { label: 'How full a disk is' }, 'What it needs to know': '"/" ' });
  await eventually('the card is of the template\'s kind', 'progress', async () => fed().kind);
  await eventually('and shows what it said', true, async () => fed().progress > 0);
  assert.deepEqual((await only())[0][1].slice(1), ['/']);
  await section(page).getByText('It has run just now.').waitFor();
  await pressIn(section(page), 'Pause');
  await eventually('it is paused', true, async () => feeds()[0].paused);
  await pressIn(section(page), 'Resume');
  await eventually('and isn\'t', undefined, async () => feeds()[0].paused);
  await pressIn(section(page), 'End feed');
  await eventually('it has ended', [], only);
  assert.ok(fed(), 'the design stays');

  // What can't be is said where it is.
  await setUp(page, { 'What to show': { label: 'A command of your own' }, Command: 'sh -c "echo', 'How often': '1h' });
  await dialog(page).getByText('with every quotation mark closed').waitFor();
  await dialog(page).getByLabel('Command').fill('sh -c "exit 3"');
  await dialog(page).getByLabel('How often').fill('now and then');
  await pressIn(dialog(page), 'Apply');
  await dialog(page).getByText('From a second to 366 days').waitFor();
  await dialog(page).getByLabel('How often').fill('2h');
  await pressIn(dialog(page), 'Apply');
  await section(page).getByText('It ran just now, and failed.').waitFor();
  assert.deepEqual(await only(), [[id, ['sh', '-c', 'exit 3'], '2h']]);

  // Edited; and without a shell, what looks like its signs stays as it is.
  await pressIn(section(page), 'Edit feed…');
  await dialog(page).getByLabel('Command').fill('printf %s\\\\n primary=$HOME "secondary=<b>a | b</b>"');
  await dialog(page).getByLabel('Pause on battery').check();
  await pressIn(dialog(page), 'Apply');
  await eventually('it is another command', ['printf', '%s\\n', 'primary=$HOME', 'secondary=<b>a | b</b>'], async () => feeds()[0].command);
  assert.equal(feeds()[0].onBattery, 'pause');
  await pressIn(section(page), 'Run now');
  await eventually('it is written as it was said', ['$HOME', '<b>a | b</b>'], async () => [fed().primary, fed().secondary]);

  // What the feed writes comes in beside what is typed, without a question; the same field is asked about.
  await byRole(page, 'radio', 'Metric').check();
  await press(page, 'Save');
  await eventually('it is a metric', 'metric', async () => fed().kind);
  const title = page.getByLabel('Title', { exact: true });
  await title.fill('Typed meanwhile');
  const name = feeds()[0].name;
  home.orvel('feed', 'add', name, '--design', id, '--every', '2h', '--', 'echo', 'news');
  home.orvel('feed', 'run', name);
  await eventually('the page has both', ['Typed meanwhile', 'news'],
    async () => [await title.inputValue(), await page.getByLabel('Main text').inputValue()]);
  await press(page, 'Save');
  await eventually('both are stored', ['Typed meanwhile', 'news'], async () => [fed().title, fed().primary]);
  await page.getByLabel('Main text').fill('mine');
  await byRole(page, 'button', 'Save').and(page.locator(':enabled')).waitFor();
  home.orvel('feed', 'add', name, '--design', id, '--every', '2h', '--', 'echo', 'theirs');
  home.orvel('feed', 'run', name);
  await press(page, 'Take theirs');
  await eventually('theirs is taken', 'theirs', () => page.getByLabel('Main text').inputValue());

  // Another program's changes show, and its end.
  home.orvel('feed', 'remove', name);
  await byRole(page, 'button', 'Keep this card current…').waitFor();
  await press(page, 'Remove');
  await eventually('nothing is left', undefined, async () => fed());
}
