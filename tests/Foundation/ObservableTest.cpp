#include "Foundation/Observable.h"

#include <QCoreApplication>
#include <QString>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace
{

struct Thermostat : Observable {
    Published<int> degrees{*this, 20};
    Published<std::vector<int>> history{*this};
};

void turnEventLoop()
{
    QCoreApplication::sendPostedEvents();
}

TEST(Published, AnnouncesBeforeTheValueChanges)
{
    Thermostat thermostat;
    int seen = 0;
    QObject::connect(&thermostat, &Observable::objectWillChange, [&] { seen = thermostat.degrees; });
    thermostat.degrees = 25;
    EXPECT_EQ(seen, 20);
    EXPECT_EQ(thermostat.degrees, 25);
}

TEST(Published, AnnouncesAnEqualAssignmentToo)
{
    Thermostat thermostat;
    int announcements = 0;
    QObject::connect(&thermostat, &Observable::objectWillChange, [&] { ++announcements; });
    thermostat.degrees = 20;
    EXPECT_EQ(announcements, 1);
}

TEST(Published, ModifyAnnouncesBeforeEditingInPlace)
{
    Thermostat thermostat;
    std::vector<std::size_t> sizes;
    QObject::connect(&thermostat, &Observable::objectWillChange,
                     [&] { sizes.push_back(thermostat.history->size()); });
    thermostat.history.modify([](std::vector<int> &history) { history.push_back(1); });
    EXPECT_EQ(sizes, std::vector<std::size_t>{0});
    EXPECT_EQ(thermostat.history.value(), std::vector<int>{1});
}

TEST(Render, DrawsAtOnce)
{
    Thermostat thermostat;
    QObject owner;
    int drawn = 0;
    renderOnChange(&owner, thermostat, [&] { drawn = thermostat.degrees; });
    EXPECT_EQ(drawn, 20);
}

TEST(Render, DrawsOncePerTurnHoweverManyChangesCame)
{
    Thermostat thermostat;
    QObject owner;
    std::vector<int> drawn;
    renderOnChange(&owner, thermostat, [&] { drawn.push_back(thermostat.degrees); });
    thermostat.degrees = 21;
    thermostat.degrees = 22;
    thermostat.degrees = 23;
    EXPECT_EQ(drawn, std::vector<int>{20});
    turnEventLoop();
    EXPECT_EQ(drawn, (std::vector<int>{20, 23}));
    thermostat.degrees = 24;
    turnEventLoop();
    EXPECT_EQ(drawn, (std::vector<int>{20, 23, 24}));
}

TEST(Render, AChangeMadeWhileDrawingIsDrawnInTheNextTurn)
{
    Thermostat thermostat;
    QObject owner;
    std::vector<int> drawn;
    renderOnChange(&owner, thermostat, [&] {
        drawn.push_back(thermostat.degrees);
        if (thermostat.degrees == 21)
            thermostat.degrees = 22;
    });
    thermostat.degrees = 21;
    turnEventLoop();
    turnEventLoop();
    EXPECT_EQ(drawn, (std::vector<int>{20, 21, 22}));
}

TEST(Render, StopsWithItsOwner)
{
    Thermostat thermostat;
    auto owner = std::make_unique<QObject>();
    int draws = 0;
    renderOnChange(owner.get(), thermostat, [&] { ++draws; });
    thermostat.degrees = 21;
    owner.reset();
    turnEventLoop();
    thermostat.degrees = 22;
    turnEventLoop();
    EXPECT_EQ(draws, 1);
}

} // namespace
