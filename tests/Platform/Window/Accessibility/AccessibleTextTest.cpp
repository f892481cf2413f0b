#include "Platform/Window/Accessibility/AccessibleText.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype message = qsizetype{128} << 20; ///< what D-Bus carries at once, in bytes

TEST(AccessibleText, MillionsOfCharactersStayWhole)
{
    const QString text(10000000, u'中');
    EXPECT_EQ(accessibleText(text), text);
    EXPECT_EQ(accessibleText(QString()), QString());
}

TEST(AccessibleText, TwoOfTheLongestFitInAMessage)
{
    const QString text = accessibleText(QString(message, u'中'));
    EXPECT_LT(2 * text.toUtf8().size(), message);
    EXPECT_TRUE(text.endsWith(u"中…"_s));
}

TEST(AccessibleText, IsNotCutInsideAPair)
{
    for (const QString &before : {u""_s, u"a"_s}) {
        const QString text = accessibleText(before + u"🦊"_s.repeated(message / 8));
        EXPECT_TRUE(text.endsWith(u"🦊…"_s));
    }
}

} // namespace
