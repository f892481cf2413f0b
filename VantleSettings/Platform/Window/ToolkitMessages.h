#pragma once

/// Keeps what the toolkit says about other programs that it works with, e.g. that a screen reader or a
/// clipboard manager is busy or gone, off the standard error, and a warning about a scale factor that it then
/// reads anew by itself: it goes on all the same, and nothing in this program can mend it. All else is said
/// as before. Once, before the application object is made.
void filterToolkitMessages();
