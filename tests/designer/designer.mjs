// A designer with a home of its own, for the tests of its page and for the pictures in docs/designer.md.
import { execFileSync, spawn } from 'node:child_process';
import { mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir, userInfo } from 'node:os';
import { createInterface } from 'node:readline';
import { join, resolve } from 'node:path';
import { chromium, firefox } from 'playwright-core';

const flags = ['--headless', '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
  '--disable-background-networking', '--disable-component-update', '--disable-sync'];

export class Home {
  constructor(build) {
    const { uid, gid } = userInfo();
    this.build = resolve(build);
    this.folder = mkdtempSync(join(tmpdir(), 'orvel-designer-'));
    this.store = join(this.folder, 'Library', 'Application Support', 'Orvel');
    mkdirSync(this.store, { recursive: true });
    mkdirSync(join(this.folder, 'run'), { mode: 0o700 });
    writeFileSync(join(this.folder, 'passwd'), `user:x:${uid}:${gid}::${this.folder}:/bin/sh\n`);
    writeFileSync(join(this.folder, 'group'), `user:x:${gid}:\n`);
    this.environment = {
      ...process.env, PATH: `${this.build}:${process.env.PATH}`, TZ: 'Europe/Berlin', ASAN_OPTIONS: 'verify_asan_link_order=0', LD_PRELOAD: 'libnss_wrapper.so',
      NSS_WRAPPER_PASSWD: join(this.folder, 'passwd'), NSS_WRAPPER_GROUP: join(this.folder, 'group'),
      XDG_STATE_HOME: join(this.folder, 'state'), XDG_CONFIG_HOME: join(this.folder, 'config'),
      XDG_RUNTIME_DIR: join(this.folder, 'run'),
    };
  }

  orvel(...words) {
    return execFileSync(join(this.build, 'orvel'), words, { env: this.environment, maxBuffer: 1 << 26 });
  }

  // Writes a file with that content; returns its path.
  file(name, content) {
    writeFileSync(join(this.folder, name), content);
    return join(this.folder, name);
  }

  read(name) {
    return readFileSync(join(this.store, name), 'utf8');
  }

  // Starts `orvel design`. `address` is its page's, `ended` a promise of its exit status.
  async design(...words) {
    const child = spawn(join(this.build, 'orvel'), ['design', '--no-browser', ...words],
      { env: this.environment, stdio: ['ignore', 'pipe', 'inherit'] });
    const ended = new Promise((resolve) => child.once('exit', resolve));
    const address = await new Promise((resolve) => createInterface(child.stdout).once('line', resolve));
    return { child, ended, address };
  }

  remove() {
    rmSync(this.folder, { recursive: true, force: true });
  }
}

// Chromium, or the Firefox that Debian has when ORVEL_BROWSER says so: driven over WebDriver BiDi, as it isn't patched.
export const isFirefox = process.env.ORVEL_BROWSER === 'firefox';

export function openBrowser() {
  return isFirefox
    ? firefox.launch({ channel: 'moz-firefox', executablePath: '/usr/bin/firefox-esr', timeout: 60000 })
    : chromium.launch({ executablePath: '/usr/bin/chromium', args: flags });
}
