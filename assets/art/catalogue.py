"""The one list of the pictures: id, size, whether parts of it are see-through, and its use.

Painters may write only what this list has, and check_pictures.py compares the files with it. The pictures of the world
are families: the tables below have the names and ids of server/terrain/WorldPictures.h.
"""
from dataclasses import dataclass


@dataclass(frozen=True)
class Entry:
    """What the client expects of one picture."""
    width: int
    height: int
    keyed: bool
    use: str


SOLID, KEYED = False, True

# ---- the world ----------------------------------------------------------------------------------

TILE = (76, 37)                 # the picture of a field's ground
STEP = (38, 18)                 # from one field to its neighbors, across and down
THING = (76, 228)               # what stands on a field; drawn 191 pixels higher than its ground
FRAME = (76, 114)               # one frame of a character; drawn 77 pixels higher than its ground
THING_FOOT, FRAME_FOOT = (38, 209), (38, 95)     # the pixel in them that shows the middle of the field
FRAMES, DIRECTIONS = 5, 8       # a character's sheet: columns of a walking cycle, rows from north clockwise
UNKNOWN_GROUND, CHARACTER = 100000, 50002
VARIANTS = 4
PIECES = range(1, 15)           # sum of the corners that have the upper kind: 1 north, 2 east, 4 south, 8 west

KINDS = {"Deep": 112000, "Shallow": 112016, "Sand": 112032, "Grass": 112048, "DryGrass": 112064,
         "ForestFloor": 112080, "Path": 112096, "Rock": 112112, "Snow": 112128, "Cobbles": 112144, "Flowers": 112160,
         "Field": 112176}

# upper kind, lower kind
TRANSITIONS = {("Shallow", "Deep"): 112512, ("Sand", "Shallow"): 112528, ("Grass", "Sand"): 112544,
               ("Grass", "Path"): 112560, ("Grass", "DryGrass"): 112576, ("Grass", "Rock"): 112592,
               ("Snow", "Rock"): 112608, ("Grass", "Cobbles"): 112624}

THINGS = {"Oak": 120000, "Beech": 120001, "Pine": 120002, "Palm": 120003, "Birch": 120004, "AutumnTree": 120005,
          "DeadTree": 120006, "YoungPine": 120007, "GreatOak": 120008, "SlenderTree": 120009, "Hornbeam": 120010,
          "OldPine": 120011, "PineGroup": 120012, "CrookedPine": 120013, "YoungOak": 120014,
          "YoungBeech": 120015, "SlimPine": 120016,
          "Bush": 120020, "BerryBush": 120021, "Fern": 120022, "Mushrooms": 120023, "Tuft": 120024,
          "FlowerTuft": 120025, "Poppies": 120026, "Reeds": 120027, "WaterLilies": 120028,
          "Rocks": 120040, "Boulder": 120041, "Pebbles": 120042, "Stump": 120043, "Logs": 120044,
          "FenceNorthEast": 120060, "FenceSouthEast": 120061, "FenceSouthWest": 120062, "FenceNorthWest": 120063,
          "Lantern": 120080, "Well": 120081, "Signpost": 120082, "Barrels": 120083, "FlowerBed": 120084,
          "FruitStall": 120085, "FishStall": 120086, "Bench": 120087, "Haystack": 120088, "Cart": 120089,
          "Campfire": 120090, "Scarecrow": 120091,
          "PierNorthEast": 120100, "PierNorthWest": 120101, "Boat": 120102, "SailingBoat": 120103}

# Where trees have their roots, in pixels right of and below the middle of their field. Trees in the middle would stand
# in rows, their crowns covering each other.
ROOTS = {"Oak": (-5, 3), "Beech": (8, -3), "Pine": (-4, 2), "Birch": (4, 4), "AutumnTree": (-7, -3),
         "DeadTree": (5, -2), "YoungPine": (9, 4), "GreatOak": (0, -3), "SlenderTree": (-9, -4), "Hornbeam": (9, 2),
         "OldPine": (5, -4), "CrookedPine": (-8, 1), "YoungOak": (8, -4), "YoungBeech": (-9, 4), "SlimPine": (9, -4)}

