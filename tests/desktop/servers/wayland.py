"""Wayland compositors without a screen."""
import contextlib
import json
import os
import shutil
import tempfile

import dbus

from cards import Picture, patiently
from servers.server import HEIGHT, HERE, PYTHON, WIDTH, Server


class Layered(Server):
    """A compositor with layer shell."""
    needs = ["Xwayland", "grim", "convert"]
    pointer = None

    def start_pointer(self):
        self.pointer = self.start(PYTHON, f"{HERE}/pointer.py", str(2 * WIDTH), str(HEIGHT), stdin=-1, stdout=-1,
                                  text=True, bufsize=1)

    def click(self, output, x, y, button=1):
        self.pointer.stdin.write(f"{output * WIDTH + x} {y} {button}\n")
        self.pointer.stdout.readline()

    @contextlib.contextmanager
    def below_the_card(self):
        """A card of the layer below, which takes clicks."""
        file = self.work / "below"
        file.write_text("")
        below = self.start(self.build / "orvel", "desktop", "@3", "--layer", "background", "--anchor", "top-left",
                           "--margin", "30", "--output", self.outputs[0], "--click", f"echo >> '{file}'",
                           environment=self.wrapped())
        seen = lambda: self.pictures()[0].share((22, 22, 25), 195, 100, 4, 20) == 1
        patiently(seen, what="the card below")
        try:
            yield lambda: file.stat().st_size
        finally:
            self.finish(below)


class Sway(Layered):
    name = "sway"
    manager = ["sway"]
    packages = ["sway"]
    outputs = ["HEADLESS-1", "HEADLESS-2"]
    lacks = {"root menus": "its desktop has no menu", "show desktop": "it has no such command",
             "output lost and back": "outputs without a monitor can't be switched off in this version"}
    blurred = {"scale 1.5": "this version lets programs draw at whole scales alone, and reduces what they drew"}
    says = "tells programs whole scales alone"

    def begin(self):
        ready, file = self.work / "ready", self.work / "sway"
        ready.unlink(missing_ok=True)
        file.write_text(f"output * resolution {WIDTH}x{HEIGHT}\noutput HEADLESS-1 position 0 0\n"
                        f"output HEADLESS-2 position {WIDTH} 0\nfocus_follows_mouse no\nmouse_warping none\n"
                        "xwayland force\nworkspace 1 output HEADLESS-1\nworkspace 2 output HEADLESS-1\n"
                        "workspace 3 output HEADLESS-2\n"
                        f"exec env > {self.work}/environment && mv {self.work}/environment {ready}\n")
        self.compositor = self.start("sway", "-c", str(file), environment={
            "WLR_BACKENDS": "headless", "WLR_LIBINPUT_NO_DEVICES": "1", "WLR_RENDERER": "pixman",
            "WLR_HEADLESS_OUTPUTS": "2"})
        patiently(lambda: self.ensure_running(self.compositor) or ready.exists(), what="sway")
        for line in ready.read_text(errors="replace").splitlines():
            name, _, value = line.partition("=")
            if name in ("WAYLAND_DISPLAY", "SWAYSOCK", "DISPLAY"):
                self.environment[name] = value
        self.start_pointer()

    def stop(self):
        self.kill(self.compositor)

    def message(self, *words):
        return self.run("swaymsg", *words).stdout

    def lose_output(self):
        self.message("output", "HEADLESS-2", "disable")

    def give_output_back(self):
        self.message("output", "HEADLESS-2", "enable")

    def scale_to(self, scale):
        self.message("output", "*", "scale", str(scale))

    def workspace(self, number):
        self.message("workspace", str(number))

    def pictures(self):
        pictures = []
        for i, output in enumerate(json.loads(self.message("-t", "get_outputs"))):
            if output["active"]:
                file = self.work / f"shot-{i}.ppm"
                self.run("grim", "-t", "ppm", "-o", output["name"], file)
                pictures.append((output["name"], Picture(file)))
        return [picture for _, picture in sorted(pictures, key=lambda each: each[0])]


