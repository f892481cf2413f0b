#include "Platform/Desktop/Pasteboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace
{

class DesktopPasteboard : public Pasteboard
{
public:
    void setText(const QString &text) override { QGuiApplication::clipboard()->setText(text); }
};

} // namespace

Pasteboard &Pasteboard::system()
{
    static DesktopPasteboard pasteboard;
    return pasteboard;
}
