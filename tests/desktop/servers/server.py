"""What every desktop under test is: two outputs of 960 x 600 pixels side by side, the cards' process, and a person's
means. A kind of server says how."""
import contextlib
import subprocess

from cards import Cards, Failed, patiently

HERE = __file__.rsplit("/", 2)[0]
PYTHON = "/usr/bin/python3"  # Debian's, which has its packages
WIDTH, HEIGHT = 960, 600  # multiples of every scale, and of 8 as modes are


class Window:
    """Of one colour, on an X server."""

    def __init__(self, server, kind, geometry, colour):
        self.log = server.work / f"window-{len(server.others)}"
        with open(self.log, "wb") as output:
            self.process = server.start(PYTHON, f"{HERE}/window.py", kind, geometry, colour, stdout=output)
        patiently(lambda: b"shown" in self.log.read_bytes(), what="a window")

    def clicks(self):
        return self.log.read_bytes().count(b"click")


class Server(Cards):
    name = ""       # as documents call it
    packages = []   # of Debian; the first one's version is its own
    needs = []      # commands
    manager = []    # of windows: the command, where it is a program of its own
    outputs = []    # as `orvel outputs` calls them
    lacks = {}      # situation: why the desktop has nothing of the kind
    cover = "420x420+0+0"  # a window that covers the first card, which a tiling desktop makes larger
    blurred = {}    # situation: why the card is there, but not pixel for pixel
    cannot = {}     # situation: why the desktop can't do it, although it has the means; it is tried, and has to fail

    says = None     # a part of the line at the start that tells of what is blurred or impossible

    # Each server has these besides: begin and stop (the server alone), pictures (of the outputs that are on), click,
    # scale_to, lose_output and give_output_back.

    @classmethod
    def version(cls):
        asked = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", cls.packages[0]], capture_output=True)
        return asked.stdout.decode().split(":")[-1].split("-")[0].split("+")[0]

    def design(self, i):
        return {"id": f"id-{i}", "title": f"Card {i}", "kind": "metric", "accentHex": "#0A84FF",
                "symbol": "flag.fill", "primary": f"4{i}", "createdAt": 0}

    def place(self, i, output=None):
        return {"design": f"id-{i}", "anchor": ["top-left", "bottom-right"][i], "output": output or self.outputs[i]}

    def corner(self, picture, i, scale):
        """Of that card, in pixels of its output."""
        start, end = round(24 * scale), round(194 * scale)
        return (start, start) if i == 0 else (picture.width - end, picture.height - end)

    def prepare(self):
        self.write_store([self.design(i) for i in range(3)])
        self.write_places([self.place(0), self.place(1)])
        self.begin()
        self.show()

    def begin_anew(self):
        """Starts over after a failure, which may have left anything behind."""
        self.end()
        self.others = []
        self.prepare()

    def window(self, kind, geometry, colour):
        return Window(self, kind, geometry, colour)

    @contextlib.contextmanager
    def below_the_card(self):
        """A window under the first card, 6 points of it beside the card; yields a function that returns its clicks."""
        window = self.window("desktop", f"{2 * WIDTH}x{HEIGHT}+0+0", "#336699")
        try:
            yield window.clicks
        finally:
            self.finish(window.process)

    @contextlib.contextmanager
    def other_output_focused(self):
        """For desktops on which a click on the bare desktop moves the focus to its output; yields which output has it."""
        self.click(1, 450, 300)
        patiently(lambda: self.focused_output() == self.outputs[1], what="the focus on the other output")
        yield self.first_output_got_focus

    def first_output_got_focus(self):
        """Counts; the focus goes back to the other output each time."""
        if self.focused_output() == self.outputs[0]:
            self.focus_gained = getattr(self, "focus_gained", 0) + 1
            self.click(1, 450, 300)
            patiently(lambda: self.focused_output() == self.outputs[1], what="the focus on the other output")
        return getattr(self, "focus_gained", 0)

    def start_session_bus(self):
        bus = self.start("dbus-daemon", "--session", "--nofork", "--print-address", stdout=subprocess.PIPE)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().decode().strip()
        return bus

    def ensure_running(self, process):
        if process.poll() is not None:
            raise Failed(f"{self.name} ended with {process.returncode}: {(self.work / 'said').read_text()[-2000:]}")
