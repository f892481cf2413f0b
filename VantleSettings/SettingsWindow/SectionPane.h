#pragma once

#include "Model/SettingsSection.h"

#include <QScrollArea>

class SectionContent;

/// The frame of every page: a scroll area with the heading and, below it, the page's content. Exposed as a
/// panel with the page's name.
class SectionPane : public QScrollArea
{
    Q_OBJECT

public:
    /// Takes ownership of the content.
    explicit SectionPane(SettingsSection section, SectionContent *content, QWidget *parent = nullptr);

    SectionContent *content() const { return m_content; }

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    SectionContent *m_content;
};
