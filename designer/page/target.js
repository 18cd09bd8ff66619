// A countdown's day, time of day and zone, beside its text. The three say a whole point in time.
import { moment, t } from './words.js';

const day = document.getElementById('target-day');
const time = document.getElementById('target-time');
const zone = document.getElementById('target-zone');
const says = document.getElementById('countdown-says');
const full = /^(\d{4}-\d\d-\d\d)[T ](\d\d:\d\d)(?::\d\d)?(Z|[+-]\d\d:\d\d)?$/;

function offsets() {
  const list = [];
  for (let minutes = -12 * 60; minutes <= 14 * 60; minutes += 30) list.push(minutes);
  for (const odd of [345, 525, 765]) list.push(odd);
  return list.sort((a, b) => a - b);
}

function name(minutes) {
  const sign = minutes < 0 ? '-' : '+';
  const two = (n) => String(n).padStart(2, '0');
  return `${sign}${two(Math.floor(Math.abs(minutes) / 60))}:${two(Math.abs(minutes) % 60)}`;
}

export function setUpTarget(typed) {
  zone.append(new Option(t('thisComputer'), ''), new Option('UTC', 'Z'));
  for (const minutes of offsets()) if (minutes !== 0) zone.append(new Option(`UTC${name(minutes)}`, name(minutes)));
  for (const control of [day, time, zone]) {
    control.addEventListener('input', () => {
      if (!day.value) return;
      const hours = time.value || '00:00';
      // Without a zone, a blank between date and time means local time.
      typed(zone.value ? `${day.value}T${hours.slice(0, 5)}:00${zone.value}` : `${day.value} ${hours.slice(0, 5)}`);
    });
  }
}

// Whether the zone is this computer's at that time.
function isLocal(text, offset) {
  const instant = new Date(text.replace(' ', 'T'));
  return name(-instant.getTimezoneOffset()) === (offset === 'Z' ? '+00:00' : offset);
}

export function showTarget(text) {
  if ([day, time, zone].includes(document.activeElement)) return;
  const parts = full.exec(text);
  day.value = parts ? parts[1] : /^\d{4}-\d\d-\d\d$/.test(text) ? text : '';
  time.value = parts ? parts[2] : '';
  const offset = parts?.[3];
  if (!offset || isLocal(text, offset)) zone.value = '';
  else {
    if (![...zone.options].some((option) => option.value === offset)) zone.append(new Option(`UTC${offset}`, offset));
    zone.value = offset;
  }
}

// The target as the card takes it: a full time, a day in UTC, or what begins with a day, from that day's local midnight.
function instant(text) {
  const isWhole = /^\d{4}-\d\d-\d\d(T\d\d:\d\d:\d\d(Z|[+-]\d\d:\d\d))?$/i.test(text);
  return new Date(isWhole ? text : `${text.slice(0, 10)}T00:00`);
}

// What the card shows now, a day from now, and at the end.
export function showCountdown(text, { now, tomorrow, end }) {
  const date = instant(text);
  says.hidden = Number.isNaN(date.getTime());
  if (says.hidden) return;
  const [soon, later, last] = [now, tomorrow, end].map((words) => words.replace(' ', '\u00a0'));
  says.textContent = t('countdownSays', { date: moment(date), now: soon, tomorrow: later, end: last });
}
