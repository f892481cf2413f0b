#pragma once

#include "Platform/Files/Bundle.h"

#include <QStringList>

class FontRegistry;

/// The faces of JetBrains Mono that ship with the program, for this process alone.
namespace FontRegistration
{

/// The files' names without their suffix `.ttf`.
QStringList names();

/// Where the files may be, the best place first: among the bundle's resources, in a resource bundle beside
/// the executable, and last in the source tree of this build.
QStringList candidateFontDirectories(const Bundle &bundle);

/// Adds each face from the first of these directories that has its file; a face without one is left out.
void registerFonts(const QStringList &directories, FontRegistry &registry);

/// Registers the faces for the running program; further calls do nothing. The application object must exist.
/// The files may be read after the call: `FontRegistry::finish()` waits for that.
void registerBundledFonts();

} // namespace FontRegistration
