"""Renders the character's sheet: a walking cycle in columns, the directions in rows."""
import numpy as np

from catalogue import CHARACTER, DIRECTIONS, FRAME, FRAME_FOOT, FRAMES
from cutting import OVERSAMPLING, blob_shadow, cut_out
from pictures import write_picture
from rendering import render


def make():
    """The shadow is the same in all frames: a true one would flicker in its dither."""
    shadow = blob_shadow(FRAME, center=(FRAME_FOOT[0] + 2, FRAME_FOOT[1]), radii=(15, 6.5))
    rows = []
    for direction in range(DIRECTIONS):
        frames = [cut_out(render("character", FRAME, OVERSAMPLING, Direction=direction, Frame=frame), shadow,
                          threshold=.42, edge=.70, sharpen=.45) for frame in range(FRAMES)]
        rows.append([np.concatenate(parts, axis=1) for parts in zip(*frames)])
    write_picture(CHARACTER, *(np.concatenate(parts) for parts in zip(*rows)))
