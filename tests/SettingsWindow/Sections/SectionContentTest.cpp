#include "SettingsWindow/Sections/SectionContent.h"

#include <QCoreApplication>
#include <QLabel>
#include <QStackedWidget>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

struct Lamp : Observable {
    Published<bool> on{*this, false};
};

TEST(SectionContent, GroupsStandOneBelowTheOther)
{
    SectionContent page;
    auto *first = new QLabel(u"first"_s);
    auto *second = new QLabel(u"second"_s);
    page.add(first);
    page.add(second);
    page.resize(400, page.sizeHint().height());
    page.show();
    EXPECT_EQ(first->geometry().topLeft(), QPoint(0, 0));
    EXPECT_EQ(first->width(), 400);
    EXPECT_EQ(second->y() - first->geometry().bottom() - 1, 24);
    EXPECT_EQ(first->parentWidget(), &page);
}

TEST(SectionContent, DrawsWhenMadeWhenShownAndAfterEachChange)
{
    Lamp lamp;
    QStackedWidget window;
    auto *other = new QWidget;
    auto *page = new SectionContent;
    window.addWidget(other);
    window.addWidget(page);
    int drawn = 0;
    page->renderPage(lamp, [&] { ++drawn; });
    EXPECT_EQ(drawn, 1);
    window.show();
    EXPECT_EQ(drawn, 1);
    window.setCurrentWidget(page);
    EXPECT_EQ(drawn, 2);
    lamp.on = true;
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(drawn, 3);
}

} // namespace
