#include "HomeFiles.h"
#include "Job.h"

#include <QFile>

#include <gmock/gmock.h>

#include <string>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
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
    EXPECT_TRUE(Job::isLoaded());
    EXPECT_THAT(calls(), ElementsAre("list|"));
}

TEST(Launchctl, AListingWithoutTheLabelMeansNotLoaded)
{
    for (const QByteArray &listing : {notLoaded, QByteArray(), QByteArray("com.vantle.agen\\nt\\n")}) {
        makeListing(listing);
        EXPECT_FALSE(Job::isLoaded()) << listing.toStdString();
    }
}

TEST(Launchctl, TheLabelCountsInsideALongerOne)
{
    makeListing("-\\t0\\tapplication.com.vantle.agent.4711\\n");
    EXPECT_TRUE(Job::isLoaded());
}

TEST(Launchctl, AListingThatIsNotUTF8MeansNotLoaded)
{
    for (const QByteArray &bytes :
         std::vector<QByteArray>{"\\377", "\\300\\257", "\\355\\240\\200", "\\303"}) {
        makeListing(loaded + bytes);
        EXPECT_FALSE(Job::isLoaded()) << bytes.toStdString();
    }
    makeListing(loaded + "\\303\\251");
    EXPECT_TRUE(Job::isLoaded());
}

TEST(Launchctl, ItsExitStatusAndItsErrorsAreNotLookedAt)
{
    makeLaunchctl("printf '" + loaded + "'; exit 1");
    EXPECT_TRUE(Job::isLoaded());
    makeLaunchctl("printf '" + loaded + "' >&2");
    EXPECT_FALSE(Job::isLoaded());
}

TEST(Launchctl, WithoutAJobFileNothingIsLoadedOrUnloaded)
{
    makeListing(loaded);
    EXPECT_FALSE(Job::load());
    EXPECT_FALSE(Job::unload());
    EXPECT_THAT(calls(), IsEmpty());
}

TEST(Launchctl, ALinkToNothingIsNoJobFile)
{
    putHomeFile(jobFile, "");
    ASSERT_TRUE(QFile::remove(homePath(jobFile)));
    ASSERT_TRUE(QFile::link(homePath(u"absent"_s), homePath(jobFile)));
    makeListing(loaded);
    EXPECT_FALSE(Job::load());
    EXPECT_THAT(calls(), IsEmpty());
}

TEST(Launchctl, LoadsForGoodAndAsks)
{
    putHomeFile(jobFile, "");
    makeKeeper();
    EXPECT_TRUE(Job::load());
    EXPECT_THAT(calls(), ElementsAre("load|-w|JOBFILE|", "list|"));
}

TEST(Launchctl, UnloadsUntilTheNextLoginAndAsks)
{
    putHomeFile(jobFile, "");
    makeKeeper();
    Job::load();
    EXPECT_TRUE(Job::unload());
    EXPECT_THAT(calls(), ElementsAre("load|-w|JOBFILE|", "list|", "unload|JOBFILE|", "list|"));
}

TEST(Launchctl, ARefusalShowsInTheListing)
{
    putHomeFile(jobFile, "");
    makeListing(notLoaded);
    EXPECT_FALSE(Job::load());
    makeListing(loaded);
    EXPECT_FALSE(Job::unload());
}

TEST(Launchctl, AHomeWithBlanksIsOneArgument)
{
    const QString home = homePath(u"My Home"_s);
    putHomeFile(u"My Home/"_s + jobFile, "");
    putHomeFile(u"My Home/launchctl.sh"_s, "echo $# >>\"$HOME/counts\"");
    qputenv("HOME", home.toUtf8());
    Job::load();
    EXPECT_EQ(homeFile(u"counts"_s), "3\n1\n");
}

/// launchctl that does what makeKeeper's does, but first waits until the home has a file "go" when it is
/// asked for this.
void makeSlowKeeper(const QByteArray &command)
{
    makeKeeper();
    const QByteArray script = homeFile(u"launchctl.sh"_s).value();
    putHomeFile(u"launchctl.sh"_s,
                "[ $1 != " + command + " ] || until [ -e \"$HOME/go\" ]; do sleep 0.01; done\n" + script);
}

TEST(Launchctl, AListingInTimeIsWaitedFor)
{
    makeListing(loaded);
    Awaited<bool> answer;
    Job::manager().isLoaded(60s, answer.take());
    EXPECT_TRUE(answer.isGiven()) << "before any event";
    EXPECT_TRUE(answer.value());
}

TEST(Launchctl, AListingThatTakesLongerIsAnsweredWhenItArrives)
{
    makeSlowKeeper("list");
    Awaited<bool> answer;
    Job::manager().isLoaded(1ms, answer.take());
    EXPECT_FALSE(answer.isGiven());
    putHomeFile(u"state"_s, "");
    putHomeFile(u"go"_s, "");
    EXPECT_TRUE(answer.value());
}

TEST(Launchctl, AChangeGoesOnBesideTheProgramAndIsAnsweredWhenItIsOver)
{
    putHomeFile(jobFile, "");
    makeSlowKeeper("load");
    Awaited<bool> answer;
    Job::manager().load(answer.take());
    EXPECT_FALSE(answer.isGiven());
    EXPECT_FALSE(Job::isLoaded());
    EXPECT_FALSE(answer.isGiven());
    putHomeFile(u"go"_s, "");
    EXPECT_TRUE(answer.value());
}

TEST(Launchctl, AtTheEndAChangeIsGivenTimeButNotMoreThanThat)
{
    putHomeFile(jobFile, "");
    makeSlowKeeper("load");
    Awaited<bool> answer;
    Job::manager().load(answer.take());
    Job::manager().finish(900ms);
    EXPECT_EQ(homeFile(u"state"_s), std::nullopt);
    putHomeFile(u"go"_s, "");
    EXPECT_TRUE(answer.value());
    Awaited<bool> unloaded;
    Job::manager().unload(unloaded.take());
    Job::manager().finish(900ms);
    EXPECT_EQ(homeFile(u"state"_s), std::nullopt) << "done before any event";
    EXPECT_TRUE(unloaded.value());
}

} // namespace
