"""Paints the kinds of ground on which nothing grows: sand, snow, rock, path, cobbles and ploughed earth.

What all variants share must be small: noise of two or three cycles per field, no landmark near a border. A large shape
that repeats shows the grid of the fields.
"""
import numpy as np

from field import (N, TEXEL_U, TEXEL_V, Brush, blend_inside, inside_weight, placed, project, scattered, sunlight, tone,
                   varied_noise)
from noise import mix, periodic_noise, ramp, rgb, smooth_step


def paint_unknown():
    """Mist over dark water, for fields that the server has not described yet."""
    mist = periodic_noise(N, 91, 3, 1, 6)
    return project(ramp(mist, [(-2, rgb(44, 62, 74)), (2, rgb(62, 82, 92))]))


def paint_sand(variant):
    """Wind ripples over broad dunes, with grain."""
    dunes = varied_noise(11, 2.6, 1, 6, variant)
    grain = varied_noise(12, .6, 20, 90, variant)
    ripples = np.sin(2 * np.pi * (3 * TEXEL_U + 5 * TEXEL_V) + 1.6 * varied_noise(13, 3, 1, 4, variant))
    light = sunlight(.36 * ripples + 1.3 * dunes + .26 * grain, 1.6)
    color = ramp(dunes * .5 + grain * .18,
                  [(-1.5, rgb(204, 172, 116)), (0, rgb(221, 193, 139)), (1.5, rgb(234, 210, 160))])
    return project(color * (.30 + .70 * light)[..., None])


def paint_snow(variant):
    """Small drifts."""
    drifts = varied_noise(21, 2.4, 3, 9, variant)
    crust = varied_noise(22, 1.2, 16, 60, variant)
    light = sunlight(1.15 * drifts + .30 * crust, 1.8)
    color = ramp(light, [(.55, rgb(172, 190, 216)), (.95, rgb(228, 236, 245)), (1.12, rgb(250, 251, 252))])
    color[periodic_noise(N, 23 + variant, 0, 40, None) > 3.0] = 255
    return project(color)


def plates(seed, grid, jitter, variant):
    """The nearest of grid x grid jittered plates on the torus: (distance to the crack, tint of the plate).

    The outer ring of plates is the same in all variants, so that cracks meet at the borders.
    """
    ring_random, inner_random = np.random.RandomState(seed), np.random.RandomState(10 * seed + variant)
    points, tints = [], []
    for row in range(grid):
        for column in range(grid):
            on_ring = row in (0, grid - 1) or column in (0, grid - 1)
            random = ring_random if on_ring else inner_random
            place = (np.array((column, row)) + .5 + jitter * (random.rand(2) - .5)) / grid
            points.append(place)
            tints.append(.5 + (random.rand() - .5) * (.35 if on_ring else 1))
    wobble = [periodic_noise(N, seed + k, 2.4, 2, 20) * .11 * jitter / .76 / grid for k in (2, 3)]
    distances = []
    for u, v in points:
        du, dv = np.abs(TEXEL_U + wobble[0] - u) % 1, np.abs(TEXEL_V + wobble[1] - v) % 1
        distances.append(np.hypot(np.minimum(du, 1 - du), np.minimum(dv, 1 - dv)))
    distances = np.array(distances)
    order = np.argsort(distances, 0)
    nearest = np.take_along_axis(distances, order[:2], 0)
    return nearest[1] - nearest[0], np.array(tints)[order[0]]


def paint_rock(variant):
    """Cracked plates over humps and hollows; bare slabs stand out, moss lies in the hollows, lichen anywhere."""
    crack_distance, tint = plates(31, 5, .86, variant)
    rough = varied_noise(35, 2.4, 3, 50, variant)
    grain = periodic_noise(N, 36, .5, 30, 100)
    # Relief wider than a plate would repeat along the borders, so most of it stays inside. There each variant is a rise
    # or a hollow as a whole, and equal ones side by side make larger ones.
    broad = blend_inside(.30 * periodic_noise(N, 31, 2.6, 2, 4), .9 * periodic_noise(N, 311 + variant, 2.6, 1, 4))
    broad += inside_weight(.34) * (1.5, -1.7, .5, -.6)[variant]
    ledge = inside_weight(.22) * (periodic_noise(N, 321 + variant, 2.8, 1, 9) + .4 * broad)
    slab = smooth_step(.80, .90, ledge)
    crack = mix(smooth_step(0, .034, crack_distance), 1, .75 * slab)
    height = 5 * crack + 3.2 * tint * (1 - slab) + 7 * slab + 3 * broad + .8 * rough + .35 * grain
    color = ramp(tint * (1 - .7 * slab) + .6 * slab + .17 * broad + .10 * rough,
                  [(0, rgb(128, 124, 119)), (.5, rgb(151, 145, 135)), (1, rgb(176, 168, 154)),
                   (1.3, rgb(190, 182, 166))])
    lichen = smooth_step(1.5, 1.8, varied_noise(37, 1.8, 6, 20, variant))[..., None]
    color = mix(color, rgb(198, 190, 140), .5 * lichen)
    light = sunlight(height, 1.15)[..., None]
    stone = color * (.36 + .64 * np.clip(light, .2, 1.5)) * (.62 + .38 * crack[..., None])
    moss = smooth_step(.75, 1.25, varied_noise(38, 2.6, 2, 18, variant) - .6 * broad - 2 * slab)[..., None]
    return project(mix(stone, rgb(112, 124, 68) * (.42 + .58 * light), .70 * moss))


