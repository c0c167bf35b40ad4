"""What the end-to-end tests share: the real programs in run directories of their own, a screen and an X client's hands.

Everything waits for conditions with deadlines and raises Failure with a sentence when one is missed. Every process ends
with the Stage that started it, and dies with this script should it be killed.
"""

import argparse
import contextlib
import ctypes
import glob
import os
import re
import signal
import socket
import struct
import subprocess
import sys
import threading
import time
from pathlib import Path

from PIL import ImageChops, ImageGrab

FIRST_DISPLAY = 81
NETWORK_HOST = "127.0.0.1"
# How long a program may take to do what it is asked, on a slow machine that does other things besides.
PATIENCE = 20
QUIT_SECONDS = 2


class Failure(Exception):
    pass


def wait_until(what, condition, seconds=PATIENCE):
    """Returns the first true value of condition(); raises Failure when there is none in time."""
    deadline = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise Failure(f"not within {seconds} s: {what}")
        time.sleep(0.02)


def spawn(command, **options):
    def die_with_parent():
        ctypes.CDLL(None).prctl(1, signal.SIGKILL)

    try:
        return subprocess.Popen([str(part) for part in command], preexec_fn=die_with_parent, **options)
    except FileNotFoundError as missing:
        raise Failure(f"cannot start {command[0]}: {missing.strerror}") from None


def end(process):
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(5)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()


class Xvfb:
    """A screen without a monitor, on the first display number from FIRST_DISPLAY that nobody has.

    It does not reset when its last client leaves: SDL opens the display twice, and the second time would meet the reset.
    """

    def __init__(self, size=(1280, 1024)):
        for number in range(FIRST_DISPLAY, FIRST_DISPLAY + 50):
            if os.path.exists(f"/tmp/.X11-unix/X{number}") or os.path.exists(f"/tmp/.X{number}-lock"):
                continue
            self.name = f":{number}"
            self.process = spawn(
                ["Xvfb", self.name, "-ac", "-noreset", "-nolisten", "tcp", "-screen", "0", f"{size[0]}x{size[1]}x24"],
                stderr=subprocess.DEVNULL)
            path = f"/tmp/.X11-unix/X{number}"
            wait_until("Xvfb starts", lambda: self.process.poll() is not None or os.path.exists(path))
            if self.process.poll() is None:
                return
        raise Failure("no free X display")

    def end(self):
        end(self.process)
        for left in (f"/tmp/.X11-unix/X{self.name[1:]}", f"/tmp/.X{self.name[1:]}-lock"):  # by one that was killed
            Path(left).unlink(missing_ok=True)

    def run(self, *command):
        """The output of an X client such as xdotool, empty when it fails."""
        environment = dict(os.environ, DISPLAY=self.name)
        result = subprocess.run([str(part) for part in command], env=environment, capture_output=True, text=True)
        return result.stdout.strip() if result.returncode == 0 else ""


class Server:
    """The real server on a free port."""

    def __init__(self, args, folder, *options):
        folder.mkdir(parents=True, exist_ok=True)
        self.log_path = folder / "server.log"
        with open(self.log_path, "w") as log:
            self.process = spawn([args.bin / "tolva-server", "--port", "0", *options], cwd=folder, stdout=log, stderr=log)
        self.port = int(self.wait_log(r"listening on \S*?:(\d+)").group(1))

    def wait_log(self, pattern, count=1):
        """The count-th match of the pattern in what the server has printed so far."""
        def find():
            if self.process.poll() is not None:
                raise Failure(f"the server ended: {self.log_path.read_text()[-300:]}")
            matches = list(re.finditer(pattern, self.log_path.read_text()))
            return matches[count - 1] if len(matches) >= count else None

        return wait_until(f"the server prints '{pattern}' ({count})", find)


class FakeServer:
    """A server of one connection that sends `payload` after the first bytes it gets, and then only listens."""

    def __init__(self, payload=b"", accepts=True):
        self.listener = socket.create_server((NETWORK_HOST, 0), backlog=1)
        self.port = self.listener.getsockname()[1]
        self.payload = payload
        self.received = b""
        self.waiting = []
        if accepts:
            threading.Thread(target=self._serve, daemon=True).start()
        else:
            self._fill_queue()

    def _serve(self):
        with contextlib.suppress(OSError):
            peer, _ = self.listener.accept()
            self.received += peer.recv(65536)
            peer.sendall(self.payload)
            while data := peer.recv(65536):
                self.received += data

    def _fill_queue(self):
        """Once the queue of connections to accept is full, the next one is not answered: its connect hangs."""
        for _ in range(4):
            waiting = socket.socket()
            waiting.setblocking(False)
            waiting.connect_ex((NETWORK_HOST, self.port))
            self.waiting.append(waiting)


