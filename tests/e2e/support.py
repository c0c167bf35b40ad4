"""What the end-to-end tests share: the real programs in run directories of their own, a screen and an X client's hands.

Everything waits for conditions with deadlines and raises Failure with a sentence when one is missed. Every process ends
with the Stage that started it.
"""

import argparse
import contextlib
import ctypes
import os
import re
import shutil
import signal
import socket
import struct
import subprocess
import threading
import time
from pathlib import Path

from PIL import ImageChops, ImageGrab

NETWORK_HOST = "127.0.0.1"
# How long a program may take to do what it is asked, on a slow machine that does other things besides.
PATIENCE = 20
# How long the client may take to end: what waits to be sent holds it up, and a machine that does other things besides.
QUIT_SECONDS = 3


class Failure(Exception):
    pass


def wait_until(what, condition, seconds=PATIENCE):
    """Returns the first true value of condition(); raises Failure when there is none in time."""
    deadline = time.monotonic() + seconds
    while not (value := condition()):
        if time.monotonic() > deadline:
            raise Failure(f"not within {seconds} s: {what}")
        time.sleep(0.02)
    return value


def spawn(command, **options):
    """A process that dies with this one."""
    return subprocess.Popen([str(part) for part in command], preexec_fn=lambda: ctypes.CDLL(None).prctl(1, signal.SIGKILL),
                            **options)


def end(process):
    process.kill()
    process.wait()


class Xvfb:
    """A screen without a monitor, on a display number that nobody has: the X server finds one and tells it.

    It does not reset when its last client leaves: SDL opens the display twice, and the second time would meet the reset.
    """

    def __init__(self):
        told, tells = os.pipe()
        self.process = spawn(["Xvfb", "-displayfd", tells, "-ac", "-noreset", "-nolisten", "tcp", "-screen", "0",
                              "1280x1024x24"], pass_fds=(tells,), stderr=subprocess.DEVNULL)
        os.close(tells)
        with open(told) as line:
            number = line.readline().strip()
        if not number:
            raise Failure("Xvfb does not start")
        self.name, self.files = f":{number}", [Path(f"/tmp/.X11-unix/X{number}"), Path(f"/tmp/.X{number}-lock")]

    def end(self):
        end(self.process)
        for path in self.files:  # one that was killed leaves them
            path.unlink(missing_ok=True)


class Server:
    """The real server on a free port."""

    def __init__(self, args, folder, *options):
        folder.mkdir(parents=True, exist_ok=True)
        self.log_path = folder / "server.log"
        with open(self.log_path, "w") as log:
            self.process = spawn([args.bin / "tolva-server", "--port", "0", *options], cwd=folder, stdout=log, stderr=log)
        self.port = int(self.wait_log(r"listening on \S*?:(\d+)").group(1))

    def wait_log(self, pattern):
        return wait_until(f"the server prints '{pattern}'", lambda: re.search(pattern, self.log_path.read_text()))


class FakeServer:
    """A server of one connection that sends `payload` after the first bytes it gets, and then only listens."""

    def __init__(self, payload=b"", accepts=True):
        self.listener = socket.create_server((NETWORK_HOST, 0), backlog=1)
        self.port = self.listener.getsockname()[1]
        self.payload = payload
        self.received = b""
        if accepts:
            threading.Thread(target=self._serve, daemon=True).start()
            return
        # Once the queue of connections to accept is full, the next one is not answered: its connect hangs.
        self.waiting = [socket.socket() for _ in range(4)]
        for waiting in self.waiting:
            waiting.setblocking(False)
            waiting.connect_ex((NETWORK_HOST, self.port))

    def _serve(self):
        # The client under test may be gone at any moment; what it did is for the test to judge.
        with contextlib.suppress(OSError):
            self._talk(self.listener.accept()[0])

    def _talk(self, peer):
        self.received += peer.recv(65536)
        peer.sendall(self.payload)
        while data := peer.recv(65536):
            self.received += data

    @staticmethod
    def pour(peer, payload):
        """Whether the peer is still there to take it."""
        with contextlib.suppress(OSError):
            peer.sendall(payload)
            return True
        return False


