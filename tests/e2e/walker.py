"""Walks a player through the world."""

import struct
import time
from collections import deque

from processes import Failure, happens
from records import AREA_EDGE, AREA_FIELDS, DIRECTIONS, MOVE_REQUEST, address, neighbor

STEP_SECONDS = 0.4
# Ids of pictures: grounds without their variant or piece, and things.
SAND_SHALLOW, FOREST_FLOOR = 112528, 112080
WATER = {112000, 112016, 112512}  # deep, shallow, and the transition between them
PIERS = {120100, 120101}
LOW_THINGS = {0, *range(120022, 120027), 120042}  # one can walk over them
# The offsets of ground and things in an area's cache file, with 4 bytes for each field.
GROUND_OFFSET, THINGS_OFFSET = 12, 12 + 5 * AREA_FIELDS


def kind_of(ground):
    """A ground's picture id without its variant or piece."""
    return ground & ~15


class Walker:
    """Finds ways with the client's area cache, remembers the obstacles it meets, and walks with the keys."""

    def __init__(self, player, relay):
        self.player, self.relay = player, relay
        self.areas, self.obstacles, self.arrival = {}, set(), 0

    def field(self, x, y):
        """Ground and thing on a field; None where the client has no area."""
        *area, field_x, field_y = address(x, y)
        name = "%.8X%.8X%.2X%.2X00" % tuple(area)
        if name not in self.areas:
            path = self.player.folder / "area" / name
            self.areas[name] = path.read_bytes() if path.exists() else None
        if (content := self.areas[name]) is None:
            return None
        k = 4 * (field_x * AREA_EDGE + field_y)
        return tuple(struct.unpack_from("<I", content, offset + k)[0] for offset in (GROUND_OFFSET, THINGS_OFFSET))

    def seems_free(self, place):
        """Whether no obstacle is known there; most of a house is found only by walking into it."""
        if (field := self.field(*place)) is None or place in self.obstacles:
            return False
        ground, thing = field
        # Of the pieces of the shore, those with less than three corners of sand are water.
        is_water = kind_of(ground) in WATER or kind_of(ground) == SAND_SHALLOW and (ground & 15).bit_count() < 3
        return thing in PIERS or (thing in LOW_THINGS and not is_water)

    def step(self, direction):
        """Whether a press of the direction's key moved the player."""
        before, asked = self.relay.position, self.relay.from_client[MOVE_REQUEST]
        # The client ignores a press during a step, or the server refuses it, and nothing outside shows when a step is over.
        time.sleep(max(0, self.arrival - time.monotonic()))
        self.player.wait("a press asks for a step", lambda: (
            self.player.key(DIRECTIONS[direction][0]), happens(lambda: self.relay.from_client[MOVE_REQUEST] > asked, 0.25))[1])
        if happens(lambda: self.relay.position != before, 2):
            self.arrival = time.monotonic() + STEP_SECONDS
            return True
        self.obstacles.add(neighbor(before, direction))
        return False

    def route(self, is_goal):
        """Directions to the nearest known field for which is_goal(x, y, ground, thing) is true."""
        self.areas = {}
        start = self.relay.position
        seen, queue = {start}, deque([(start, [])])
        while queue:
            place, way = queue.popleft()
            if is_goal(*place, *self.field(*place)):
                return way
            for direction in range(len(DIRECTIONS)):
                near = neighbor(place, direction)
                if near not in seen and self.seems_free(near):
                    seen.add(near)
                    queue.append((near, [*way, direction]))
        raise Failure(f"no way from {start} to such a field")

    def go(self, is_goal):
        """Walks to the nearest such field, around obstacles that it meets."""
        while way := self.route(is_goal):
            for direction in way:
                if not self.step(direction):
                    break

    def cross(self, find_direction):
        """Walks to the nearest field where find_direction(x, y) gives a direction, and a step in that direction."""
        self.areas = {}
        while (direction := find_direction(*self.relay.position)) is None or not self.step(direction):
            self.go(lambda x, y, *_: find_direction(x, y) is not None)

    def step_and_back(self, direction):
        """A step in the direction and one back, from the nearest field where there is room for that."""
        self.cross(lambda x, y: direction if self.seems_free(neighbor((x, y), direction)) else None)
        self.step((direction + 4) % len(DIRECTIONS))
