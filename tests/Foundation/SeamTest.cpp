#include "Foundation/Seam.h"

#include <gtest/gtest.h>

namespace
{

struct Clock {
    int hour = 0;
    static Clock &system()
    {
        static Clock clock{12};
        return clock;
    }
};

TEST(Seam, GivesTheSystemsOwnByDefault)
{
    EXPECT_EQ(Seam<Clock>::current().hour, 12);
}

TEST(Seam, ReplacementsNestAndAreUndone)
{
    Clock outer{1};
    Clock inner{2};
    {
        const Seam<Clock>::Replacement first(outer);
        {
            const Seam<Clock>::Replacement second(inner);
            EXPECT_EQ(Seam<Clock>::current().hour, 2);
        }
        EXPECT_EQ(Seam<Clock>::current().hour, 1);
    }
    EXPECT_EQ(Seam<Clock>::current().hour, 12);
}

} // namespace
