#include "Modal.h"
#include "Platform/Desktop/Dialogs.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMap>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{

const Confirmation question{.message = u"Clear all sessions?"_s,
                            .informative = u"The notch will forget every session it knows about."_s,
                            .style = Confirmation::Style::warning,
                            .action = u"Clear"_s};

QPushButton *button(const QWidget *dialog, const QString &text)
{
    for (QPushButton *each : dialog->findChildren<QPushButton *>()) {
        if (each->text() == text)
            return each;
    }
    ADD_FAILURE() << "no button " << qPrintable(text);
    return nullptr;
}

bool answered(std::function<void(QWidget *)> answer)
{
    const auto asking = whenModal(std::move(answer));
    return Dialogs::system().confirm(question);
}

TEST(ConfirmationDialog, ReturnChoosesTheAction)
{
    EXPECT_TRUE(answered([](QWidget *dialog) { QTest::keyClick(dialog, Qt::Key_Return); }));
}

TEST(ConfirmationDialog, EnterOnTheKeypadChoosesTheAction)
{
    EXPECT_TRUE(
        answered([](QWidget *dialog) { QTest::keyClick(dialog, Qt::Key_Enter, Qt::KeypadModifier); }));
}

TEST(ConfirmationDialog, EscapeIsCancel)
{
    EXPECT_FALSE(answered([](QWidget *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); }));
}

TEST(ConfirmationDialog, ClickingTheActionChoosesIt)
{
    EXPECT_TRUE(
        answered([](QWidget *dialog) { QTest::mouseClick(button(dialog, u"Clear"_s), Qt::LeftButton); }));
}

TEST(ConfirmationDialog, ClickingCancelDoesNot)
{
    EXPECT_FALSE(
        answered([](QWidget *dialog) { QTest::mouseClick(button(dialog, u"Cancel"_s), Qt::LeftButton); }));
}

TEST(ConfirmationDialog, ClosingItsWindowDoesNot)
{
    EXPECT_FALSE(answered([](QWidget *dialog) { dialog->close(); }));
}

TEST(ConfirmationDialog, ItsTextsAreLargerWithTheApplicationsFont)
{
    const QFont before = QApplication::font();
    for (const int percent : {100, 110, 120, 125, 130, 140, 150}) {
        QFont font = before;
        font.setPixelSize(qRound(13 * percent / 100.0));
        QApplication::setFont(font);
        answered([&](QWidget *dialog) {
            QMap<QString, int> sizes;
            for (const QLabel *label : dialog->findChildren<QLabel *>()) {
                if (label->text().isEmpty())
                    continue;
                sizes[label->text()] = label->font().pixelSize();
                EXPECT_GE(label->height(), label->heightForWidth(label->width())) << "at " << percent;
            }
            EXPECT_EQ(sizes[question.message], font.pixelSize());
            EXPECT_NEAR(sizes[question.informative], 12 * percent / 100.0, 0.5 + 12 * 0.5 / 13);
            EXPECT_EQ(button(dialog, u"Clear"_s)->font().pixelSize(), font.pixelSize());
            dialog->close();
        });
    }
    QApplication::setFont(before);
}

TEST(ConfirmationDialog, FollowsTheApplicationsFontWhileItIsOpen)
{
    struct Look {
        QSize size;
        QMap<QString, QFont> fonts = {};
    };
    const auto look = [](QWidget *dialog) {
        Look seen{dialog->size()};
        for (const QLabel *label : dialog->findChildren<QLabel *>())
            seen.fonts[label->text()] = label->font();
        return seen;
    };
    const QFont before = QApplication::font();
    QFont larger = before;
    larger.setPixelSize(20);
    std::optional<Look> changed;
    answered([&](QWidget *dialog) {
        const QSize size = dialog->size();
        QApplication::setFont(larger);
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return dialog->size() != size && dialog->size() == dialog->sizeHint(); }));
        changed = look(dialog);
        dialog->close();
    });
    answered([&](QWidget *dialog) {
        const Look opened = look(dialog);
        EXPECT_EQ(changed->size, opened.size);
        EXPECT_EQ(changed->fonts, opened.fonts);
        EXPECT_EQ(changed->fonts[question.message].pixelSize(), 20);
        dialog->close();
    });
    QApplication::setFont(before);
}

TEST(ConfirmationDialog, TheActionIsTheDefaultButtonAndHasTheKeyboard)
{
    answered([](QWidget *dialog) {
        EXPECT_TRUE(button(dialog, u"Clear"_s)->isDefault());
        EXPECT_TRUE(button(dialog, u"Clear"_s)->hasFocus());
        dialog->close();
    });
}

TEST(ConfirmationDialog, ReturnChoosesTheActionWhereverTheFocusIs)
{
    EXPECT_TRUE(answered([](QWidget *dialog) {
        button(dialog, u"Cancel"_s)->setFocus(Qt::TabFocusReason);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }));
}

TEST(ConfirmationDialog, SpaceOnCancelIsCancel)
{
    EXPECT_FALSE(answered([](QWidget *dialog) {
        button(dialog, u"Cancel"_s)->setFocus(Qt::TabFocusReason);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    }));
}

TEST(ConfirmationDialog, IsExposedAsADialogWithMessageInformationAndButtons)
{
    answered([](QWidget *dialog) {
        const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(dialog);
        EXPECT_EQ(accessible->role(), QAccessible::Dialog);
        EXPECT_EQ(accessible->text(QAccessible::Name), question.message);
        EXPECT_EQ(accessible->text(QAccessible::Description), question.informative);
        EXPECT_EQ(QAccessible::queryAccessibleInterface(button(dialog, u"Clear"_s))->role(),
                  QAccessible::Button);
        dialog->close();
    });
}

TEST(ConfirmationDialog, TextsAreNeverMarkup)
{
    const auto asking = whenModal([](QWidget *dialog) {
        QStringList texts;
        for (const QLabel *label : dialog->findChildren<QLabel *>()) {
            if (!label->text().isEmpty() && label->textFormat() == Qt::PlainText)
                texts << label->text();
        }
        EXPECT_EQ(texts, QStringList({u"<b>x</b>"_s, u"a &amp; b\n\n<img src='x'>"_s}));
        dialog->close();
    });
    Dialogs::system().confirm({.message = u"<b>x</b>"_s,
                               .informative = u"a &amp; b\n\n<img src='x'>"_s,
                               .style = Confirmation::Style::critical,
                               .action = u"Do"_s});
}

TEST(ConfirmationDialog, GoesWithItsWindowWithoutAnAnswer)
{
    auto window = std::make_unique<QWidget>();
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EXPECT_FALSE(answered([&](QWidget *) { window.reset(); }));
}

} // namespace
