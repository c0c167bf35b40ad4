"""The folders of the art: sources, committed results, and intermediate files."""
from pathlib import Path

ASSETS = Path(__file__).resolve().parent.parent
SCENES = ASSETS / "scenes"
GRAPHICS = ASSETS / "graphics"
SOUNDS = ASSETS / "sounds"
ICONS = ASSETS / "icons"
WORK = ASSETS.parent / "build" / "art"      # copies of scenes, raw renders, music before it is packed
