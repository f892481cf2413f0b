"""The expected properties of the window. Lengths are points."""

FIRST_SIZE, LEAST_SIZE = (860, 640), (780, 540)
ENTRY = "com.vantle.settings"
SCALES = 1, 1.25, 1.5, 2

# Large enough for the window at its first size, and a whole number of pixels at all scale factors.
SCREEN = 1440, 1152


def icons(scale):
    """The sizes of the window's icons in pixels. The largest icon is not scaled up."""
    return [(min(round(size * scale), 128),) * 2 for size in (16, 24, 32, 48, 64, 128)]


def pixels(size, scale):
    return tuple(round(length * scale) for length in size)
