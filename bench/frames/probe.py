"""What the frame probe says about a client, for the scripts beside this folder."""

import struct
from collections import namedtuple
from pathlib import Path

# As Frame.h has it: times in seconds of the monotonic clock.
Frame = namedtuple("Frame", "begin flip end work_cpu flip_cpu lock_wait pictures texts view")
_LAYOUT = struct.Struct(f"{len(Frame._fields)}d")

# Options for parse_arguments.
OPTIONS = {"probe": {"type": Path, "default": Path("build-bench/bin/libtolva-frame-probe.so"), "help": "the frame probe"},
           "size": {"nargs": "*", "default": ["800x600", "1280x1024"], "help": "sizes of the window"}}


def probed(args):
    """The file of a client's frames, emptied, and the variables with which the client fills it."""
    log = args.out / "frames"
    log.unlink(missing_ok=True)
    return log, {"LD_PRELOAD": str(args.probe.resolve(strict=True)), "TOLVA_FRAME_PROBE": str(log)}


def read_frames(log):
    """All whole frames, oldest first."""
    content = log.read_bytes()
    return [Frame(*values) for values in _LAYOUT.iter_unpack(content[:len(content) // _LAYOUT.size * _LAYOUT.size])]
