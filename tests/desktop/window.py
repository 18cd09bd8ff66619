"""A window of one colour on an X server. Prints "shown", and each click that reaches it.

Usage: window.py normal|desktop WIDTHxHEIGHT+X+Y COLOUR
"""
import sys
import tkinter

kind, geometry, colour = sys.argv[1:]
window = tkinter.Tk(className="window")
window.attributes("-type", kind)
window.geometry(geometry)
window.configure(background=colour)
window.bind("<Button>", lambda event: print("click", flush=True))
window.bind("<Map>", lambda event: print("shown", flush=True))
window.mainloop()
