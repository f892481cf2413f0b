#include "Platform/Desktop/Appearance/detail/AppearancePortal.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

PortalSettings freedesktopSetting(const QString &name, const QVariant &value)
{
    return {{u"org.freedesktop.appearance"_s, {{name, value}}}};
}

TEST(AppearancePortal, MissingSettingsGiveTheDefault)
{
    EXPECT_EQ(appearance({}), Appearance());
}

TEST(AppearancePortal, ContrastOneIsIncreasedContrast)
{
    EXPECT_TRUE(appearance(freedesktopSetting(u"contrast"_s, 1U)).increasedContrast);
    EXPECT_FALSE(appearance(freedesktopSetting(u"contrast"_s, 0U)).increasedContrast);
    EXPECT_FALSE(appearance(freedesktopSetting(u"contrast"_s, 2U)).increasedContrast);
    EXPECT_FALSE(appearance(freedesktopSetting(u"contrast"_s, true)).increasedContrast) << "another type";
}

TEST(AppearancePortal, EitherOfTwoSettingsReducesMotion)
{
    EXPECT_TRUE(appearance(freedesktopSetting(u"reduced-motion"_s, 1U)).reducedMotion);
    const QString gnome = u"org.gnome.desktop.interface"_s;
    EXPECT_TRUE(appearance({{gnome, {{u"enable-animations"_s, false}}}}).reducedMotion);
    EXPECT_FALSE(appearance({{gnome, {{u"enable-animations"_s, true}}}}).reducedMotion);
    EXPECT_FALSE(appearance({{gnome, {{u"enable-animations"_s, u"false"_s}}}}).reducedMotion);
}

TEST(AppearancePortal, TheTextScaleIsAFactorWithinBounds)
{
    const auto scale = [](const QVariant &value) {
        return appearance({{u"org.gnome.desktop.interface"_s, {{u"text-scaling-factor"_s, value}}}})
            .textScale;
    };
    EXPECT_EQ(scale(1.5), 1.5);
    EXPECT_EQ(scale(0.0), 1);
    EXPECT_EQ(scale(-1.0), 1);
    EXPECT_EQ(scale(100.0), 1);
    EXPECT_EQ(scale(qQNaN()), 1);
    EXPECT_EQ(scale(u"1.5"_s), 1) << "another type";
}

TEST(AppearancePortal, ATextSizeThatScalesTheScreenIsNotAppliedTwice)
{
    EXPECT_EQ(textScaleBesides(1.5, 1), 1.5);
    EXPECT_EQ(textScaleBesides(1.25, 2), 1.25) << "scaled for a dense screen only";
    EXPECT_EQ(textScaleBesides(1.5, 1.5), 1);
    EXPECT_EQ(textScaleBesides(1.3, 1.302), 1) << "rounded to whole dots per inch";
    EXPECT_EQ(textScaleBesides(1.25, 2.5), 1) << "scaled for a dense screen and the text size";
    EXPECT_EQ(textScaleBesides(1, 2), 1);
}

TEST(AppearancePortal, AnAccentOfAnotherTypeIsIgnored)
{
    EXPECT_FALSE(appearance(freedesktopSetting(u"accent-color"_s, u"#ff0000"_s)).accent.has_value());
}

} // namespace
