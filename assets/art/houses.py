"""Renders houses over several fields and cuts them into one strip for each field of their two front edges.

A strip is 38 pixels wide; the field at the front corner has two side by side. Drawn field by field, back to front, the
strips join to the whole house and hide of the people around it what they should.
"""
import numpy as np

from catalogue import HOUSES, STEP, THING, TILE, strips
from cutting import cut_out_with_shadow
from pictures import write_picture

SCENE_KINDS = {"TiledHouse": 1, "ThatchedHouse": 2, "Tavern": 3}
HEIGHT = 290                    # of the whole picture
GROUND_IN_THING = THING[1] - TILE[1]            # the row of a thing's picture at which its ground begins


def cut_strip(picture, i, j, width, depth):
    """The part of the whole picture that belongs to the field (i, j), in a picture as large as a thing's."""
    left = (i + j) * STEP[0]
    top = HEIGHT - TILE[1] - (width - 1 - i + j) * STEP[1] - GROUND_IN_THING
    strip = np.zeros((THING[1], THING[0]) + picture.shape[2:], picture.dtype)
    first = 0 if j == 0 else STEP[0]             # along the south-western edge the left half is in front
    last = THING[0] if i == width - 1 else STEP[0]
    skipped = max(0, -top)
    shown = picture[top + skipped:top + THING[1], left + first:left + last]
    strip[skipped:skipped + len(shown), first:last] = shown
    return strip


def make(*wanted):
    """All houses, or only those with these names."""
    for name, (_, width, depth) in HOUSES.items():
        if wanted and name not in wanted:
            continue
        size = ((width + depth) * STEP[0], HEIGHT)
        whole = cut_out_with_shadow("houses", size, Kind=SCENE_KINDS[name], LX=width, LZ=depth, Height=HEIGHT)
        for number, i, j in strips(name):
            write_picture(number, *(cut_strip(part, i, j, width, depth) for part in whole))
