#include "GeneralPage.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

TEST_F(GeneralPage, LaunchAtLoginLoadsOrUnloadsAndReadsBack)
{
    ShownPage page(world);
    EXPECT_THAT(page.click(page.launch()), ElementsAre("load the job", "is the job loaded"));
    EXPECT_TRUE(page.model.launchAtLogin);
    EXPECT_TRUE(page.launch().isChecked());
    EXPECT_THAT(page.click(page.launch()), ElementsAre("unload the job", "is the job loaded"));
    EXPECT_FALSE(page.model.launchAtLogin);
    EXPECT_FALSE(page.launch().isChecked());
}

TEST_F(GeneralPage, AJobThatWillNotLoadLeavesTheSwitchOff)
{
    world.serviceRefuses = true;
    ShownPage page(world);
    page.click(page.launch());
    EXPECT_FALSE(page.model.launchAtLogin);
    EXPECT_FALSE(page.launch().isChecked());
}

TEST_F(GeneralPage, AJobThatWillNotUnloadLeavesTheSwitchOn)
{
    world.serviceIsLoaded = true;
    world.serviceRefuses = true;
    ShownPage page(world);
    page.click(page.launch());
    EXPECT_TRUE(page.model.launchAtLogin);
    EXPECT_TRUE(page.launch().isChecked());
}

TEST_F(GeneralPage, WhileTheJobIsBeingLoadedTheSwitchIsPendingAndAsksNothing)
{
    ShownPage page(world);
    world.serviceIsSlow = true;
    page.launch().setFocus();
    EXPECT_THAT(page.click(page.launch()), ElementsAre("load the job"));
    EXPECT_TRUE(page.launch().isPending());
    EXPECT_FALSE(page.launch().isChecked());
    EXPECT_TRUE(page.launch().hasFocus());
    EXPECT_THAT(page.click(page.launch()), IsEmpty());
    world.answerForService();
    settle();
    EXPECT_TRUE(page.launch().isPending()) << "the state is still to be read back";
    EXPECT_THAT(world.takeRecord(), ElementsAre("is the job loaded"));
    world.answerForService();
    settle();
    EXPECT_FALSE(page.launch().isPending());
    EXPECT_TRUE(page.launch().isChecked());
}

TEST_F(GeneralPage, AJobThatAfterSomeTimeWasNotLoadedLeavesTheSwitchOff)
{
    world.serviceRefuses = true;
    ShownPage page(world);
    world.serviceIsSlow = true;
    page.click(page.launch());
    world.answerForService();
    world.answerForService();
    settle();
    EXPECT_FALSE(page.launch().isPending());
    EXPECT_FALSE(page.launch().isChecked());
    EXPECT_THAT(page.click(page.launch()), ElementsAre("is the job loaded", "load the job"));
}

TEST_F(GeneralPage, APageThatIsMadeMeanwhileShowsThePendingSwitchToo)
{
    ShownPage page(world);
    world.serviceIsSlow = true;
    page.click(page.launch());
    GeneralSection second(page.model);
    EXPECT_TRUE(named<Switch>(second, u"Launch at Login"_s)->isPending());
}

TEST_F(GeneralPage, AnAnswerAfterTheEndOfTheModelIsDropped)
{
    {
        ShownPage page(world);
        world.serviceIsSlow = true;
        page.click(page.launch());
    }
    world.answerForService();
    world.answerForService();
    EXPECT_THAT(world.takeRecord(), ElementsAre("is the job loaded"));
}

} // namespace
