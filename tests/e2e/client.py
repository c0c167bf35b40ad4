"""The real client and the player in front of it."""

import contextlib
import os
import shutil
import subprocess
import time

from Xlib import X

from layout import Layout
from processes import Failure, end, spawn, wait_until
from screen import Screen, differ
from servers import NETWORK_HOST

# How long the client may take to end on a busy machine; each packet that waits to be sent adds to it.
QUIT_SECONDS = 3
RUNNING = "Display               Running"
IN_LOBBY = "Changed state to eClientStateInChat"
CREAM, RED = (251, 247, 195), (168, 36, 30)
# A screen has fewer shades than a color's numbers.
MAX_SHADES_APART = 12
ERASE = ["End", *["BackSpace"] * 16]


class Client:
    """The program on a screen of its own, in a run directory of its own."""

    def __init__(self, args, folder, port=1, size="800x600", ini="", environment=None):
        """Variables of `environment` are set for the program; None unsets one. `ini` replaces all of client.ini."""
        self.program = args.bin / "tolva-client"
        self.folder = folder
        self.process = None
        self.screen = Screen()
        environment = {**os.environ, "DISPLAY": self.screen.name, "SDL_AUDIODRIVER": "dummy", **(environment or {})}
        self.environment = {key: value for key, value in environment.items() if value is not None}
        shutil.rmtree(folder / "area", ignore_errors=True)
        (folder / "area").mkdir(parents=True)
        for archive in args.data.glob("*.cc?"):
            (folder / archive.name).unlink(missing_ok=True)
            (folder / archive.name).symlink_to(archive)
        width, height = size.split("x")
        (folder / "client.ini").write_text(ini or f"[NETWORK]\nHost={NETWORK_HOST}\nPort={port}\n"
                                                  f"[DISPLAY]\nWidth={width}\nHeight={height}\n")

    def read(self, name):
        path = self.folder / name
        return path.read_text(errors="replace") if path.exists() else ""

    def start(self, *wrapper):
        """Starts the program, by the wrapper if there is one, without waiting for anything."""
        (self.folder / "log.clf").unlink(missing_ok=True)
        with open(self.folder / "stderr", "w") as errors:
            self.process = spawn([*wrapper, self.program], cwd=self.folder, env=self.environment,
                                 stdin=subprocess.DEVNULL, stdout=errors, stderr=errors)

    def is_running(self):
        return self.process and self.process.poll() is None

    def end(self):
        if self.process:
            end(self.process)
        self.screen.end()

    def grab(self, region=None):
        """The picture in the client's window, or a region of it."""
        x, y = self.origin
        picture = self.screen.grab().crop((x, y, x + self.size[0], y + self.size[1]))
        return picture.crop(region) if region else picture

    def wait(self, what, condition):
        """Like wait_until, but fails at once when the client ends; a failure leaves a picture of the screen."""
        def alive():
            if not self.is_running():
                raise Failure(f"{what}: {self._last_words()}")
            return condition()

        try:
            return wait_until(what, alive)
        except Failure:
            self.screen.grab().save(self.folder / "failed.png")
            raise

    def wait_log(self, text):
        self.wait(f"log.clf says '{text}'", lambda: text in self.read("log.clf"))

    def wait_end(self, seconds=QUIT_SECONDS, fails=False):
        """Waits until the program ends by itself, with success or, if it `fails`, with another status, but not by a crash."""
        try:
            status = self.process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise Failure(f"the client did not end within {seconds} s") from None
        if status < 0 or (status != 0) != fails:
            raise Failure(self._last_words())

    def _last_words(self):
        return f"the client ended with status {self.process.returncode}: {self.read('stderr')[-300:]}"