def record(code, body=b""):
    return struct.pack(">III", 0x7F06, code, 12 + len(body)) + body


class Client:
    """The real client on a screen of its own, in a run directory of its own."""

    def __init__(self, args, folder, port, ini="", environment=None):
        self.args = args
        self.folder = folder
        self.environment = environment or {}
        self.process = None
        self.window = None
        self.screen = Xvfb()
        (folder / "area").mkdir(parents=True, exist_ok=True)
        self.link_archives()
        self.write_ini(ini or f"[NETWORK]\nHost={NETWORK_HOST}\nPort={port}\n")

    def link_archives(self):
        for name in ("Graphics.cci", "Graphics.cca", "Sounds.cci", "Sounds.cca"):
            link = self.folder / name
            link.unlink(missing_ok=True)
            if (self.args.data / name).exists():
                link.symlink_to((self.args.data / name).resolve())

    def write_ini(self, text):
        (self.folder / "client.ini").write_text(text)

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
        self.started = time.monotonic()

    def start_screen(self, **options):
        """Starts the program, waits for its first screen and gives it the keyboard."""
        self.start(**options)
        self.wait_log("Display               Running")
        self.window = wait_until("the window appears", lambda: self._alive() and self.screen.run(
            "xdotool", "search", "--onlyvisible", "--name", "^Tolva - Version").split("\n")[0])
        wait_until("the window has the keyboard", lambda: self._alive() and self._focus())
        geometry = dict(line.split("=") for line in
                        self.screen.run("xdotool", "getwindowgeometry", "--shell", self.window).split("\n"))
        self.origin = int(geometry["X"]), int(geometry["Y"])
        self.size = int(geometry["WIDTH"]), int(geometry["HEIGHT"])
        self.point_away()
        wait_until("the start screen shows", lambda: self._alive() and self.grab().getbbox())

    def _focus(self):
        self.screen.run("xdotool", "windowfocus", self.window)
        return self.screen.run("xdotool", "getwindowfocus") != "" and self.screen.run("xdotool", "getwindowfocus") != "1"

    def _alive(self):
        if self.process.poll() is not None:
            raise Failure(f"the client ended with status {self.process.returncode}: {self.read('stderr')[-300:]}")
        return True

    # Hands

    def key(self, *names):
        self.screen.run("xdotool", "key", "--delay", "20", *names)

    def type(self, text):
        self.screen.run("xdotool", "type", "--delay", "20", text)

    def point(self, x, y):
        self.screen.run("xdotool", "mousemove", self.origin[0] + x, self.origin[1] + y)

    def point_away(self):
        self.point(self.size[0] - 1, self.size[1] - 1)

    def click(self, x, y):
        self.point(x, y)
        self.screen.run("xdotool", "click", "1")
        self.point_away()

    def close_window(self):
        """What a window manager does when the player clicks the window's close button."""
        x11 = ctypes.CDLL("libX11.so.6")
        for name in ("XOpenDisplay", "XInternAtom"):
            getattr(x11, name).restype = ctypes.c_void_p
        display = ctypes.c_void_p(x11.XOpenDisplay(self.screen.name.encode()))
        atoms = [x11.XInternAtom(display, name, 0) for name in (b"WM_PROTOCOLS", b"WM_DELETE_WINDOW")]
        # struct XClientMessageEvent: type, serial, send_event, display, window, message_type, format, data.l[5]
        event = struct.pack("@iLiPLLi5l", 33, 0, 1, 0, int(self.window), atoms[0], 32, atoms[1], 0, 0, 0, 0)
        x11.XSendEvent(display, ctypes.c_ulong(int(self.window)), 0, ctypes.c_long(0),
                       ctypes.create_string_buffer(event, 192))
        x11.XCloseDisplay(display)

    # Eyes

    def grab(self, region=None):
        """The client's picture, or a region (left, top, right, bottom) of it."""
        x, y = self.origin
        picture = ImageGrab.grab(xdisplay=self.screen.name).crop((x, y, x + self.size[0], y + self.size[1]))
        return picture.crop(region) if region else picture

    def wait_change(self, what, region, before, seconds=PATIENCE):
        """Waits until the region looks different from `before` (a picture of the same region) and has come to rest."""
        last = [before]

        def settled():
            self._alive()
            now = self.grab(region)
            is_settled = differ(now, before) and not differ(now, last[0])
            last[0] = now
            return is_settled

        wait_until(what, settled, seconds)

    def wait_colour(self, what, region, colour, tolerance=12, seconds=PATIENCE):
        """Waits until some pixel of the region has about this colour (screens have fewer shades than we name)."""
        def shown():
            self._alive()
            colours = self.grab(region).getcolors(1 << 20)
            return any(all(abs(a - b) <= tolerance for a, b in zip(seen, colour)) for _, seen in colours)

        wait_until(what, shown, seconds)

    def wait_answer(self):
        """Waits for the reason why a login failed: a longer text on the status line than that it is connecting."""
        def is_long():
            self._alive()
            box = self.grab(self.status_line).getbbox()
            return box and box[2] - box[0] > 130

        wait_until("the status line tells a reason", is_long)

    def wait_log(self, text, count=1, seconds=PATIENCE):
        wait_until(f"log.clf says '{text}'", lambda: self.read("log.clf").count(text) >= count or not self._alive(), seconds)

    def wait_end(self, seconds=QUIT_SECONDS, status=0):
        """Waits for the program's own end; a status of None is any but 0."""
        try:
            result = self.process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise Failure(f"the client did not end within {seconds} s") from None
        if result < 0 or (result == 0 if status is None else result != status):
            raise Failure(f"the client ended with status {result}: {self.read('stderr')[-300:]}")

    def end(self):
        if self.process:
            end(self.process)
        self.screen.end()

    # Where things are on the screens

    @property
    def status_line(self):
        width, height = self.size
        return 0, height - 40, width, height - 20

    @property
    def login_window(self):
        width, height = self.size
        return width // 2 - 125, height // 2 - 75, width // 2 + 125, height // 2 + 75

    @property
    def name_box(self):
        x, y = self.login_window[:2]
        return x + 100, y + 50, x + 230, y + 70

    @property
    def chat_box(self):
        width, height = self.size
        return 0, 100, width - 150, height - 45

    @property
    def input_box(self):
        width, height = self.size
        return 5, height - 25, width - 5, height - 2

    @property
    def connection_label(self):
        width = self.size[0]
        return width - 148, 200, width - 2, 220

    @property
    def chat_users(self):
        width, height = self.size
        return width - 150, 270, width, 270 + (height - 45 - 270) // 2

    @property
    def options_window(self):
        width, height = self.size
        x, y = (width - 300) // 2, (height - 210) // 2
        return x, y, x + 300, y + 210

    def lobby_button(self, name):
        return self.size[0] - 47, {"Quit": 57, "Enter Game": 57, "Options": 83}[name]

    # What a player does

    def open_login(self):
        before = self.grab(self.login_window)
        self.key("space")
        self.wait_change("the login window shows", self.login_window, before)

    def fill_login(self, name, password="secret"):
        """Enters name and password and sends them; the name box must have the focus."""
        before = self.grab(self.name_box)
        self.key("End", *["BackSpace"] * 16)
        self.type(name)
        self.wait_change("the name shows in its box", self.name_box, before)
        self.key("Return", "End", *["BackSpace"] * 16)
        self.type(password)
        self.key("Return")

    def log_in(self, name):
        self.open_login()
        self.fill_login(name)
        self.wait_log("Changed state to eClientStateInChat")
        self.wait_colour("the lobby shows", self.connection_label, (251, 247, 195))

    def say(self, text):
        """Types a chat line and waits until it has left the input line."""
        empty = self.grab(self.input_box)
        self.type(text)
        self.wait_change("the line shows while it is typed", self.input_box, empty)
        typed = self.grab(self.input_box)
        self.key("Return")
        self.wait_change("the input line is emptied", self.input_box, typed)


