"""Checks the committed pictures: none is missing, sizes, color keys that survive 16 bits, contrast for the text that
the client writes on some of them, and that the pieces of the world fit together.
"""
import re
import struct

import numpy as np
from PIL import Image

from catalogue import (CATALOGUE, CHARACTER, DIRECTIONS, FRAME, FRAME_FOOT, FRAMES, HOUSES, KINDS, PIECES, ROOTS,
                       STEP, THING_FOOT, THINGS, TILE, TRANSITIONS, VARIANTS)
from paths import ASSETS, GRAPHICS
from pictures import KEY, is_key_in_16_bits

WHITE, CREAM, GRAY, BLACK = (255, 255, 255), (251, 247, 195), (163, 158, 133), (0, 0, 0)
WRITTEN_ON = {6608: [BLACK], 6609: [BLACK], 6610: [WHITE], 6612: [WHITE, CREAM, GRAY], 6613: [WHITE, CREAM],
              6402: [WHITE]}
MIN_CONTRAST = 4.5
TEXT_MARGIN = 5                                 # text stays this far from the border, where rims and bevels lie
STEP_X, STEP_Y = STEP
RIGHT, BOTTOM = TILE[0] - 1, TILE[1] - 1         # the last column and row of a tile


def chunks(data):
    """The chunks of a PNG by kind (the last one of each kind)."""
    found, place = {}, 8
    while place < len(data):
        length, kind = struct.unpack(">I4s", data[place:place + 8])
        found[kind] = data[place + 8:place + 8 + length]
        place += 12 + length
    return found


def key_faults(entry, found, pixels):
    """What is wrong with the key of one picture."""
    palette, transparency = np.frombuffer(found.get(b"PLTE", b""), np.uint8).reshape(-1, 3), found.get(b"tRNS")
    if entry.keyed and (not (palette[:1] == KEY).all(-1).any() or transparency != b"\0"):
        yield "has another key than entry 0, (255, 0, 255), alone"
    if not entry.keyed and transparency is not None:
        yield "has a tRNS chunk but no hole"
    if is_key_in_16_bits(palette[1:] if entry.keyed else pixels).any():
        yield "has a color that is the key in 16 bits"


def luminance(colors):
    """Relative luminance (0 to 1) of colors along the last axis."""
    part = np.asarray(colors) / 255
    return np.where(part <= .04045, part / 12.92, ((part + .055) / 1.055) ** 2.4) @ (.2126, .7152, .0722)


def least_contrast(text, pixels):
    """The contrast of a text color with the pixel that is most like it."""
    a, b = luminance(text), luminance(pixels)
    return ((np.maximum(a, b) + .05) / (np.minimum(a, b) + .05)).min()


def faults(number):
    """What is wrong with one picture."""
    entry, path = CATALOGUE[number], GRAPHICS / f"{number}.png"
    if not path.exists():
        yield "is missing"
        return
    picture = Image.open(path)
    if picture.mode not in ("P", "RGB"):
        yield f"is {picture.mode}, neither palette nor RGB"
    if picture.size != (entry.width, entry.height):
        yield f"is {picture.width} x {picture.height}, not {entry.width} x {entry.height}"
        return
    pixels = np.array(picture.convert("RGB"))
    yield from key_faults(entry, chunks(path.read_bytes()), pixels)
    yield from shape_faults(number, np.array(picture.convert("RGBA"))[..., 3] > 0)
    inner = pixels[TEXT_MARGIN:-TEXT_MARGIN, TEXT_MARGIN:-TEXT_MARGIN]
    for text in WRITTEN_ON.get(number, ()):
        contrast = least_contrast(text, inner)
        if contrast < MIN_CONTRAST:
            yield f"gives text in {text} only a contrast of {contrast:.1f}"


