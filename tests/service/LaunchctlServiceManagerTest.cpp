#include "HomeFiles.h"
#include "LaunchAgent/LaunchAgent.h"

#include <QFile>

#include <gmock/gmock.h>

#include <string>
#include <vector>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

const QString jobFile = u"Library/LaunchAgents/com.vantle.agent.plist"_s;
const QByteArray loaded = "PID\\tStatus\\tLabel\\n-\\t0\\tcom.example.other\\n312\\t0\\tcom.vantle.agent\\n";
const QByteArray notLoaded = "PID\\tStatus\\tLabel\\n-\\t0\\tcom.example.other\\n";

/// launchctl as this shell script, with its arguments recorded before, one a line.
void makeLaunchctl(const QByteArray &script)
{
    putHomeFile(u"launchctl.sh"_s,
                "printf '%s|' \"$@\" >>\"$HOME/calls\"; echo >>\"$HOME/calls\"\n" + script);
}

/// launchctl that lists this text.
void makeListing(const QByteArray &listing)
{
    makeLaunchctl("printf -- '" + listing + "'");
}

/// launchctl that keeps a state: loaded from load to unload.
void makeKeeper()
{
    makeLaunchctl("case $1 in\n"
                  "load) touch \"$HOME/state\" ;;\n"
                  "unload) rm -f \"$HOME/state\" ;;\n"
                  "list) if [ -f \"$HOME/state\" ]; then printf '" +
                  loaded + "'; else printf '" + notLoaded + "'; fi ;;\nesac\n");
}

/// The calls so far: each argument followed by a bar, the job file's path by a word.
std::vector<std::string> calls()
{
    std::vector<std::string> result;
    auto record = homeFile(u"calls"_s).value_or(QByteArray());
    record.replace(homePath(jobFile).toUtf8(), "JOBFILE");
    for (const auto &line : record.split('\n')) {
        if (!line.isEmpty())
            result.push_back(line.toStdString());
    }
    return result;
}

TEST(Launchctl, IsAskedForItsListOnce)
{
    makeListing(loaded);
    EXPECT_TRUE(LaunchAgent::isLoaded());
    EXPECT_THAT(calls(), ElementsAre("list|"));
}

TEST(Launchctl, AListingWithoutTheLabelMeansNotLoaded)
{
    for (const QByteArray &listing : {notLoaded, QByteArray(), QByteArray("com.vantle.agen\\nt\\n")}) {
        makeListing(listing);
        EXPECT_FALSE(LaunchAgent::isLoaded()) << listing.toStdString();
    }
}

TEST(Launchctl, TheLabelCountsInsideALongerOne)
{
    makeListing("-\\t0\\tapplication.com.vantle.agent.4711\\n");
    EXPECT_TRUE(LaunchAgent::isLoaded());
}

TEST(Launchctl, AListingThatIsNotUTF8MeansNotLoaded)
{
    for (const QByteArray &bytes :
         std::vector<QByteArray>{"\\377", "\\300\\257", "\\355\\240\\200", "\\303"}) {
        makeListing(loaded + bytes);
        EXPECT_FALSE(LaunchAgent::isLoaded()) << bytes.toStdString();
    }
    makeListing(loaded + "\\303\\251");
    EXPECT_TRUE(LaunchAgent::isLoaded());
}

TEST(Launchctl, ItsExitStatusAndItsErrorsAreNotLookedAt)
{
    makeLaunchctl("printf '" + loaded + "'; exit 1");
    EXPECT_TRUE(LaunchAgent::isLoaded());
    makeLaunchctl("printf '" + loaded + "' >&2");
    EXPECT_FALSE(LaunchAgent::isLoaded());
}

TEST(Launchctl, WithoutAJobFileNothingIsLoadedOrUnloaded)
{
    makeListing(loaded);
    EXPECT_FALSE(LaunchAgent::load());
    EXPECT_FALSE(LaunchAgent::unload());
    EXPECT_THAT(calls(), IsEmpty());
}

TEST(Launchctl, ALinkToNothingIsNoJobFile)
{
    putHomeFile(jobFile, "");
    ASSERT_TRUE(QFile::remove(homePath(jobFile)));
    ASSERT_TRUE(QFile::link(homePath(u"absent"_s), homePath(jobFile)));
    makeListing(loaded);
    EXPECT_FALSE(LaunchAgent::load());
    EXPECT_THAT(calls(), IsEmpty());
}

TEST(Launchctl, LoadsForGoodAndAsks)
{
    putHomeFile(jobFile, "");
    makeKeeper();
    EXPECT_TRUE(LaunchAgent::load());
    EXPECT_THAT(calls(), ElementsAre("load|-w|JOBFILE|", "list|"));
}

TEST(Launchctl, UnloadsUntilTheNextLoginAndAsks)
{
    putHomeFile(jobFile, "");
    makeKeeper();
    LaunchAgent::load();
    EXPECT_TRUE(LaunchAgent::unload());
    EXPECT_THAT(calls(), ElementsAre("load|-w|JOBFILE|", "list|", "unload|JOBFILE|", "list|"));
}

TEST(Launchctl, ARefusalShowsInTheListing)
{
    putHomeFile(jobFile, "");
    makeListing(notLoaded);
    EXPECT_FALSE(LaunchAgent::load());
    makeListing(loaded);
    EXPECT_FALSE(LaunchAgent::unload());
}

TEST(Launchctl, AHomeWithBlanksIsOneArgument)
{
    const QString home = homePath(u"My Home"_s);
    putHomeFile(u"My Home/"_s + jobFile, "");
    putHomeFile(u"My Home/launchctl.sh"_s, "echo $# >>\"$HOME/counts\"");
    qputenv("HOME", home.toUtf8());
    LaunchAgent::load();
    EXPECT_EQ(homeFile(u"counts"_s), "3\n1\n");
}

} // namespace
