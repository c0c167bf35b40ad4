"""What the scripts have in common: their servers and players, arguments and verdicts."""

import argparse
import contextlib
import sys
import time
from pathlib import Path

from client import Player
from processes import end
from servers import Server


class Stage(contextlib.ExitStack):
    """Makes servers and players under args.out and ends them all when left."""

    def __init__(self, args):
        super().__init__()
        self.args = args

    def server(self, *options):
        server = Server(self.args, self.args.out / "run-server", *options)
        self.callback(end, server.process)
        return server

    def player(self, name, *options, **more_options):
        player = Player(self.args, self.args.out / f"run-{name}", *options, **more_options)
        self.callback(player.end)
        return player


def parse_arguments(doc, **extra):
    """The common arguments of a script with this docstring; `extra` has more, as name and options of add_argument."""
    parser = argparse.ArgumentParser(description=doc.split("\n")[0])
    for name, default, text in (("bin", "build/bin", "folder of the programs"),
                                ("data", "build/data", "folder of the packed archives"),
                                ("out", "build/e2e", "folder for run directories and the pictures of the tour")):
        parser.add_argument(f"--{name}", type=lambda path: Path(path).resolve(), default=default, help=text)
    for name, options in extra.items():
        parser.add_argument(f"--{name}", **options)
    args = parser.parse_args()
    args.out.mkdir(parents=True, exist_ok=True)
    return args


def run_all(doc, table, **extra):
    """Runs the functions in the table, or those that --only names, each on a Stage of its own, and ends the script."""
    only = {"nargs": "*", "default": table, "choices": table, "help": "names of those to run"}
    args = parse_arguments(doc, only=only, **extra)
    script, failed = Path(sys.argv[0]).name, 0
    for name in args.only:
        began, verdict = time.monotonic(), "ok"
        try:
            with Stage(args) as stage:
                table[name](stage)
        except Exception as failure:  # a mistake in one of them must not hide the others
            verdict = f"FAILED: {failure!r}"
            failed += 1
        print(f"{script}: {name}: {verdict} ({time.monotonic() - began:.1f} s)", flush=True)
    print(f"{script}: {len(args.only) - failed} of {len(args.only)} as expected")
    sys.exit(failed > 0)
