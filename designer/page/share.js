// A design to be taken elsewhere and brought from there: as a command, as JSON, and as what a script needs.
import { get } from './server.js';
import { explained, say } from './talk.js';
import { t } from './words.js';

const by = (id) => document.getElementById(id);

async function show({ draft }) {
  const lines = await get('/api/share');
  by('share-add').value = lines.add;
  by('share-json').value = JSON.stringify(draft.record, null, 2);
  by('share-update').value = `${lines.set}\n${lines.keep}`;
}

async function copy(field) {
  by('share-about').textContent = '';
  try {
    await navigator.clipboard.writeText(field.value);
  } catch {  // a browser that doesn't allow it still lets a person do it
    field.select();
    return;
  }
  by('share-about').textContent = t('copied');
}

// `page.state()` is what the page shows, when `page.settled()` has come; `page.take(text)` begins with the design of
// that JSON, and answers true, or the reason why not.
export function setUpShare(page) {
  by('share').addEventListener('click', async () => {
    await page.settled();
    by('share-about').textContent = '';
    by('paste-trouble').textContent = '';
    await show(page.state()).catch((error) => say(explained(error)));
    by('share-dialog').showModal();
  });
  for (const button of document.querySelectorAll('[data-copies]'))
    button.addEventListener('click', () => copy(by(button.dataset.copies)));
  by('paste-form').addEventListener('submit', async (event) => {
    event.preventDefault();
    by('paste-trouble').textContent = '';
    const taken = await page.take(by('paste').value);
    by('paste').setAttribute('aria-invalid', String(typeof taken === 'string'));
    if (taken !== true) {
      by('paste-trouble').textContent = taken || '';
      by('paste').focus();
      return;
    }
    by('paste').value = '';
    by('share-dialog').close();
    say(t('pasted'));
  });
  by('share-close').addEventListener('click', () => by('share-dialog').close());
}
