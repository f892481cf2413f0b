#include "Platform/KeyboardLayout.h"
#include "Platform/USKeyboardLayout.h"
#include "Platform/X11KeyboardLayout.h"

#include <QCoreApplication>
#include <QVariant>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{

std::unique_ptr<KeyboardLayout> systemLayout()
{
    // What the window talks to; a program without windows has no such property.
    const QString platform = QCoreApplication::instance()->property("platformName").toString();
    if (platform == u"xcb"_s) {
        if (auto layout = X11KeyboardLayout::connect())
            return layout;
    }
    return std::make_unique<USKeyboardLayout>();
}

} // namespace

KeyboardLayout &KeyboardLayout::system()
{
    static const std::unique_ptr<KeyboardLayout> layout = systemLayout();
    return *layout;
}
