"""What every desktop has to do with cards, one function for each situation. They run in this order on each server; each
leaves the desktop as it found it, or fails."""
import pathlib
import re
import time

from cards import ROOT, Failed, patiently

COVER = (255, 0, 255)
COVERED = 0.6  # of the card's place: the rest may be the window's frame and its shadow
SECONDS = 60  # generous: a machine may be busy


def cards_are_drawn(server, scale=1, outputs=2, unlike=0):
    """The first card at the top left of the first output, the second at the bottom right of the second one."""
    pictures = server.pictures()
    return len(pictures) == outputs and all(
        server.is_drawn(picture, server.design(i), *server.corner(picture, i, scale), scale, unlike)
        for i, picture in enumerate(pictures))


def expect_cards(server, what, scale=1, outputs=2, unlike=0):
    patiently(lambda: cards_are_drawn(server, scale, outputs, unlike), SECONDS, f"the cards, {what}")


def shows_cover(server):
    return server.pictures()[0].share(COVER, 24, 24, 170, 170)


def cover(server):
    server.click(0, 450, 500)  # where windows go that don't say where
    window = server.window("normal", server.cover, "#ff00ff")
    patiently(lambda: shows_cover(server) > COVERED, SECONDS, "the window over the card")
    return window


def uncover(server, window):
    server.finish(window.process)
    expect_cards(server, "when the window over them is closed")


LIMITS = ("Wayland compositor", "KWin puts")  # how lines begin that tell of them


def as_drawn(server):
    expect_cards(server, "as the command draws them")
    said = [line for line in (server.work / "said").read_text(errors="replace").splitlines()
            if line.startswith("orvel: ") and any(limit in line for limit in LIMITS)]
    if (server.cannot or server.blurred) and not server.says:
        raise Failed("nothing is said of what it can't do")
    if bool(said) != bool(server.says) or not all(server.says in line for line in said):
        raise Failed(f"at the start it says {said} instead of {server.says}")


def under_windows(server):
    window = cover(server)
    server.click(0, 110, 110)
    patiently(lambda: window.clicks() > 0, SECONDS, "the click on the window over the card")
    server.finish(server.process)
    server.show()
    second = lambda: server.is_drawn(server.pictures()[1], server.design(1),
                                     *server.corner(server.pictures()[1], 1, 1), 1)
    patiently(second, SECONDS, "the cards, started under a window")
    time.sleep(0.5)
    if shows_cover(server) < COVERED:
        raise Failed("a card that is started under a window shows through it")
    uncover(server, window)


def clicks_pass(server):
    with server.below_the_card() as clicked:
        expect_cards(server, "above what is to get the clicks")
        for x, y, where in ((197, 197, "beside the card"), (110, 110, "on the card")):
            before = clicked()
            server.click(0, x, y)
            patiently(lambda: clicked() != before, SECONDS, f"the click {where} to reach what lies below")
        expect_cards(server, "after the clicks")


def click_command(server):
    file = server.work / "clicked"
    file.unlink(missing_ok=True)
    taker = server.start(server.build / "orvel", "desktop", "@3", "--anchor", "bottom-left", "--output",
                         server.outputs[0], "--click", f"touch '{file}'", environment=server.wrapped())
    picture = server.pictures()[0]
    patiently(lambda: server.is_drawn(server.pictures()[0], server.design(2), 24, picture.height - 194, 1), SECONDS,
              "the card that takes clicks")
    end = time.monotonic() + SECONDS
    while not file.exists():  # a busy machine may lose a click
        server.click(0, 110, picture.height - 110)
        time.sleep(1)
        if time.monotonic() > end:
            raise Failed("no click ran the command")
    server.finish(taker)


def root_menus(server):
    """The same menu on the card and elsewhere; what it covers differs from before."""
    for x, y in ((600, 200), (110, 110)):
        box = (x - 20, y - 20, 120, 120)
        before = server.pictures()[0].part(*box)

        def changed():
            seen = server.pictures()[0].part(*box)
            return sum(a != b for a, b in zip(seen, before)) > len(before) / 10

        server.click(0, x, y, button=3)
        patiently(changed, SECONDS, f"the menu at {x}, {y}")
        server.close_menu()
        patiently(lambda: not changed(), SECONDS, "the menu's end")
    expect_cards(server, "when the menu is closed")


