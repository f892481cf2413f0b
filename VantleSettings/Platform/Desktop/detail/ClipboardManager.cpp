#include "Platform/Desktop/detail/ClipboardManager.h"

#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>

#include <cstdlib>

namespace
{

template <class T>
std::unique_ptr<T, decltype(&std::free)> owned(T *answer)
{
    return {answer, &std::free};
}

} // namespace

ClipboardManager::ClipboardManager()
    : m_connection(xcb_connect(nullptr, nullptr), &xcb_disconnect), m_selection(atom("CLIPBOARD_MANAGER"))
{
}

bool ClipboardManager::exists() const
{
    return owner(m_selection) != XCB_WINDOW_NONE;
}

bool ClipboardManager::save(std::chrono::milliseconds timeout)
{
    const xcb_atom_t clipboard = atom("CLIPBOARD");
    const xcb_window_t before = owner(clipboard);
    requestSave();
    QEventLoop loop;
    QSocketNotifier notifier(xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &loop, [this, &loop] {
        if (hasAnswered())
            loop.quit();
    });
    QTimer::singleShot(timeout, &loop, &QEventLoop::quit);
    loop.exec();
    return owner(clipboard) != before;
}

xcb_window_t ClipboardManager::owner(xcb_atom_t selection) const
{
    const auto reply = owned(xcb_get_selection_owner_reply(
        m_connection.get(), xcb_get_selection_owner(m_connection.get(), selection), nullptr));
    return reply ? reply->owner : xcb_window_t(XCB_WINDOW_NONE);
}

xcb_atom_t ClipboardManager::atom(std::string_view name) const
{
    const auto asked = xcb_intern_atom(m_connection.get(), 0, uint16_t(name.size()), name.data());
    const auto reply = owned(xcb_intern_atom_reply(m_connection.get(), asked, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

void ClipboardManager::requestSave()
{
    xcb_connection_t *connection = m_connection.get();
    const xcb_window_t window = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window,
                      xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    // A property without contents asks for everything that the owner offers.
    xcb_convert_selection(connection, window, m_selection, atom("SAVE_TARGETS"), atom("VANTLE_SAVE_TARGETS"),
                          XCB_CURRENT_TIME);
    xcb_flush(connection);
}

bool ClipboardManager::hasAnswered() const
{
    while (const auto event = owned(xcb_poll_for_event(m_connection.get()))) {
        if ((event->response_type & ~0x80) == XCB_SELECTION_NOTIFY)
            return true;
    }
    return xcb_connection_has_error(m_connection.get()) != 0;
}
