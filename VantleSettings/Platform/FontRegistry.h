#pragma once

#include <QString>

/// The fonts this process can draw with.
class FontRegistry
{
public:
    virtual ~FontRegistry();
    Q_DISABLE_COPY_MOVE(FontRegistry)

    /// Adds a font file for this process alone; nothing is installed, and a file that is no font is ignored.
    virtual void add(const QString &file) = 0;

    /// Whether the font with this PostScript name, e.g. "JetBrainsMono-Regular", can be made.
    virtual bool has(const QString &postScriptName) = 0;

    static FontRegistry &system();

protected:
    FontRegistry() = default;
};
