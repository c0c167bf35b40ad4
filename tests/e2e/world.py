"""A player's way through the world: what passes between client and server, and a map of what the client has cached."""

import contextlib
import socket
import struct
import threading
import time
from collections import Counter, deque

from support import NETWORK_HOST, Failure, wait_until

AREA_GROUND, AREA_VERSION, GAME_CHAT, MOVE_REQUEST, MOVE, CHAR_POSITION, ADD_CHAR, REMOVE_CHAR, DARKNESS = (
    700, 702, 820, 850, 851, 870, 871, 872, 900)
AREA_EDGE, AREA_FIELDS, REGION_EDGE, MAP_AREAS = 24, 24 * 24, 8, 49
STEP_SECONDS = 0.4
# By the ids of the pictures: deep and shallow water, and what can be walked over although it stands on a field. Of the
# pieces of the shore, those with less than three corners of sand are water too.
WATER = {112000, 112016, 112512}
SAND_SHALLOW, FOREST_FLOOR = 112528, 112080
PIERS, LOW_THINGS = {120100, 120101}, {0, *range(120022, 120027), 120042}
# The key and the step in x and y of each direction, from north on clockwise.
DIRECTIONS = (("KP_8", -1, 1), ("KP_9", 0, 1), ("KP_6", 1, 1), ("KP_3", 1, 0),
              ("KP_2", 1, -1), ("KP_1", 0, -1), ("KP_4", -1, -1), ("KP_7", -1, 0))


def happens(condition, seconds):
    try:
        return wait_until("", condition, seconds)
    except Failure:
        return False


class Relay:
    """Stands between a client and the server, passes on what either says and keeps account of it.

    With cut_behind = (code, n) it cuts the connection right behind the nth record of that code from the server.
    """

    def __init__(self, port):
        self.listener = socket.create_server((NETWORK_HOST, 0))
        self.port, self.server_port = self.listener.getsockname()[1], port
        self.cut_behind = None
        self.position = self.darkness = None
        self.from_client, self.from_server = Counter(), Counter()
        threading.Thread(target=self._accept, daemon=True).start()

    def _accept(self):
        while True:
            client, _ = self.listener.accept()
            server = socket.create_connection((NETWORK_HOST, self.server_port))
            self.from_client, self.from_server = Counter(), Counter()
            for source, target, note in ((client, server, self._note_client), (server, client, self._note_server)):
                threading.Thread(target=self._pass_on, args=(source, target, note), daemon=True).start()

    def _pass_on(self, source, target, note):
        """Record by record, until either side has gone, which is no failure: that is how connections end."""
        with source, target, contextlib.suppress(OSError):
            stream = source.makefile("rb")
            while len(header := stream.read(12)) == 12:
                _, code, length = struct.unpack(">III", header)
                body = stream.read(length - 12)
                target.sendall(header + body)
                if note(code, body):
                    break
            for end in (source, target):
                end.shutdown(socket.SHUT_RDWR)

    def _note_client(self, code, _):
        self.from_client[code] += 1

    def _note_server(self, code, body):
        if code in (CHAR_POSITION, MOVE):
            rx, ry, ax, ay, fx, fy = struct.unpack_from(">IIBBBB", body)
            place = ((rx * REGION_EDGE + ax) * AREA_EDGE + fx, (ry * REGION_EDGE + ay) * AREA_EDGE + fy)
            if code == CHAR_POSITION:
                self.position = place
            elif place == self.position:  # nobody else can stand there
                _, x, y = DIRECTIONS[struct.unpack_from(">I", body, 13)[0]]
                self.position = place[0] + x, place[1] + y
        elif code == DARKNESS:
            self.darkness = body[0]
        self.from_server[code] += 1
        return (code, self.from_server[code]) == self.cut_behind


class Walker:
    """Walks a client about, with the keys, by what its area cache tells of the ground and what it has run into."""

    def __init__(self, client, relay):
        self.client, self.relay = client, relay
        self.areas, self.obstacles, self.arrival = {}, set(), 0

    def field(self, x, y):
        """Ground and volu id of a field; None where the client has no area."""
        area_x, area_y = x // AREA_EDGE, y // AREA_EDGE
        name = "%.8X%.8X%.2X%.2X00" % (area_x // REGION_EDGE, area_y // REGION_EDGE, area_x % REGION_EDGE, area_y % REGION_EDGE)
        if name not in self.areas:
            path = self.client.folder / "area" / name
            self.areas[name] = path.read_bytes() if path.exists() else None
        if (content := self.areas[name]) is None:
            return None
        k = (x % AREA_EDGE) * AREA_EDGE + y % AREA_EDGE
        return (struct.unpack_from("<I", content, 12 + 4 * k)[0],
                struct.unpack_from("<I", content, 12 + 5 * AREA_FIELDS + 4 * k)[0])

    def seems_free(self, place):
        """Whether nothing is known to stand there; walls behind a house's front show only when walked into."""
        if (field := self.field(*place)) is None or place in self.obstacles:
            return False
        ground, thing = field
        is_shore = ground & ~15 == SAND_SHALLOW and (ground & 15).bit_count() < 3
        return thing in PIERS or (thing in LOW_THINGS and not is_shore and ground & ~15 not in WATER)

    def step(self, direction):
        """Whether a press of the direction's key moved the player."""
        key, x, y = DIRECTIONS[direction]
        before, asked = self.relay.position, self.relay.from_client[MOVE_REQUEST]
        # A step takes its time, and nothing outside the client tells when it is over. Presses before count for nothing, or
        # make the server refuse somebody who hurries.
        time.sleep(max(0, self.arrival - time.monotonic()))
        self.client.wait("a press asks for a step", lambda: (
            self.client.key(key), happens(lambda: self.relay.from_client[MOVE_REQUEST] > asked, 0.25))[1])
        if happens(lambda: self.relay.position != before, 2):
            self.arrival = time.monotonic() + STEP_SECONDS
            return True
        self.obstacles.add((before[0] + x, before[1] + y))
        return False

    def route(self, is_goal):
        """Directions to the nearest field for which is_goal(x, y, ground, volu) is true, as far as the client knows."""
        self.areas = {}
        start = self.relay.position
        came, queue = {start: None}, deque([start])
        while queue:
            place = queue.popleft()
            if is_goal(*place, *self.field(*place)):
                break
            for direction, (_, x, y) in enumerate(DIRECTIONS):
                near = place[0] + x, place[1] + y
                if near not in came and self.seems_free(near):
                    came[near] = place, direction
                    queue.append(near)
        else:
            raise Failure(f"no way there from {start}")
        way = []
        while came[place]:
            place, direction = came[place]
            way.append(direction)
        return way[::-1]

    def go(self, is_goal):
        """Walks to the nearest such field, around whatever turns out to stand in the way."""
        while way := self.route(is_goal):
            for direction in way:
                if not self.step(direction):
                    break

    def step_and_back(self, direction):
        """A step in the direction and one back, from the nearest field where there is room for that."""
        _, x, y = DIRECTIONS[direction]
        while not self.step(direction):
            self.areas = {}
            self.go(lambda at_x, at_y, *_: self.seems_free((at_x + x, at_y + y)))
        self.step((direction + 4) % len(DIRECTIONS))
