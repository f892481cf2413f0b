#include "Platform/Desktop/detail/AppearancePortal.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

PortalSettings general(const QString &name, const QVariant &value)
{
    return {{u"org.freedesktop.appearance"_s, {{name, value}}}};
}

TEST(AppearancePortal, NothingSaidIsTheDefault)
{
    EXPECT_EQ(appearance({}), Appearance());
}

TEST(AppearancePortal, MoreContrastIsOne)
{
    EXPECT_TRUE(appearance(general(u"contrast"_s, 1U)).increasedContrast);
    EXPECT_FALSE(appearance(general(u"contrast"_s, 0U)).increasedContrast);
    EXPECT_FALSE(appearance(general(u"contrast"_s, 2U)).increasedContrast);
    EXPECT_FALSE(appearance(general(u"contrast"_s, true)).increasedContrast) << "another type";
}

TEST(AppearancePortal, LessMotionIsSaidInOneOfTwoWays)
{
    EXPECT_TRUE(appearance(general(u"reduced-motion"_s, 1U)).reducedMotion);
    const QString gnome = u"org.gnome.desktop.interface"_s;
    EXPECT_TRUE(appearance({{gnome, {{u"enable-animations"_s, false}}}}).reducedMotion);
    EXPECT_FALSE(appearance({{gnome, {{u"enable-animations"_s, true}}}}).reducedMotion);
    EXPECT_FALSE(appearance({{gnome, {{u"enable-animations"_s, u"false"_s}}}}).reducedMotion);
}

TEST(AppearancePortal, AnAccentOfAnotherTypeIsNone)
{
    EXPECT_FALSE(appearance(general(u"accent-color"_s, u"#ff0000"_s)).accent.has_value());
}

} // namespace
