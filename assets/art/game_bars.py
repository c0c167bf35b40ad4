"""Paints the bars of the game's screen: bottom bar, message history and progress."""
import numpy as np
from PIL import Image

from materials import CREAM, FRAME_WOOD, OUTLINE, brass, enamel, lit, moved, plate, with_glyph, wood
from noise import rgb, smooth_step
from paths import GRAPHICS
from pictures import write_picture

UP, DOWN = [(8, 5), (11.6, 10.4), (4.4, 10.4)], [(4.4, 5.6), (11.6, 5.6), (8, 11)]
BAR_UP, BAR_DOWN = [(4, 3.4), (12, 3.4), (12, 4.8), (4, 4.8)], [(4, 11.2), (12, 11.2), (12, 12.6), (4, 12.6)]
# back and forward a line; an arrow that points to a bar moves the panel's edge up or down
HISTORY_BUTTONS = {5300: (UP,), 5301: (DOWN,), 5302: (UP, BAR_UP), 5303: (DOWN, BAR_DOWN)}


def write_history():
    """Buttons, released above pressed, and the lines around the panel.

    Lines are 2 pixels wide, which is all the client leaves beside the 16 pixels of a button.
    """
    for number, glyphs in HISTORY_BUTTONS.items():
        looks = []
        for pressed in (False, True):
            look = plate(*wood(16, 16, 41, FRAME_WOOD), pressed=pressed)
            for glyph in glyphs:
                look = with_glyph(look, moved(glyph, .7, .8), OUTLINE)
            for glyph in glyphs:
                look = with_glyph(look, glyph, CREAM)
            looks.append(look)
        write_picture(number, np.concatenate(looks))
    line = np.stack([OUTLINE, brass(.7)])
    write_picture(5320, np.repeat(line[:, None], 32, 1))
    write_picture(5321, np.repeat(line[None], 32, 0))


def with_stud(picture, center_x, center_y, radius):
    """A brass stud with an enamel pearl."""
    y, x = np.mgrid[0:picture.shape[0], 0:picture.shape[1]] + .5
    distance = np.hypot(x - center_x, y - center_y)
    dome = lit(np.clip(radius - distance, 0, 3), brass(np.full(distance.shape, .5)), .7)
    pearl = lit(np.clip(radius * .5 - distance, 0, 3), np.broadcast_to(rgb(62, 150, 158), picture.shape), .8)
    for within, material in ((radius + 1, OUTLINE), (radius, dome), (radius * .5, pearl)):
        picture = np.where((distance < within)[..., None], material, picture)
    return picture


def write_bottom_bar():
    """A wooden bar with a dark slot for the line that is typed; the slot starts at the left end."""
    left, tile, right = 20, 64, 8
    width, height = left + tile + right, 30
    color, relief = wood(width, height, 51, FRAME_WOOD)
    picture = lit(relief, color, .8)
    picture[0], picture[1], picture[2] = OUTLINE, brass(.9), brass(.45)
    y, x = np.mgrid[0:height, 0:width]
    slot_depth = np.minimum(np.minimum(y - 5, 26 - y), np.minimum(x - (left - 2), width - 4 - x))
    slot = enamel(np.clip(y / height, 0, 1), (6, 10, 14), (14, 22, 28))
    picture = np.where((slot_depth >= 0)[..., None], slot, picture)
    towards_light = (y == 4) | (x == left - 3)
    picture = np.where((slot_depth == -1)[..., None], brass(np.where(towards_light, .35, .75)), picture)
    picture = with_stud(picture, 9, 16, 6)
    write_picture(6401, picture[:, :left])
    write_picture(6402, picture[:, left:left + tile])
    write_picture(6403, picture[:, left + tile:])


def write_strip_frame():
    """Brass lines above and below the strip under the bottom bar, with closed ends."""
    width = 6 + 32 + 6
    y, x = np.mgrid[0:6, 0:width]
    opaque = (y == 0) | (y == 5) | (x < 3) | (x >= width - 3)
    picture = np.where((y == 0)[..., None], brass(.7), brass(.35))
    picture[:, (0, 2, width - 3, width - 1)] = OUTLINE
    for number, part in ((6411, slice(0, 6)), (6412, slice(6, 38)), (6413, slice(38, width))):
        write_picture(number, picture[:, part], opaque[:, part])


def write_progress():
    """A board with the island by day over a slot; the bar lies behind, its foot at the board's foot."""
    width, height, slot_top, slot_bottom, bar_height = 392, 100, 79, 91, 24
    board = plate(*wood(width, height, 61, FRAME_WOOD))
    left, top = 46, 11
    strip = np.array(Image.open(GRAPHICS / "6700.png").convert("RGB"), float)
    board[top:top + 60, left:left + 300] = strip
    y, x = np.mgrid[0:height, 0:width]
    rims = ((left, top, left + 300, top + 60, 0), (8, slot_top, width - 8, slot_bottom, -2))
    for x0, y0, x1, y1, start in rims:
        depth = np.minimum(np.minimum(x - x0, x1 - 1 - x), np.minimum(y - y0, y1 - 1 - y))
        board[depth == start] = OUTLINE
        board[depth == start + 1] = brass(.75) if start else OUTLINE
        board[depth == start - 1] = brass(.45)
    in_slot = (x >= 8) & (x < width - 8) & (y >= slot_top) & (y < slot_bottom)
    write_picture(6501, board, ~in_slot)
    row = np.arange(bar_height) + height - bar_height - slot_top
    tone = 1 - np.abs(row - 3.5) / (slot_bottom - slot_top)
    bar = enamel(np.clip(tone, 0, 1), (14, 84, 98), (124, 226, 208))
    y, x = np.mgrid[0:bar_height, 0:width]
    write_picture(6500, bar[:, None] + 6 * smooth_step(-.4, .4, np.sin((x + y) * np.pi / 8))[..., None])


def make():
    """All bars. The progress board shows the island, so the strips must be there."""
    write_history()
    write_bottom_bar()
    write_strip_frame()
    write_progress()