# first id, fields along x (to the south-east), fields along y (to the north-east)
HOUSES = {"TiledHouse": (121000, 3, 3), "ThatchedHouse": (121064, 3, 2), "Tavern": (121128, 4, 3)}


def strips(name):
    """(id, i, j) of each field of a house that carries a picture: those along its two front edges."""
    first, width, depth = HOUSES[name]
    return [(first + 8 * i + j, i, j) for i in range(width) for j in range(depth) if i == width - 1 or j == 0]


def world():
    """The entries of all pictures of the world by id."""
    entries = {UNKNOWN_GROUND: Entry(*TILE, KEYED, "ground that is not known yet"),
               CHARACTER: Entry(FRAMES * FRAME[0], DIRECTIONS * FRAME[1], KEYED, "character")}
    for kind, first in KINDS.items():
        entries |= {first + k: Entry(*TILE, KEYED, f"ground: {kind}") for k in range(VARIANTS)}
    for (upper, lower), first in TRANSITIONS.items():
        entries |= {first + k: Entry(*TILE, KEYED, f"ground: {upper} to {lower}") for k in PIECES}
    entries |= {number: Entry(*THING, KEYED, f"thing: {name}") for name, number in THINGS.items()}
    for name in HOUSES:
        entries |= {number: Entry(*THING, KEYED, f"house: {name}") for number, _, _ in strips(name)}
    return entries


# ---- all ----------------------------------------------------------------------------------------

CATALOGUE = {
    5001: Entry(32, 32, KEYED, "window icon"),
    5050: Entry(24, 24, KEYED, "mouse pointer, its tip at the top left"),

    5300: Entry(16, 32, SOLID, "message history: back a line, released above pressed"),
    5301: Entry(16, 32, SOLID, "message history: forward a line"),
    5302: Entry(16, 32, SOLID, "message history: enlarge"),
    5303: Entry(16, 32, SOLID, "message history: shrink"),
    5320: Entry(32, 2, SOLID, "message history: tile of its upper edge"),
    5321: Entry(2, 32, SOLID, "message history: tile of its upright lines"),

    6101: Entry(800, 480, SOLID, "title"),

    6401: Entry(20, 30, SOLID, "bottom bar: left end"),
    6402: Entry(64, 30, SOLID, "bottom bar: tile"),
    6403: Entry(8, 30, SOLID, "bottom bar: right end"),
    6411: Entry(6, 6, KEYED, "strip frame: left end"),
    6412: Entry(32, 6, KEYED, "strip frame: tile"),
    6413: Entry(6, 6, KEYED, "strip frame: right end"),

    6500: Entry(392, 24, SOLID, "progress: bar"),
    6501: Entry(392, 100, KEYED, "progress: frame"),

    6600: Entry(32, 32, SOLID, "frame; its outer 2 pixels are laid around controls"),
    6601: Entry(16, 16, SOLID, "scrollbar: decrement button"),
    6602: Entry(16, 16, SOLID, "scrollbar: decrement button, pressed"),
    6603: Entry(16, 16, SOLID, "scrollbar: increment button"),
    6604: Entry(16, 16, SOLID, "scrollbar: increment button, pressed"),
    6605: Entry(14, 14, SOLID, "close button"),
    6606: Entry(14, 14, SOLID, "close button, pressed"),
    6607: Entry(16, 16, SOLID, "toggle, pressed"),
    6608: Entry(80, 20, SOLID, "button"),
    6609: Entry(80, 20, SOLID, "button, pressed"),
    6610: Entry(64, 20, SOLID, "caption bar: tile"),
    6611: Entry(16, 32, SOLID, "scrollbar: tile of the track"),
    6612: Entry(128, 128, SOLID, "chat: background tile"),
    6613: Entry(128, 128, SOLID, "windows and panels: background tile"),

    6700: Entry(300, 60, SOLID, "island by day"),
    6701: Entry(300, 60, SOLID, "island at dusk"),
    6702: Entry(300, 60, SOLID, "island at night"),
} | world()
