"""Pictures of a screen, and what they show."""

import subprocess

from harness.waiting import eventually


def take_settled(take, picture):
    """Takes pictures by `take(picture)` until two in a row are the same and show more than one colour."""
    seen = [None]

    def settled():
        take(picture)
        before, seen[0] = seen[0], _ask(picture, "%# %[standard-deviation]").split()
        return seen[0] == before and float(seen[0][1]) > 0
    eventually(settled, "the screen does not settle")


def brightness(picture, x, y, width, height):
    """The average brightness of a box of a picture, given in pixels: 0 for black, 1 for white."""
    # Some pictures have an opacity, which would count as brightness.
    return float(_ask(picture, "%[fx:mean]", "-alpha", "off", "-crop", f"{width}x{height}+{x}+{y}",
                      "-colorspace", "gray"))


def _ask(picture, what, *changes):
    return subprocess.run(["convert", str(picture), *changes, "-format", what, "info:"],
                          check=True, capture_output=True, text=True).stdout
