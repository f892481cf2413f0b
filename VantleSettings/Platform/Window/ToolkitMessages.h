#pragma once

/// Keeps the toolkit's messages about other programs, e.g. that a screen reader or a clipboard manager is
/// busy or gone, off the standard error, and also a warning about an outdated scale factor, which the toolkit
/// corrects itself. They don't affect this program, and it could not mend their cause. All other messages are
/// printed as before. Call this once, before the application object is made.
void filterToolkitMessages();
