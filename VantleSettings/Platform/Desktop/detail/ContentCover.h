#pragma once

#include <QPointer>
#include <QWidget>

class QLabel;
class QMainWindow;
class QPushButton;

/// Lies over a window's content while another program's dialog asks the user something for it: the content is
/// dimmed and takes no input, and a panel on it says what is asked; Cancel or Escape withdraws the question.
/// The window itself stays in use: it moves, resizes and closes, and its menus work.
class ContentCover : public QWidget
{
    Q_OBJECT

public:
    /// Covers the content at once, and is seen after a moment: most questions that nobody takes come back
    /// before that.
    ContentCover(QMainWindow &window, const QString &title, const QString &message);

    /// Gives the content its input and its focus back.
    void lift();

Q_SIGNALS:
    /// The user has withdrawn the question.
    void cancelled();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void appear();

    QPointer<QWidget> m_content;
    QPointer<QWidget> m_focused; ///< what had the keyboard before
    QLabel *m_message;
    QPushButton *m_cancel;
};
