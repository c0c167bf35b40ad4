"""Makes the island's shape: a 16-bit height field and the places of its trees."""
import random

import numpy as np
from PIL import Image

from noise import periodic_noise, smooth_step
from paths import WORK

SIZE = 512
TREES = 330
BROAD_TREE, CONIFER, PALM = 1, 2, 3


def hill(x, y, center, radii):
    """A bell-shaped hill, 1 at its top."""
    return np.exp(-(((x - center[0]) / radii[0]) ** 2 + ((y - center[1]) / radii[1]) ** 2))


def island_heights():
    """Heights from 0 to 1: a plateau with a ragged coast, a mountain and a hill."""
    y, x = np.mgrid[0:SIZE, 0:SIZE] / (SIZE - 1) * 2 - 1
    coast = periodic_noise(SIZE, 5, 3.2, 1, 60)
    rough = periodic_noise(SIZE, 6, 2.2, 4, 90)
    ridges = 1 - np.abs(np.tanh(rough * .8))
    distance = np.hypot(x, y * 1.55) + .085 * coast
    land = smooth_step(.92, .30, distance)
    heights = .16 * land + .10 * smooth_step(.75, .2, distance)
    heights += hill(x, y, (-.28, .18), (.24, .26)) * (.52 + .10 * ridges + .05 * rough) * land
    heights += hill(x, y, (.20, .22), (.16, .20)) * (.22 + .06 * ridges) * land
    heights += .012 * rough * land
    heights = np.clip(np.where(land <= 0, 0, heights) * .95, 0, 1)
    beach = .11                                  # flatter near the water
    return np.where(heights < beach, heights * (.35 + .65 * np.clip(heights / beach, 0, 1)), heights)


def write_heights(path, heights):
    """A 16-bit gray PNG, north up."""
    Image.fromarray((heights * 65535).astype(np.uint16)[::-1]).save(path)


def in_clearing(x, y):
    """Whether a place is in the village, which stays free of trees."""
    return ((x - .12) / .22) ** 2 + ((y + .30) / .16) ** 2 < 1


def tree_kind(chance, height):
    """A palm near the beach, a conifer high up, else mostly a broad tree, as the scene numbers them."""
    if height < .17 and chance.random() < .7:
        return PALM
    if height > .3 and chance.random() < .6:
        return CONIFER
    return BROAD_TREE


def scatter_trees(heights):
    """Rows of x, z, kind, size and turn, for trees on gentle grass."""
    chance = random.Random(4)
    gradient_y, gradient_x = np.gradient(heights)
    trees = []
    while len(trees) < TREES:
        i, j = chance.randrange(20, SIZE - 20), chance.randrange(20, SIZE - 20)
        height = heights[j, i]
        steepness = np.hypot(gradient_x[j, i], gradient_y[j, i]) * SIZE / 2
        x, y = i / (SIZE - 1) * 2 - 1, j / (SIZE - 1) * 2 - 1
        if not .13 <= height <= .47 or steepness > 1.35 or in_clearing(x, y):
            continue
        kind = tree_kind(chance, height)
        trees.append((x, y, kind, chance.uniform(.8, 1.25), chance.uniform(0, 360)))
    return trees


def make():
    """Write the height field and the trees to the work folder, where the island's scene finds them."""
    WORK.mkdir(parents=True, exist_ok=True)
    heights = island_heights()
    write_heights(WORK / "island.png", heights)
    rows = ",\n".join("{%.4f, %.4f, %d, %.2f, %.0f}" % tree for tree in scatter_trees(heights))
    (WORK / "island_trees.inc").write_text(
        f"#declare TreeCount = {TREES};\n#declare Trees = array[{TREES}][5]{{\n{rows}\n}}\n")
