#include "PageTest.h"

#include "Components/Text/Label.h"

#include <QAccessible>
#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

void PageTest::putIntoWindow()
{
    window = std::make_unique<QScrollArea>();
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->addWidget(page);
    layout->addStretch(1);
    window->setWidgetResizable(true);
    window->setWidget(content);
    window->resize(600, 500);
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    processEvents();
}

void PageTest::processEvents()
{
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void PageTest::closePage()
{
    window.reset();
    page = nullptr;
}

void PageTest::choosePlanningRoot(const QString &root) const
{
    putHomeFile(u".vantle/planning.json"_s, "{\"root\":\"" + root.toUtf8() + "\"}");
}

void PageTest::putManifest(const QByteArray &toml) const
{
    putHomeFile(u"plan/projects.toml"_s, toml);
    choosePlanningRoot(homePath(u"plan"_s));
}

QPushButton *PageTest::button(const QString &name) const
{
    for (QPushButton *each : page->findChildren<QPushButton *>()) {
        const QAccessibleInterface *tree = QAccessible::queryAccessibleInterface(each);
        if (tree->text(QAccessible::Name) == name && each->isVisible())
            return each;
    }
    return nullptr;
}

void PageTest::click(const QString &name) const
{
    QPushButton *target = button(name);
    ASSERT_NE(target, nullptr) << "no button " << qPrintable(name);
    window->ensureWidgetVisible(target);
    QTest::mouseClick(target, Qt::LeftButton);
    processEvents();
}

void PageTest::press(const QKeySequence &shortcut)
{
    QWidget *focus = QApplication::focusWidget();
    QTest::keySequence(focus ? focus : window.get(), shortcut);
    processEvents();
}

QStringList PageTest::texts() const
{
    std::vector<std::pair<QPoint, QString>> found;
    for (const Label *label : page->findChildren<Label *>()) {
        if (!label->isVisible())
            continue;
        const QPoint place = label->mapTo(page, QPoint());
        found.emplace_back(QPoint(place.y(), place.x()), label->text());
    }
    std::sort(found.begin(), found.end(), [](const auto &a, const auto &b) {
        return std::pair(a.first.x(), a.first.y()) < std::pair(b.first.x(), b.first.y());
    });
    QStringList texts;
    for (const auto &[place, text] : found)
        texts << text;
    return texts;
}

QWidget *PageTest::group(const QString &header) const
{
    for (QWidget *each : page->findChildren<QWidget *>()) {
        if (each->accessibleName() == header && each->isVisible() && !qobject_cast<Label *>(each))
            return each;
    }
    return nullptr;
}

std::optional<QString> PageTest::FakeDialogs::chooseDirectory(const DirectoryQuestion &question)
{
    directoryQuestions.push_back(question);
    meanwhile();
    return folder;
}

bool PageTest::FakeDialogs::confirm(const Confirmation &confirmation)
{
    confirmations.push_back(confirmation);
    meanwhile();
    return agree;
}
