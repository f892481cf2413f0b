#include "Modal.h"
#include "Platform/Desktop/Dialogs.h"
#include "PrivateBus.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{

const auto portalObject = u"/org/freedesktop/portal/desktop"_s;

/// What stands for an open question at the portal.
class Request : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")

public:
    int closed = 0;

public Q_SLOTS: // NOLINT(readability-redundant-access-specifiers): marks slots, not access
    void Close() { ++closed; }
};

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
    Request request;
    bool ownRequestPath = false; ///< ignores the token, as old portals do
    bool refuses = false;        ///< answers the call with an error

public Q_SLOTS: // NOLINT(readability-redundant-access-specifiers): marks slots, not access
    QDBusObjectPath OpenFile(const QString &, const QString &shownTitle, const QVariantMap &shownOptions,
                             const QDBusMessage &call)
    {
        title = shownTitle;
        options = shownOptions;
        if (refuses) {
            call.setDelayedReply(true);
            PrivateBus::services().send(call.createErrorReply(QDBusError::Failed, u"no dialog"_s));
            return {};
        }
        const QString caller = call.service().mid(1).replace(u'.', u'_');
        const QString token = ownRequestPath ? u"own"_s : options.value(u"handle_token"_s).toString();
        const QString path = portalObject + u"/request/"_s + caller + u'/' + token;
        PrivateBus::services().registerObject(path, &request, QDBusConnection::ExportAllSlots);
        if (m_response) {
            // Who learns the request's name only from the reply may listen too late for the first.
            connect(&m_repeat, &QTimer::timeout, this, [this, path] { respond(path); });
            m_repeat.start(1);
        }
        return QDBusObjectPath(path);
    }

private:
    void respond(const QString &path)
    {
        auto signal = QDBusMessage::createSignal(path, u"org.freedesktop.portal.Request"_s, u"Response"_s);
        signal << m_response->code << m_response->results;
        PrivateBus::services().send(signal);
    }

    uint m_version;
    std::optional<Response> m_response;
    QTimer m_repeat;
    ServiceName m_name{u"org.freedesktop.portal.Desktop"_s};
};

/// A portal whose process is stopped: it takes calls and never answers.
class StoppedPortal : public QDBusVirtualObject
{
    Q_OBJECT

public:
    StoppedPortal() { PrivateBus::services().registerVirtualObject(portalObject, this); }
    ~StoppedPortal() override { PrivateBus::services().unregisterObject(portalObject); }
    Q_DISABLE_COPY_MOVE(StoppedPortal)

    bool handleMessage(const QDBusMessage &, const QDBusConnection &) override { return true; }
    QString introspect(const QString &) const override { return {}; }

private:
    ServiceName m_name{u"org.freedesktop.portal.Desktop"_s};
};

/// A window whose button has the focus, and a question that is asked for it.
class AskingWindow
{
public:
    AskingWindow()
    {
        m_window->setCentralWidget(new QWidget);
        button = new QPushButton(u"Ask"_s);
        (new QVBoxLayout(m_window->centralWidget()))->addWidget(button);
        m_window->resize(400, 300);
        m_window->show();
        button->setFocus();
    }

    QMainWindow &window() { return *m_window; }
    QWidget &content() { return *m_window->centralWidget(); }
    void close() { m_window.reset(); }

    /// The button that gives the question up, once it is shown.
    QPushButton *cancel()
    {
        QPushButton *found = nullptr;
        EXPECT_TRUE(QTest::qWaitFor([&] {
            for (QPushButton *each : m_window->findChildren<QPushButton *>()) {
                if (each->text() == u"Cancel" && each->isVisible())
                    found = each;
            }
            return found != nullptr;
        }));
        return found;
    }

    QPushButton *button;

private:
    std::unique_ptr<QMainWindow> m_window = std::make_unique<QMainWindow>();
};

/// Does something as soon as the event loop turns, as when a question waits for its answer.
void meanwhile(std::function<void()> work)
{
    QTimer::singleShot(0, qApp, std::move(work));
}

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

TEST(DirectoryPortal, AResponseOnADifferentRequestPathIsReceived)
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

TEST(DirectoryPortal, OneThatRefusesIsPassedOver)
{
    Portal portal(Portal::Response{0, chosen(u"/plan"_s)});
    portal.refuses = true;
    expectOwnDialog();
}

// The desktop's dialog answers so when it is closed by Escape or by its frame.
TEST(DirectoryPortal, ADialogThatEndsWithoutAnAnswerIsNotFollowedByAnother)
{
    const Portal portal(Portal::Response{2});
    EXPECT_EQ(choose(), std::nullopt);
}

