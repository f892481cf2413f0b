#include "Components/Picker.h"

#include "Components/Drawing/Tokens.h"
#include "Platform/Window/Accessibility/AccessibleComboBox.h"

#include <QSignalBlocker>
#include <QWheelEvent>

namespace
{

QAccessibleInterface *pickerFactory(const QString &, QObject *object)
{
    auto *picker = qobject_cast<Picker *>(object);
    return picker ? new AccessibleComboBox(picker) : nullptr;
}

} // namespace

Picker::Picker(QWidget *parent) : QComboBox(parent)
{
    QAccessible::installFactory(pickerFactory); // has no effect after the first call
    connect(this, &QComboBox::currentIndexChanged, this, [this] { AccessibleComboBox::notifyChanged(this); });
    setTextStyle(*this, TextStyle::size12);
    fitWidth();
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_MacSmallSize);
}

void Picker::setEntries(const QStringList &entries)
{
    QStringList present;
    for (int i = 0; i < count(); ++i)
        present.append(itemText(i));
    if (present == entries)
        return;
    const QSignalBlocker quiet(this);
    const int index = currentIndex();
    clear();
    addItems(entries);
    setCurrentIndex(index < count() ? index : -1);
}

void Picker::changeEvent(QEvent *event)
{
    QComboBox::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitWidth();
}

void Picker::fitWidth()
{
    setMinimumWidth(scaledWithText(Tokens::pickerMinimumWidth));
    setMaximumWidth(scaledWithText(Tokens::pickerMaximumWidth));
}

void Picker::wheelEvent(QWheelEvent *event)
{
    event->ignore(); // the page scrolls
}