def differ(one, other):
    return one.size != other.size or ImageChops.difference(one.convert("RGB"), other.convert("RGB")).getbbox() is not None


class Stage(contextlib.ExitStack):
    """Makes servers and clients under args.out and ends them all when left."""

    def __init__(self, args):
        super().__init__()
        self.args = args

    def server(self, *options):
        server = Server(self.args, self.args.out / "run-server", *options)
        self.callback(end, server.process)
        return server

    def client(self, name, port, **options):
        client = Client(self.args, self.args.out / f"run-{name}", port, **options)
        self.callback(client.end)
        return client


def parse_arguments(description, **extra):
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("--bin", type=Path, default="build/bin", help="folder of the programs")
    parser.add_argument("--data", type=Path, default="build/data", help="folder of the packed archives")
    parser.add_argument("--out", type=Path, required=True, help="folder for run directories and screenshots")
    parser.add_argument("--compat", action="store_true", help="run with the SDL 1.2 compatibility library")
    for name, options in extra.items():
        parser.add_argument(f"--{name}", **options)
    args = parser.parse_args()
    args.bin, args.data, args.out = args.bin.resolve(), args.data.resolve(), args.out.resolve()
    if args.compat:
        folders = glob.glob("/usr/lib/*/sdl12-compat") or sys.exit("missing: apt install libsdl1.2-compat")
        os.environ["LD_LIBRARY_PATH"] = folders[0]
    args.out.mkdir(parents=True, exist_ok=True)
    return args
