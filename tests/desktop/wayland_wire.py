"""A connection to a Wayland compositor, in the protocol's own bytes."""
import os
import socket
import struct
import sys

DISPLAY, REGISTRY = 1, 2


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
        """The id of a new object: the next one."""
        self.last += 1
        self.send(maker, request, arguments + word(self.last))
        return self.last

    def bind(self, interface, version, which=0):
        name = self.globals[interface][which]
        return self.make(REGISTRY, 0, word(name) + text(interface) + word(version))

    def wait(self):
        """Waits until the compositor has handled everything sent so far."""
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
                self.globals.setdefault(body[8:8 + length - 1].decode(), []).append(name)
            if thing == handled:
                return
