#include "SettingsWindow/Sections/NoBrowserProjectsRow.h"

#include "Components/Drawing/Tokens.h"
#include "Components/SymbolLabel.h"
#include "Components/Text/Label.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

namespace
{
constexpr int paddingVertical = 14;
constexpr int symbolGap = 8;
constexpr qreal symbolSize = 13;
} // namespace

NoBrowserProjectsRow::NoBrowserProjectsRow(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(Tokens::rowPadding, paddingVertical, Tokens::rowPadding, paddingVertical);
    layout->setSpacing(symbolGap);
    layout->addWidget(new SymbolLabel({u"tray"_s, symbolSize}), 0, Qt::AlignTop);
    layout->addWidget(
        new WrappedLabel(u"No projects yet — a project is added here the first time Vantle sees "
                         "a notification from one."_s,
                         TextStyle::size12),
        1);
}
