// What the page says to the person, and asks.
import { t, said } from './words.js';

const by = (id) => document.getElementById(id);

export function say(text) {
  by('status').textContent = text;
}

// Why a request was refused, or failed: in the page's own words where it has some for what is at fault.
export function explained({ status, field, message }) {
  if (!status) return t('ended');
  if (status === 413) return t('tooLarge');
  return said({ text: t('refused', { reason: message }), name: `refused_${field}` });
}

export function button(text, act) {
  const element = document.createElement('button');
  element.type = 'button';
  element.textContent = text;
  if (act) element.addEventListener('click', act);
  return element;
}

// Stays until it is answered, or hushed. A conflict isn't hidden by a failure's end, and the other way round.
export function notice(text, answers = []) {
  const element = document.createElement('p');
  element.append(text);
  for (const [name, act] of answers) element.append(' ', button(name, act));
  by('notices').dataset.asks = answers.length > 0;
  by('notices').replaceChildren(element);
}

export function hush(what = 'everything') {
  const asks = by('notices').dataset.asks === 'true';
  if (what === 'everything' || asks === (what === 'questions')) by('notices').replaceChildren();
}

// The person's answer to a question: one of the given ones, the last of them when the question is closed.
export function ask(question, answers) {
  return new Promise((resolve) => {
    by('ask-question').textContent = question;
    by('ask-answers').replaceChildren(...answers.map((name) => {
      const element = button(name);
      element.type = 'submit';
      element.value = name;
      return element;
    }));
    by('ask').returnValue = answers.at(-1);
    by('ask').addEventListener('close', () => resolve(by('ask').returnValue), { once: true });
    by('ask').showModal();
  });
}
