#pragma once

#include "Foundation/Observable.h"

#include <QWidget>

class QVBoxLayout;

/// A page's content below its heading: groups, one below the other.
class SectionContent : public QWidget
{
    Q_OBJECT

public:
    explicit SectionContent(QWidget *parent = nullptr);

    /// Appends a group and owns it.
    void add(QWidget *group);

    /// Appends the groups that are not in view at first. Called after the first frame, which is then drawn
    /// earlier.
    virtual void addDeferredGroups();

    /// Calls `draw` now, on the next turn of the event loop after each announcement of `observed`, and
    /// whenever the page comes into view, because what it shows of files, fonts and folders may have changed
    /// meanwhile.
    template <class Draw>
    void renderPage(Observable &observed, Draw draw)
    {
        renderOnChange(this, observed, draw);
        connect(this, &SectionContent::shown, this, draw);
    }

Q_SIGNALS:
    /// The page has come into view, or is about to for the first time.
    void shown();

protected:
    void showEvent(QShowEvent *event) override;

private:
    QVBoxLayout *m_groups;
};