def shape_faults(number, opaque):
    """Holes in the ground, figures in the wrong place, and figures that the border cuts off."""
    use, figures = CATALOGUE[number].use, []
    if use.startswith("ground"):
        step, x, skip = np.indices((7, STEP_X, 2))       # the lines along which the client blends two grounds
        row, column = STEP_Y - step + x // 2, 2 * step + x + 2 * skip
        if not all(opaque[y, x].all() for y in (row, BOTTOM - row) for x in (column, RIGHT - column)):
            yield "has a hole where it is blended with a neighbor"
        tile = np.vstack([opaque[:1] | opaque[BOTTOM:], opaque[1:BOTTOM]])
        if not (tile | np.roll(tile, (STEP_Y, STEP_X), (0, 1))).all():
            yield "leaves a hole between fields"
    elif use.startswith("thing") and not use.startswith(("thing: Fence", "thing: Pier")):   # these join at the border
        right, down = ROOTS.get(use.removeprefix("thing: "), (0, 0))
        figures = [(opaque, THING_FOOT[0] + right, THING_FOOT[1] + down)]
    elif number == CHARACTER:
        frames = opaque.reshape(DIRECTIONS, FRAME[1], FRAMES, FRAME[0]).swapaxes(1, 2)
        figures = [(frame, *FRAME_FOOT) for row in frames for frame in row]
    for figure, middle, foot in figures:
        if not figure[foot - 5:foot + 5, middle - 5:middle + 5].any() or figure[:, [0, -1]].any():
            yield "stands in the wrong place on its field, or is cut off at the side"
    if any(figure[0].any() for figure, _, _ in figures) or use.startswith("house") and opaque[0].any():
        yield "is cut off above"


def header_faults():
    """Where the server's list of pictures differs from the catalogue."""
    text = (ASSETS.parent / "server" / "terrain" / "WorldPictures.h").read_text()
    listed = {(name, int(number)) for name, number in re.findall(r"^  (\w+) = (\d{6}),", text, re.M)}
    listed |= {(name, tuple(map(int, facts.split(",")))) for name, facts in re.findall(r"House k(\w+)\{(.+)\}", text)}
    ours = KINDS | THINGS | HOUSES | {upper + lower: number for (upper, lower), number in TRANSITIONS.items()}
    return [f"{name} differs between the catalogue and WorldPictures.h" for name, _ in listed ^ set(ours.items())]


def edges(number):
    """(direction, corners, smoothed colors) of each of a tile's edges; it joins two corners, 0 north to 3 west."""
    picture, t = np.array(Image.open(GRAPHICS / f"{number}.png").convert("RGB"), int), np.linspace(.06, .94, 34)
    right, down = (36 * t).round().astype(int), (16 * t).round().astype(int)
    for way, corners, row, column in (("/", (3, 0), STEP_Y - down, 1 + right),
                                      ("/", (2, 1), BOTTOM - 2 - down, STEP_X + right),
                                      ("\\", (3, 2), STEP_Y + down, 1 + right),
                                      ("\\", (0, 1), 2 + down, STEP_X + right)):
        yield way, corners, sum(picture[row, column][k:k + 32] for k in range(3)) / 3


def transition_faults(upper, lower):
    """Pieces with an edge that looks more like those between corners of other kinds."""
    tiles, alike = [(piece, TRANSITIONS[upper, lower] + piece) for piece in PIECES], {}
    tiles += [(corners, KINDS[kind] + k) for corners, kind in ((0, lower), (15, upper)) for k in range(VARIANTS)]
    for piece, number in tiles:
        for way, (a, b), colors in edges(number):
            alike.setdefault((way, piece >> a & 1, piece >> b & 1), []).append((number, colors))
    usual = {key: np.median([colors for _, colors in group], 0) for key, group in alike.items()}
    for key, number, colors in ((key, *tile) for key, group in alike.items() for tile in group):
        if key != min((k for k in usual if k[0] == key[0]), key=lambda k: np.abs(colors - usual[k]).mean()):
            yield f"{number}.png does not meet its neighbors"


def check():
    """Print every fault and end the program if there is one."""
    bad = [f"{number}.png {fault}" for number in CATALOGUE for fault in faults(number)]
    bad += [f"{path.name} is not in the catalogue" for path in sorted(GRAPHICS.glob("*.png"))
            if not path.stem.isdigit() or int(path.stem) not in CATALOGUE]
    bad += header_faults()
    bad += [] if bad else [fault for pair in TRANSITIONS for fault in transition_faults(*pair)]
    if bad:
        raise SystemExit("\n".join(bad))
    print(f"{len(CATALOGUE)} pictures are sound")
