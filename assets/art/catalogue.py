"""The one list of the pictures: id, size, whether parts of it are see-through, and its use.

Painters may only write what stands here, and check_pictures.py compares the files with it.
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
}
