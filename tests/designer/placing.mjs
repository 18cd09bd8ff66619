// Where cards stand on the desktop: set by the keyboard alone, in the same file as the command's.
import assert from 'node:assert/strict';
import { byRole, edit, eventually, press, tabTo } from './driver.mjs';

const dialog = (page) => byRole(page, 'dialog', 'Place on the desktop');

// Two monitors, with the first place's card at the top left of the first one.
async function withMonitors(page, act) {
  await page.route(/\/api\/desktop/, async (route) => {
    // Again, if the server has just closed the connection that it was asked over.
    const json = await (await route.fetch({ maxRetries: 5 })).json();
    const cards = json.places.length > 0 ? [{ place: 0, id: json.designs[0], x: 20, y: 20, width: 170, height: 170 }] : [];
    const monitor = { y: 0, width: 1200, height: 900 };
    json.monitors = [{ ...monitor, name: 'A', x: 0, isMain: true, cards }, { ...monitor, name: 'B', x: 1200, isMain: false, cards: [] }];
    await route.fulfill({ json });
  });
  await act();
  await page.unrouteAll({ behavior: 'wait' });
}

// An element that is just being drawn anew has no box.
async function boxOf(element) {
  let box;
  await eventually('it has a place on the page', true, async () => (box = await element.boundingBox()) !== null);
  return box;
}

export async function placing(page, { home, places, stored }) {
  const { id, title } = stored()[0];
  await edit(page, id);
  await page.locator('#place').focus();
  await page.keyboard.press('Enter');
  await dialog(page).getByText('No design has a place yet').waitFor();
  await tabTo(page, 'Put on the desktop');
  await page.keyboard.press('Enter');
  await eventually('it has a place as the command gives one', [id, 'top-right', 'small'],
    async () => places().flatMap((place) => [place.design, place.anchor, place.family]));

  await eventually('what can be done next has the focus', 'place-off', () => page.evaluate(() => document.activeElement.id));

  // Each control changes the place at once.
  await tabTo(page, 'top-right');
  for (const key of ['ArrowLeft', 'ArrowDown', 'ArrowDown', 'ArrowDown', 'ArrowLeft']) await page.keyboard.press(key);
  await eventually('arrow keys go in both directions', 'bottom-left', async () => places()[0].anchor);
  await page.locator('#place-layer').selectOption({ label: 'Above the windows' });
  await page.getByLabel('Monitor', { exact: true }).selectOption({ label: 'Every monitor' });
  await byRole(dialog(page), 'radio', 'Medium').check();
  await page.getByLabel('Across').fill('7');
  await page.getByLabel('Down', { exact: true }).fill('-1');
  await page.keyboard.press('Tab');
  const expected = { design: id, family: 'medium', anchor: 'bottom-left', margin: [7, 24], output: 'all', layer: 'top' };
  await eventually('all is in the places file, but what can\'t be', [expected], async () => places());

  // Places that another program writes are shown, and what the page has no field for is kept.
  home.orvel('place', '@2', '--click', 'design', '--output', 'DP-7');
  const second = dialog(page).getByRole('listitem').nth(1);
  await second.getByText('DP-7 (not connected)').waitFor();
  await byRole(second, 'button', `Move ${stored()[1].title} up`).click();
  await eventually('the order', ['@2', id], async () => places().map((place) => place.design));
  await dialog(page).getByRole('list').getByRole('button').first().click();
  await byRole(dialog(page), 'radio', 'Top left').check();
  await eventually('the other one\'s place', ['top-left', 'design', 'DP-7'],
    async () => [places()[0].anchor, places()[0].click, places()[0].output]);

  await byRole(dialog(page), 'button', `Take ${title} off the desktop`).click();
  await eventually('it is off the desktop', ['@2'], async () => places().map((place) => place.design));
  assert.ok(stored().some((spec) => spec.id === id), 'and still stored');
  home.orvel('unplace', '1');
  await page.keyboard.press('Escape');

  // By the pointer: a click says where the chosen card shall stand, and a card is dragged there.
  home.orvel('place', id, '--anchor', 'top-left');
  await withMonitors(page, async () => {
    await press(page, 'Place');
    const where = async () => places().map(({ anchor, output }) => [anchor, output]);
    await page.locator('.monitor').first().click({ position: { x: 5, y: 100 } });
    await eventually('in the ninth that was clicked', [['left', 'primary']], where);
    const from = await boxOf(page.locator('.monitor img'));
    const main = await boxOf(page.locator('.monitor').first());
    const other = await boxOf(page.locator('.monitor').last());
    const drag = async (box, across, down) => {
      await page.mouse.move(from.x + from.width / 2, from.y + from.height / 2);
      await page.mouse.down();
      await page.mouse.move(box.x + box.width * across, box.y + box.height * down, { steps: 3 });
      await page.mouse.up();
    };
    await drag(main, 0.5, 0.5);
    await eventually('in the middle', [['center', 'primary']], where);
    await drag(other, 0.9, 0.9);
    await eventually('on the other monitor', [['bottom-right', 'B']], where);
    await press(page, 'Close');
  });
  home.orvel('unplace', '1');

  await press(page, 'New design');
  await page.getByLabel('Title').fill('Not stored yet');
  await press(page, 'Place');
  await dialog(page).getByText('Save it first').waitFor();
  await byRole(dialog(page), 'button', 'Save').click();
  await byRole(dialog(page), 'button', 'Put on the desktop').click();
  await eventually('saved, and placed', stored()[0].id, async () => places()[0]?.design);
  await byRole(dialog(page), 'button', 'Take off the desktop').click();
  await eventually('off again', [], async () => places());
  await press(page, 'Close');
}
