#include "Modal.h"
#include "Platform/Desktop/Dialogs.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

/// Where the desktop has no portal, as on the bus of this program.
class DirectoryDialogTest : public testing::Test
{
protected:
    DirectoryDialogTest() { QDir::home().mkpath(u"work/plans"_s); }

    std::optional<QString> choose(const std::optional<QString> &start,
                                  std::function<void(QFileDialog *)> answer)
    {
        const auto asking = whenModal(
            [answer = std::move(answer)](QWidget *dialog) { answer(static_cast<QFileDialog *>(dialog)); },
            [](const QWidget *dialog) { return qobject_cast<const QFileDialog *>(dialog) != nullptr; });
        return Dialogs::system().chooseDirectory({.title = u"Planning Project Folder"_s,
                                                  .message = u"Select the folder."_s,
                                                  .prompt = u"Choose"_s,
                                                  .start = start});
    }

    QString plans = QDir::homePath() + u"/work/plans"_s;
};

TEST_F(DirectoryDialogTest, ShowsTitlePromptAndStartingFolder)
{
    choose(plans, [this](QFileDialog *dialog) {
        EXPECT_EQ(dialog->windowTitle(), u"Planning Project Folder");
        EXPECT_EQ(dialog->labelText(QFileDialog::Accept), u"Choose");
        EXPECT_EQ(dialog->directory().path(), plans);
        EXPECT_EQ(dialog->fileMode(), QFileDialog::Directory);
        EXPECT_EQ(dialog->supportedSchemes(), QStringList{u"file"_s});
        dialog->reject();
    });
}

TEST_F(DirectoryDialogTest, ShowsTheMessageAboveItsControls)
{
    choose(plans, [](QFileDialog *dialog) {
        const QLabel *message = nullptr;
        for (const QLabel *label : dialog->findChildren<QLabel *>()) {
            if (label->text() == u"Select the folder.")
                message = label;
        }
        ASSERT_NE(message, nullptr);
        EXPECT_TRUE(message->isVisible());
        for (const QWidget *other : dialog->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
            if (other != message && other->isVisible()) {
                EXPECT_FALSE(other->geometry().intersects(message->geometry()));
            }
        }
        EXPECT_EQ(dialog->accessibleDescription(), u"Select the folder.");
        dialog->reject();
    });
}

TEST_F(DirectoryDialogTest, GivesTheChosenFolder)
{
    const auto folder = choose(plans, [](QFileDialog *dialog) {
        QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->buttons().constFirst(), Qt::LeftButton);
    });
    EXPECT_EQ(folder, plans);
}

TEST_F(DirectoryDialogTest, CancelGivesNothing)
{
    EXPECT_EQ(choose(plans, [](QFileDialog *dialog) { dialog->reject(); }), std::nullopt);
    EXPECT_EQ(choose(plans, [](QFileDialog *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); }),
              std::nullopt);
}

TEST_F(DirectoryDialogTest, StartsInTheNearestFolderThatStillExists)
{
    choose(plans + u"/gone/deeper"_s, [this](QFileDialog *dialog) {
        EXPECT_EQ(dialog->directory().path(), plans);
        dialog->reject();
    });
}

TEST_F(DirectoryDialogTest, StartsInTheNearestFolderOfAPathOfAnyLength)
{
    for (const QString &gone : {u"/gone"_s.repeated(200000), u'/' + u"x"_s.repeated(1000000),
                                u'/' + u"e\u0301"_s + u"\u0301"_s.repeated(1000000)}) {
        choose(plans + gone, [this](QFileDialog *dialog) {
            EXPECT_EQ(dialog->directory().path(), plans);
            dialog->reject();
        });
    }
}

TEST_F(DirectoryDialogTest, StartsAtHomeWithoutAFolder)
{
    choose(std::nullopt, [](QFileDialog *dialog) {
        EXPECT_EQ(dialog->directory().path(), QDir::homePath());
        dialog->reject();
    });
}

TEST_F(DirectoryDialogTest, KeepsNoRecordOfTheFoldersItWasIn)
{
    choose(plans, [](QFileDialog *dialog) {
        QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->buttons().constFirst(), Qt::LeftButton);
    });
    const QString record = QSettings(QSettings::UserScope, u"QtProject"_s).fileName();
    EXPECT_FALSE(QFile::exists(record)) << record.toStdString();
}

} // namespace
