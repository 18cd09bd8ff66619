"""Wayland compositors without a screen."""
import contextlib
import json

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
    packages = ["sway"]
    outputs = ["HEADLESS-1", "HEADLESS-2"]
    lacks = {"root menus": "its desktop has no menu", "show desktop": "it has no such command",
             "output lost and back": "outputs without a monitor can't be switched off in this version"}
    blurred = {"scale 1.5": "this version lets programs draw at whole scales alone, and reduces what they drew"}

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
        self.compositor.kill()
        self.compositor.wait()

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


SERVERS = [Sway]
