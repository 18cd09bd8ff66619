"""A person's pointer on a Wayland compositor, through the protocol for virtual pointers (wlroots) or for fake input
(KWin), in their own bytes. Each line of standard input, "X Y BUTTON", is a click; before and
afterwards the pointer is in the lower left corner. X and Y are pixels of a layout of WIDTH and HEIGHT, and BUTTON is 1 or 3. Prints "done" when the
compositor has it.

Usage: pointer.py WIDTH HEIGHT
"""
import os
import socket
import struct
import sys
import time

DISPLAY, REGISTRY = 1, 2
BUTTONS = {1: 0x110, 3: 0x111}  # linux/input-event-codes.h: left, right


def word(number):
    return struct.pack("=I", number & 0xFFFFFFFF)


def fixed(number):
    return word(round(number * 256))


def text(words):
    data = words.encode() + b"\0"
    return word(len(data)) + data + b"\0" * (-len(data) % 4)


class Connection:
    def __init__(self):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(os.path.join(os.environ["XDG_RUNTIME_DIR"], os.environ["WAYLAND_DISPLAY"]))
        self.last, self.buffer, self.globals = REGISTRY, b"", {}
        self.send(DISPLAY, 1, word(REGISTRY))
        self.wait()

    def send(self, thing, request, arguments=b""):
        self.socket.sendall(struct.pack("=IHH", thing, request, 8 + len(arguments)) + arguments)

    def make(self, maker, request, arguments=b""):
        """A new thing, whose number is the next one."""
        self.last += 1
        self.send(maker, request, arguments + word(self.last))
        return self.last

    def bind(self, interface, version):
        return self.make(REGISTRY, 0, word(self.globals[interface]) + text(interface) + word(version))

    def wait(self):
        """Until the compositor has handled everything so far."""
        handled = self.make(DISPLAY, 0)
        while True:
            while len(self.buffer) < 8 or len(self.buffer) < struct.unpack("=H", self.buffer[6:8])[0]:
                received = self.socket.recv(65536)
                if not received:
                    sys.exit("the compositor has gone away")
                self.buffer += received
            thing, event, size = struct.unpack("=IHH", self.buffer[:8])
            body, self.buffer = self.buffer[8:size], self.buffer[size:]
            if thing == DISPLAY and event == 0:
                sys.exit(f"the compositor refuses: {body[12:]!r}")
            if thing == REGISTRY and event == 0:
                name, length = struct.unpack("=II", body[:8])
                self.globals[body[8:8 + length - 1].decode()] = name
            if thing == handled:
                return


class VirtualPointer:
    def __init__(self, connection):
        self.connection = connection
        manager = connection.bind("zwlr_virtual_pointer_manager_v1", 1)
        self.pointer = connection.make(manager, 0, word(0))

    def move(self, x, y, width, height):
        self.connection.send(self.pointer, 1, word(0) + word(x) + word(y) + word(width) + word(height))
        self.connection.send(self.pointer, 4)

    def press(self, button, state):
        self.connection.send(self.pointer, 2, word(0) + word(button) + word(state))
        self.connection.send(self.pointer, 4)


class FakeInput:
    def __init__(self, connection):
        self.connection = connection
        self.pointer = connection.bind("org_kde_kwin_fake_input", 3)
        connection.send(self.pointer, 0, text("test") + text("clicks"))

    def move(self, x, y, width, height):
        self.connection.send(self.pointer, 9, fixed(x) + fixed(y))

    def press(self, button, state):
        self.connection.send(self.pointer, 2, word(button) + word(state))


def main():
    width, height = map(int, sys.argv[1:])
    connection = Connection()
    pointer = (VirtualPointer if "zwlr_virtual_pointer_manager_v1" in connection.globals else FakeInput)(connection)
    pointer.move(0, height - 1, width, height)
    connection.wait()
    for line in sys.stdin:
        x, y, button = map(int, line.split())
        pointer.move(x - 1, y, width, height)
        pointer.move(x, y, width, height)
        connection.wait()
        time.sleep(0.1)  # whoever has just got the pointer binds it
        for state in (1, 0):
            pointer.press(BUTTONS[button], state)
            connection.wait()
        pointer.move(0, height - 1, width, height)
        connection.wait()
        print("done", flush=True)


main()