TEST(DirectoryPortal, OneThatEndsLeavesTheQuestionToTheProgramsOwnDialog)
{
    auto portal = std::make_unique<Portal>(std::nullopt);
    meanwhile([&] {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !portal->title.isEmpty(); }));
        portal.reset();
    });
    expectOwnDialog();
}

TEST(DirectoryPortal, StartsAtHomeWithoutAFolder)
{
    const Portal portal(Portal::Response{1});
    choose();
    EXPECT_EQ(portal.options.value(u"current_folder"_s).toByteArray(),
              QDir::homePath().toUtf8() + QByteArray(1, '\0'));
}

TEST(DirectoryPortal, TheContentTakesNoInputUntilTheAnswerAndHasTheFocusAgain)
{
    const Portal portal(std::nullopt);
    AskingWindow asking;
    meanwhile([&] {
        QPushButton *cancel = asking.cancel();
        ASSERT_NE(cancel, nullptr);
        EXPECT_FALSE(asking.button->isEnabled());
        EXPECT_TRUE(asking.window().isEnabled());
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "which keeps the window from being closed";
        EXPECT_EQ(asking.window().focusWidget(), cancel);
        cancel->click();
    });
    EXPECT_EQ(choose(), std::nullopt);
    EXPECT_TRUE(asking.button->isEnabled());
    EXPECT_EQ(asking.window().focusWidget(), asking.button);
    EXPECT_TRUE(QTest::qWaitFor([&] { return portal.request.closed == 1; }));
}

TEST(DirectoryPortal, TheContentSaysWhatIsAskedAndIsDimmed)
{
    const Portal portal(std::nullopt);
    AskingWindow asking;
    asking.content().setAutoFillBackground(true);
    QPalette white;
    white.setColor(QPalette::Window, Qt::white);
    asking.content().setPalette(white);
    meanwhile([&] {
        QPushButton *cancel = asking.cancel();
        ASSERT_NE(cancel, nullptr);
        QWidget *cover = cancel->parentWidget();
        EXPECT_EQ(cover->findChild<QLabel *>()->text(), u"Select the folder.");
        EXPECT_EQ(cover->accessibleName(), u"Planning Project Folder");
        EXPECT_EQ(cover->geometry(), asking.content().geometry());
        EXPECT_LT(asking.window().grab().toImage().pixelColor(5, 5).lightness(), 128);
        asking.window().resize(500, 350);
        EXPECT_TRUE(QTest::qWaitFor([&] { return cover->geometry() == asking.content().geometry(); }));
        cancel->click();
    });
    choose();
    EXPECT_EQ(asking.window().grab().toImage().pixelColor(5, 5), QColor(Qt::white));
}

TEST(DirectoryPortal, EscapeInTheWindowGivesTheQuestionUp)
{
    const Portal portal(std::nullopt);
    AskingWindow asking;
    meanwhile([&] { QTest::keyClick(asking.cancel(), Qt::Key_Escape); });
    EXPECT_EQ(choose(), std::nullopt);
    EXPECT_TRUE(QTest::qWaitFor([&] { return portal.request.closed == 1; }));
}

TEST(DirectoryPortal, AnAnsweredRequestIsNotClosed)
{
    const Portal portal(Portal::Response{0, chosen(u"/plan"_s)});
    EXPECT_EQ(choose(), u"/plan"_s);
    auto later = QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s, portalObject,
                                                u"org.freedesktop.DBus.Properties"_s, u"GetAll"_s);
    later << u"org.freedesktop.portal.FileChooser"_s;
    const QDBusMessage reply = QDBusConnection::sessionBus().call(later, QDBus::BlockWithGui);
    ASSERT_EQ(reply.type(), QDBusMessage::ReplyMessage) << qPrintable(reply.errorMessage());
    EXPECT_EQ(portal.request.closed, 0);
}

TEST(DirectoryPortal, OneThatIsStoppedIsGivenUpByTheUserAtOnce)
{
    const StoppedPortal portal;
    AskingWindow asking;
    bool otherDialog = false;
    meanwhile([&] {
        asking.cancel()->click();
        otherDialog = QApplication::activeModalWidget() != nullptr;
    });
    EXPECT_EQ(choose(), std::nullopt);
    EXPECT_FALSE(otherDialog);
}

TEST(DirectoryPortal, OneThatIsStoppedIsPassedOverAfterAWhile)
{
    const StoppedPortal portal;
    expectOwnDialog();
}

TEST(DirectoryPortal, TheWindowMayGoWhileTheQuestionIsOpen)
{
    const Portal portal(std::nullopt);
    AskingWindow asking;
    meanwhile([&] {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !portal.title.isEmpty(); }));
        asking.close();
    });
    EXPECT_EQ(choose(), std::nullopt);
    EXPECT_TRUE(QTest::qWaitFor([&] { return portal.request.closed == 1; }));
}

} // namespace

#include "DirectoryPortalTest.moc"
