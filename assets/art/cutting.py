"""Cuts renders out for a screen that knows no half transparency: hard edges without a fringe, dithered shadows."""
import numpy as np

from noise import tiled_bayer
from rendering import render

SHADOW_COLOUR = (34, 44, 30)
DARKEST_SHADOW = .5                             # a chequer: more would close the ground
OVERSAMPLING = 3


def sharpened(colour, alpha, amount):
    """Unsharp mask that only looks at covered pixels, so no background bleeds in."""
    weight = alpha[..., None]
    total = np.zeros_like(colour)
    weights = np.zeros(alpha.shape + (1,))
    for dy in (-1, 0, 1):
        for dx in (-1, 0, 1):
            share = (2 - abs(dx)) * (2 - abs(dy))
            total += share * np.roll(np.roll(colour * weight, dy, 0), dx, 1)
            weights += share * np.roll(np.roll(weight, dy, 0), dx, 1)
    blurred = total / np.maximum(weights, 1e-6)
    return colour + amount * (colour - blurred) * (weights > 0)


def cut_out(render_of_it, shadow, threshold=.45, edge=.78, sharpen=.35):
    """Turn a see-through render into (colours, opaque).

    A half-covered pixel has the colour of the object alone, so cutting at threshold leaves no halo. edge darkens
    barely covered pixels into a soft outline; shadow (0 to 1) becomes an ordered dither of dark pixels.
    """
    pixels = np.array(render_of_it, float)
    colour, alpha = pixels[..., :3], pixels[..., 3] / 255
    opaque = alpha >= threshold
    cover = np.clip((alpha - threshold) / (1 - threshold), 0, 1)[..., None]
    colour = np.clip(sharpened(colour, alpha, sharpen) * (edge + (1 - edge) * cover), 0, 255)
    dark = (np.minimum(shadow, DARKEST_SHADOW) > tiled_bayer(*alpha.shape)) & ~opaque
    colour[dark] = SHADOW_COLOUR
    return colour, opaque | dark


def shadow_on_ground(render_of_it, fade):
    """Darkness (0 to 1) of a white ground under an unseen object.

    It fades out over this many columns at the left and the right border, where the picture's width would cut it.
    """
    light = (np.array(render_of_it.convert("RGB"), float).mean(-1) / 255) ** 2.2
    darkness = np.clip(1 - light / np.percentile(light, 99), 0, 1)
    darkness = np.clip((darkness - .12) / .55, 0, 1) * .62
    width = darkness.shape[1]
    x = np.arange(width)
    return darkness * np.clip(np.minimum(x + .5, width - x - .5) / fade, 0, 1)


def cut_out_with_shadow(scene, size, fade=22, **declared):
    """Render a scene's object (Pass 0) and its shadow (Pass 1), and cut them out."""
    seen = render(scene, size, OVERSAMPLING, Pass=0, **declared)
    shade = render(scene, size, 1, background="-UA", Pass=1, **declared)
    return cut_out(seen, shadow_on_ground(shade, fade))


def blob_shadow(size, centre, radii, strength=1.25):
    """A shadow that keeps its shape: strength at the centre, falling to 0 at the rim."""
    y, x = np.mgrid[0:size[1], 0:size[0]]
    distance = np.hypot((x - centre[0]) / radii[0], (y - centre[1]) / radii[1])
    return np.clip(strength - distance, 0, DARKEST_SHADOW)