class KWin(Layered):
    name = "KWin on Wayland"
    packages = ["kwin-wayland"]
    needs = ["kwin_wayland", "dbus-daemon", "Xwayland", "wmctrl", "pgrep", "convert"]
    outputs = ["Virtual-0", "Virtual-1"]
    lacks = {"root menus": "the menu is another program's"}
    cannot = {"show desktop": "it brings the desktop's own windows in front of everything else, and a card that counts as "
                              "one of these would vanish behind the wallpaper when that is clicked"}
    says = "puts cards away together with the windows when it shows the desktop"

    below_the_card = Server.below_the_card

    def begin(self):
        (self.home / ".config/kwinrc").write_text("[Desktops]\nNumber=2\nRows=1\n")
        self.bus = self.start_session_bus()
        # A copy lacks the capability of a higher priority, which not every container can grant.
        program = shutil.copyfile(shutil.which("kwin_wayland"), self.work / "kwin_wayland")
        program.chmod(0o755)
        socket = f"kwin-{len(self.others)}"
        self.compositor = self.start(
            program, "--virtual", "--xwayland", "--width", str(WIDTH), "--height", str(HEIGHT), "--output-count", "2",
            "--no-lockscreen", "--no-global-shortcuts", "--socket", socket,
            environment={"KWIN_WAYLAND_NO_PERMISSION_CHECKS": "1", "KWIN_SCREENSHOT_NO_PERMISSION_CHECKS": "1"})
        patiently(lambda: self.ensure_running(self.compositor) or (self.work / socket).exists(), what="KWin")
        self.environment["WAYLAND_DISPLAY"] = socket
        self.environment["DISPLAY"] = patiently(self.x_display, what="KWin's X server")
        patiently(lambda: b"window id" in self.run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK").stdout,
                  what="KWin to manage its X server's windows")
        self.start_pointer()

    def x_display(self):
        """The number that its X server listens at, which only its processes know."""
        listed = self.run("pgrep", "-P", str(self.compositor.pid), "-a", "Xwayland").stdout.decode().split()
        return next((word for word in listed if word.startswith(":")), None)

    def stop(self):
        self.kill(self.compositor)
        self.kill(self.bus)

    def ask(self, interface, path, method, *arguments):
        address = self.environment["DBUS_SESSION_BUS_ADDRESS"]
        thing = dbus.bus.BusConnection(address).get_object("org.kde.KWin", path, introspect=False)
        return dbus.Interface(thing, interface).get_dbus_method(method)(*arguments)

    def configure_outputs(self, *words):
        self.run(PYTHON, f"{HERE}/kwin_outputs.py", *words)

    def lose_output(self):
        self.configure_outputs("disable", str(WIDTH))

    def give_output_back(self):
        self.configure_outputs("enable", str(WIDTH))

    def scale_to(self, scale):
        self.configure_outputs("scale", str(WIDTH), str(scale))

    def show_desktop(self, wanted):
        self.run("wmctrl", "-k", "on" if wanted else "off")

    def workspace(self, number):
        self.ask("org.kde.KWin", "/KWin", "setCurrentDesktop", dbus.Int32(number))

    def pictures(self):
        pictures = []
        for i, output in enumerate(self.outputs):
            with tempfile.TemporaryFile() as file:
                try:
                    answer = self.ask("org.kde.KWin.ScreenShot2", "/org/kde/KWin/ScreenShot2", "CaptureScreen", output,
                                      dbus.Dictionary({"native-resolution": True}, signature="sv"),
                                      dbus.types.UnixFd(file))
                except dbus.exceptions.DBusException:
                    continue  # it is off
                width, height, stride = (int(answer[key]) for key in ("width", "height", "stride"))
                patiently(lambda: os.fstat(file.fileno()).st_size >= stride * height, what="a picture's pixels")
                file.seek(0)
                pixels = file.read()
            picture = bytearray(3 * width * height)  # from blue, green, red and an unused byte
            for channel in range(3):
                picture[channel::3] = pixels[2 - channel::4]
            shot = self.work / f"shot-{i}.ppm"
            shot.write_bytes(b"P6 %d %d 255\n" % (width, height) + picture)
            pictures.append(Picture(shot))
        return pictures


SERVERS = [Sway, KWin]
