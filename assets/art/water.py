"""Paints the water, deep and shallow."""
import math

import numpy as np

from field import N, TEXEL_U, TEXEL_V, blend_inside, project, varied_noise
from noise import mix, periodic_noise, ramp, rgb, slopes, smooth_step


def swell(seed, lowest, highest):
    """Periodic waves whose crests lie across the screen (wave vectors near u + v)."""
    random = np.random.RandomState(seed)
    height = np.zeros((N, N))
    wobble = .28 * periodic_noise(N, seed + 500, 3.2, 1, 4)
    for p in range(1, highest + 1):
        for q in range(1, highest + 1):
            k = math.hypot(p, q)
            if not lowest <= k <= highest * 1.2 or abs(p - q) > max(1, .45 * min(p, q)):
                continue
            phase = random.rand() * 6.28 + wobble * k
            height += (np.sin(2 * np.pi * (p * TEXEL_U + q * TEXEL_V) + phase)
                       * random.uniform(.5, 1) / k ** 1.15)
    return height / height.std()


def surface(variant):
    """(height, how far each place faces the sky ahead); all variants share their borders."""
    def waves(number):
        return swell(71 + number, 2.5, 9) + .16 * periodic_noise(N, 72 + number, 2.0, 8, 30)

    height = waves(0)
    if variant:
        height = blend_inside(height, waves(variant))
    along_u, along_v = slopes(height)
    facing = -(along_u + along_v) * 9 + .35 * (along_v - along_u) * 9
    return height, facing


def with_glints(color, height, facing, low, high, glint):
    """Half-covering highlights on the crests."""
    amount = .5 * smooth_step(low, high, height + .35 * facing)[..., None]
    return mix(color, glint, amount)


def paint_deep(variant):
    """Deep sea."""
    height, facing = surface(variant)
    color = ramp(.55 * np.tanh(.75 * height) + .22 * facing,
                  [(-1.2, rgb(22, 72, 106)), (-.3, rgb(30, 88, 124)), (.4, rgb(40, 104, 140)),
                   (1.1, rgb(70, 136, 164)), (1.6, rgb(128, 180, 196))])
    return project(with_glints(color, height, facing, 1.45, 2.1, rgb(176, 214, 222)))


def paint_shallow(variant):
    """Clear water over pale ground, with a net of light on the bottom."""
    height, facing = surface(variant)
    bed = ramp(varied_noise(75, 2.4, 3, 9, variant),
               [(-2, rgb(88, 168, 167)), (0, rgb(100, 180, 174)), (2, rgb(116, 191, 181))])
    net = np.abs(swell(78, 3, 8) * .6 + .7 * periodic_noise(N, 74, 2.6, 2, 12))
    net = smooth_step(.26, .0, net)
    wave = np.clip(.5 * np.tanh(.75 * height) + .25 * facing, -1.2, 1.6)
    color = bed * (1 + .085 * net + .055 * wave)[..., None]
    return project(with_glints(color, height, facing, 1.5, 2.3, rgb(216, 242, 238)))
