"""An X server without a monitor."""

import contextlib
import os
import signal
import subprocess

import Xlib.display
from PIL import ImageChops, ImageGrab
from Xlib import X, error
from Xlib.protocol.event import ClientMessage

from processes import Failure, end, spawn


class Screen:
    """Xvfb, on a display number that it chooses itself."""

    def __init__(self):
        reader, writer = os.pipe()
        # SDL opens the display twice, so the X server must not reset when its last client leaves.
        options = "-ac -noreset -nolisten tcp -screen 0 1280x1024x24".split()
        self.process = spawn(["Xvfb", "-displayfd", writer, *options], pass_fds=(writer,), stderr=subprocess.DEVNULL)
        os.close(writer)
        with open(reader) as line:
            number = line.readline().strip()
        if not number:
            raise Failure("Xvfb does not start")
        self.name = f":{number}"
        self.display = Xlib.display.Display(self.name)

    def end(self):
        end(self.process, signal.SIGTERM)  # so that it removes its files

    def find_window(self, title):
        """The visible window whose title starts with this text, or None."""
        with contextlib.suppress(error.BadWindow):  # a window may vanish meanwhile
            for window in self.display.screen().root.query_tree().children:
                if window.get_attributes().map_state == X.IsViewable and (window.get_wm_name() or "").startswith(title):
                    return window
        return None

    def close(self, window):
        """What a window manager does when the player clicks the window's close button."""
        protocols, close = (self.display.intern_atom(f"WM_{name}") for name in ("PROTOCOLS", "DELETE_WINDOW"))
        window.send_event(ClientMessage(window=window, client_type=protocols, data=(32, [close, 0, 0, 0, 0])))
        self.display.sync()

    def xdotool(self, *command):
        """Moves and presses the mouse, or presses keys."""
        subprocess.run(["xdotool", *map(str, command)], env={**os.environ, "DISPLAY": self.name}, check=True)

    def grab(self):
        """What the whole screen shows."""
        return ImageGrab.grab(xdisplay=self.name)


def differ(one, other):
    return ImageChops.difference(one.convert("RGB"), other.convert("RGB")).getbbox() is not None
