"""Paints the pieces of the lobby, its windows and their buttons, and the mouse pointer.

Where the client draws the frame (6600) around a piece, it covers the outer 2 pixels. Pieces have a rim of their own
there, so that they look whole without it, too.
"""
import numpy as np

from materials import (CREAM, DARK_WOOD, FRAME_WOOD, LIGHT_WOOD, OUTLINE, brass, enamel, leather, lit, moved, plate,
                       polygon_cover, with_glyph, with_rim, wood)
from noise import rgb
from pictures import write_picture

INK = rgb(52, 30, 14)                           # glyphs on light wood
UP, DOWN = [(8, 4.6), (12, 10.6), (4, 10.6)], [(4, 5.4), (12, 5.4), (8, 11.4)]
CROSS = [(3.4, 4.8), (4.8, 3.4), (7, 5.6), (9.2, 3.4), (10.6, 4.8), (8.4, 7), (10.6, 9.2), (9.2, 10.6),
         (7, 8.4), (4.8, 10.6), (3.4, 9.2), (5.6, 7)]
TICK = [(3.2, 8.0), (5.0, 6.2), (7.0, 8.6), (11.4, 3.2), (13.2, 4.8), (7.2, 12.4)]


def small_button(size, seed, glyph, pressed):
    """A square wooden button with a dark glyph, which sinks with it."""
    face = plate(*wood(size, size, seed, LIGHT_WOOD), pressed=pressed)
    return with_glyph(face, moved(glyph, .5, .5) if pressed else glyph, INK)


def write_backgrounds():
    """Tiles. Light text stands on all of them but the track, so they stay dark."""
    color, relief = wood(128, 128, 11, DARK_WOOD, plank=32)
    write_picture(6613, lit(relief, color, .6))
    write_picture(6612, leather(128, 5))
    y, x = np.mgrid[0:32, 0:16]
    groove = enamel(1 - np.abs(x - 7.5) / 8, (26, 17, 12), (8, 6, 5))
    write_picture(6611, groove + 3 * np.sin(y * np.pi / 4)[..., None])


def write_frame():
    """Only the border of this picture is ever seen: edges from pixel 2 to 29, repeated, and corners."""
    color, relief = wood(32, 32, 21, FRAME_WOOD)
    write_picture(6600, with_rim(lit(relief, color)))


def write_caption():
    """Sea-blue enamel, light in its upper third; its pattern repeats every 8 pixels."""
    y, x = np.mgrid[0:20, 0:64]
    picture = enamel(1 - np.abs(y - 6) / 14, (16, 46, 70), (44, 98, 130))
    write_picture(6610, picture + 3 * np.sin(x * np.pi / 4 + y * np.pi / 2)[..., None])


def write_buttons():
    """Buttons at rest and pressed. The client writes on 6608 and 6609 in black."""
    for number, pressed in ((6608, False), (6609, True)):
        write_picture(number, plate(*wood(80, 20, 31, LIGHT_WOOD), pressed=pressed))
    for number, glyph, pressed in ((6601, UP, False), (6602, UP, True), (6603, DOWN, False), (6604, DOWN, True)):
        write_picture(number, small_button(16, 41, glyph, pressed))
    for number, pressed in ((6605, False), (6606, True)):
        write_picture(number, small_button(14, 43, CROSS, pressed))


def write_toggle():
    """A tick on enamel. The released look is plain black, so this one must say "on" by itself."""
    y = np.mgrid[0:16, 0:16][0]
    picture = with_rim(enamel(1 - y / 16, (10, 44, 52), (22, 92, 100)))
    write_picture(6607, with_glyph(with_glyph(picture, moved(TICK, .8, .8), OUTLINE), TICK, CREAM))


def write_pointer():
    """A brass arrow with a dark outline, its tip in the corner that the client places on the spot."""
    shape = [(1, 1), (1, 19), (5.6, 15), (8.6, 21.5), (12, 20), (9, 13.6), (15, 13.4)]
    inside = polygon_cover(shape, 24) > .5
    opaque = inside.copy()
    for axis in (0, 1):
        for step in (-1, 1):
            opaque |= np.roll(inside, step, axis)
    y, x = np.mgrid[0:24, 0:24]
    color = brass(np.clip(1.08 - (x * 1.1 + y * .55) / 22, 0, 1))
    color[~inside] = OUTLINE
    write_picture(5050, color, opaque)


def make():
    """All pieces."""
    write_backgrounds()
    write_frame()
    write_caption()
    write_buttons()
    write_toggle()
    write_pointer()
