#include "Platform/Keyboard/USKeyboardLayout.h"

#include <array>

namespace
{

struct Key {
    std::uint16_t virtualKey;
    char16_t printed;
};

constexpr std::array keys = std::to_array<Key>({
    {50, u'`'}, {18, u'1'}, {19, u'2'}, {20, u'3'},  {21, u'4'},  {23, u'5'}, {22, u'6'}, {26, u'7'},
    {28, u'8'}, {25, u'9'}, {29, u'0'}, {27, u'-'},  {24, u'='},  {12, u'q'}, {13, u'w'}, {14, u'e'},
    {15, u'r'}, {17, u't'}, {16, u'y'}, {32, u'u'},  {34, u'i'},  {31, u'o'}, {35, u'p'}, {33, u'['},
    {30, u']'}, {0, u'a'},  {1, u's'},  {2, u'd'},   {3, u'f'},   {5, u'g'},  {4, u'h'},  {38, u'j'},
    {40, u'k'}, {37, u'l'}, {41, u';'}, {39, u'\''}, {42, u'\\'}, {6, u'z'},  {7, u'x'},  {8, u'c'},
    {9, u'v'},  {11, u'b'}, {45, u'n'}, {46, u'm'},  {43, u','},  {47, u'.'}, {44, u'/'}, {49, u' '},
    {82, u'0'}, {83, u'1'}, {84, u'2'}, {85, u'3'},  {86, u'4'},  {87, u'5'}, {88, u'6'}, {89, u'7'},
    {91, u'8'}, {92, u'9'}, {65, u'.'}, {67, u'*'},  {69, u'+'},  {75, u'/'}, {78, u'-'}, {81, u'='},
});

} // namespace

std::optional<QString> USKeyboardLayout::printedText(std::uint16_t virtualKeyCode)
{
    return printed(virtualKeyCode);
}

std::optional<QString> USKeyboardLayout::printed(std::uint16_t virtualKeyCode)
{
    for (const Key &key : keys) {
        if (key.virtualKey == virtualKeyCode)
            return QString(QChar(key.printed));
    }
    return std::nullopt;
}
