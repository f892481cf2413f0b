#include "Gallery.h"

#include "Components/Buttons.h"
#include "Components/Drawing/Tokens.h"
#include "Components/PathRow.h"
#include "Components/Picker.h"
#include "Components/SessionCountBadge.h"
#include "Components/SettingsGroup.h"
#include "Components/SettingsRow.h"
#include "Components/SidebarIcon.h"
#include "Components/Switch.h"
#include "Components/Text/Label.h"
#include "Platform/Desktop/Appearance/Symbol.h"
#include "Platform/Desktop/Appearance/detail/SymbolShapes.h"
#include "SettingsWindow/Sections/ProjectRow.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace
{

constexpr int margin = 32;

template <class Control>
Control *disabled(Control *control)
{
    control->setEnabled(false);
    return control;
}

QWidget *sideBySide(const std::vector<QWidget *> &widgets)
{
    auto *line = new QWidget;
    auto *layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Tokens::rowSpacing);
    for (QWidget *widget : widgets)
        layout->addWidget(widget);
    return line;
}

QWidget *padded(QWidget *content)
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(Tokens::rowPadding, Tokens::rowPaddingVertical, Tokens::rowPadding,
                               Tokens::rowPaddingVertical);
    layout->addWidget(content);
    return row;
}

Switch *turnedOn()
{
    auto *control = new Switch;
    control->setChecked(true);
    return control;
}

Picker *picker(const QStringList &entries)
{
    auto *control = new Picker;
    control->setEntries(entries);
    control->setCurrentIndex(0);
    return control;
}

SettingsGroup *switches()
{
    return new SettingsGroup(
        {.header = u"Switches"_s, .footer = u"A switch asks first and shows what its owner answers."_s},
        {new SettingsRow({.icon = u"power"_s,
                          .tint = SystemColor::green,
                          .title = u"On"_s,
                          .subtitle = u"The knob slides in 0.15 seconds."_s,
                          .accessory = turnedOn()}),
         new SettingsRowDivider,
         new SettingsRow({.icon = u"video.fill"_s,
                          .tint = SystemColor::pink,
                          .title = u"Off, and a title alone"_s,
                          .accessory = new Switch}),
         new SettingsRowDivider,
         new SettingsRow({.icon = u"gearshape.fill"_s,
                          .tint = SystemColor::gray,
                          .title = u"Disabled"_s,
                          .subtitle = u"On, and off."_s,
                          .accessory = sideBySide({disabled(turnedOn()), disabled(new Switch)})})});
}

SettingsGroup *pickers()
{
    const QStringList faces{u"System (SF Pro)"_s, u"JetBrains Mono"_s};
    return new SettingsGroup(
        {.header = u"Pickers"_s},
        {new SettingsRow({.icon = u"textformat"_s,
                          .tint = SystemColor::indigo,
                          .title = u"A picker"_s,
                          .subtitle = u"As wide as its longest entry, 200 at most."_s,
                          .accessory = picker(faces)}),
         new SettingsRowDivider,
         new SettingsRow({.icon = u"terminal.fill"_s,
                          .tint = SystemColor::teal,
                          .title = u"Too long, and disabled"_s,
                          .accessory = sideBySide({picker({u"JetBrains Mono Semibold — not installed"_s}),
                                                   disabled(picker(faces))})})});
}

SettingsGroup *buttons()
{
    return new SettingsGroup(
        {.header = u"Buttons"_s},
        {padded(sideBySide({new PushButton(u"Clear…"_s), disabled(new PushButton(u"Disabled"_s)),
                            new PushButton(u"Save & Close"_s, PushButton::Size::large),
                            disabled(new PushButton(u"Disabled"_s, PushButton::Size::large)),
                            new IconButton({u"arrow.counterclockwise"_s, 11, QFont::Medium}, u"Reset"_s),
                            disabled(new IconButton({u"doc.on.doc"_s, 11}, u"Copy path"_s)),
                            new LinkButton(u"Reset all shortcuts"_s), new QWidget}))});
}

