#pragma once

#include "Model/SettingsModel.h"
#include "SettingsWindow/SectionPane.h"

#include <QApplication>

#include <memory>

/// Makes a page, shows it in the size that the window first has for it, and draws it.
template <class Section>
std::unique_ptr<SectionPane> openPage(SettingsSection section, SettingsModel &model)
{
    constexpr QSize size(645, 640); // beside the sidebar
    auto pane = std::make_unique<SectionPane>(section, new Section(model));
    pane->resize(size);
    pane->show();
    QCoreApplication::processEvents();
    pane->grab();
    return pane;
}
