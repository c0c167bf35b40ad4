"""Renders the things that stand on one field."""
from catalogue import ROOTS, THING, THINGS
from cutting import cut_out_with_shadow
from pictures import write_picture


def make(*wanted):
    """All things, or only those with these names."""
    if unknown := set(wanted) - set(THINGS):
        raise SystemExit(f"no such thing: {', '.join(sorted(unknown))}; THINGS in catalogue.py has their names")
    for name, number in THINGS.items():
        if not wanted or name in wanted:
            right, down = ROOTS.get(name, (0, 0))
            write_picture(number, *cut_out_with_shadow("things", THING, Thing=number, Right=right, Down=down))
