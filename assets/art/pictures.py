"""Writes the pictures in the form that suits the client's loader and its 16-bit screen.

Three facts decide this form (docs/art.md has the details):
- The loader sets a color key only for a picture with exactly one transparent color. So a picture
  with holes is a palette PNG whose entry 0, (255, 0, 255), alone is transparent; a picture without
  holes has neither that entry nor a tRNS chunk.
- The screen has 5, 6 and 5 bits for red, green and blue and simply drops the rest. Skies and dark
  panels would show bands, so colors are dithered to those bits here, where it can be done well.
- (255, 0, 255) in those bits is the key of every control, so no opaque pixel may have that value.
"""
import numpy as np
from PIL import Image

from catalogue import CATALOGUE
from noise import tiled_bayer
from paths import GRAPHICS

KEY = (255, 0, 255)
BITS_OF_565 = np.array((0xF8, 0xFC, 0xF8), np.uint8)
MAX_COLORS = 255                # one of the 256 entries is left for the key


def dithered_to_16_bits(picture):
    """Ordered dither to 5-6-5 bits; the other bits are 0, so the screen drops nothing."""
    pixels = np.clip(picture, 0, 255).astype(float)
    thresholds = tiled_bayer(*pixels.shape[:2])
    result = np.empty(pixels.shape, np.uint8)
    for channel, step in enumerate((8, 4, 8)):
        scaled = pixels[..., channel] * (256 - step) / 255 / step
        result[..., channel] = np.clip(np.floor(scaled + thresholds), 0, 256 // step - 1) * step
    return away_from_key(result)


def is_key_in_16_bits(colors):
    """Which colors (along the last axis) are the key on a 16-bit screen."""
    return (colors & BITS_OF_565 == KEY & BITS_OF_565).all(-1)


def away_from_key(colors):
    """Give colors that would be the key in 16 bits a trace of green."""
    colors[is_key_in_16_bits(colors), 1] = 4
    return colors


def indexed(pixels):
    """(palette, index of each pixel) for N x 3 opaque pixels, or None if they have too many colors."""
    palette, numbers = np.unique(pixels, axis=0, return_inverse=True)
    if len(palette) > MAX_COLORS:
        return None
    return palette, numbers.reshape(-1).astype(np.uint8)


def reduced(pixels):
    """The same N x 3 pixels with no more colors than a palette holds."""
    row = Image.fromarray(pixels.reshape(1, -1, 3))
    few = row.quantize(MAX_COLORS, method=Image.Quantize.MEDIANCUT, kmeans=3, dither=Image.Dither.NONE)
    return away_from_key(np.array(few.convert("RGB"))[0] & BITS_OF_565)


def with_palette(indices, palette):
    """A palette picture."""
    image = Image.fromarray(indices, "P")
    image.putpalette([int(value) for color in palette for value in color])
    return image


def write_picture(number, picture, opaque=None):
    """Write the picture with this id; opaque is False where it is see-through.

    Raises ValueError if size or holes differ from the catalogue, so a painter cannot drift from it.
    """
    entry = CATALOGUE[number]
    if picture.shape[:2] != (entry.height, entry.width) or entry.keyed != (opaque is not None):
        raise ValueError(f"picture {number} differs from the catalogue: {entry}")
    GRAPHICS.mkdir(exist_ok=True)
    path = GRAPHICS / f"{number}.png"
    colors = dithered_to_16_bits(picture)
    if entry.keyed:
        palette, numbers = indexed(colors[opaque]) or indexed(reduced(colors[opaque]))
        indices = np.zeros(opaque.shape, np.uint8)
        indices[opaque] = numbers + 1
        with_palette(indices, [KEY, *palette]).save(path, optimize=True, bits=8, transparency=0)
        return
    found = indexed(colors.reshape(-1, 3))
    image = with_palette(found[1].reshape(colors.shape[:2]), found[0]) if found else Image.fromarray(colors)
    image.save(path, optimize=True, **({"bits": 8} if found else {}))
