"""A server whose world is endless and flat, where every step is granted at once: what holds a player up is the client."""

import struct
import threading
import time

from support import FakeServer
from world import AREA_EDGE, AREA_FIELDS, AREA_GROUND, AREA_VERSION, CHAR_POSITION, DIRECTIONS, MOVE, MOVE_REQUEST, REGION_EDGE

LOGIN_REQUEST, LOGIN_ACCEPT, ENTER_CHAT_REQUEST, ENTER_CHAT_ACCEPT = 200, 201, 402, 403
ENTER_GAME_REQUEST, ENTER_GAME_ACCEPT, AREA_VOLU = 800, 801, 701
DEFAULT_GROUND = 100000


def record(code, body=b""):
    return struct.pack(">III", 0x7F06, code, 12 + len(body)) + body


def position(x, y):
    """As it stands in records: of the field x, y of the world."""
    (area_x, fx), (area_y, fy) = divmod(x, AREA_EDGE), divmod(y, AREA_EDGE)
    return struct.pack(">II5B", area_x // REGION_EDGE, area_y // REGION_EDGE, area_x % REGION_EDGE, area_y % REGION_EDGE, fx, fy, 0)


class FlatServer(FakeServer):
    """Keeps account of when which request came, and when the last step was granted.

    From flood_behind on, a code, it sends `flood` over and over.
    """

    def __init__(self, start, flood=b"", flood_behind=ENTER_GAME_REQUEST):
        self.place, self.flood, self.flood_behind = start, flood, flood_behind
        self.requests = []  # (code, when)
        self.steps = []  # (when it was asked for, when it was granted)
        super().__init__()

    def _talk(self, peer):
        stream = peer.makefile("rb")
        while len(header := stream.read(12)) == 12:
            _, code, length = struct.unpack(">III", header)
            body = stream.read(length - 12)
            self.requests.append((code, time.monotonic()))
            peer.sendall(self.answer(code, body))
            if self.flood and code == self.flood_behind:
                threading.Thread(target=self._flood, args=(peer,), daemon=True).start()

    def _flood(self, peer):
        while self.pour(peer, self.flood):
            pass

    def answer(self, code, body):
        if code == LOGIN_REQUEST:
            return record(LOGIN_ACCEPT) + record(ENTER_CHAT_ACCEPT)
        if code == ENTER_CHAT_REQUEST:
            return record(ENTER_CHAT_ACCEPT)
        if code == ENTER_GAME_REQUEST:
            return record(ENTER_GAME_ACCEPT) + record(CHAR_POSITION, position(*self.place))
        if code == AREA_VERSION:  # never current: ground and what stands on it
            edges, fields = struct.pack(">II", AREA_EDGE, AREA_EDGE), AREA_FIELDS
            ground = struct.pack(f">{fields}I", *[DEFAULT_GROUND] * fields)
            return (record(AREA_GROUND, body[:11] + b"\1" + edges + ground + edges + bytes(fields))
                    + record(AREA_VOLU, body[:11] + b"\1" + edges + bytes(4 * fields)))
        if code == MOVE_REQUEST:
            _, x, y = DIRECTIONS[struct.unpack(">I", body)[0]]
            left, self.place = self.place, (self.place[0] + x, self.place[1] + y)
            self.steps.append((self.requests[-1][1], time.monotonic()))
            return record(MOVE, position(*left) + body)
        return b""

    def count(self, code):
        return sum(1 for came, _ in self.requests if came == code)
