#pragma once

#include "Foundation/Seam.h"
#include "Model/SettingsModel.h"
#include "Platform/Agent/LoopbackPost.h"
#include "Platform/Agent/ServiceManager.h"
#include "SettingsWindow/SectionPane.h"

#include <QCoreApplication>

#include <memory>

/// Keeps what is measured to this program: no agent, no login job.
class NothingOutside
{
private:
    struct NoService final : ServiceManager {
        void isLoaded(std::chrono::milliseconds, Answer answer) override { answer(false); }
        void load(Answer answer) override { answer(false); }
        void unload(Answer answer) override { answer(false); }
        void finish(std::chrono::milliseconds) override {}
    } m_service;
    struct NoAgent final : LoopbackPost {
        void post(const QUrl &) override {}
        void finish(std::chrono::milliseconds) override {}
    } m_agent;
    Seam<ServiceManager>::Replacement m_serviceSeam{m_service};
    Seam<LoopbackPost>::Replacement m_agentSeam{m_agent};
};

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
