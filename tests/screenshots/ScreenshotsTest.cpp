#include "Screenshots.h"

#include "Comparison.h"

#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QPainter>
#include <QVersionNumber>

#include <gtest/gtest.h>

#include <ostream>

using namespace Qt::StringLiterals;

namespace
{

constexpr int tolerance = 10;

/// The toolkit that the stored pictures are of.
const QVersionNumber storedToolkit(6, 4);
const QString howToRenew =
    u"When the change of the look is meant: build/asan/bin/screenshots --stored docs/screenshots"_s;

struct Picture {
    Screenshot screenshot;
    int scale;
};

void PrintTo(const Picture &picture, std::ostream *out)
{
    *out << qPrintable(fileName(picture.screenshot, picture.scale));
}

std::vector<Picture> storedPictures()
{
    std::vector<Picture> pictures;
    for (const Screenshot &screenshot : allScreenshots()) {
        if (!screenshot.stored)
            continue;
        for (const int scale : {1, 2})
            pictures.push_back({screenshot, scale});
    }
    return pictures;
}

QDir pictureFolder()
{
    return QDir(QStringLiteral(VANTLE_PICTURES));
}

bool isStoredToolkit()
{
    const QVersionNumber here = QLibraryInfo::version();
    return here.majorVersion() == storedToolkit.majorVersion() &&
           here.minorVersion() == storedToolkit.minorVersion();
}

/// The difference from the stored picture, in all that may not differ. Under another toolkit, with another
/// release of the text face, letters have other shapes and lie some pixels elsewhere, which larger squares do
/// not see. And the subtitle of General fits into one line, which moves what is below: of these only the
/// sidebar is compared.
int difference(const Picture &picture, const QImage &stored, const QImage &now)
{
    if (isStoredToolkit())
        return perceivedDifference(stored, now);
    QRect area = stored.rect();
    if (picture.screenshot.name.startsWith(u"general"_s))
        area.setWidth(214 * picture.scale);
    return perceivedDifference(stored.copy(area), now.copy(area), 32 * picture.scale);
}

class StoredPicture : public testing::TestWithParam<Picture>
{
};

TEST_P(StoredPicture, LooksAsTheWindowDoes)
{
    const auto &[screenshot, scale] = GetParam();
    installPinnedLook(*qApp);
    const QImage stored(pictureFolder().filePath(fileName(screenshot, scale)));
    ASSERT_FALSE(stored.isNull()) << qPrintable(howToRenew);
    const QImage now = rendered(screenshot, scale);
    EXPECT_EQ(now.size(), stored.size()) << qPrintable(howToRenew);
    const int found = difference(GetParam(), stored, now);
    if (found > tolerance) {
        const QString file = QDir(QStringLiteral(VANTLE_FAILURES)).filePath(fileName(screenshot, scale));
        EXPECT_TRUE(now.save(file));
        ADD_FAILURE() << "differs by " << found << ", see " << qPrintable(file) << ". "
                      << qPrintable(howToRenew);
    }
}

std::string nameOf(const testing::TestParamInfo<Picture> &info)
{
    QString name = info.param.screenshot.name + u"_%1x"_s.arg(info.param.scale);
    return name.replace(u'-', u'_').toStdString();
}

INSTANTIATE_TEST_SUITE_P(Documentation, StoredPicture, testing::ValuesIn(storedPictures()), nameOf);

TEST(StoredPictures, AreAllStillDrawn)
{
    QStringList drawn;
    for (const auto &[screenshot, scale] : storedPictures())
        drawn << fileName(screenshot, scale);
    for (const QString &file : pictureFolder().entryList({u"*.png"_s}, QDir::Files))
        EXPECT_TRUE(drawn.contains(file)) << qPrintable(file) << " is none of the stored pictures: delete it";
}

QImage blank()
{
    QImage picture(64, 64, QImage::Format_RGB32);
    picture.fill(Qt::black);
    return picture;
}

TEST(PerceivedDifference, IsNothingBetweenEqualPictures)
{
    EXPECT_EQ(perceivedDifference(blank(), blank()), 0);
}

TEST(PerceivedDifference, OfTheOddPixelIsTolerated)
{
    QImage other = blank();
    other.setPixelColor(20, 20, QColor(200, 200, 200));
    other.setPixelColor(40, 12, QColor(90, 90, 90));
    EXPECT_LE(perceivedDifference(blank(), other), tolerance);
}

TEST(PerceivedDifference, OfAMovedLineOrAnotherColourIsNot)
{
    QImage here = blank();
    QPainter(&here).fillRect(0, 31, 64, 1, Qt::white);
    QImage there = blank();
    QPainter(&there).fillRect(0, 33, 64, 1, Qt::white);
    EXPECT_GT(perceivedDifference(here, there), tolerance);
    QImage lighter = blank();
    lighter.fill(QColor(16, 16, 16));
    EXPECT_GT(perceivedDifference(blank(), lighter), tolerance);
}

TEST(PerceivedDifference, OfLettersElsewhereIsToleratedInLargerSquares)
{
    QImage here = blank();
    QPainter(&here).fillRect(4, 20, 40, 2, Qt::white);
    QImage there = blank();
    QPainter(&there).fillRect(7, 22, 40, 2, Qt::white);
    EXPECT_GT(perceivedDifference(here, there), tolerance);
    EXPECT_LE(perceivedDifference(here, there, 32), tolerance);
    QPainter(&there).fillRect(8, 32, 16, 16, Qt::white);
    EXPECT_GT(perceivedDifference(here, there, 32), tolerance);
}

TEST(PerceivedDifference, OfPicturesOfDifferentSizesIsTotal)
{
    EXPECT_EQ(perceivedDifference(blank(), blank().copy(0, 0, 64, 63)), 255);
}

} // namespace
