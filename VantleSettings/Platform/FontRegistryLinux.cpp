#include "Platform/FontRegistry.h"

#include <QFontDatabase>
#include <QStringList>

#include <algorithm>

namespace
{

/// The font database knows families and styles; by convention a PostScript name is both without blanks,
/// joined by a hyphen.
class QtFontRegistry : public FontRegistry
{
public:
    void add(const QString &file) override { QFontDatabase::addApplicationFont(file); }

    bool has(const QString &postScriptName) override
    {
        const qsizetype hyphen = postScriptName.indexOf(u'-');
        const QString family = postScriptName.left(hyphen);
        const QString style = hyphen < 0 ? QStringLiteral("Regular") : postScriptName.mid(hyphen + 1);
        const auto isSpelled = [](QString name, const QString &wanted) {
            return name.remove(u' ') == wanted;
        };
        const QStringList families = QFontDatabase::families();
        return std::ranges::any_of(families, [&](const QString &candidate) {
            if (!isSpelled(candidate, family))
                return false;
            const QStringList styles = QFontDatabase::styles(candidate);
            return std::ranges::any_of(styles, [&](const QString &s) { return isSpelled(s, style); });
        });
    }
};

} // namespace

FontRegistry &FontRegistry::system()
{
    static QtFontRegistry registry;
    return registry;
}
