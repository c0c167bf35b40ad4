"""The records that client and server exchange, and the numbering of fields in the world."""

import struct

MAGIC = 0x7F06
# Codes: connection and login, lobby, entering the world, its ground, who is in it, its light.
PING, LOGIN_REQUEST, LOGIN_ACCEPT = 8, 200, 201
CHAT, CHAT_USERS, ENTER_CHAT_REQUEST, ENTER_CHAT_ACCEPT = 400, 401, 402, 403
ENTER_GAME_REQUEST, ENTER_GAME_ACCEPT = 800, 801
AREA_GROUND, AREA_VOLU, AREA_VERSION = 700, 701, 702
GAME_CHAT, MOVE_REQUEST, MOVE, CHAR_POSITION, ADD_CHAR, REMOVE_CHAR = 820, 850, 851, 870, 871, 872
DARKNESS = 900

AREA_EDGE, REGION_EDGE = 24, 8  # in fields, in areas
AREA_FIELDS, MAP_AREAS = AREA_EDGE ** 2, 7 ** 2
# The first field, in x and in y, of an area in the middle of a region.
HOME = (9 * REGION_EDGE + 3) * AREA_EDGE
# The key and the step in x and y of each direction, from north clockwise.
DIRECTIONS = (("KP_8", -1, 1), ("KP_9", 0, 1), ("KP_6", 1, 1), ("KP_3", 1, 0),
              ("KP_2", 1, -1), ("KP_1", 0, -1), ("KP_4", -1, -1), ("KP_7", -1, 0))


def neighbor(place, direction):
    """The field to which a step leads."""
    _, x, y = DIRECTIONS[direction]
    return place[0] + x, place[1] + y


def area_of(x, y):
    """The area of the field: its column and row in the world."""
    return x // AREA_EDGE, y // AREA_EDGE


def address(x, y):
    """The numbers of region, area and field, each in x and y, that records and cache files use for a field."""
    area_x, area_y = area_of(x, y)
    return (area_x // REGION_EDGE, area_y // REGION_EDGE, area_x % REGION_EDGE, area_y % REGION_EDGE,
            x % AREA_EDGE, y % AREA_EDGE)


def record(code, body=b""):
    return struct.pack(">III", MAGIC, code, 12 + len(body)) + body


def read_records(stream):
    """Code and body of each whole record until the stream ends."""
    while len(header := stream.read(12)) == 12:
        _, code, length = struct.unpack(">III", header)
        yield code, stream.read(length - 12)


def text(characters):
    return struct.pack(">I", len(characters) + 1) + characters + b"\0"


def position(x, y):
    """A field of the world as records contain it."""
    return struct.pack(">II5B", *address(x, y), 0)


def place(body):
    """The field at the beginning of a record's body."""
    region_x, region_y, area_x, area_y, x, y = struct.unpack_from(">II4B", body)
    return (region_x * REGION_EDGE + area_x) * AREA_EDGE + x, (region_y * REGION_EDGE + area_y) * AREA_EDGE + y


# The longest possible line of chat.
CHAT_LINE = record(CHAT, text(b"Flood") + text(b"x" * 899))
# What lets a player into the lobby.
LOBBY = record(LOGIN_ACCEPT) + record(ENTER_CHAT_ACCEPT)
