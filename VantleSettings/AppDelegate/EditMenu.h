#pragma once

#include <QMenu>
#include <QPointer>

#include <memory>

class QPlainTextEdit;

/// The Edit menu: its items act on the text editor that has the focus, or had it before a menu was opened,
/// and are enabled only when they can.
class EditMenu : public QMenu
{
    Q_OBJECT

public:
    explicit EditMenu(QWidget *parent = nullptr);

    QAction *undoItem() const { return m_undo; }
    QAction *redoItem() const { return m_redo; }

private:
    void follow(QWidget *focused);
    void watch(QPlainTextEdit *editor);
    void updateItems();
    void updatePaste();
    QAction *addItem(const QString &title, const QKeySequence &key, void (QPlainTextEdit::*act)());

    QPointer<QPlainTextEdit> m_editor;
    std::unique_ptr<QObject> m_context; ///< of the connections to `m_editor`
    QAction *m_undo;
    QAction *m_redo;
    QAction *m_cut;
    QAction *m_copy;
    QAction *m_paste;
    QAction *m_selectAll;
};
