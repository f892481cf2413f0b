#include "Platform/Keyboard/KeyboardLayout.h"
#include "Platform/Keyboard/USKeyboardLayout.h"
#include "Platform/Keyboard/detail/WaylandKeyboardLayout.h"
#include "Platform/Keyboard/detail/X11KeyboardLayout.h"

#include <QCoreApplication>
#include <QVariant>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{

std::unique_ptr<KeyboardLayout> systemLayout()
{
    // The name of the platform plugin; a program without windows has no such property.
    const QString platform = QCoreApplication::instance()->property("platformName").toString();
    std::unique_ptr<KeyboardLayout> layout;
    if (platform == u"xcb"_s)
        layout = X11KeyboardLayout::create();
    else if (platform.startsWith(u"wayland"_s))
        layout = WaylandKeyboardLayout::create();
    return layout ? std::move(layout) : std::make_unique<USKeyboardLayout>();
}

} // namespace

KeyboardLayout &KeyboardLayout::system()
{
    static const std::unique_ptr<KeyboardLayout> layout = systemLayout();
    return *layout;
}
