// Drives the page as a person does: by the names that its controls have.
import assert from 'node:assert/strict';

export const byRole = (page, role, name) => page.getByRole(role, { name, exact: true });
export const press = (page, name) => byRole(page, 'button', name).click();

// Milliseconds, for a busy machine.
export const patience = 60000;

// Waits until `ask` returns what is expected, for as long as a busy machine may take.
export async function eventually(what, expected, ask) {
  let seen;
  for (const end = Date.now() + patience; Date.now() < end;) {
    seen = await ask();
    if (JSON.stringify(seen) === JSON.stringify(expected)) return;
    await new Promise((resolve) => setTimeout(resolve, 50));
  }
  assert.deepEqual(seen, expected, what);
}

// Presses Tab until the control with that text, name or id has the focus.
export async function tabTo(page, name, key = 'Tab') {
  for (let i = 0; i < 120; ++i) {
    await page.keyboard.press(key);
    const at = await page.evaluate(() => {
      const { textContent, id, ariaLabel, value } = document.activeElement;
      return [textContent.trim(), id, ariaLabel, value];
    });
    if (at.includes(name)) return;
  }
  assert.fail(`Tab doesn't reach ${name}`);
}

export async function fill(page, values) {
  for (const [label, value] of Object.entries(values)) {
    if (label === 'Items') {
      for (const [index, row] of value.entries()) {
        await press(page, 'Add a row');
        await page.getByLabel(`Item ${index + 1}`).fill(row);
      }
    } else if (label === 'Progress') {
      await byRole(page, 'textbox', label).fill(value);
    } else {
      await page.getByLabel(label, { exact: true }).fill(value);
    }
  }
}

// Takes a stored design into the form, and waits until it is there: each kind's form has another height, so that what is
// pressed next would move.
export async function edit(page, id) {
  const card = page.locator(`#designs [data-id="${id}"]`);
  await card.click();
  await eventually('it is edited', 'true', () => card.getAttribute('aria-current'));
}

export class Driver {
  constructor(home, context, address) {
    this.home = home;
    this.context = context;
    this.environment = home.environment;
    this.address = address;
    this.strangers = [];
    context.setDefaultTimeout(patience);
    const { origin } = new URL(address);
    context.on('request', (request) => {
      if (!request.url().startsWith(origin) && !request.url().startsWith('data:')) this.strangers.push(request.url());
    });
    this.stored = () => JSON.parse(home.orvel('list', '--json'));
    this.pending = () => JSON.parse(home.orvel('pending', '--json'));
    this.feeds = () => JSON.parse(home.orvel('feed', 'list', '--json')).feeds;
    this.places = () => JSON.parse(home.orvel('place', '--json')).places;
  }

  async open(address = this.address) {
    const page = await this.context.newPage();
    page.on('pageerror', (error) => assert.fail(error));
    await page.goto(address);
    await page.locator('#small[src]').waitFor();
    return page;
  }
}
