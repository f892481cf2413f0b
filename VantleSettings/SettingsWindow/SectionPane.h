#pragma once

#include "Model/SettingsSection.h"

#include <QScrollArea>

class SectionContent;

/// The frame of every page: the heading, and the page's content below it; it scrolls when it is high. Exposed
/// as a panel named like the page.
class SectionPane : public QScrollArea
{
    Q_OBJECT

public:
    /// The content belongs to the pane from here on.
    explicit SectionPane(SettingsSection section, SectionContent *content, QWidget *parent = nullptr);

    SectionContent *content() const { return m_content; }

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    SectionContent *m_content;
};
