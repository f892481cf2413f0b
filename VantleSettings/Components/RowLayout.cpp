#include "Components/RowLayout.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace
{
constexpr int lineGap = 2; ///< between title and subtitle
}

QHBoxLayout *rowLayout(QWidget *tile, QLayout *texts, std::initializer_list<QWidget *> controls)
{
    auto *layout = new QHBoxLayout;
    layout->setContentsMargins(Tokens::rowPadding, Tokens::rowPaddingVertical, Tokens::rowPadding,
                               Tokens::rowPaddingVertical);
    layout->setSpacing(Tokens::rowSpacing);
    layout->addWidget(tile, 0, Qt::AlignVCenter);
    layout->addLayout(texts, 1);
    for (QWidget *control : controls)
        layout->addWidget(control, 0, Qt::AlignVCenter);
    return layout;
}

QVBoxLayout *rowTexts(std::initializer_list<QWidget *> texts)
{
    auto *layout = new QVBoxLayout;
    layout->setSpacing(lineGap);
    for (QWidget *text : texts)
        layout->addWidget(text);
    return layout;
}

int rowHeight(TextStyle title, TextStyle subtitle)
{
    const int texts =
        QFontMetrics(textFont(title)).height() + lineGap + QFontMetrics(textFont(subtitle)).height();
    return 2 * Tokens::rowPaddingVertical + std::max(Tokens::iconTile, texts);
}
