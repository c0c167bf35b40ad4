"""Checks the committed pictures: that all are there, their sizes, colour keys that survive 16 bits,
and that the text which the client writes on some of them can be read.
"""
import struct

import numpy as np
from PIL import Image

from catalogue import CATALOGUE
from paths import GRAPHICS
from pictures import KEY

WHITE, CREAM, GREY, BLACK = (255, 255, 255), (251, 247, 195), (163, 158, 133), (0, 0, 0)
WRITTEN_ON = {6608: [BLACK], 6609: [BLACK], 6610: [WHITE], 6612: [WHITE, CREAM, GREY], 6613: [WHITE, CREAM],
              6402: [WHITE]}
LEAST_CONTRAST = 4.5
TEXT_MARGIN = 5                                 # text keeps this far from the border; rims and bevels lie there


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
    if not entry.keyed:
        if b"tRNS" in found:
            yield "has a tRNS chunk but no hole"
        if (pixels >> (3, 2, 3) == (31, 0, 31)).all(-1).any():
            yield "has a colour that is the key in 16 bits"
        return
    flat = found.get(b"PLTE", b"")
    palette = [tuple(flat[k:k + 3]) for k in range(0, len(flat), 3)]
    if not palette or palette[0] != KEY or found.get(b"tRNS") != b"\0":
        yield "has another key than entry 0, (255, 0, 255), alone"
    if any((red >> 3, green >> 2, blue >> 3) == (31, 0, 31) for red, green, blue in palette[1:]):
        yield "has a colour that is the key in 16 bits"


def luminance(colours):
    """Relative luminance (0 to 1) of colours along the last axis."""
    part = np.asarray(colours) / 255
    return np.where(part <= .04045, part / 12.92, ((part + .055) / 1.055) ** 2.4) @ (.2126, .7152, .0722)


def least_contrast(text, pixels):
    """The contrast of a text colour with the pixel that it stands out from least."""
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
    pixels = np.array(picture.convert("RGB"))
    yield from key_faults(entry, chunks(path.read_bytes()), pixels)
    inner = pixels[TEXT_MARGIN:-TEXT_MARGIN, TEXT_MARGIN:-TEXT_MARGIN]
    for text in WRITTEN_ON.get(number, ()):
        contrast = least_contrast(text, inner)
        if contrast < LEAST_CONTRAST:
            yield f"gives text in {text} only a contrast of {contrast:.1f}"


def check():
    """Print every fault and end the program if there is one."""
    bad = [f"{number}.png {fault}" for number in CATALOGUE for fault in faults(number)]
    bad += [f"{path.name} is not in the catalogue" for path in sorted(GRAPHICS.glob("*.png"))
            if not path.stem.isdigit() or int(path.stem) not in CATALOGUE]
    if bad:
        raise SystemExit("\n".join(bad))
    print(f"{len(CATALOGUE)} pictures are sound")
