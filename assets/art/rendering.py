"""Runs POV-Ray."""
import os
import shutil
import subprocess

from PIL import Image

from paths import SCENES, WORK


def stage_scenes():
    """Copy the scenes that changed to the work folder.

    Debian lets POV-Ray read and write only its current folder and the one for temporary files, so it
    runs in a folder that holds everything it needs.
    """
    WORK.mkdir(parents=True, exist_ok=True)
    for scene in SCENES.iterdir():
        staged = WORK / scene.name
        if not staged.exists() or staged.read_bytes() != scene.read_bytes():
            shutil.copy(scene, staged)


def render(scene, size, oversampling, background="+UA", **declared):
    """Render a scene with `declared` as its variables. Returns an RGBA picture of the given size.

    Every pixel is the mean of oversampling x oversampling samples: slower than adaptive antialiasing, but
    distant waves and leaves stay calm. The order of the threads may change a pixel by one level.
    The background is see-through ("+UA") or, where the scene has a sky, painted ("-UA").
    """
    stage_scenes()
    raw = WORK / f"{scene}{''.join(str(value) for value in declared.values())}.png"
    width, height = size
    threads = len(os.sched_getaffinity(0))
    command = ["nice", "povray", f"+I{scene}.pov", f"+O{raw.name}", f"+W{width * oversampling}",
               f"+H{height * oversampling}", "-D", "-GD", "-GR", "-GS", "-A", "+FN8", background, f"+WT{threads}"]
    command += [f"Declare={name}={value}" for name, value in declared.items()]
    result = subprocess.run(command, cwd=WORK, capture_output=True, text=True)
    if result.returncode:
        raise SystemExit(f"povray failed on {scene}:\n{result.stderr[-2000:]}")
    return Image.open(raw).convert("RGBA").reduce(oversampling)
