#include "Modal.h"
#include "Platform/Desktop/Dialogs.h"
#include "PrivateBus.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDir>
#include <QFileDialog>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{

const auto portalObject = u"/org/freedesktop/portal/desktop"_s;

/// Stands for the desktop's portal: it answers each question at once, as the case has told it to.
class Portal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.FileChooser")
    Q_PROPERTY(uint version MEMBER m_version)

public:
    struct Response {
        uint code = 0;
        QVariantMap results = {};
    };

    explicit Portal(std::optional<Response> response, uint version = 4)
        : m_version(version), m_response(std::move(response))
    {
        PrivateBus::services().registerObject(
            portalObject, this, QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties);
    }

    QString title;
    QVariantMap options;
    bool ownRequestPath = false; ///< ignores the token, as old portals do

public Q_SLOTS: // NOLINT(readability-redundant-access-specifiers): marks slots, not access
    QDBusObjectPath OpenFile(const QString &, const QString &shownTitle, const QVariantMap &shownOptions,
                             const QDBusMessage &call)
    {
        title = shownTitle;
        options = shownOptions;
        const QString caller = call.service().mid(1).replace(u'.', u'_');
        const QString token = ownRequestPath ? u"own"_s : options.value(u"handle_token"_s).toString();
        const QString request = portalObject + u"/request/"_s + caller + u'/' + token;
        if (m_response) {
            // Who learns the request's name only from the reply may listen too late for the first.
            connect(&m_repeat, &QTimer::timeout, this, [this, request] { respond(request); });
            m_repeat.start(1);
        }
        return QDBusObjectPath(request);
    }

private:
    void respond(const QString &request)
    {
        auto signal = QDBusMessage::createSignal(request, u"org.freedesktop.portal.Request"_s, u"Response"_s);
        signal << m_response->code << m_response->results;
        PrivateBus::services().send(signal);
    }

    uint m_version;
    std::optional<Response> m_response;
    QTimer m_repeat;
    ServiceName m_name{u"org.freedesktop.portal.Desktop"_s};
};

QVariantMap chosen(const QString &folder)
{
    return {{u"uris"_s, QStringList{QUrl::fromLocalFile(folder).toString(QUrl::FullyEncoded)}}};
}

std::optional<QString> choose(const std::optional<QString> &start = {})
{
    return Dialogs::system().chooseDirectory({.title = u"Planning Project Folder"_s,
                                              .message = u"Select the folder."_s,
                                              .prompt = u"Choose"_s,
                                              .start = start});
}

void expectOwnDialog()
{
    bool shown = false;
    const auto asking = whenModal(
        [&](QWidget *dialog) {
            shown = true;
            dialog->close();
        },
        [](const QWidget *dialog) { return qobject_cast<const QFileDialog *>(dialog) != nullptr; });
    EXPECT_EQ(choose(), std::nullopt);
    EXPECT_TRUE(shown);
}

TEST(DirectoryPortal, GivesTheFolderThatItsDialogGave)
{
    const Portal portal(Portal::Response{0, chosen(u"/home/ä b/plan#1"_s)});
    EXPECT_EQ(choose(), u"/home/ä b/plan#1"_s);
}

TEST(DirectoryPortal, IsAskedForOneFolderWithTitlePromptAndStartingFolder)
{
    const Portal portal(Portal::Response{1});
    choose(QDir::homePath());
    EXPECT_EQ(portal.title, u"Planning Project Folder");
    EXPECT_EQ(portal.options.value(u"accept_label"_s), u"Choose"_s);
    EXPECT_EQ(portal.options.value(u"directory"_s), true);
    EXPECT_EQ(portal.options.value(u"modal"_s), true);
    EXPECT_FALSE(portal.options.value(u"multiple"_s).toBool());
    EXPECT_EQ(portal.options.value(u"current_folder"_s).toByteArray(),
              QDir::homePath().toUtf8() + QByteArray(1, '\0'));
}

TEST(DirectoryPortal, CancelGivesNothing)
{
    const Portal portal(Portal::Response{1});
    EXPECT_EQ(choose(), std::nullopt);
}

TEST(DirectoryPortal, OneThatNamesItsRequestsItselfIsHeardToo)
{
    Portal portal(Portal::Response{0, chosen(u"/plan"_s)});
    portal.ownRequestPath = true;
    EXPECT_EQ(choose(), u"/plan"_s);
}

TEST(DirectoryPortal, WithoutOneTheProgramsOwnDialogAsks)
{
    expectOwnDialog();
}

TEST(DirectoryPortal, OneTooOldForFoldersIsPassedOver)
{
    const Portal portal(Portal::Response{0, chosen(u"/file"_s)}, 2);
    expectOwnDialog();
    EXPECT_TRUE(portal.title.isEmpty());
}

TEST(DirectoryPortal, OneThatCannotShowDialogsIsPassedOver)
{
    const Portal portal(Portal::Response{2});
    expectOwnDialog();
}

TEST(DirectoryPortal, TheProgramsWindowsTakeNoInputMeanwhile)
{
    const Portal portal(std::nullopt);
    QWidget window;
    window.show();
    const auto asking = whenModal([&](QWidget *waiting) {
        EXPECT_TRUE(waiting->testAttribute(Qt::WA_DontShowOnScreen));
        EXPECT_TRUE(QTest::qWaitFor([&] { return !portal.title.isEmpty(); }));
        waiting->close();
    });
    EXPECT_EQ(choose(), std::nullopt);
}

TEST(DirectoryPortal, OneThatEndsLeavesTheQuestionToTheProgramsOwnDialog)
{
    auto portal = std::make_unique<Portal>(std::nullopt);
    const auto asking = whenModal([&](QWidget *) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !portal->title.isEmpty(); }));
        portal.reset();
    });
    expectOwnDialog();
}

TEST(DirectoryPortal, TheWindowMayGoWhileTheQuestionIsOpen)
{
    const Portal portal(std::nullopt);
    auto window = std::make_unique<QWidget>();
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    const auto asking = whenModal([&](QWidget *) { window.reset(); });
    EXPECT_EQ(choose(), std::nullopt);
}

} // namespace

#include "DirectoryPortalTest.moc"
