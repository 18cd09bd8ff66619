"""A home with designs and places, the process that shows their cards, and how the command draws them."""
import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


class Failed(Exception):
    """An expectation that doesn't hold."""


def patiently(wanted, seconds=60, what="it"):
    """Calls it until its result is true, and returns that; gives up after a generous time."""
    end = time.monotonic() + seconds
    while True:
        found = wanted()
        if found:
            return found
        if time.monotonic() > end:
            raise Failed(f"waited {seconds} s in vain for {what}")
        time.sleep(0.05)


def build_folder():
    return pathlib.Path(os.environ.get("ORVEL_BUILD", ROOT / "build/release")).absolute()


def as_another_user(script, arguments):
    """Runs the script as an ordinary user, with copies that it can read: compositors don't run as root, and root can
    read everything."""
    user = "orvel-test"
    if subprocess.run(["id", user], capture_output=True).returncode:
        subprocess.run(["useradd", "--create-home", user], check=True)
    with tempfile.TemporaryDirectory() as copies:
        for name in ("orvel", "orvel-renderer.so"):
            shutil.copy(build_folder() / name, copies)
        for name in ("scripts", "tests/desktop", "session"):
            shutil.copytree(ROOT / name, f"{copies}/{name}")
        subprocess.run(["chmod", "-R", "a+rX", copies], check=True)
        return subprocess.run(["runuser", "-u", user, "--", "env", f"ORVEL_BUILD={copies}",
                               "PYTHONDONTWRITEBYTECODE=1", "/usr/bin/python3", f"{copies}/scripts/{script}",
                               *arguments], cwd="/").returncode


class Picture:
    """The pixels of an output, from a PPM file."""

    def __init__(self, file):
        content = pathlib.Path(file).read_bytes()
        head = re.match(rb"P6\s+(\d+)\s+(\d+)\s+255\s", content)
        if not head:
            raise Failed(f"{file} is no picture of 8 bits a channel")
        self.width, self.height, self.bytes = int(head[1]), int(head[2]), content[head.end():]

    def part(self, left, top, width, height):
        """The pixels of the rectangle, row by row; None if it isn't wholly inside."""
        if left < 0 or top < 0 or left + width > self.width or top + height > self.height:
            return None
        rows = (3 * ((top + row) * self.width + left) for row in range(height))
        return b"".join(self.bytes[start:start + 3 * width] for start in rows)

    def share(self, colour, left, top, width, height):
        """The portion of the rectangle that has the colour, from 0 to 1."""
        part = self.part(left, top, width, height) or b""
        pixels = [part[at:at + 3] for at in range(0, len(part), 3)]
        return pixels.count(bytes(colour)) / (len(pixels) or 1)


class Cards:
    """Ends every process that it started."""

    def __init__(self, work, build):
        self.work, self.build = work, build
        self.home = work / "home"
        self.store = self.home / "Library/Application Support/Orvel"
        self.settings = self.home / ".config/orvel"
        self.store.mkdir(parents=True)
        self.settings.mkdir(parents=True)
        (work / "passwd").write_text(f"user:x:{os.getuid()}:{os.getgid()}::{self.home}:/bin/sh\n")
        (work / "group").write_text(f"user:x:{os.getgid()}:\n")
        self.environment = {**os.environ, "HOME": str(self.home), "NSS_WRAPPER_PASSWD": str(work / "passwd"),
                            "NSS_WRAPPER_GROUP": str(work / "group"), "XDG_CONFIG_HOME": str(self.home / ".config"),
                            "XDG_RUNTIME_DIR": str(work), "ASAN_OPTIONS": "verify_asan_link_order=0"}
        for name in ("DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS"):
            self.environment.pop(name, None)
        self.others = []
        self.process = None
        self.drawn = {}
        self.said = open(work / "said", "ab")

    def start(self, *command, environment=None, **options):
        options = {"stdout": subprocess.DEVNULL, "start_new_session": True, **options}
        process = subprocess.Popen(command, env={**self.environment, **(environment or {})}, stderr=self.said,
                                   **options)
        self.others.append(process)
        return process

    def run(self, *command, **options):
        return subprocess.run(command, env=self.environment, stdout=subprocess.PIPE, stderr=self.said, **options)

    def wrapped(self):
        return {**self.environment, "LD_PRELOAD": "libnss_wrapper.so"}

    def orvel(self, *arguments):
        return subprocess.run([self.build / "orvel", *arguments], env=self.wrapped(), stdout=subprocess.PIPE,
                              check=True)

    def show(self):
        self.process = subprocess.Popen([self.build / "orvel", "desktop"], stdout=subprocess.DEVNULL, stderr=self.said,
                                        env=self.wrapped(), start_new_session=True)

    def keep_running(self):
        """Starts the cards again if they have ended, as a service manager does."""
        if self.process.poll() is not None:
            self.show()

    def write(self, file, text):
        new = file.with_name("new")
        new.write_text(text)
        new.replace(file)

    def write_store(self, designs):
        self.write(self.store / "widgets.json", json.dumps(designs))

    def write_places(self, places):
        self.write(self.settings / "places.json", json.dumps(places))

    def is_drawn(self, picture, design, left, top, scale, unlike=0):
        """Whether the picture shows the design's small card there, exactly as `orvel render` draws it, or but for a
        share of the pixels that look `unlike`. What isn't opaque counts for nothing: it is blended with what lies
        below, or cut out."""
        key = json.dumps([design, scale])
        if key not in self.drawn:
            (self.work / "design.json").write_text(json.dumps(design))
            self.orvel("render", "--design", self.work / "design.json", "--scale", str(scale), "-o",
                       self.work / "card.png")
            self.drawn[key] = subprocess.run(["convert", self.work / "card.png", "-depth", "8", "RGBA:-"],
                                             stdout=subprocess.PIPE, check=True).stdout
        drawn, side = self.drawn[key], round(170 * scale)
        seen = picture.part(left, top, side, side)
        if seen is None:
            return False
        solid = [p for p in range(side * side) if drawn[4 * p + 3] == 255]
        if not unlike:
            return all(drawn[4 * p:4 * p + 3] == seen[3 * p:3 * p + 3] for p in solid)
        return sum(abs(drawn[4 * p] - seen[3 * p]) > 48 for p in solid) < unlike * len(solid)

    @staticmethod
    def kill(process):
        """With the processes that it started, which hold what it had open: a client sees its compositor's end then."""
        if process.poll() is None:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()

    @classmethod
    def finish(cls, process):
        if process and process.poll() is None:
            process.terminate()
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                cls.kill(process)

    def end(self):
        if self.process and self.process.poll() is None:
            self.process.send_signal(signal.SIGCONT)
        for process in [self.process, *reversed(self.others)]:
            self.finish(process)
