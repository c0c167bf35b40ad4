"""What a client under test connects to: the real server, a relay in front of it, and fakes."""

import contextlib
import re
import socket
import struct
import subprocess
import threading
import time
from collections import Counter

from processes import spawn, wait_until
from records import (AREA_EDGE, AREA_FIELDS, AREA_GROUND, AREA_VERSION, AREA_VOLU, CHAR_POSITION, DARKNESS, ENTER_CHAT_ACCEPT,
                     ENTER_CHAT_REQUEST, ENTER_GAME_ACCEPT, ENTER_GAME_REQUEST, LOBBY, LOGIN_REQUEST, MOVE, MOVE_REQUEST,
                     neighbor, place, position, read_records, record)

NETWORK_HOST = "127.0.0.1"


class Server:
    """The real server on a free port."""

    def __init__(self, args, folder, *options):
        folder.mkdir(parents=True, exist_ok=True)
        self.log_path = folder / "server.log"
        with open(self.log_path, "w") as log:
            self.process = spawn([args.bin / "tolva-server", "--port", "0", *options], cwd=folder, stdout=log,
                                 stderr=subprocess.STDOUT)
        self.port = int(self.wait_log(r"listening on \S*?:(\d+)").group(1))

    def wait_log(self, pattern):
        return wait_until(f"the server prints '{pattern}'", lambda: re.search(pattern, self.log_path.read_text()))


class Listener:
    """A server on a free port that serves each connection with _talk(peer) in a thread of its own."""

    def __init__(self):
        self.listener = socket.create_server((NETWORK_HOST, 0), backlog=1)
        self.port = self.listener.getsockname()[1]
        start_thread(self._accept)

    def _accept(self):
        while True:
            peer, _ = self.listener.accept()
            start_thread(self._talk, peer)


def start_thread(function, *arguments):
    """Runs the function until it returns or its connection breaks, which is no failure: clients under test come and go."""
    def run():
        with contextlib.suppress(OSError):
            function(*arguments)

    threading.Thread(target=run, daemon=True).start()


class FakeServer(Listener):
    """Sends `payload` after the first bytes it gets, and then only listens."""

    def __init__(self, payload=b""):
        self.payload, self.received = payload, b""
        super().__init__()

    def _talk(self, peer):
        self.received += peer.recv(65536)
        peer.sendall(self.payload)
        while data := peer.recv(65536):
            self.received += data


class FullServer:
    """A server that never answers: its queue of connections is full, so connecting to it hangs."""

    def __init__(self):
        self.listener = socket.create_server((NETWORK_HOST, 0), backlog=0)
        self.port = self.listener.getsockname()[1]
        self.waiting = socket.create_connection((NETWORK_HOST, self.port))


class FlatServer(Listener):
    """Its world is endless and flat, and it grants every step at once, so that only the client delays a player.

    It counts requests and records when it grants steps. A player who enters the world gets `flood` over and over.
    """

    def __init__(self, start, flood=b""):
        self.player, self.flood = start, flood
        self.requests = Counter()  # by code
        self.steps = []  # when each was granted
        super().__init__()

    def _talk(self, peer):
        for code, body in read_records(peer.makefile("rb")):
            self.requests[code] += 1
            peer.sendall(self._answer(code, body))
            if self.flood and code == ENTER_GAME_REQUEST:
                start_thread(self._send_flood, peer)

    def _send_flood(self, peer):
        while True:
            peer.sendall(self.flood)

    def _answer(self, code, body):
        if code == LOGIN_REQUEST:
            return LOBBY
        if code == ENTER_CHAT_REQUEST:
            return record(ENTER_CHAT_ACCEPT)
        if code == ENTER_GAME_REQUEST:
            return record(ENTER_GAME_ACCEPT) + record(CHAR_POSITION, position(*self.player))
        if code == AREA_VERSION:  # never current, so it is followed by the ground and what stands on it
            area, edges = body[:11] + b"\1", struct.pack(">II", AREA_EDGE, AREA_EDGE)
            ground = struct.pack(">I", 100000) * AREA_FIELDS
            return (record(AREA_GROUND, area + edges + ground + edges + bytes(AREA_FIELDS))
                    + record(AREA_VOLU, area + edges + bytes(4 * AREA_FIELDS)))
        if code == MOVE_REQUEST:
            left, self.player = self.player, neighbor(self.player, *struct.unpack(">I", body))
            self.steps.append(time.monotonic())
            return record(MOVE, position(*left) + body)
        return b""


class Relay(Listener):
    """Stands between a client and the server, passes on their records and keeps track of them.

    With cut_behind = (code, n) it cuts the connection right behind the nth record of that code from the server.
    """

    def __init__(self, port):
        self.server_port = port
        self.cut_behind = None
        self.position = self.darkness = None
        self.from_client, self.from_server = Counter(), Counter()  # records of the present connection, by code
        super().__init__()

    def _talk(self, client):
        server = socket.create_connection((NETWORK_HOST, self.server_port))
        self.from_client, self.from_server = Counter(), Counter()
        for source, target, note in ((client, server, self._note_client), (server, client, self._note_server)):
            start_thread(self._pass_on, source, target, note)

    def _pass_on(self, source, target, note):
        """Record by record, until either side has gone."""
        with source, target:
            for code, body in read_records(source.makefile("rb")):
                target.sendall(record(code, body))
                if note(code, body):
                    break
            for end in (source, target):
                end.shutdown(socket.SHUT_RDWR)

    def _note_client(self, code, _):
        self.from_client[code] += 1

    def _note_server(self, code, body):
        """Whether to cut the connection."""
        if code == CHAR_POSITION:
            self.position = place(body)
        elif code == MOVE and place(body) == self.position:  # nobody else can stand there
            self.position = neighbor(self.position, *struct.unpack_from(">I", body, 13))
        elif code == DARKNESS:
            self.darkness = body[0]
        self.from_server[code] += 1
        return (code, self.from_server[code]) == self.cut_behind


@contextlib.contextmanager
def more_records(what, counter, code, count=1):
    """After the block, waits until a relay's counter has counted that many more records of the code."""
    goal = counter[code] + count
    yield
    wait_until(what, lambda: counter[code] >= goal)
