#pragma once

/// Keeps what the toolkit says about other programs that it works with, e.g. that a screen reader or a
/// clipboard manager is busy or gone, off the standard error: it goes on without them, and nothing in this
/// program can mend it. All else is said as before. Once, before the application object is made.
void keepQuietAboutHelpers();
