#include "Platform/FontRegistry.h"

#include "FontRegistration/FontRegistration.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

QByteArray inNameTable(QStringView text)
{
    QByteArray bytes;
    for (const QChar character : text)
        bytes.append(char(character.unicode() >> 8)).append(char(character.unicode() & 0xff));
    return bytes;
}

/// A shipped face under a family name of the same length that no machine has installed.
QByteArray renamedFace(QLatin1String family)
{
    QFile file(QStringLiteral(VANTLE_SOURCE_DIRECTORY "/Resources/Fonts/JetBrainsMono-Regular.ttf"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray bytes = file.readAll();
    bytes.replace(inNameTable(u"JetBrains Mono"), inNameTable(QString(family)));
    return bytes.replace("JetBrains Mono", family.data());
}

TEST(FontRegistry, HasAFontThatOnlyThisProcessAdded)
{
    const QTemporaryDir directory;
    QFile file(directory.filePath(u"WorkbenchMono-Regular.ttf"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(renamedFace("Workbench Mono"_L1));
    file.close();
    EXPECT_FALSE(FontRegistry::system().has(u"WorkbenchMono-Regular"_s));
    FontRegistry::system().add({file.fileName()});
    EXPECT_TRUE(FontRegistry::system().has(u"WorkbenchMono-Regular"_s));
    EXPECT_FALSE(FontRegistry::system().has(u"WorkbenchMono-Bold"_s));
}

TEST(FontRegistry, DrawsWithWhatWasAddedOnceThatIsFinished)
{
    const QTemporaryDir directory;
    QFile file(directory.filePath(u"Drawn.ttf"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(renamedFace("Blackboard One"_L1));
    file.close();
    FontRegistry::system().add({file.fileName()});
    FontRegistry::system().finish();
    EXPECT_EQ(QFontInfo(QFont(u"Blackboard One"_s)).family(), u"Blackboard One"_s);
}

TEST(FontRegistry, HasTheShippedFacesOnceTheyAreAdded)
{
    FontRegistration::registerFonts(FontRegistration::candidateFontDirectories({}), FontRegistry::system());
    for (const QString &name : FontRegistration::names())
        EXPECT_TRUE(FontRegistry::system().has(name)) << name.toStdString();
}

TEST(FontRegistry, DoesNotHaveAStyleOrFamilyNobodyAdded)
{
    EXPECT_FALSE(FontRegistry::system().has(u"JetBrainsMono-Hairline"_s));
    EXPECT_FALSE(FontRegistry::system().has(u"NoSuchFamily-Regular"_s));
    EXPECT_FALSE(FontRegistry::system().has(u"-Regular"_s));
    EXPECT_FALSE(FontRegistry::system().has({}));
}

TEST(FontRegistry, IgnoresAFileThatIsNoFont)
{
    const QTemporaryDir directory;
    QFile file(directory.filePath(u"Broken-Regular.ttf"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no font");
    file.close();
    FontRegistry::system().add({file.fileName(), directory.filePath(u"Missing-Regular.ttf"_s)});
    EXPECT_FALSE(FontRegistry::system().has(u"Broken-Regular"_s));
}

} // namespace
