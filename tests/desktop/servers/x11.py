"""X servers without a screen, with a window manager, and perhaps a program that draws the desktop."""
import json
import os
import random

from cards import Picture, patiently
from servers.server import HEIGHT, PYTHON, WIDTH, Server


class X11(Server):
    outputs = ["first", "second"]
    needs = ["Xvfb", "xrandr", "xrdb", "xprop", "xsetroot", "xdotool", "wmctrl", "import", "convert",
             PYTHON]
    desktop = []  # what draws the desktop: the command
    display = None
    running = []

    def begin(self):
        self.start_x_server()
        self.environment["DISPLAY"] = self.display
        self.give_first_output()
        self.give_output_back()
        self.run("xsetroot", "-solid", "#336699")
        self.manage()

    def start_x_server(self):
        read, write = os.pipe()
        # The lowest free number could be another server's by the time this one starts again.
        number = self.display or f":{random.randrange(1000, 20000)}"
        self.running = [self.start(*self.x_server(), number, "-displayfd", str(write), "-noreset", "-nolisten", "tcp",
                                   pass_fds=[write])]
        os.close(write)
        with os.fdopen(read) as told:
            self.display = ":" + told.readline().strip()

    def manage(self):
        self.running.append(self.start(*self.manager))
        patiently(self.is_managed, what=f"{self.name} to manage the screen")
        if self.desktop:
            self.running.append(self.start(*self.desktop))
            patiently(lambda: b"_NET_WM_WINDOW_TYPE_DESKTOP" in self.clients(), what=f"{self.desktop[0]}'s window")

    def is_managed(self):
        self.ensure_running(self.running[-1])
        return b"window id" in self.run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK").stdout

    def clients(self):
        listed = self.run("xprop", "-root", "_NET_CLIENT_LIST").stdout.decode().partition("#")[2]
        return b"".join(self.run("xprop", "-id", window.strip(), "_NET_WM_WINDOW_TYPE").stdout
                        for window in listed.split(",") if window.strip())

    def stop(self):
        for process in reversed(self.running[1:]):
            self.finish(process)
        self.kill(self.running[0])

    def xrandr(self, *arguments):
        self.run("xrandr", *arguments)

    # One output in two halves. With X servers of several outputs, see below.
    def x_server(self):
        return ["Xvfb", "-screen", "0", f"{2 * WIDTH}x{HEIGHT}x24"]

    def give_first_output(self):
        self.xrandr("--setmonitor", "*first", f"{WIDTH}/240x{HEIGHT}/160+0+0", "screen")

    def lose_output(self):
        self.xrandr("--delmonitor", "second")

    def give_output_back(self):
        self.xrandr("--setmonitor", "second", f"{WIDTH}/240x{HEIGHT}/160+{WIDTH}+0", "none")

    def scale_to(self, scale):
        self.run("xrdb", "-merge", input=f"Xft.dpi: {round(96 * scale)}\n".encode())

    def pictures(self):
        """Of the monitors, as the server lists them."""
        listed = self.run("xrandr", "--listmonitors").stdout.decode()
        pictures = []
        for i, name in enumerate(self.outputs):
            if name in listed:
                file = self.work / f"shot-{i}.ppm"
                self.run("import", "-silent", "-window", "root", "-crop", f"{WIDTH}x{HEIGHT}+{i * WIDTH}+0", "-depth",
                         "8", file)
                pictures.append(Picture(file))
        return pictures

    def click(self, output, x, y, button=1):
        self.run("xdotool", "mousemove", str(output * WIDTH + x), str(y), "sleep", "0.1", "click", str(button))

    def close_menu(self):
        self.run("xdotool", "key", "Escape")

    def show_desktop(self, wanted):
        self.run("wmctrl", "-k", "on" if wanted else "off")

    def workspace(self, number):
        self.run("wmctrl", "-s", str(number - 1))


class Openbox(X11):
    name = "openbox"
    packages = ["openbox"]
    manager = ["openbox", "--sm-disable"]


class I3(X11):
    name = "i3"
    packages = ["i3-wm"]
    manager = ["i3"]
    lacks = {"root menus": "its desktop has no menu", "show desktop": "it has no such command"}

    def manage(self):
        file = self.work / "i3.configuration"
        file.write_text("# i3 config file (v4)\nfont pango:monospace 8\nfocus_follows_mouse no\nmouse_warping none\n"
                        f"ipc-socket {self.work}/i3.sock\nworkspace 1 output first\nworkspace 2 output first\n"
                        "workspace 3 output second\n")
        self.manager = ["i3", "-c", str(file)]
        super().manage()

    def message(self, *words):
        return self.run("i3-msg", "-s", f"{self.work}/i3.sock", *words).stdout

    def workspace(self, number):
        self.message(f"workspace {number}")

    def focused_output(self):
        return next(each["output"] for each in json.loads(self.message("-t", "get_workspaces")) if each["focused"])

    below_the_card = Server.other_output_focused


class TwoOutputs(X11):
    """The full server, with two outputs of its driver for no screen: some desktops take no halves for outputs."""
    outputs = ["DUMMY0", "DUMMY1"]
    mode = f"{WIDTH}x{HEIGHT}"

    def x_server(self):
        file = self.work / "xorg.conf"
        file.write_text(
            'Section "Device"\nIdentifier "device"\nDriver "dummy"\nVideoRam 256000\nEndSection\n'
            'Section "Monitor"\nIdentifier "monitor"\nHorizSync 1-1000\nVertRefresh 1-1000\n'
            f'Modeline "{self.mode}" 45 960 1008 1100 1244 600 601 604 622\nEndSection\n'
            'Section "Screen"\nIdentifier "screen"\nDevice "device"\nMonitor "monitor"\nDefaultDepth 24\n'
            f'SubSection "Display"\nDepth 24\nModes "{self.mode}"\nVirtual 4000 2000\nEndSubSection\nEndSection\n'
            'Section "ServerFlags"\nOption "AutoAddDevices" "false"\nOption "AutoAddGPU" "false"\nEndSection\n')
        return ["Xorg", "-config", str(file), "-logfile", str(self.work / "xorg.log"), "-novtswitch"]

    def give_first_output(self):
        self.xrandr("--output", "DUMMY0", "--mode", self.mode, "--primary")
        self.xrandr("--addmode", "DUMMY1", self.mode)

    def lose_output(self):
        self.xrandr("--output", "DUMMY1", "--off")

    def give_output_back(self):
        self.xrandr("--output", "DUMMY1", "--mode", self.mode, "--right-of", "DUMMY0")


class Xfce(TwoOutputs):
    name = "xfwm4 and xfdesktop"
    packages = ["xfwm4", "xfdesktop4"]
    manager = ["xfwm4"]
    desktop = ["xfdesktop"]

    def manage(self):
        self.running.append(self.start_session_bus())
        super().manage()


class Pcmanfm(TwoOutputs):
    name = "pcmanfm --desktop"
    packages = ["pcmanfm"]
    manager = ["openbox", "--sm-disable"]
    desktop = ["pcmanfm", "--desktop"]

    def manage(self):
        self.running.append(self.start_session_bus())
        super().manage()


class KWin(TwoOutputs):
    name = "KWin on X11"
    packages = ["kwin-x11"]
    manager = ["kwin_x11"]
    lacks = {"root menus": "the menu is another program's"}

    def manage(self):
        (self.home / ".config/kwinrc").write_text("[Desktops]\nNumber=2\nRows=1\n")
        self.running.append(self.start_session_bus())
        super().manage()


SERVERS = [Openbox, I3, Xfce, Pcmanfm, KWin]