class Player(Client):
    """Somebody who looks at the client's window and uses its keys and its mouse."""

    # Hands

    def key(self, *names):
        self.screen.xdotool("key", "--delay", 20, *names)

    def type(self, text):
        self.screen.xdotool("type", "--delay", 20, text)

    @contextlib.contextmanager
    def holding(self, key):
        """Holds a key during the block."""
        self.screen.xdotool("keydown", key)
        yield
        self.screen.xdotool("keyup", key)

    def point(self, x, y):
        self.screen.xdotool("mousemove", self.origin[0] + x, self.origin[1] + y)

    def click(self, place):
        self.point(*place)
        self.screen.xdotool("click", 1)
        self.point(*self.layout.corner)

    # Eyes

    def shows(self, region, color=None):
        """Whether some pixel of the region has about this color; without a color, any but black."""
        picture = self.grab(region)
        if color is None:
            return picture.getbbox() is not None
        return any(all(abs(a - b) <= MAX_SHADES_APART for a, b in zip(seen, color)) for _, seen in picture.getcolors(1 << 20))

    def wait_shown(self, what, region, color=None):
        self.wait(what, lambda: self.shows(region, color))

    @contextlib.contextmanager
    def changing(self, what, region):
        """After the block, waits until the region looks different from before it and no longer changes."""
        pictures = [self.grab(region)]
        yield

        def is_settled():
            pictures.append(self.grab(region))
            return differ(pictures[-1], pictures[0]) and not differ(pictures[-1], pictures[-2])

        self.wait(what, is_settled)

    def stands_still(self):
        """Whether two looks at the middle of the world show the same."""
        view = self.grab(self.layout.view)
        time.sleep(0.1)  # longer than each picture of a slide is shown
        return not differ(view, self.grab(self.layout.view))

    # From screen to screen

    def open_start_screen(self):
        """Starts the program, waits for its first screen and gives it the keyboard."""
        self.start()
        self.wait_log(RUNNING)
        self.window = self.wait("the window appears", lambda: self.screen.find_window("Tolva - Version"))
        self.window.set_input_focus(X.RevertToParent, X.CurrentTime)
        geometry = self.window.get_geometry()
        self.origin, self.size = (geometry.x, geometry.y), (geometry.width, geometry.height)
        self.layout = Layout(*self.size)
        self.point(*self.layout.corner)
        self.wait_shown("the start screen shows", None)

    def open_login(self):
        with self.changing("the login window shows", self.layout.login_window):
            self.key("space")

    def fill_login(self, name="Anna"):
        with self.changing("the name shows in its box", self.layout.name_box):
            self.key(*ERASE)
            self.type(name)
        self.key("Return", *ERASE)
        self.type("secret")
        self.key("Return")

    def log_in(self, name="Anna"):
        """From the start of the program, without waiting for the answer."""
        self.open_start_screen()
        self.open_login()
        self.fill_login(name)

    def wait_answer(self):
        """Waits until the status line says why a login failed."""
        self.wait_shown("the status line says why", self.layout.long_status)

    def wait_lobby(self):
        self.wait_log(IN_LOBBY)
        self.wait_shown("the lobby says that it is connected", self.layout.connection_label, CREAM)

    def wait_loss(self):
        self.wait_shown("the lobby says that the connection is lost", self.layout.connection_label, RED)

    def join_lobby(self, name="Anna"):
        """From the start of the program."""
        self.log_in(name)
        self.wait_lobby()

    def say(self, text, input_line="lobby_input"):
        """Types a line and waits until it has left the input line."""
        region = getattr(self.layout, input_line)
        with self.changing("the line shows while it is typed", region):
            self.type(text)
        with self.changing("the input line is emptied", region):
            self.key("Return")

    def enter_world(self):
        """From the lobby, until the map begins to synchronize: only then is the bottom black."""
        self.click(self.layout.enter_game_button)
        self.wait("the progress shows", lambda: not self.shows(self.layout.bottom_bar))

    def wait_world(self):
        """Waits until the synchronization is over."""
        self.wait_shown("the world shows", self.layout.bottom_bar)

    def return_to_lobby(self):
        self.key("Escape")
        self.wait_lobby()

    def quit(self, seconds=QUIT_SECONDS):
        """By the lobby's button, or by Escape before."""
        if IN_LOBBY in self.read("log.clf"):
            self.click(self.layout.quit_button)
        else:
            self.key("Escape")
        self.wait_end(seconds)

    def close(self, seconds=QUIT_SECONDS):
        """By the window's close button."""
        self.screen.close(self.window)
        self.wait_end(seconds)
