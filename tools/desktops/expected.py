"""What the window should be. Lengths are points."""

FIRST_SIZE, LEAST_SIZE = (860, 640), (780, 540)
ENTRY = "com.vantle.settings"
SCALES = 1, 1.25, 1.5, 2

# A screen that is large enough for it to be shown as it wants, and whose pixels are whole at all scales.
SCREEN = 1440, 1152


def icons(scale):
    """Their extents in pixels, of which the largest is not enlarged."""
    return [(min(round(extent * scale), 128),) * 2 for extent in (16, 24, 32, 48, 64, 128)]


def pixels(size, scale):
    return tuple(round(length * scale) for length in size)
