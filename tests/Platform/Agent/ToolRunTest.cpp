#include "Platform/Agent/detail/ToolRun.h"

#include "Awaited.h"
#include "HomeFiles.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

using Output = std::optional<QByteArray>;

Output outputOf(const QString &program, const QStringList &arguments)
{
    Awaited<Output> output;
    ToolRun::reading(program, arguments, output.take());
    return output.value();
}

Output shell(const QString &script)
{
    return outputOf(u"/bin/sh"_s, {u"-c"_s, script});
}

/// A script that goes on once the home has a file "go".
QString onceAllowed(const QString &script)
{
    return u"until [ -e \"$HOME/go\" ]; do sleep 0.01; done; "_s + script;
}

TEST(ToolRun, GivesWhatTheToolWroteToItsStandardOutput)
{
    EXPECT_EQ(shell(u"echo out; echo error >&2"_s), "out\n");
}

TEST(ToolRun, DoesNotDependOnTheExitStatus)
{
    EXPECT_EQ(shell(u"echo failed; exit 3"_s), "failed\n");
    EXPECT_EQ(shell(u"echo killed; kill -KILL $$"_s), "killed\n");
}

TEST(ToolRun, GivesNothingWhenTheToolCannotBeStarted)
{
    putHomeFile(u"text"_s, "no program");
    EXPECT_EQ(outputOf(homePath(u"absent"_s), {}), std::nullopt);
    EXPECT_EQ(outputOf(homePath(u"text"_s), {}), std::nullopt);
    EXPECT_EQ(outputOf(testHome(), {}), std::nullopt);
}

TEST(ToolRun, PassesEachArgumentAsItIs)
{
    EXPECT_EQ(outputOf(u"/usr/bin/printf"_s, {u"[%s]"_s, u"$HOME *; 'a b' \"c\""_s, u""_s}),
              "[$HOME *; 'a b' \"c\"][]");
}

TEST(ToolRun, OutputMayBeOfAnySizeOnBothPipes)
{
    const auto output = shell(u"head -c 3000000 /dev/zero >&2; head -c 3000000 /dev/zero"_s);
    ASSERT_TRUE(output);
    EXPECT_EQ(output->size(), 3000000);
}

TEST(ToolRun, NeverLetsAToolWaitForInput)
{
    EXPECT_EQ(shell(u"cat; echo end"_s), "end\n");
}

TEST(ToolRun, GoesOnBesideTheProgram)
{
    Awaited<Output> output;
    ToolRun::reading(u"/bin/sh"_s, {u"-c"_s, onceAllowed(u"echo end"_s)}, output.take());
    EXPECT_FALSE(output.isGiven());
    putHomeFile(u"go"_s, "");
    EXPECT_EQ(output.value(), "end\n");
}

TEST(ToolRun, CanBeWaitedForWithoutAnEventLoop)
{
    Awaited<Output> output;
    ToolRun::reading(u"/bin/sh"_s, {u"-c"_s, u"echo end"_s}, output.take())->waitForFinished(60000);
    EXPECT_TRUE(output.isGiven());
}

TEST(ToolRun, ASilentOneGivesNoOutputAndGoesOnWithoutTheProgram)
{
    Awaited<Output> output;
    ToolRun::silent(u"/bin/sh"_s, {u"-c"_s, u"echo out"_s}, output.take());
    EXPECT_EQ(output.value(), "");

    delete ToolRun::silent(u"/bin/sh"_s, {u"-c"_s, onceAllowed(u"echo out && touch \"$HOME/done\""_s)},
                           [](const Output &) { FAIL() << "nobody is there any more to be told"; });
    putHomeFile(u"go"_s, "");
    EXPECT_TRUE(QTest::qWaitFor([] { return homeFile(u"done"_s).has_value(); }, 60000));
}

} // namespace
