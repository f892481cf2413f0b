#include "Platform/Agent/detail/ToolOutput.h"

#include "HomeFiles.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

std::optional<QByteArray> shell(const QString &script)
{
    return toolOutput(u"/bin/sh"_s, {u"-c"_s, script});
}

TEST(ToolOutput, IsWhatTheToolWroteToItsStandardOutput)
{
    EXPECT_EQ(shell(u"echo out; echo error >&2"_s), "out\n");
}

TEST(ToolOutput, DoesNotDependOnTheExitStatus)
{
    EXPECT_EQ(shell(u"echo failed; exit 3"_s), "failed\n");
    EXPECT_EQ(shell(u"echo killed; kill -KILL $$"_s), "killed\n");
}

TEST(ToolOutput, IsNothingWhenTheToolCannotBeStarted)
{
    putHomeFile(u"text"_s, "no program");
    EXPECT_EQ(toolOutput(homePath(u"absent"_s), {}), std::nullopt);
    EXPECT_EQ(toolOutput(homePath(u"text"_s), {}), std::nullopt);
    EXPECT_EQ(toolOutput(testHome(), {}), std::nullopt);
}

TEST(ToolOutput, PassesEachArgumentAsItIs)
{
    EXPECT_EQ(toolOutput(u"/usr/bin/printf"_s, {u"[%s]"_s, u"$HOME *; 'a b' \"c\""_s, u""_s}),
              "[$HOME *; 'a b' \"c\"][]");
}

TEST(ToolOutput, MayBeOfAnySizeOnBothPipes)
{
    const auto output = shell(u"head -c 3000000 /dev/zero >&2; head -c 3000000 /dev/zero"_s);
    ASSERT_TRUE(output);
    EXPECT_EQ(output->size(), 3000000);
}

TEST(ToolOutput, NeverLetsAToolWaitForInput)
{
    EXPECT_EQ(shell(u"cat; echo end"_s), "end\n");
}

} // namespace
