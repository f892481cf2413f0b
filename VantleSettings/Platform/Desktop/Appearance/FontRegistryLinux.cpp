#include "Platform/Desktop/Appearance/FontRegistry.h"

#include <QFontDatabase>

#include <malloc.h>

#include <algorithm>
#include <future>

namespace
{

/// A family without the vendor in brackets that the toolkit adds where files of two vendors have its name.
QString withoutVendor(const QString &family)
{
    const qsizetype bracket = family.endsWith(u']') ? family.lastIndexOf(u" [") : -1;
    return family.left(bracket);
}

/// The toolkit's font database, which may be used on any thread. It has names of families and styles; by
/// convention a PostScript name is both without blanks, joined by a hyphen.
class QtFontRegistry : public FontRegistry
{
public:
    // The first query makes the database read the system's font files and settings, which takes longer than
    // any other part of a start: it runs on a thread of its own.
    void add(const QStringList &files) override
    {
#ifdef M_ARENA_MAX
        mallopt(M_ARENA_MAX, 1); // an arena of the thread's own would outlive it
#endif
        m_adding = std::async(std::launch::async, [files] {
            for (const QString &file : files)
                QFontDatabase::addApplicationFont(file);
            QFontDatabase::families();
        });
    }

    void finish() override
    {
        if (m_adding.valid())
            m_adding.get();
    }

    bool has(const QString &postScriptName) override
    {
        finish();
        const qsizetype hyphen = postScriptName.indexOf(u'-');
        const QString family = postScriptName.left(hyphen);
        const QString style = hyphen < 0 ? QStringLiteral("Regular") : postScriptName.mid(hyphen + 1);
        const auto isSpelled = [](QString name, const QString &wanted) {
            return name.remove(u' ') == wanted;
        };
        const QStringList families = QFontDatabase::families();
        return std::ranges::any_of(families, [&](const QString &candidate) {
            if (!isSpelled(withoutVendor(candidate), family))
                return false;
            const QStringList styles = QFontDatabase::styles(candidate);
            return std::ranges::any_of(styles, [&](const QString &s) { return isSpelled(s, style); });
        });
    }

private:
    std::future<void> m_adding;
};

} // namespace

FontRegistry &FontRegistry::system()
{
    static QtFontRegistry registry;
    return registry;
}
