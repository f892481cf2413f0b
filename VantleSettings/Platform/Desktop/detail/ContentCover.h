#pragma once

#include <QPointer>
#include <QWidget>

class QLabel;
class QMainWindow;
class QPushButton;

/// Covers a window's content while another program's dialog asks the user a question for this window: the
/// content is dimmed and takes no input, and a panel on it shows the question; Cancel or Escape withdraws the
/// question. The window itself can still be moved, resized and closed, and its menus work.
class ContentCover : public QWidget
{
    Q_OBJECT

public:
    /// Disables the content at once but shows itself only after a short delay: a question that no portal
    /// accepts is usually over before that.
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
    QPointer<QWidget> m_focused; ///< the widget that had the focus before
    QLabel *m_message;
    QPushButton *m_cancel;
};
