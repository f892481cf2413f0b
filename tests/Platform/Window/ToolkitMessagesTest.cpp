#include "Platform/Window/ToolkitMessages.h"

#include <QLoggingCategory>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

QStringList said;

void note(QtMsgType, const QMessageLogContext &, const QString &message)
{
    said << message;
}

class ToolkitMessagesTest : public testing::Test
{
protected:
    void SetUp() override
    {
        said.clear();
        m_before = qInstallMessageHandler(note);
        filterToolkitMessages();
    }
    void TearDown() override { qInstallMessageHandler(m_before); }

private:
    QtMessageHandler m_before = nullptr;
};

TEST_F(ToolkitMessagesTest, ThoseThatTheProgramCannotMendAreNotPrinted)
{
    qWarning("QXcbClipboard: Unable to receive an event from the clipboard manager in a reasonable time");
    qWarning("QIBusPlatformInputContext: invalid bus.");
    qWarning("QSpiApplication::keyEventError  \"org.freedesktop.DBus.Error.NoReply\"");
    qWarning("The cached device pixel ratio value was stale on window update.  Please file a QTBUG");
    const QLoggingCategory registry("qt.accessibility.atspi");
    qCWarning(registry, "no reply");
    EXPECT_EQ(said, QStringList());
}

TEST_F(ToolkitMessagesTest, AllOthersArePrinted)
{
    qWarning("QObject::connect: no such signal");
    qWarning("QXcbClipboard: SelectionRequest too old");
    qWarning("of ours: QSpiApplication");
    const QLoggingCategory screen("qt.qpa.screen");
    qCWarning(screen, "no screen");
    EXPECT_EQ(said, QStringList({u"QObject::connect: no such signal"_s,
                                 u"QXcbClipboard: SelectionRequest too old"_s, u"of ours: QSpiApplication"_s,
                                 u"no screen"_s}));
}

} // namespace
