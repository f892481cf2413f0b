#pragma once

#include "Components/Style/SettingsStyle.h"
#include "FontRegistration/FontRegistration.h"
#include "Foundation/Seam.h"
#include "Model/SettingsModel.h"
#include "Platform/Agent/LoopbackPost.h"
#include "Platform/Agent/ServiceManager.h"
#include "Platform/Desktop/Appearance/FontRegistry.h"
#include "SettingsWindow/SectionPane.h"

#include <QApplication>
#include <QTemporaryDir>

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

/// The program's look, offscreen and in an empty home of its own.
class BenchmarkApplication
{
public:
    BenchmarkApplication(int &argc, char **argv) : m_application(argc, argv)
    {
        FontRegistration::registerBundledFonts();
        FontRegistry::system().finish();
        installLook(m_application);
    }

private:
    struct Environment {
        Environment()
        {
            qputenv("QT_QPA_PLATFORM", "offscreen");
            qputenv("HOME", home.path().toUtf8());
        }
        const QTemporaryDir home;
    } m_environment;
    QApplication m_application;
    NothingOutside m_nothingOutside;
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
