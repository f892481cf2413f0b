#pragma once

#include "Components/Text/PatternsEditor.h"

#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

/// An editor that has the focus of an active window, above a button.
class PatternsEditorTest : public testing::Test
{
protected:
    void SetUp() override
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(editor);
        layout->addWidget(next);
        layout->addStretch();
        QObject::connect(editor, &PatternsEditor::edited, [this](const QString &text) { edits << text; });
        window.resize(300, 200);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        editor->setFocus();
    }

    static QString lines(int count) { return QStringLiteral("a\n").repeated(count - 1) + u'a'; }

    QWidget window;
    PatternsEditor *editor = new PatternsEditor;
    QPushButton *next = new QPushButton;
    QStringList edits;
};
