"""Makes the program's icon: keyed for the client's window, with soft edges for desktops."""
import numpy as np
from PIL import Image

from paths import ICONS
from pictures import write_picture
from rendering import render

DESKTOP_SIZES = (48, 256)
LARGE = 768


def make():
    """Render once and scale."""
    large = render("icon", (LARGE, LARGE), 2)
    ICONS.mkdir(exist_ok=True)
    for size in DESKTOP_SIZES:
        large.resize((size, size), Image.LANCZOS).save(ICONS / f"{size}.png", optimize=True)
    pixels = np.array(large.resize((32, 32), Image.LANCZOS))
    write_picture(5001, pixels[..., :3], opaque=pixels[..., 3] >= 110)
