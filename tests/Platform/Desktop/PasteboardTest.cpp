#include "Platform/Desktop/Pasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

TEST(Pasteboard, ReplacesWhateverWasThereByExactlyTheText)
{
    auto *rich = new QMimeData;
    rich->setHtml(u"<b>old</b>"_s);
    QGuiApplication::clipboard()->setMimeData(rich);
    Pasteboard::system().setText(u"~/code/<b>&amp;\n☕"_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"~/code/<b>&amp;\n☕");
    EXPECT_FALSE(QGuiApplication::clipboard()->mimeData()->hasHtml());
}

} // namespace
