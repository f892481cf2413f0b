#include "Platform/Desktop/Appearance/FontRegistry.h"

#include <QFile>
#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

/// The form of texts in a font's name table.
QByteArray utf16BigEndian(QStringView text)
{
    QByteArray bytes;
    for (const QChar character : text)
        bytes.append(char(character.unicode() >> 8)).append(char(character.unicode() & 0xff));
    return bytes;
}

/// The offset of the four letters of the vendor's id (OS/2 table, achVendID) in a font's bytes.
qsizetype vendorOffset(const QByteArray &font)
{
    constexpr qsizetype offsetInEntry = 8;
    constexpr qsizetype offsetInTable = 58;
    const qsizetype entry = font.indexOf("OS/2");
    return qsizetype(qFromBigEndian<quint32>(font.constData() + entry + offsetInEntry)) + offsetInTable;
}

/// Copies a shipped font file under another family name of the same length, one that no machine has
/// installed. Returns the path of the copy.
QString renamedFace(const QTemporaryDir &directory, QLatin1String family,
                    const QByteArray &vendor = QByteArrayLiteral("TEST"))
{
    QFile shipped(QStringLiteral(VANTLE_SOURCE_DIRECTORY "/Resources/Fonts/JetBrainsMono-Regular.ttf"));
    EXPECT_TRUE(shipped.open(QIODevice::ReadOnly));
    QByteArray bytes = shipped.readAll();
    bytes.replace(utf16BigEndian(u"JetBrains Mono"), utf16BigEndian(QString(family)));
    bytes.replace("JetBrains Mono", family.data());
    bytes.replace(vendorOffset(bytes), vendor.size(), vendor);
    QFile file(directory.filePath(u"Face.ttf"_s));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return file.fileName();
}

TEST(FontRegistry, HasAFontThatOnlyThisProcessAdded)
{
    const QTemporaryDir directory;
    const QString face = renamedFace(directory, "Workbench Mono"_L1);
    EXPECT_FALSE(FontRegistry::system().has(u"WorkbenchMono-Regular"_s));
    FontRegistry::system().add({face});
    EXPECT_TRUE(FontRegistry::system().has(u"WorkbenchMono-Regular"_s));
    EXPECT_FALSE(FontRegistry::system().has(u"WorkbenchMono-Bold"_s));
}

TEST(FontRegistry, HasAFontWithFilesOfTwoVendors)
{
    const QTemporaryDir directory;
    const QTemporaryDir other;
    FontRegistry::system().add({renamedFace(directory, "Two Copies Mon"_L1, "ONE "),
                                renamedFace(other, "Two Copies Mon"_L1, "TWO ")});
    EXPECT_TRUE(FontRegistry::system().has(u"TwoCopiesMon-Regular"_s));
    EXPECT_FALSE(FontRegistry::system().has(u"TwoCopiesMon-Bold"_s));
    EXPECT_EQ(QFontDatabase::families().filter(u"Two Copies Mon"_s).size(), 2)
        << "the toolkit sees one family";
}

TEST(FontRegistry, DrawsWithAddedFontsAfterFinish)
{
    const QTemporaryDir directory;
    FontRegistry::system().add({renamedFace(directory, "Blackboard One"_L1)});
    FontRegistry::system().finish();
    EXPECT_EQ(QFontInfo(QFont(u"Blackboard One"_s)).family(), u"Blackboard One"_s);
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
