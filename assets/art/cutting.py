"""Cuts renders out for a screen without partial transparency: hard edges without a fringe, dithered shadows."""
import numpy as np

from noise import tiled_bayer
from rendering import render

SHADOW_COLOR = (34, 44, 30)
DARKEST_SHADOW = .5                             # a checkerboard: more would hide the ground
OVERSAMPLING = 3


def sharpened(color, alpha, amount):
    """Unsharp mask over covered pixels only, so that no background bleeds in."""
    weight = alpha[..., None]
    total = np.zeros_like(color)
    weights = np.zeros(alpha.shape + (1,))
    for dy in (-1, 0, 1):
        for dx in (-1, 0, 1):
            share = (2 - abs(dx)) * (2 - abs(dy))
            total += share * np.roll(np.roll(color * weight, dy, 0), dx, 1)
            weights += share * np.roll(np.roll(weight, dy, 0), dx, 1)
    blurred = total / np.maximum(weights, 1e-6)
    return color + amount * (color - blurred) * (weights > 0)


def cut_out(render_of_it, shadow, threshold=.45, edge=.78, sharpen=.35):
    """Turn a see-through render into (colors, opaque).

    A half-covered pixel has the color of the object alone, so cutting at threshold leaves no halo. Barely covered
    pixels are darkened to `edge` of their brightness, a soft outline; shadow (0 to 1) is dithered with dark pixels.
    """
    pixels = np.array(render_of_it, float)
    color, alpha = pixels[..., :3], pixels[..., 3] / 255
    opaque = alpha >= threshold
    cover = np.clip((alpha - threshold) / (1 - threshold), 0, 1)[..., None]
    color = np.clip(sharpened(color, alpha, sharpen) * (edge + (1 - edge) * cover), 0, 255)
    dark = (np.minimum(shadow, DARKEST_SHADOW) > tiled_bayer(*alpha.shape)) & ~opaque
    color[dark] = SHADOW_COLOR
    return color, opaque | dark


def shadow_on_ground(render_of_it, fade):
    """Darkness (0 to 1) of a white ground under an unseen object.

    It fades out over `fade` columns at the left and right borders, which would cut it off.
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


def blob_shadow(size, center, radii, strength=1.25):
    """A shadow that keeps its shape: strength at the center, falling to 0 at the rim."""
    y, x = np.mgrid[0:size[1], 0:size[0]]
    distance = np.hypot((x - center[0]) / radii[0], (y - center[1]) / radii[1])
    return np.clip(strength - distance, 0, DARKEST_SHADOW)
