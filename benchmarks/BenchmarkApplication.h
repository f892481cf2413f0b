#pragma once

#include "Components/Style/Look.h"
#include "FakeServices.h"
#include "FontRegistration/FontRegistration.h"
#include "Foundation/Seam.h"
#include "Platform/Desktop/Appearance/FontRegistry.h"

#include <QApplication>
#include <QTemporaryDir>

/// Keeps what is measured to this program: no agent, no login job.
class NothingOutside
{
private:
    FakeServiceManager m_service;
    FakeLoopbackPost m_agent;
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
