"""Outputs of KWin, through its protocol for their management.

Usage: kwin_outputs.py enable|disable|scale X [FACTOR]
A scale is every output's, the others are about the second one; X is where that begins.
"""
import sys

from wayland_wire import Connection, fixed, word

ENABLE, POSITION, SCALE, APPLY = 0, 3, 4, 5

action = sys.argv[1]
connection = Connection()
outputs = [connection.bind("kde_output_device_v2", 2, which) for which in (0, 1)]
configuration = connection.make(connection.bind("kde_output_management_v2", 2), 0)
if action == "scale":
    for output in outputs:
        connection.send(configuration, SCALE, word(output) + fixed(float(sys.argv[3])))
else:
    connection.send(configuration, ENABLE, word(outputs[1]) + word(action == "enable"))
connection.send(configuration, POSITION, word(outputs[1]) + word(int(sys.argv[2])) + word(0))
connection.send(configuration, APPLY)
connection.wait()
