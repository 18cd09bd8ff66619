"""A person's pointer on a Wayland compositor, through the protocol for virtual pointers (wlroots) or for fake input
(KWin). Each line of standard input, "X Y BUTTON", is a click; before and
afterwards the pointer is in the lower left corner. X and Y are pixels of a layout of WIDTH and HEIGHT, and BUTTON is 1 or 3. Prints "done" when the
compositor has it.

Usage: pointer.py WIDTH HEIGHT
"""
import sys
import time

from wayland_wire import Connection, fixed, text, word

BUTTONS = {1: 0x110, 3: 0x111}  # linux/input-event-codes.h: left, right


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
        time.sleep(0.1)  # a client that has just been offered the pointer binds it
        for state in (1, 0):
            pointer.press(BUTTONS[button], state)
            connection.wait()
        pointer.move(0, height - 1, width, height)
        connection.wait()
        print("done", flush=True)


main()
