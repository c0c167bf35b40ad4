"""The folders of the art: sources, committed results, and what is only in between."""
from pathlib import Path

ASSETS = Path(__file__).resolve().parent.parent
SCENES = ASSETS / "scenes"
GRAPHICS = ASSETS / "graphics"
SOUNDS = ASSETS / "sounds"
ICONS = ASSETS / "icons"
WORK = ASSETS.parent / "build" / "art"      # scene copies, raw renders, sound before it is packed
