"""Paints the kinds of ground where plants grow: grass, dry grass, a meadow in flower and the forest's floor."""
import numpy as np

from field import N, Brush, placed, project, scattered, sunlight, tone, varied_noise
from noise import ramp, rgb

GREEN = [(-1.6, rgb(84, 112, 40)), (-.5, rgb(104, 134, 48)), (.4, rgb(126, 152, 58)), (1.6, rgb(158, 172, 78))]
DRY = [(-1.6, rgb(146, 124, 60)), (-.5, rgb(170, 148, 78)), (.4, rgb(190, 170, 98)), (1.6, rgb(210, 194, 128))]
SHADY = [(-1.6, rgb(82, 108, 46)), (-.5, rgb(104, 126, 52)), (.4, rgb(124, 140, 62)), (1.6, rgb(150, 158, 82))]
SOIL, DRY_SOIL = rgb(74, 86, 36), rgb(132, 106, 58)
LITTER, MOSS = rgb(134, 110, 66), rgb(116, 126, 58)
FLOWERS = [(246, 226, 110), (240, 240, 234), (214, 110, 150), (128, 120, 212), (226, 78, 66)]
FALLEN = [(168, 122, 68), (190, 150, 84), (146, 106, 64), (196, 128, 66), (164, 146, 78)]

BLADES = 2300                   # enough to cover the ground
BLADE_MARGIN, DOT_MARGIN = .14, .09              # all variants share what is rooted closer to a border
SHORTEST, LONGEST, LEAN = 2.6, 6.2, 2.0         # pixels


def soil(color, patches):
    """Shaded ground under the blades, lighter where patches are high."""
    shades = ramp(patches, [(-1.5, color * .85), (1.5, color * 1.12)])
    return project(shades * (.6 + .4 * sunlight(1.6 * patches, 2))[..., None])


def draw_blade(brush, x, y, blade, tip):
    """A bent blade in four segments, dark at the root, light at the tip; blade is (length, lean, tone, width)."""
    length = SHORTEST + (LONGEST - SHORTEST) * blade[0]
    lean = (blade[1] - .5) * 2 * LEAN
    width = 1 + int(blade[3] * 2.2)
    for segment in range(4):
        t0, t1 = segment / 4, (segment + 1) / 4
        brightness = .50 + .58 * t1 + (.07 if lean < 0 else -.04)
        brush.line([(x + lean * t0 * t0, y - length * t0), (x + lean * t1 * t1, y - length * t1)],
                   tone(tip, brightness), max(1, int(round(width * (1.25 - t0)))))


def draw_blades(brush, count, seed, variant, tips, patches):
    """Blades whose tips take their color from patches of light and dark."""
    for x, y, (u, v, *blade) in placed(scattered(count, seed, variant, BLADE_MARGIN, 6)):
        patch = patches[int(v * N) % N, int(u * N) % N]
        draw_blade(brush, x, y, blade, ramp(np.array(patch + (blade[2] - .5) * 1.5), tips))


def draw_flowers(brush, flowers, colors):
    """Dots with a lit side, four pixels above the ground: rows of (u, v, size, color)."""
    for x, y, (_, _, size, color) in placed(flowers):
        color = colors[int(color * len(colors))]
        y, radius = y - 4, .55 + .5 * size
        brush.ellipse(x - radius, y - radius * .8, x + radius, y + radius * .8, tone(color, .72))
        brush.ellipse(x - radius * .9, y - radius * .8, x + radius * .5, y + radius * .3, color)


def paint_meadow(variant, tips, ground, seed, blades=BLADES):
    """Blades in patches of light and dark over shaded soil, as a brush for further strokes."""
    patches = varied_noise(seed + 1, 2.4, 2, 7, variant) * .50
    brush = Brush(soil(ground, patches))
    draw_blades(brush, blades, seed, variant, tips, patches)
    return brush


def paint_grass(variant):
    """Green grass; variants 2 and 3 have flowers, which makes them landmarks, to be used rarely."""
    brush = paint_meadow(variant, GREEN, SOIL, 51)
    if variant >= 2:
        flowers = np.random.RandomState(900 + variant).rand(4, 4)
        flowers[:, :2] = .2 + .6 * flowers[:, :2]
        draw_flowers(brush, flowers, FLOWERS[:3])
    return brush.result()


def paint_dry_grass(variant):
    """Straw-colored grass."""
    return paint_meadow(variant, DRY, DRY_SOIL, 61).result()


def paint_flowers(variant):
    """A meadow in flower, over the same grass."""
    brush = paint_meadow(variant, GREEN, SOIL, 51)
    draw_flowers(brush, scattered(46, 121, variant, DOT_MARGIN, 4), FLOWERS)
    return brush.result()


def paint_forest_floor(variant):
    """Moss and fallen leaves in the shade, with thin grass between them."""
    patches = varied_noise(131, 2.4, 2, 7, variant) * .50
    relief = 1.4 * patches + .5 * varied_noise(133, 1, 8, 60, variant)
    moss = ramp(varied_noise(132, 2.2, 2, 12, variant), [(-.9, LITTER), (.7, MOSS)])
    brush = Brush(project(moss * (.6 + .4 * sunlight(relief, 2))[..., None]))
    draw_blades(brush, 700, 135, variant, SHADY, patches)
    draw_leaves(brush, scattered(150, 134, variant, DOT_MARGIN, 5))
    draw_blades(brush, 260, 136, variant, SHADY, patches)
    return brush.result()


def draw_leaves(brush, leaves):
    """Fallen leaves, each with its shadow: rows of (u, v, size, angle, color)."""
    for x, y, (_, _, size, angle, color) in placed(leaves):
        length, angle = .7 + 1.0 * size, angle * 2 * np.pi
        along = np.array((np.cos(angle), np.sin(angle) * .47)) * length
        across = np.array((-np.sin(angle), np.cos(angle) * .47)) * length * .5
        for shift, brightness in (((.3, .4), .55), ((0, 0), .84 + .25 * size)):
            middle = np.array((x, y)) + shift
            brush.polygon([middle - along, middle + across, middle + along, middle - across],
                          tone(FALLEN[int(color * len(FALLEN))], brightness))