def paint_cobbles(variant):
    """Rounded stones set in earth."""
    joint, tint = plates(101, 9, .44, variant)
    grain = varied_noise(105, 1, 12, 80, variant)
    dome = np.sqrt(np.clip(joint / .085, 0, 1))
    color = ramp(tint + .10 * grain, [(0, rgb(142, 132, 118)), (.4, rgb(168, 158, 142)), (.75, rgb(186, 174, 152)),
                                       (1, rgb(178, 154, 130))])
    light = sunlight(6.5 * dome + .4 * grain, 1.0)[..., None]
    stone = color * (.40 + .60 * light)
    earth = ramp(grain, [(-2, rgb(92, 80, 58)), (2, rgb(122, 110, 78))])
    return project(mix(earth, stone, smooth_step(.010, .026, joint)[..., None]))


def draw_stones(brush, stones, base=(150, 142, 130)):
    """Small rounded stones, lit from the top left: rows of (u, v, size, brightness), both from 0 to 1."""
    for x, y, (_, _, size, brightness) in placed(stones):
        rx = .8 + 1.5 * size
        ry, brightness = rx * .62, .8 + .35 * brightness
        brush.ellipse(x - rx + rx * .4, y - ry + rx * .3, x + rx + rx * .4, y + ry + rx * .32, (84, 66, 46))
        brush.ellipse(x - rx, y - ry, x + rx, y + ry, tone(base, .72 * brightness))
        brush.ellipse(x - rx * .95, y - ry * .95, x + rx * .6, y + ry * .55, tone(base, brightness))
        brush.ellipse(x - rx * .75, y - ry * .8, x + rx * .1, y + ry * .05, tone(base, 1.18 * brightness))


def paint_path(variant):
    """Trodden earth with stones."""
    humps = varied_noise(41, 2.4, 1, 8, variant)
    grain = varied_noise(42, .8, 14, 80, variant)
    color = ramp(humps * .45 + grain * .2,
                  [(-1.5, rgb(132, 104, 70)), (0, rgb(158, 130, 92)), (1.5, rgb(180, 152, 112))])
    light = sunlight(1.6 * humps + .5 * grain, 1.7)[..., None]
    brush = Brush(project(color * (.25 + .75 * light)))
    draw_stones(brush, scattered(40, 400, variant, .07, 4))
    return brush.result()


def paint_field(variant):
    """Furrows that run to the south-east, with clods and rows of sprouts on their ridges."""
    furrows = 5
    clods = varied_noise(111, 1.2, 8, 60, variant)
    bend = .10 * periodic_noise(N, 112, 3, 1, 3)
    ridge = np.cos(2 * np.pi * (furrows * TEXEL_V + bend))
    color = ramp(.55 * ridge + .30 * clods,
                  [(-1.2, rgb(108, 80, 52)), (0, rgb(148, 112, 74)), (1.2, rgb(178, 140, 96))])
    light = sunlight(6.5 * ridge + .9 * clods, .9)[..., None]
    brush = Brush(project(color * (.42 + .58 * light)))
    sprouts = scattered(90, 113, variant, .08, 4)
    sprouts[:, 1] = (np.floor(sprouts[:, 1] * furrows) + .12 * (sprouts[:, 3] - .5)) / furrows
    for x, y, (_, _, size, _) in placed(sprouts):
        for lean in (-1, 1):
            brush.line([(x, y), (x + lean * (.6 + size), y - 1.2 - 1.4 * size)], (118 + 40 * size, 156, 62), 3)
    return brush.result()
