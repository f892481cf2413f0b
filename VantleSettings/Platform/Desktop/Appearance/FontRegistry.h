#pragma once

#include <QStringList>

/// The fonts this process can draw with.
class FontRegistry
{
public:
    virtual ~FontRegistry();
    Q_DISABLE_COPY_MOVE(FontRegistry)

    /// Adds font files for this process alone; nothing is installed, and a file that is no font is ignored.
    /// The files may be read after the call.
    virtual void add(const QStringList &files) = 0;

    /// Returns once the added fonts can be used. Call this before the first text is measured.
    virtual void finish() = 0;

    /// Whether the font with this PostScript name, e.g. "JetBrainsMono-Regular", can be made.
    virtual bool has(const QString &postScriptName) = 0;

    static FontRegistry &system();

protected:
    FontRegistry() = default;
};
