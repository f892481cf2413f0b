#include "Components/Drawing/Tokens.h"
#include "Components/Style/Look.h"
#include "Components/Switch.h"
#include "Components/Text/Label.h"
#include "Platform/Desktop/Appearance/Palette.h"
#include "Platform/Desktop/Appearance/detail/AppearancePortal.h"
#include "PrivateBus.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

const auto general = u"org.freedesktop.appearance"_s;
const auto gnome = u"org.gnome.desktop.interface"_s;

/// A colour as desktops send it.
struct Accent {
    double red = 0;
    double green = 0;
    double blue = 0;
};

QDBusArgument &operator<<(QDBusArgument &argument, const Accent &accent)
{
    argument.beginStructure();
    argument << accent.red << accent.green << accent.blue;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, Accent &accent)
{
    argument.beginStructure();
    argument >> accent.red >> accent.green >> accent.blue;
    argument.endStructure();
    return argument;
}

/// Stands for the desktop's settings.
class SettingsPortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit SettingsPortal(PortalSettings settings) : m_settings(std::move(settings))
    {
        qDBusRegisterMetaType<Accent>();
        qDBusRegisterMetaType<PortalSettings>();
        PrivateBus::services().registerObject(u"/org/freedesktop/portal/desktop"_s, this,
                                              QDBusConnection::ExportAllSlots |
                                                  QDBusConnection::ExportAllSignals);
    }

    Q_SLOT PortalSettings ReadAll(const QStringList &) { return m_settings; }

Q_SIGNALS:
    void SettingChanged(const QString &, const QString &, const QDBusVariant &);

private:
    ServiceName m_name{u"org.freedesktop.portal.Desktop"_s};
    PortalSettings m_settings;
};

/// What a switch looks like right after it has been turned on.
QImage turnedOn()
{
    Switch control;
    control.show();
    control.setChecked(true);
    return control.grab().toImage();
}

TEST(Appearance, IsAskedOfTheDesktopAndFollowsItsChanges)
{
    Switch alreadyOn;
    alreadyOn.setChecked(true);
    SettingsPortal desktop(
        {{general, {{u"contrast"_s, 1U}, {u"accent-color"_s, QVariant::fromValue(Accent{1, 0, 0.5})}}},
         {gnome, {{u"enable-animations"_s, false}}}});
    static int changes = 0; // the watch lasts as long as the program
    watchAppearance([] { ++changes; });

    ASSERT_TRUE(QTest::qWaitFor([] { return changes == 1; }));
    EXPECT_EQ(accentColor(), QColor::fromRgbF(1, 0, 0.5F));
    EXPECT_TRUE(increasedContrast());
    EXPECT_EQ(Tokens::separator(), QColor::fromRgbF(1, 1, 1, 0.3F));
    EXPECT_EQ(textColor(TextColor::secondary), QColor::fromRgbF(1, 1, 1, 0.75F));
    EXPECT_TRUE(reducedMotion());
    EXPECT_EQ(turnedOn(), alreadyOn.grab().toImage()) << "nothing slides";

    Q_EMIT desktop.SettingChanged(general, u"contrast"_s, QDBusVariant(0U));
    Q_EMIT desktop.SettingChanged(general, u"accent-color"_s,
                                  QDBusVariant(QVariant::fromValue(Accent{2, 0, 0})));
    Q_EMIT desktop.SettingChanged(gnome, u"enable-animations"_s, QDBusVariant(true));
    ASSERT_TRUE(QTest::qWaitFor([] { return changes == 4; }));
    EXPECT_EQ(accentColor(), systemColor(SystemColor::blue)) << "no colour that there is";
    EXPECT_EQ(Tokens::separator(), QColor::fromRgbF(1, 1, 1, 0.12F));
    EXPECT_EQ(textColor(TextColor::secondary), QColor::fromRgbF(1, 1, 1, 0.58F));
    EXPECT_NE(turnedOn(), alreadyOn.grab().toImage()) << "the knob is on its way";
}

TEST(Appearance, TextsOfWidgetsThatAreThereFollowTheDesktopsTextSize)
{
    const Label label(u"Launch at Login"_s, TextStyle::size12);
    ASSERT_EQ(label.font().pixelSize(), 12);
    SettingsPortal desktop({{gnome, {{u"text-scaling-factor"_s, 1.5}}}});
    followAppearance();
    ASSERT_TRUE(QTest::qWaitFor([&] { return label.font().pixelSize() == 18; }));
    EXPECT_EQ(QApplication::font().pixelSize(), 20);
    Q_EMIT desktop.SettingChanged(gnome, u"text-scaling-factor"_s, QDBusVariant(1.0));
    ASSERT_TRUE(QTest::qWaitFor([&] { return label.font().pixelSize() == 12; }));
    EXPECT_EQ(QApplication::font().pixelSize(), 13);
}

} // namespace

#include "AppearanceTest.moc"
