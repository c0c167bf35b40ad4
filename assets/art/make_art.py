#!/usr/bin/python3 -B
"""Rebuilds the committed pictures and music from their sources.

    make_art.py                       everything
    make_art.py windows ground        only these steps of STEPS
    make_art.py things=Oak,Birch      only these things; houses=Tavern likewise
"""
import subprocess
import sys

import characters
import check_pictures
import game_bars
import ground
import houses
import icon
import things
import title
import windows
from paths import ASSETS, SOUNDS, WORK


def make_music():
    """Play the piece and pack it. The fixed serial number makes every build give the same file."""
    WORK.mkdir(parents=True, exist_ok=True)
    SOUNDS.mkdir(exist_ok=True)
    sound = WORK / "low_tide.wav"
    subprocess.run([ASSETS / "music" / "low_tide.py", sound], check=True)
    subprocess.run(["oggenc", "-Q", "-q", "4", "--serial", "1", "-t", "Low Tide", "-o", SOUNDS / "1.ogg", sound],
                   check=True)


# in the order of their dependencies: the progress board shows the island by day
STEPS = {"strips": title.make_strips, "title": title.make_title, "icon": icon.make, "windows": windows.make,
         "game_bars": game_bars.make, "ground": ground.make, "things": things.make, "houses": houses.make,
         "characters": characters.make, "music": make_music, "check": check_pictures.check}


def main():
    wanted = sys.argv[1:] or list(STEPS)
    orders = [step.partition("=") for step in wanted]
    unknown = [step for step, _, _ in orders if step not in STEPS]
    if unknown:
        raise SystemExit(f"unknown: {' '.join(unknown)}; the steps are {' '.join(STEPS)}")
    for step, _, names in orders:
        print(f"making {step} {names}", flush=True)
        STEPS[step](*names.split(",") if names else ())


if __name__ == "__main__":
    main()
