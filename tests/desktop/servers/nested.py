"""Wayland compositors without layer shell, whose cards are windows of their X server. They run in a window of another X
server, which has the pointer and takes the pictures."""
import contextlib
import re
import subprocess

import dbus

from cards import Picture, patiently
from servers.server import HEIGHT, WIDTH
from servers.x11 import X11


class Nested(X11):
    outputs = ["XWAYLAND0", "XWAYLAND1"]

    def begin(self):
        self.start_x_server()
        self.running.append(self.start_session_bus())
        self.running.append(self.start_compositor({"DISPLAY": self.display}))
        self.environment["WAYLAND_DISPLAY"] = "nested"
        patiently(lambda: self.ensure_running(self.running[-1]) or (self.work / "nested").exists(), what=self.name)
        self.environment["DISPLAY"] = self.inner_display()
        patiently(lambda: b"window id" in self.run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK").stdout,
                  what=f"{self.name} to manage its X server's windows")

    def stop(self):
        for process in reversed(self.running):
            self.kill(process)

    def outer(self, *command):
        return subprocess.run(command, env={**self.environment, "DISPLAY": self.display}, stdout=subprocess.PIPE,
                              stderr=self.said)

    def click(self, output, x, y, button=1):
        """Also moves the pointer, which the pictures show, to where no card is."""
        self.outer("xdotool", "mousemove", str(output * WIDTH + x), str(y), "sleep", "0.1", "click", str(button),
                   "sleep", "0.1", "mousemove", "0", str(HEIGHT - 1))

    def pictures(self):
        pictures = []
        for i in range(self.shown):
            file = self.work / f"shot-{i}.ppm"
            self.outer("import", "-silent", "-window", "root", "-crop", f"{WIDTH}x{HEIGHT}+{i * WIDTH}+0", "-depth",
                       "8", file)
            pictures.append(Picture(file))
        return pictures

    shown = 2


class Mutter(Nested):
    name = "Mutter"
    packages = ["mutter"]
    needs = [*Nested.needs, "mutter", "Xwayland", "dbus-daemon"]
    lacks = {"root menus": "its desktop has no menu"}
    cannot = {"output lost and back": "its X server gives a monitor that comes back another name, so a card that was "
                                      "placed on it by name stays away"}
    says = "which may give a monitor that comes back another name"

    def start_compositor(self, environment):
        return self.start("mutter", "--nested", "--wayland", "--wayland-display", "nested", environment={
            **environment, "MUTTER_DEBUG_NUM_DUMMY_MONITORS": "2",
            "MUTTER_DEBUG_DUMMY_MODE_SPECS": f"{WIDTH}x{HEIGHT}"})

    def inner_display(self):
        """It keeps the right to use its X server in a file, which only its users' processes find."""
        listed = patiently(lambda: self.run("pgrep", "-a", "-P", str(self.running[-1].pid), "Xwayland").stdout,
                           what="Mutter's X server").decode().split()
        self.environment["XAUTHORITY"] = listed[listed.index("-auth") + 1]
        return next(word for word in listed if word.startswith(":"))

    def use_outputs(self, count):
        bus = dbus.bus.BusConnection(self.environment["DBUS_SESSION_BUS_ADDRESS"])
        name = "org.gnome.Mutter.DisplayConfig"
        outputs = dbus.Interface(bus.get_object(name, "/" + name.replace(".", "/"), introspect=False), name)
        serial, monitors, _, _ = outputs.GetCurrentState()
        wanted = [(dbus.Int32(i * WIDTH), dbus.Int32(0), dbus.Double(1), dbus.UInt32(0), dbus.Boolean(i == 0),
                   dbus.Array([(str(monitor[0][0]), str(monitor[1][0][0]), dbus.Dictionary({}, signature="sv"))],
                              signature="(ssa{sv})"))
                  for i, monitor in enumerate(monitors[:count])]
        outputs.ApplyMonitorsConfig(dbus.UInt32(serial), dbus.UInt32(1), dbus.Array(wanted, signature="(iiduba(ssa{sv}))"),
                                    dbus.Dictionary({}, signature="sv"))
        self.shown = count

    def lose_output(self):
        self.use_outputs(1)

    def give_output_back(self):
        self.use_outputs(2)


class Weston(Nested):
    name = "weston"
    packages = ["weston"]
    needs = [*Nested.needs, "weston", "Xwayland", "dbus-daemon"]
    lacks = {"root menus": "its desktop has no menu", "show desktop": "it has no such command",
             "output lost and back": "without a monitor, it can't switch outputs off",
             "scale 1.5": "it has whole scales alone",
             "scale 2": "it is set at the start; then it enlarges what its X server shows, cards too"}

    cannot = {"under windows": "its X server's windows lie as they came: a card is above those that are older",
              "clicks pass": "it puts every window into a frame, which takes them",
              "all workspaces": "a window is on one of them alone"}
    says = "which lie above older windows, keep clicks to themselves and stay on one workspace"
    cover = f"{WIDTH + 40}x{HEIGHT + 40}+0+0"  # one that fits goes anywhere

    @contextlib.contextmanager
    def below_the_card(self):
        """The cards start after the windows that are to lie below them."""
        with super().below_the_card() as clicks:
            self.finish(self.process)
            self.show()
            yield clicks

    def start_compositor(self, environment):
        file = self.work / "weston.ini"
        outputs = "".join(f"[output]\nname=X{i}\nmode={WIDTH}x{HEIGHT}\n" for i in (1, 2))
        file.write_text("[core]\nxwayland=true\nidle-time=0\n[shell]\npanel-position=none\nlocking=false\n"
                        "background-color=0xff336699\nnum-workspaces=2\nanimation=none\nstartup-animation=none\n"
                        f"close-animation=none\n{outputs}")
        self.log = self.work / f"weston-{len(self.others)}"
        return self.start("weston", "--backend=x11-backend.so", "--use-pixman", "--output-count=2", f"--config={file}",
                          "--socket=nested", f"--log={self.log}", environment=environment)

    def inner_display(self):
        said = lambda: self.log.exists() and self.log.read_text(errors="replace").partition("listening on display ")[2]
        display = patiently(said, what="weston's X server").split()[0]
        windows = patiently(lambda: len(found := self.windows_of_outputs()) == 2 and found, what="weston's windows")
        for window, number in windows:
            self.outer("xdotool", "windowmove", window, str((int(number) - 1) * WIDTH), "0")
        return display

    def windows_of_outputs(self):
        tree = self.outer("xwininfo", "-root", "-tree").stdout.decode(errors="replace")
        return re.findall(r'(0x\w+) "Weston Compositor - X(\d)"', tree)

    def workspace(self, number):
        self.outer("xdotool", "key", f"super+F{number}")


SERVERS = [Mutter, Weston]
