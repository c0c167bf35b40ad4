"""The geometry that all ground pictures share.

A kind of ground is painted on a torus of one field (N x N texels, coordinates u and v), seen through the isometric
projection at SUPER times the size and averaged down in linear light. All variants of a kind share what lies along
their borders, so any variant may lie beside any other; what differs lies inside.
"""
import numpy as np
from PIL import Image, ImageDraw

from catalogue import STEP, TILE
from noise import periodic_noise, slopes, smooth_step

N = 256                         # texels across one field
SUPER = 4
WIDTH, HEIGHT = TILE
STEP_X, STEP_Y = STEP
MIDDLE_X, MIDDLE_Y = WIDTH / 2, HEIGHT / 2

# every supersampled pixel's place on the field: u runs from the NW to the SE edge, v from NE to SW
_rows, _columns = np.mgrid[0:HEIGHT * SUPER, 0:WIDTH * SUPER]
_across = ((_columns + .5) / SUPER - MIDDLE_X) / STEP_X
_down = ((_rows + .5) / SUPER - MIDDLE_Y) / STEP_Y
U = (_across + _down) / 2 + .5
V = (_down - _across) / 2 + .5

# Opaque pixels. The client blends neighboring grounds along lines that run up to 1.5 pixels outside the exact
# diamond; a hole there would mix in the key's magenta. Neighbors cover the excess.
_y, _x = np.mgrid[0:HEIGHT, 0:WIDTH]
DIAMOND = np.abs(_x + .5 - MIDDLE_X) / STEP_X + np.abs(_y + .5 - MIDDLE_Y) / STEP_Y <= 1 + 1.5 / STEP_X + 1e-6

TEXEL_V, TEXEL_U = np.mgrid[0:N, 0:N] / N


# ---- from the field to the screen ---------------------------------------------------------------

def project(texture):
    """A periodic texture (indexed [v, u]) as a supersampled tile, with bilinear interpolation."""
    x = (U % 1) * N - .5
    y = (V % 1) * N - .5
    x0 = np.floor(x).astype(int)
    y0 = np.floor(y).astype(int)
    fx, fy = x - x0, y - y0
    if texture.ndim == 3:
        fx, fy = fx[..., None], fy[..., None]

    def at(row, column):
        return texture[row % N, column % N]

    upper = at(y0, x0) * (1 - fx) + at(y0, x0 + 1) * fx
    lower = at(y0 + 1, x0) * (1 - fx) + at(y0 + 1, x0 + 1) * fx
    return upper * (1 - fy) + lower * fy


def field_to_screen(u, v):
    """The pixel (x, y) of the tile that shows a place on the field."""
    return MIDDLE_X + (u - v) * STEP_X, MIDDLE_Y + (u + v - 1) * STEP_Y


def shrink(picture):
    """Average SUPER x SUPER pixels in linear light: averaging gamma values would darken grass."""
    linear = (np.clip(picture, 0, 255) / 255) ** 2.2
    mean = linear.reshape(HEIGHT, SUPER, WIDTH, SUPER, 3).mean((1, 3))
    return 255 * mean ** (1 / 2.2)


# ---- what is drawn on it piece by piece ---------------------------------------------------------

class Brush:
    """Draws on a supersampled tile, in pixels of the tile."""

    def __init__(self, picture):
        self.image = Image.fromarray(np.clip(picture, 0, 255).astype(np.uint8))
        self.draw = ImageDraw.Draw(self.image)

    def ellipse(self, x0, y0, x1, y1, color):
        self.draw.ellipse([value * SUPER for value in (x0, y0, x1, y1)], fill=tone(color))

    def line(self, points, color, width):
        """Width in supersampled pixels."""
        self.draw.line([value * SUPER for point in points for value in point], fill=tone(color), width=width)

    def polygon(self, points, color):
        self.draw.polygon([(x * SUPER, y * SUPER) for x, y in points], fill=tone(color))

    def result(self):
        return np.array(self.image, float)


def tone(color, brightness=1):
    """A color made brighter or darker, as the tuple that Pillow expects."""
    return tuple(int(min(255, value * brightness)) for value in color)


def scattered(count, seed, variant, margin, numbers):
    """Random rows of (u, v, more numbers from 0 to 1); all variants share the rows within margin of a border."""
    rows = np.random.RandomState(seed).rand(count, numbers)
    if variant:
        inside = ((rows[:, :2] > margin) & (rows[:, :2] < 1 - margin)).all(1)
        other = np.random.RandomState(seed * 31 + variant).rand(inside.sum(), numbers)
        other[:, :2] = margin + (1 - 2 * margin) * other[:, :2]
        rows[inside] = other
    return rows


def placed(rows):
    """(x, y, row) for each row of (u, v, ...) that shows on the tile, back to front.

    Rows repeat around the torus, so that what crosses a border continues on the other side.
    """
    found = []
    for row in rows:
        for du in (-1, 0, 1):
            for dv in (-1, 0, 1):
                x, y = field_to_screen(row[0] + du, row[1] + dv)
                if -8 < x < WIDTH + 8 and -8 < y < HEIGHT + 14:
                    found.append((x, y, row))
    return sorted(found, key=lambda item: item[1])


# ---- textures -----------------------------------------------------------------------------------

def sunlight(height, scale):
    """Light on a periodic height map, 1 on level ground; the sun stands where the scenes have it."""
    along_u, along_v = (slope * .5 * scale for slope in slopes(height))
    sun = np.array([-.62 + .30, .62 + .30, 1.15])
    sun /= np.linalg.norm(sun)
    upright = 1 / np.sqrt(1 + along_u ** 2 + along_v ** 2)
    light = (-along_u * sun[0] - along_v * sun[1] + sun[2]) * upright
    return np.clip(light, 0, None) / sun[2]


def inside_weight(width=.16):
    """1 inside the field, falling to 0 at its borders."""
    t = np.arange(N) / N
    edge = smooth_step(0, width, np.minimum(t, 1 - t))
    return edge[:, None] * edge[None, :]


INSIDE = inside_weight()


def blend_inside(border, interior):
    """border at the borders, interior inside; the roots keep the deviation of two noises."""
    return border * np.sqrt(1 - INSIDE) + interior * np.sqrt(INSIDE)


def varied_noise(seed, slope, lowest, highest, variant):
    """Noise that is the same for all variants along their borders and differs inside."""
    shared = periodic_noise(N, seed, slope, lowest, highest)
    if not variant:
        return shared
    return blend_inside(shared, periodic_noise(N, seed * 100 + variant, slope, lowest, highest))
