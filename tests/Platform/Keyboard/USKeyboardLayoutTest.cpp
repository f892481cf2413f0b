#include "Platform/Keyboard/USKeyboardLayout.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

TEST(USKeyboardLayout, PrintsWhatAUSKeyboardPrints)
{
    USKeyboardLayout layout;
    QString rows;
    for (const std::uint16_t key : {50, 18, 19, 20, 21, 23, 22, 26, 28, 25, 29, 27, 24, // the digits
                                    12, 13, 14, 15, 17, 16, 32, 34, 31, 35, 33, 30,     // from Q
                                    0,  1,  2,  3,  5,  4,  38, 40, 37, 41, 39, 42,     // from A
                                    6,  7,  8,  9,  11, 45, 46, 43, 47, 44, 49})        // from Z
        rows += layout.printedText(key).value_or(u"?"_s);
    EXPECT_EQ(rows, u"`1234567890-=qwertyuiop[]asdfghjkl;'\\zxcvbnm,./ "_s);
}

TEST(USKeyboardLayout, PrintsTheKeypadsDigits)
{
    USKeyboardLayout layout;
    QString pad;
    for (const std::uint16_t key : {82, 83, 84, 85, 86, 87, 88, 89, 91, 92, 65, 67, 69, 75, 78, 81})
        pad += layout.printedText(key).value_or(u"?"_s);
    EXPECT_EQ(pad, u"0123456789.*+/-="_s);
}

TEST(USKeyboardLayout, PrintsNothingForKeysWithoutText)
{
    USKeyboardLayout layout;
    for (const std::uint16_t key : {10, 36, 53, 76, 93, 122, 126, 200, 65535})
        EXPECT_EQ(layout.printedText(key), std::nullopt) << key;
}

} // namespace
