"""Makes the ground: every kind in its variants, and the pieces of every painted transition."""
import numpy as np

import bare_ground
import meadows
import water
from catalogue import KINDS, PIECES, TRANSITIONS, UNKNOWN_GROUND, VARIANTS
from field import DIAMOND, N, U, V, project, shrink
from noise import mix, periodic_noise, rgb, smooth_step
from pictures import write_picture


PAINTERS = {"Deep": water.paint_deep, "Shallow": water.paint_shallow, "Sand": bare_ground.paint_sand,
            "Grass": meadows.paint_grass, "DryGrass": meadows.paint_dry_grass,
            "ForestFloor": meadows.paint_forest_floor, "Path": bare_ground.paint_path, "Rock": bare_ground.paint_rock,
            "Snow": bare_ground.paint_snow, "Cobbles": bare_ground.paint_cobbles, "Flowers": meadows.paint_flowers,
            "Field": bare_ground.paint_field}
CALM_VARIANTS = {"Grass": 2}                    # pieces use only the first ones: the others are landmarks

EDGE_NOISE = project(periodic_noise(N, 81, 2.2, 2, 30))
FINE_NOISE = project(periodic_noise(N, 82, 1.0, 14, 60))


def corner_weight(piece):
    """Weight of the upper kind, 1 in its corners; along an edge it depends on that edge's two corners only."""
    north, east, south, west = [(piece >> k) & 1 for k in range(4)]
    u, v = np.clip(U, 0, 1), np.clip(V, 0, 1)
    return north * (1 - u) * (1 - v) + east * u * (1 - v) + south * u * v + west * (1 - u) * v


# ---- how an upper kind meets a lower one; margin is positive where the upper one lies --------------

def lies_on(upper, lower, margin):
    """A ragged edge with a shadow under it, for what grows or lies on top."""
    shade = smooth_step(-.13, -.01, margin)[..., None]
    return mix(lower * (1 - .34 * shade), upper, smooth_step(-.02, .02, margin)[..., None])


def fades_into(upper, lower, margin):
    """A wide gradient, for water over water."""
    return mix(lower, upper, smooth_step(-.35, .35, margin)[..., None])


def is_washed_by(upper, lower, margin):
    """Sand at the water: wet sand, a line of foam and a second, broken one, and the bottom seen through the water."""
    foam = (smooth_step(-.13, -.05, margin) * smooth_step(.03, -.01, margin)
            * (.62 + .38 * smooth_step(-.6, .8, FINE_NOISE)))[..., None]
    outer_foam = (smooth_step(-.30, -.25, margin) * smooth_step(-.17, -.21, margin)
                  * smooth_step(-.4, .9, FINE_NOISE))[..., None]
    wet = smooth_step(.22, .03, margin)[..., None]
    land = mix(upper, upper * rgb(.74, .70, .66), wet)
    bottom_shows = (.45 * smooth_step(-.5, 0, margin))[..., None]
    sea = mix(lower, upper * rgb(.62, .80, .76), bottom_shows)
    sea = mix(sea, rgb(244, 250, 246), .85 * foam)
    sea = mix(sea, rgb(236, 246, 242), .5 * outer_foam)
    return mix(sea, land, smooth_step(-.01, .02, margin)[..., None])


# for all other pairs: lies_on
MEETINGS = {("Shallow", "Deep"): fades_into, ("Sand", "Shallow"): is_washed_by}


def make():
    """All ground."""
    write_picture(UNKNOWN_GROUND, shrink(bare_ground.paint_unknown()), DIAMOND)
    painted = {}
    for kind, first in KINDS.items():
        for variant in range(VARIANTS):
            painted[kind, variant] = PAINTERS[kind](variant)
            write_picture(first + variant, shrink(painted[kind, variant]), DIAMOND)
    for (upper, lower), first in TRANSITIONS.items():
        for piece in PIECES:
            margin = corner_weight(piece) - .5 + .10 * EDGE_NOISE + .035 * FINE_NOISE
            above = painted[upper, piece % CALM_VARIANTS.get(upper, VARIANTS)]
            meet = MEETINGS.get((upper, lower), lies_on)
            write_picture(first + piece, shrink(meet(above, painted[lower, piece // VARIANTS], margin)), DIAMOND)
