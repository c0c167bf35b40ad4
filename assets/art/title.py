"""Makes the title and the island strips for day, dusk and night."""
import numpy as np
from PIL import Image, ImageFilter

import island_shape
from materials import with_rim
from pictures import write_picture
from rendering import render

TITLE_SIZE, STRIP_SIZE = (800, 480), (300, 60)
LETTERS_SIZE, LETTERS_AT = (440, 132), (180, 12)
STRIPS = {6700: 1, 6701: 2, 6702: 3}            # the mode of the scene, by id


def with_letters(picture):
    """Lay the letters over the picture, with a brown outline and a soft dark glow."""
    letters = render("letters", LETTERS_SIZE, 4)
    cover = Image.new("L", picture.size, 0)
    cover.paste(letters.split()[3], LETTERS_AT)
    outline = cover.filter(ImageFilter.MaxFilter(7)).filter(ImageFilter.GaussianBlur(1))
    glow = cover.filter(ImageFilter.MaxFilter(13)).filter(ImageFilter.GaussianBlur(9))
    offset_glow = Image.new("L", picture.size, 0)
    offset_glow.paste(glow.point(lambda value: int(value * .55)), (4, 7))
    result = picture.copy()
    result.paste((20, 24, 44, 255), mask=offset_glow)
    result.paste((58, 32, 16, 255), mask=outline)
    result.alpha_composite(letters, LETTERS_AT)
    return result


def island(size, oversampling, mode):
    """One view of the island."""
    island_shape.make()
    return render("island", size, oversampling, background="-UA", Mode=mode)


def make_title():
    """The picture of the start and login screens."""
    picture = with_letters(island(TITLE_SIZE, 3, mode=0))
    write_picture(6101, with_rim(np.array(picture)[..., :3], brass_width=2))


def make_strips():
    """The lobby's island; the client blends the three by the time of the day."""
    for number, mode in STRIPS.items():
        write_picture(number, np.array(island(STRIP_SIZE, 5, mode))[..., :3])