SettingsGroup *badges()
{
    std::vector<QWidget *> all;
    for (const std::int64_t count : {0LL, 1LL, 2LL, 42LL, 1234567LL, -1LL})
        all.push_back(new SessionCountBadge(count));
    all.push_back(new QWidget);
    return new SettingsGroup({.header = u"Badges"_s}, {padded(sideBySide(all))});
}

SettingsGroup *paths()
{
    return new SettingsGroup(
        {.header = u"Paths"_s},
        {new PathRow(u"Sessions"_s, u"/home/demo/.vantle/sessions.json"_s), new SettingsRowDivider,
         new PathRow(
             u"A label that is too long"_s,
             u"/home/demo/a/very/long/way/to/a/file/that/shows/both/of/its/ends/however/deep/it/is.json"_s)});
}

SettingsGroup *texts()
{
    return new SettingsGroup(
        {.header = u"Difficult texts"_s,
         .footer = u"A footer wraps as often as it needs to. "_s.repeated(6).trimmed()},
        {new SettingsRow(
             {.icon = u"globe"_s,
              .tint = SystemColor::blue,
              .title = u"<b>Markup</b> & ampersands stay as they are"_s,
              .subtitle = u"A subtitle of more than two lines is left out in the middle. "_s.repeated(8),
              .accessory = new PushButton(u"Choose…"_s)}),
         new SettingsRowDivider,
         new SettingsRow({.icon = u"folder.fill"_s,
                          .tint = SystemColor::green,
                          .title = u"مشروع التخطيط"_s,
                          .subtitle = u"שורה ראשונה\nand a second line"_s})});
}

SettingsGroup *editor()
{
    return new SettingsGroup({.header = u"Text editor"_s},
                             {new ProjectRow({.root = u"/home/demo/alpha"_s,
                                              .urls = u"https://example.com/*\n"
                                                      "https://*.example.org/board/*"_s})});
}

SettingsGroup *tiles()
{
    std::vector<QWidget *> all;
    for (const DrawnSymbol &symbol : drawnSymbols())
        all.push_back(new SidebarIcon(symbol.name.toString(), SystemColor(all.size() % 10)));
    const auto middle = all.begin() + 14;
    return new SettingsGroup({.header = u"Tiles"_s}, {padded(sideBySide({all.begin(), middle})),
                                                      padded(sideBySide({middle, all.end()}))});
}

/// Paints the sheet itself: it is only looked at.
class SymbolSheet : public QWidget
{
public:
    SymbolSheet() { setFixedSize(2 * column, rowHeight * int((drawnSymbols().size() + 1) / 2)); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), Tokens::cardBackground);
        painter.setFont(textFont(TextStyle::size10));
        QPoint origin;
        for (const DrawnSymbol &symbol : drawnSymbols()) {
            drawRow(painter, symbol.name.toString(), origin);
            origin = origin.x() == 0 ? origin + QPoint(column, 0) : QPoint(0, origin.y() + rowHeight);
        }
    }

private:
    static constexpr int column = 380;
    static constexpr int rowHeight = 64;

    static void drawRow(QPainter &painter, const QString &name, QPoint origin)
    {
        int x = origin.x() + 8;
        for (const int size : {11, 13, 26, 34}) {
            const int extent = symbolExtent(size);
            drawSymbol(painter, {name, qreal(size)}, QRect(x, origin.y(), extent, rowHeight), Qt::white);
            x += extent + 10;
        }
        painter.setPen(textColor(TextColor::secondary));
        painter.drawText(QRect(x, origin.y(), column - (x - origin.x()), rowHeight), Qt::AlignVCenter, name);
    }
};

} // namespace

QWidget *makeGallery()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(Tokens::pageSpacing);
    layout->addWidget(new WrappedLabel(u"Every component in every state, with what the window asks of it."_s,
                                       TextStyle::size13, TextColor::secondary,
                                       WrappedLabel::Lines::balancedCentred));
    for (SettingsGroup *group :
         {switches(), pickers(), buttons(), badges(), paths(), texts(), editor(), tiles()})
        layout->addWidget(group);
    layout->addStretch(1);
    return page;
}

QWidget *makeSymbolSheet()
{
    return new SymbolSheet;
}
