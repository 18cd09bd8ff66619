// What keeps the edited design's card current: its feeds, how their last runs went, and a dialog to set one up.
import { get, post } from './server.js';
import { button, explained, say } from './talk.js';
import { kindName, listed, number, shortly, t } from './words.js';

const by = (id) => document.getElementById(id);
const fields = ['source', 'arguments', 'command', 'every', 'timeout'];
const controls = { battery: by('feed-battery'), online: by('feed-online') };
for (const field of fields) controls[field] = by(`feed-${field}`);

let state = () => {};  // the page's
let known = { feeds: [], templates: [], served: true, trouble: '' };
let edited;            // the feed in the dialog; none for a new one
let asked = 0;

const time = (text) => shortly(new Date(text));
const rows = ['feedCommand', 'feedEvery', 'feedResult', 'feedNext'];

// The last one says more of what went wrong.
function result({ date, seconds, failure }, index, feed) {
  const outcome = failure
    ? t('feedFailed', { count: index === 0 ? feed.failures : 1, reason: failure })
    : t('feedGood', { seconds: number(seconds, { maximumFractionDigits: 2 }) });
  const news = failure && index === 0 && feed.news ? t('feedNews', { date: time(feed.news) }) : '';
  return `${time(date)}: ${outcome} ${news}`.trim();
}

function values(feed) {
  const results = feed.results.map((each, index) => result(each, index, feed));
  const next = feed.isPaused ? t('feedPaused') : known.served && feed.next ? time(feed.next) : '–';
  return [feed.command, feed.every, results.join('\n') || (feed.run ? '–' : t('feedNotRun')), next];
}

function made(name) {
  const element = document.createElement('article');
  element.dataset.feed = name;
  const heading = document.createElement('h4');
  heading.textContent = name;
  const list = document.createElement('dl');
  for (const row of rows) {
    const term = document.createElement('dt');
    term.textContent = t(row);
    const value = document.createElement('dd');
    value.dir = 'auto';
    list.append(term, value);
  }
  const act = (operation) => () => send(operation, { id: name });
  const actions = document.createElement('div');
  actions.className = 'actions';
  actions.append(
    button(t('feedRun'), act('run')),
    button('', () => send(of(name).isPaused ? 'resume' : 'pause', { id: name })),
    button(t('feedEdit'), () => open(of(name))),
    button(t('feedEnd'), async () => {
      if (await send('remove', { id: name })) say(t('feedEnded'));
    }),
  );
  const ran = document.createElement('p');
  ran.setAttribute('role', 'status');
  const said = document.createElement('pre');
  said.dir = 'auto';
  said.tabIndex = 0;
  said.ariaLabel = t('feedSaid');
  said.setAttribute('role', 'group');
  element.append(heading, list, actions, ran, said);
  return element;
}

const of = (name) => known.feeds.find((feed) => feed.name === name);

function setText(element, text) {
  if (element.textContent !== text) element.textContent = text;
}

// Its elements stay, and so does the focus.
function fill(element, feed) {
  const [, list, actions, ran, said] = element.children;
  values(feed).forEach((value, index) => setText(list.children[2 * index + 1], value));
  setText(actions.children[1], t(feed.isPaused ? 'feedResume' : 'feedPause'));
  actions.children[0].disabled = feed.run?.isRunning === true;
  const outcome = feed.run?.isRunning ? 'feedRunning' : feed.run?.hasFailed ? 'feedRanBadly' : 'feedRan';
  setText(ran, feed.run ? t(outcome) : '');
  ran.classList.toggle('warning', feed.run?.hasFailed === true);
  said.hidden = !feed.run?.said;
  setText(said, feed.run?.said ?? '');
}

function show() {
  const { draft } = state();
  const list = by('feeds-list');
  const before = new Map([...list.children].map((element) => [element.dataset.feed, element]));
  for (const [name, element] of before) if (!of(name)) element.remove();
  for (const feed of known.feeds) {
    const element = before.get(feed.name) ?? made(feed.name);
    if (!before.has(feed.name)) list.append(element);
    fill(element, feed);
  }
  by('feeds').hidden = draft.isNew;
  by('feed-new').hidden = known.feeds.length > 0;
  by('feeds-unserved').hidden = known.served || known.feeds.length === 0;
  by('feeds-trouble').hidden = known.trouble === '';
  setText(by('feeds-trouble'), known.trouble);
}

async function take(question) {
  const mine = ++asked;
  const answer = await question;
  if (mine !== asked) return;
  known = answer;
  show();
}

// Whether it is done; if it isn't, the page says why.
async function send(operation, body) {
  try {
    await take(post(`/api/feeds/${operation}`, body));
    return true;
  } catch (error) {
    say(explained(error));
    return false;
  }
}

// The edited design is another one, or something has happened to its feeds.
export function refreshFeeds() {
  return take(get('/api/feeds')).catch(() => {});
}

const chosen = () => known.templates.find(({ name }) => name === controls.source.value);

function showNotes(field, text) {
  for (const each of fields) {
    setText(by(`feed-${each}-note`), each === field ? text : '');
    controls[each].setAttribute('aria-invalid', String(each === field));
  }
}

// The fields that a template or a command has, with what the template says.
function showSource() {
  const source = chosen();
  by('feed-source-field').hidden = Boolean(edited);
  by('feed-arguments-field').hidden = !source?.arguments;
  by('feed-command-field').hidden = Boolean(source);
  by('feed-argument-names').textContent = source?.arguments ?? '';
  const about = [];
  if (source?.needs) about.push(t('feedNeeds', { programs: listed(source.needs.split(' ')) }));
  if (source && source.kind !== state().draft.record.kind) about.push(t('feedKind', { kind: kindName(source.kind) }));
  by('feed-about').textContent = about.join(' ');
  showNotes();
}

function fillIn({ command = '', every, timeout, onBattery, whenOnline }) {
  controls.command.value = command;
  controls.arguments.value = '';
  controls.every.value = every;
  controls.timeout.value = timeout;
  controls.battery.checked = onBattery === 'pause';
  controls.online.checked = whenOnline;
}

const blank = { every: '5m', timeout: '10s', onBattery: 'run', whenOnline: false };

function open(feed) {
  edited = feed;
  controls.source.replaceChildren(...known.templates.map(({ name }) => new Option(t(`show_${name}`), name)),
    new Option(t('feedOwn'), ''));
  if (feed) controls.source.value = '';
  fillIn(feed ?? chosen());
  showSource();
  by('feed-heading').textContent = feed ? feed.name : t('feedNew');
  by('feed-dialog').showModal();
}

async function submit(event) {
  event.preventDefault();
  const text = Object.fromEntries(fields.map((field) => [field, controls[field].value]));
  const feed = { ...text, name: edited?.name ?? '', onBattery: controls.battery.checked ? 'pause' : 'run', whenOnline: controls.online.checked };
  try {
    await take(post('/api/feeds/put', { text: JSON.stringify(feed) }));
  } catch (error) {
    const field = fields.includes(error.field) ? error.field : 'source';
    showNotes(field, field === error.field && field !== 'source' ? t(`feedWrong_${field}`) : explained(error));
    controls[field].focus();
    return;
  }
  by('feed-dialog').close();
  say(t('feedSet'));
}

// `page.state()` is what the page shows.
export function setUpFeeds(page) {
  state = page.state;
  by('feed-new').addEventListener('click', () => open());
  controls.source.addEventListener('change', () => {
    fillIn(chosen() ?? blank);
    showSource();
  });
  by('feed-form').addEventListener('submit', submit);
  by('feed-close').addEventListener('click', () => by('feed-dialog').close());
}