def show_desktop(server):
    window = cover(server)
    server.show_desktop(True)
    patiently(lambda: shows_cover(server) == 0, SECONDS, "the desktop without its windows")
    expect_cards(server, "when the desktop is shown")
    server.show_desktop(False)
    uncover(server, window)


def all_workspaces(server):
    window = cover(server)
    server.workspace(2)
    patiently(lambda: shows_cover(server) == 0, SECONDS, "another workspace")
    expect_cards(server, "on another workspace")
    server.workspace(1)
    patiently(lambda: shows_cover(server) > COVERED, SECONDS, "the first workspace")
    uncover(server, window)


def two_outputs(server):
    names = server.orvel("outputs").stdout.decode().split("\n")[:-1]
    if sorted(names) != sorted(server.outputs):
        raise Failed(f"orvel outputs says {names} instead of {server.outputs}")
    server.write_places([server.place(0, output=server.outputs[1]), server.place(1, output=server.outputs[0])])

    def is_swapped():
        first, second = server.pictures()
        return (server.is_drawn(second, server.design(0), 24, 24, 1) and
                server.is_drawn(first, server.design(1), *server.corner(first, 1, 1), 1))

    patiently(is_swapped, SECONDS, "each card on the other output")
    server.write_places([server.place(0), server.place(1)])
    expect_cards(server, "each on its own output again")


def scaled(scale):
    """Where the compositor enlarges or reduces the card: in its place and size, but for the edges of what is on it."""
    def situation(server):
        blurred = f"scale {scale}" in server.blurred
        server.scale_to(scale)
        try:
            expect_cards(server, f"at scale {scale}", scale, unlike=0.08 if blurred else 0)
            if blurred and cards_are_drawn(server, scale):
                raise Failed("it is declared blurred, and is exactly as drawn")
        finally:
            server.scale_to(1)
        expect_cards(server, "at scale 1 again")
    return situation


def output_lost(server):
    server.lose_output()
    expect_cards(server, "on the output that is left", outputs=1)
    picture = server.pictures()[0]
    if server.is_drawn(picture, server.design(1), *server.corner(picture, 1, 1), 1):
        raise Failed("the lost output's card is on the other one")
    server.give_output_back()
    expect_cards(server, "when the output is back")


class RestartRule:
    """The cards' process is killed; a service manager starts it again, as the unit says."""

    def __init__(self):
        unit = (ROOT / "session/orvel-widget.service.in").read_text()
        number = lambda name: int(re.search(rf"^{name}=(\d+)$", unit, re.M)[1])
        self.delay, self.most, self.within = (number(name) for name in
                                              ("RestartSec", "StartLimitBurst", "StartLimitIntervalSec"))
        self.starts, self.due = [], None

    def keep_running(self, server):
        now = time.monotonic()
        if server.process.poll() is None:
            return
        if server.process.returncode == 0:
            raise Failed("the cards' program said that all is well when the server was gone")
        self.due = self.due or now + self.delay
        if now < self.due:
            return
        self.starts = [start for start in self.starts if start > now - self.within] + [now]
        if len(self.starts) > self.most:
            raise Failed("the cards' program was started more often than a service manager does")
        server.show()
        self.due = None


def server_restarted(server):
    server.stop()
    rule = RestartRule()
    patiently(lambda: server.process.poll() is not None, SECONDS, "the cards' program to end with the server")
    end = time.monotonic() + 3  # for one start that fails
    patiently(lambda: rule.keep_running(server) or time.monotonic() > end)
    server.begin()
    patiently(lambda: rule.keep_running(server) or cards_are_drawn(server), 60, "the cards, the server being back")


SITUATIONS = {
    "as drawn": as_drawn,
    "under windows": under_windows,
    "clicks pass": clicks_pass,
    "click command": click_command,
    "root menus": root_menus,
    "show desktop": show_desktop,
    "all workspaces": all_workspaces,
    "two outputs": two_outputs,
    "scale 1.5": scaled(1.5),
    "scale 2": scaled(2),
    "output lost and back": output_lost,
    "server restarted": server_restarted,
}
