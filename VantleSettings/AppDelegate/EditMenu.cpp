#include "AppDelegate/EditMenu.h"

#include <QApplication>
#include <QClipboard>
#include <QMenuBar>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

EditMenu::EditMenu(QWidget *parent)
    : QMenu(u"Edit"_s, parent),
      m_undo(addItem(u"Undo"_s, Qt::CTRL | Qt::Key_Z, &QPlainTextEdit::undo)),
      m_redo(addItem(u"Redo"_s, Qt::SHIFT | Qt::CTRL | Qt::Key_Z, &QPlainTextEdit::redo))
{
    addSeparator();
    m_cut = addItem(u"Cut"_s, Qt::CTRL | Qt::Key_X, &QPlainTextEdit::cut);
    m_copy = addItem(u"Copy"_s, Qt::CTRL | Qt::Key_C, &QPlainTextEdit::copy);
    m_paste = addItem(u"Paste"_s, Qt::CTRL | Qt::Key_V, &QPlainTextEdit::paste);
    m_selectAll = addItem(u"Select All"_s, Qt::CTRL | Qt::Key_A, &QPlainTextEdit::selectAll);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { follow(now); });
    connect(this, &QMenu::aboutToShow, this, &EditMenu::updatePaste);
    updateItems();
}

QAction *EditMenu::addItem(const QString &title, const QKeySequence &key, void (QPlainTextEdit::*act)())
{
    QAction *item = addAction(title);
    item->setShortcut(key);
    connect(item, &QAction::triggered, this, [this, act] {
        if (m_editor)
            (m_editor->*act)();
    });
    return item;
}

void EditMenu::follow(QWidget *focused)
{
    // No widget has the focus while another window is active, and an open menu bar takes the focus. The items
    // still act on the previously focused editor.
    if (!focused || qobject_cast<QMenuBar *>(focused))
        return;
    auto *editor = qobject_cast<QPlainTextEdit *>(focused);
    if (editor == m_editor)
        return;
    m_editor = editor;
    m_context.reset();
    if (editor)
        watch(editor);
    updateItems();
}

void EditMenu::watch(QPlainTextEdit *editor)
{
    m_context = std::make_unique<QObject>();
    QObject *context = m_context.get();
    connect(editor, &QPlainTextEdit::undoAvailable, context, [this] { updateItems(); });
    connect(editor, &QPlainTextEdit::redoAvailable, context, [this] { updateItems(); });
    connect(editor, &QPlainTextEdit::copyAvailable, context, [this] { updateItems(); });
    connect(editor, &QPlainTextEdit::textChanged, context, [this] { updateItems(); });
    connect(editor, &QObject::destroyed, context, [this] {
        m_editor = nullptr;
        updateItems();
    });
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, context, [this] { updatePaste(); });
    updatePaste();
}

void EditMenu::updateItems()
{
    const bool selection = m_editor && m_editor->textCursor().hasSelection();
    const bool editable = m_editor && !m_editor->isReadOnly();
    m_undo->setEnabled(editable && m_editor->document()->isUndoAvailable());
    m_redo->setEnabled(editable && m_editor->document()->isRedoAvailable());
    m_cut->setEnabled(editable && selection);
    m_copy->setEnabled(selection);
    m_selectAll->setEnabled(m_editor && !m_editor->document()->isEmpty());
    if (!m_editor)
        m_paste->setEnabled(false);
}

/// Not part of updateItems(), because reading the clipboard means asking another program.
void EditMenu::updatePaste()
{
    m_paste->setEnabled(m_editor && m_editor->canPaste());
}
