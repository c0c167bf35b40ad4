"""Wood, leather, enamel and brass, and the shapes of the interface.

Surfaces are height maps under one light from the top left; colors are float arrays of 0 to 255.
"""
import numpy as np
from PIL import Image, ImageDraw

from noise import periodic_noise, ramp, rgb, slopes

DARK_WOOD = ((15, 10, 7), (27, 19, 14), (38, 27, 19))         # panels: light text stands on it
FRAME_WOOD = ((58, 38, 26), (84, 58, 38), (108, 78, 50))      # no text stands on it
LIGHT_WOOD = ((182, 146, 98), (208, 172, 118), (228, 194, 140))   # buttons: black text stands on it
BRASS = [(0, rgb(110, 74, 28)), (.5, rgb(196, 148, 62)), (1, rgb(250, 222, 140))]
OUTLINE = rgb(34, 20, 12)
CREAM = rgb(252, 228, 160)


# ---- materials ----------------------------------------------------------------------------------

def lit(height, color, strength=1.0):
    """Light a height map (in pixels) from the top left; it repeats at its borders, as tiles do."""
    along_x, along_y = (difference / 2 for difference in slopes(height))
    slope = (along_x * .62 + along_y * .78) * strength
    factor = 1 + np.where(slope > 0, .55, .75) * np.tanh(slope)
    highlight = np.clip(slope - .55, 0, 1)[..., None] * 90
    return np.clip(color * factor[..., None] + highlight, 0, 255)


def wood(width, height, seed, tones, plank=0):
    """Wood with its grain across, as (color, height); plank is the height of a plank, 0 for none.

    A width of 128 or 256 and a height of 128 repeat without a seam.
    """
    size = 128
    grain = periodic_noise(size, seed, 2.2, 1, 60)
    warp = periodic_noise(size, seed + 1, 3, 1, 4)
    y, x = np.mgrid[0:height, 0:width]
    column = x % size
    bent = y + np.round(2.5 * warp[y % size, column])
    rings = np.sin(bent * 2 * np.pi * 24 / size + 1.5 * warp[y % size, column])
    streaks = grain[(bent * 9).astype(int) % size, column]
    tone = (.55 * rings + .55 * streaks) / 1.2
    color = ramp(tone, list(zip((-1.4, 0, 1.4), tones)))
    relief = .25 * tone
    if plank:
        within = y % plank
        relief = relief + np.clip(np.minimum(within, plank - 1 - within), 0, 2) * .7
        color = color * (1 + .10 * np.sin(y // plank * 2.4 + seed))[..., None]
        color = np.where((within < 1)[..., None], color * .5, color)
    return color, relief


def leather(size, seed):
    """A tile of dark blue leather: calm enough to read a page of chat on."""
    folds = periodic_noise(size, seed, 2.0, 4, 30)
    grain = periodic_noise(size, seed + 1, .4, 14, 46)
    color = ramp(folds, [(-2, rgb(12, 22, 30)), (2, rgb(20, 34, 44))])
    return lit(.35 * folds + .38 * grain, color, .5)


def brass(brightness):
    """Brass from dark (0) to bright (1)."""
    return ramp(brightness, BRASS)


def enamel(values, low, high):
    """Enamel from its dark (0) to its light (1) tone."""
    return ramp(values, [(0, rgb(*low)), (1, rgb(*high))])


# ---- shapes -------------------------------------------------------------------------------------

def depth_inside(width, height):
    """Distance of each pixel's middle from the border of the picture."""
    y, x = np.mgrid[0:height, 0:width] + .5
    return np.minimum(np.minimum(x, width - x), np.minimum(y, height - y))


def with_rim(picture, brass_width=1):
    """Lay a dark line and a line of brass around a picture; the brass is bright above and left."""
    height, width = picture.shape[:2]
    depth = depth_inside(width, height)
    y, x = np.mgrid[0:height, 0:width]
    towards_light = np.minimum(x, y) < np.minimum(width - 1 - x, height - 1 - y)
    rim = brass(np.where(towards_light, .82, .42))
    on_brass = (depth > 1) & (depth < 1 + brass_width)
    result = np.where(on_brass[..., None], rim, picture)
    return np.where((depth < 1)[..., None], OUTLINE, result)


def plate(color, relief, pressed=False):
    """A beveled plate inside a rim of 2 pixels; pressed, it is sunk and darker."""
    height, width = relief.shape
    edge = np.clip(depth_inside(width, height) - 1.5, 0, 2) * 1.1
    face = lit(relief - edge if pressed else relief + edge, color * (.9 if pressed else 1), .8)
    return with_rim(face)


def polygon_cover(points, size, scale=8):
    """Coverage (0 to 1) of a polygon in a size x size picture."""
    large = Image.new("L", (size * scale, size * scale), 0)
    ImageDraw.Draw(large).polygon([(x * scale, y * scale) for x, y in points], fill=255)
    return np.array(large.resize((size, size), Image.BOX)) / 255


def moved(points, right, down):
    """The same polygon further right and down."""
    return [(x + right, y + down) for x, y in points]


def with_glyph(picture, points, color):
    """Fill a polygon of a square picture."""
    cover = polygon_cover(points, len(picture))[..., None]
    return picture * (1 - cover) + color * cover
