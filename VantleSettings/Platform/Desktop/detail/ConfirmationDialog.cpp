#include "Platform/Desktop/detail/ConfirmationDialog.h"

#include "Platform/Desktop/Appearance/Palette.h"
#include "Platform/Desktop/Appearance/Symbol.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"

#include <QApplication>
#include <QFontInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr int margin = 20;
constexpr qreal iconPointSize = 30;
constexpr int textWidth = 340;
constexpr int defaultFontSize = 13;

/// A number of points that grows with the application's font.
int scaledWithText(int points)
{
    const qreal scale = QFontInfo(QApplication::font()).pixelSize() / qreal(defaultFontSize);
    return qRound(points * std::max(1.0, scale));
}

QLabel *icon(Confirmation::Style style, QWidget *parent)
{
    const bool critical = style == Confirmation::Style::critical;
    const QIcon symbol = symbolIcon({u"exclamationmark.triangle.fill"_s, iconPointSize},
                                    systemColor(critical ? SystemColor::red : SystemColor::yellow));
    auto *label = new QLabel(parent);
    const int extent = symbolExtent(iconPointSize);
    label->setPixmap(symbol.pixmap(QSize(extent, extent), parent->devicePixelRatio()));
    markAsDecoration(label);
    return label;
}

QLabel *paragraph(const QString &text, QFont::Weight weight, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    setAccessibleRole(label, QAccessible::StaticText);
    label->setAccessibleName(text);
    setDescribes(label, parent);
    label->setWordWrap(true);
    QFont font = label->font();
    font.setWeight(weight);
    label->setFont(font);
    return label;
}

/// Sets the paragraph's font size and width for the current text size.
void fitToText(QLabel &paragraph, int pointSize)
{
    QFont font = paragraph.font();
    font.setPixelSize(scaledWithText(pointSize));
    paragraph.setFont(font);
    paragraph.setFixedWidth(scaledWithText(textWidth));
}

} // namespace

ConfirmationDialog::ConfirmationDialog(const Confirmation &confirmation, QWidget *parent)
    : QDialog(parent),
      m_message(paragraph(confirmation.message, QFont::DemiBold, this)),
      m_informative(paragraph(confirmation.informative, QFont::Normal, this))
{
    fitToText();
    setWindowTitle(confirmation.message);
    setAccessibleName(confirmation.message);
    setAccessibleDescription(confirmation.informative);

    auto *action = new QPushButton(confirmation.action, this);
    auto *cancel = new QPushButton(u"Cancel"_s, this);
    cancel->setAutoDefault(false); // Return chooses the action wherever the focus is
    action->setDefault(true);
    action->setFocus();
    connect(action, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto *texts = new QVBoxLayout;
    texts->setSpacing(8);
    texts->addWidget(m_message);
    texts->addWidget(m_informative);
    texts->addStretch();

    auto *question = new QHBoxLayout;
    question->setSpacing(16);
    question->addWidget(icon(confirmation.style, this), 0, Qt::AlignTop);
    question->addLayout(texts);

    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(action);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(question);
    layout->addLayout(buttons);
}

bool ConfirmationDialog::event(QEvent *event)
{
    const bool handled = QDialog::event(event);
    if (event->type() == QEvent::ApplicationFontChange)
        fitToText();
    return handled;
}

void ConfirmationDialog::fitToText()
{
    ::fitToText(*m_message, 13);
    ::fitToText(*m_informative, 12);
}
