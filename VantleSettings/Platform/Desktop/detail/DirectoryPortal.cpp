#include "Platform/Desktop/detail/DirectoryPortal.h"

#include "Platform/Desktop/detail/ContentCover.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QFile>
#include <QGuiApplication>
#include <QMainWindow>
#include <QPointer>
#include <QUrl>
#include <QUuid>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr uint firstVersionWithDirectories = 3;
constexpr int startTimeout = 3000; // milliseconds: the portal may have to start first
const auto service = u"org.freedesktop.portal.Desktop"_s;
const auto object = u"/org/freedesktop/portal/desktop"_s;
const auto fileChooser = u"org.freedesktop.portal.FileChooser"_s;
const auto requestInterface = u"org.freedesktop.portal.Request"_s;

/// The portal's name for the window that its dialog shall stay above; empty where there is none. Under
/// Wayland the name is a handle that the compositor exports for the window's surface. Before version 6.9 the
/// toolkit gives it only to its own plugins, through headers that change with each version.
QString portalName(const QWidget *window)
{
    if (!window || QGuiApplication::platformName() != u"xcb")
        return {};
    return u"x11:"_s + QString::number(window->winId(), 16);
}

/// The object path of a request. The portal derives it from the token, so that a program can listen before it
/// asks.
QString requestPath(const QDBusConnection &bus, const QString &token)
{
    return object + u"/request/"_s + bus.baseService().mid(1).replace(u'.', u'_') + u'/' + token;
}

} // namespace

DirectoryPortal::DirectoryPortal(QDBusConnection bus) : m_bus(std::move(bus))
{
}

// The input is not blocked by a modal dialog, because that would keep the window from being closed, too.
DirectoryPortal::Answer DirectoryPortal::ask(const DirectoryQuestion &question, QMainWindow *window)
{
    if (!m_bus.isConnected())
        return {Outcome::unavailable};
    m_question = question;
    m_parentWindow = portalName(window);
    QPointer<ContentCover> cover;
    if (window && window->centralWidget()) {
        cover = new ContentCover(*window, question.title, question.message);
        connect(cover, &ContentCover::cancelled, this, [this] { finish({}); });
        connect(window, &QObject::destroyed, this, [this] { finish({}); });
    }
    askVersion();
    m_eventLoop.exec();
    if (cover)
        cover->lift();
    delete cover;
    closeDialog();
    return m_answer.value_or(Answer{});
}

void DirectoryPortal::askVersion()
{
    auto call =
        QDBusMessage::createMethodCall(service, object, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    call << fileChooser << u"version"_s;
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call, startTimeout), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusVariant> version = *watcher;
        if (version.isError() || version.value().variant().toUInt() < firstVersionWithDirectories)
            finish({Outcome::unavailable});
        else
            openDialog();
    });
}

void DirectoryPortal::openDialog()
{
    const QString token = u"vantle"_s + QUuid::createUuid().toString(QUuid::Id128);
    QVariantMap options{{u"handle_token"_s, token},
                        {u"accept_label"_s, m_question.prompt},
                        {u"modal"_s, true},
                        {u"directory"_s, true}};
    if (m_question.start)
        options.insert(u"current_folder"_s, QFile::encodeName(*m_question.start) + '\0');
    listenTo(requestPath(m_bus, token));
    // When the portal's process ends, its dialog closes and no response arrives.
    auto *ending = new QDBusServiceWatcher(service, m_bus, QDBusServiceWatcher::WatchForUnregistration, this);
    connect(ending, &QDBusServiceWatcher::serviceUnregistered, this, &DirectoryPortal::fail);

    auto call = QDBusMessage::createMethodCall(service, object, fileChooser, u"OpenFile"_s);
    call << m_parentWindow << m_question.title << options;
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusObjectPath> request = *watcher;
        if (request.isError())
            fail();
        else if (request.value().path() != m_request)
            listenTo(request.value().path());
    });
}

void DirectoryPortal::listenTo(const QString &request)
{
    m_request = request;
    m_bus.connect(service, request, requestInterface, u"Response"_s, this,
                  SLOT(handleResponse(uint, QVariantMap)));
}

void DirectoryPortal::handleResponse(uint response, const QVariantMap &results)
{
    constexpr uint success = 0; // others say that the dialog was cancelled, closed, or could not be shown
    const QStringList uris = results.value(u"uris"_s).toStringList();
    m_request.clear();
    if (response == success && !uris.isEmpty())
        finish({Outcome::chosen, QUrl(uris.constFirst()).toLocalFile()});
    else
        finish({});
}

void DirectoryPortal::fail()
{
    m_request.clear();
    finish({Outcome::unavailable});
}

void DirectoryPortal::closeDialog()
{
    if (!m_request.isEmpty())
        m_bus.send(QDBusMessage::createMethodCall(service, m_request, requestInterface, u"Close"_s));
}

void DirectoryPortal::finish(const Answer &answer)
{
    if (!m_answer)
        m_answer = answer;
    m_eventLoop.quit();
}