class Client:
    """The real client on a screen of its own, in a run directory of its own."""

    def __init__(self, args, folder, port=1, ini="", environment=None):
        self.args = args
        self.folder = folder
        self.environment = environment or {}
        self.process = None
        self.screen = Xvfb()
        shutil.rmtree(folder / "area", ignore_errors=True)
        (folder / "area").mkdir(parents=True)
        for archive in args.data.glob("*.cc?"):
            (folder / archive.name).unlink(missing_ok=True)
            (folder / archive.name).symlink_to(archive)
        (folder / "client.ini").write_text(ini or f"[NETWORK]\nHost={NETWORK_HOST}\nPort={port}\n")

    def read(self, name):
        path = self.folder / name
        return path.read_text(errors="replace") if path.exists() else ""

    def start(self, **options):
        """Starts the program without waiting for anything."""
        (self.folder / "log.clf").unlink(missing_ok=True)
        environment = {**os.environ, "DISPLAY": self.screen.name, "SDL_AUDIODRIVER": "dummy", **self.environment}
        environment = {key: value for key, value in environment.items() if value is not None}
        with open(self.folder / "stderr", "w") as errors:
            self.process = spawn([self.args.bin / "tolva-client"], cwd=self.folder, env=environment, stdin=subprocess.DEVNULL,
                                 stdout=errors, stderr=errors, **options)

    def start_screen(self):
        """Starts the program, waits for its first screen and gives it the keyboard."""
        self.start()
        self.wait_log("Display               Running")
        self.window = self.wait("the window appears", lambda: self.xdotool(
            "search", "--onlyvisible", "--name", "^Tolva - Version").split("\n")[0])
        self.wait("the window has the keyboard", lambda: (
            self.xdotool("windowfocus", self.window), self.xdotool("getwindowfocus") not in ("", "1"))[1])
        geometry = self.xdotool("getwindowgeometry", "--shell", self.window)
        x, y, width, height = (int(re.search(rf"{name}=(\d+)", geometry).group(1)) for name in ("X", "Y", "WIDTH", "HEIGHT"))
        self.origin, self.size = (x, y), (width, height)
        login_x, login_y = width // 2 - 125, height // 2 - 75
        self.login_window = login_x, login_y, login_x + 250, login_y + 150
        self.name_box = login_x + 100, login_y + 50, login_x + 230, login_y + 70
        self.status_line = 0, height - 40, width, height - 20
        self.chat_box = 0, 100, width - 150, height - 45
        self.chat_users = width - 150, 270, width, 270 + (height - 45 - 270) // 2
        self.input_box = 5, height - 25, width - 5, height - 2
        self.connection_label = width - 148, 200, width - 2, 220
        options_x, options_y = (width - 300) // 2, (height - 210) // 2
        self.options_window = options_x, options_y, options_x + 300, options_y + 210
        self.quit_button, self.options_button = (width - 47, 57), (width - 47, 83)
        self.enter_game_button = width - 130, 57
        self.bottom = 0, height - 30, width, height
        self.history = 0, height - 54, width - 20, height - 36
        # Where a line stands that the player's own character says.
        self.over_head = width // 2 - 150, height // 2 - 95, width // 2 + 150, height // 2 - 80
        # Between what stands at the lower edge and where people speak.
        self.view = width // 2 - 150, height // 2 - 60, width // 2 + 150, height // 2 + 60
        self.world_input = 20, height - 31, width, height - 11
        self.point(width - 1, height - 1)
        self.wait("the start screen shows", lambda: self.grab().getbbox())

    def end(self):
        if self.process:
            end(self.process)
        self.screen.end()

    # Hands

    def xdotool(self, *command):
        """Its output, empty when it fails."""
        environment = dict(os.environ, DISPLAY=self.screen.name)
        result = subprocess.run(["xdotool", *map(str, command)], env=environment, capture_output=True, text=True)
        return result.stdout.strip() if result.returncode == 0 else ""

    def key(self, *names):
        self.xdotool("key", "--delay", "20", *names)

    def type(self, text):
        self.xdotool("type", "--delay", "20", text)

    def point(self, x, y):
        self.xdotool("mousemove", self.origin[0] + x, self.origin[1] + y)

    def click(self, x, y):
        self.point(x, y)
        self.xdotool("click", "1")
        self.point(self.size[0] - 1, self.size[1] - 1)

    def close_window(self):
        """What a window manager does when the player clicks the window's close button."""
        x11 = ctypes.CDLL("libX11.so.6")
        x11.XOpenDisplay.restype = ctypes.c_void_p
        x11.XInternAtom.restype = ctypes.c_ulong
        display = ctypes.c_void_p(x11.XOpenDisplay(self.screen.name.encode()))
        atoms = [x11.XInternAtom(display, name, 0) for name in (b"WM_PROTOCOLS", b"WM_DELETE_WINDOW")]
        window = ctypes.c_ulong(int(self.window))
        # struct XClientMessageEvent: type, serial, send_event, display, window, message_type, format, data.l[5]
        event = struct.pack("@iLiPLLi5l", 33, 0, 1, 0, window.value, atoms[0], 32, atoms[1], 0, 0, 0, 0)
        x11.XSendEvent(display, window, 0, ctypes.c_long(0), ctypes.create_string_buffer(event, 192))
        x11.XCloseDisplay(display)

    # Eyes

    def grab(self, region=None):
        """The client's picture, or a region (left, top, right, bottom) of it."""
        x, y = self.origin
        picture = ImageGrab.grab(xdisplay=self.screen.name).crop((x, y, x + self.size[0], y + self.size[1]))
        return picture.crop(region) if region else picture

    def wait(self, what, condition):
        """Like wait_until, but not for a client that has ended; leaves a picture of the screen when it fails."""
        def alive():
            if self.process.poll() is not None:
                raise Failure(f"{what}: the client ended with status {self.process.returncode}: {self.read('stderr')[-300:]}")
            return condition()

        try:
            return wait_until(what, alive)
        except Failure:
            ImageGrab.grab(xdisplay=self.screen.name).save(self.folder / "failed.png")
            raise

    @contextlib.contextmanager
    def changing(self, what, region):
        """Behind the block, waits until the region looks different from before it and has come to rest."""
        pictures = [self.grab(region)]
        yield

        def settled():
            pictures.append(self.grab(region))
            return differ(pictures[-1], pictures[0]) and not differ(pictures[-1], pictures[-2])

        self.wait(what, settled)

    def rests(self):
        """Whether two looks at the middle of the world show the same."""
        view = self.grab(self.view)
        time.sleep(0.1)  # longer than any picture of a slide stands
        return not differ(view, self.grab(self.view))

    def wait_colour(self, what, region, colour):
        """Waits until some pixel of the region has about this colour (screens have fewer shades than we name)."""
        self.wait(what, lambda: self.shows(region, colour))

    def shows(self, region, colour):
        return any(all(abs(a - b) <= 12 for a, b in zip(seen, colour)) for _, seen in self.grab(region).getcolors(1 << 20))

    def wait_answer(self):
        """Waits for the reason why a login failed: a longer text on the status line than that it is connecting."""
        self.wait("the status line tells a reason",
                  lambda: (box := self.grab(self.status_line).getbbox()) and box[2] - box[0] > 130)

    def wait_log(self, text):
        self.wait(f"log.clf says '{text}'", lambda: text in self.read("log.clf"))

    def wait_end(self, seconds=QUIT_SECONDS, fails=False):
        """Waits for the program's own end, and for success or failure, but never for a crash."""
        try:
            status = self.process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise Failure(f"the client did not end within {seconds} s") from None
        if status < 0 or (status != 0) != fails:
            raise Failure(f"the client ended with status {status}: {self.read('stderr')[-300:]}")

    # What a player does

    def open_login(self):
        with self.changing("the login window shows", self.login_window):
            self.key("space")

    def fill_login(self, name):
        with self.changing("the name shows in its box", self.name_box):
            self.key("End", *["BackSpace"] * 16)
            self.type(name)
        self.key("Return", "End", *["BackSpace"] * 16)
        self.type("secret")
        self.key("Return")

    def ask_to_log_in(self):
        self.start_screen()
        self.open_login()
        self.fill_login("Anna")

    def wait_lobby(self):
        self.wait_log("Changed state to eClientStateInChat")
        self.wait_colour("the lobby says that it is connected", self.connection_label, (251, 247, 195))

    def wait_loss(self):
        self.wait_colour("the lobby says that the connection is lost", self.connection_label, (168, 36, 30))

    def say(self, text, input_box=None):
        """Types a chat line and waits until it has left the input line: the lobby's, or the given one."""
        with self.changing("the line shows while it is typed", input_box or self.input_box):
            self.type(text)
        with self.changing("the input line is emptied", input_box or self.input_box):
            self.key("Return")

    def enter_world(self):
        """From the lobby, until the map begins to synchronise: only the picture of that leaves the bottom black."""
        self.click(*self.enter_game_button)
        self.wait("the progress shows", lambda: not self.grab(self.bottom).getbbox())

    def wait_world(self):
        """Until the synchronisation is over."""
        self.wait("the world shows", lambda: self.grab(self.bottom).getbbox())

    def return_to_lobby(self):
        self.key("Escape")
        self.wait_lobby()

    def quit(self, seconds=QUIT_SECONDS):
        """By the lobby's button, or by Escape before."""
        self.click(*self.quit_button) if "eClientStateInChat" in self.read("log.clf") else self.key("Escape")
        self.wait_end(seconds)


def differ(one, other):
    return ImageChops.difference(one.convert("RGB"), other.convert("RGB")).getbbox() is not None


class Stage(contextlib.ExitStack):
    """Makes servers and clients under args.out and ends them all when left."""

    def __init__(self, args):
        super().__init__()
        self.args = args

    def server(self, *options):
        server = Server(self.args, self.args.out / "run-server", *options)
        self.callback(end, server.process)
        return server

    def client(self, name, **options):
        client = Client(self.args, self.args.out / f"run-{name}", **options)
        self.callback(client.end)
        return client


def parse_arguments(description, **extra):
    parser = argparse.ArgumentParser(description=description)
    for name, default, text in (("bin", "build/bin", "folder of the programs"),
                                ("data", "build/data", "folder of the packed archives"),
                                ("out", "build/e2e", "folder for run directories and screenshots")):
        parser.add_argument(f"--{name}", type=lambda path: Path(path).resolve(), default=default, help=text)
    for name, options in extra.items():
        parser.add_argument(f"--{name}", **options)
    args = parser.parse_args()
    args.out.mkdir(parents=True, exist_ok=True)
    return args
