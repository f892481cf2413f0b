#include "HeapInUse.h"
#include "Model/SettingsModel.h"
#include "SettingsWindow/SettingsRootView.h"

#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QFile>

#include <gtest/gtest.h>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace
{

constexpr int warmUpRounds = 20;
/// In bytes: far less than one widget left per round, and more than caches still grow by after the warm-up.
constexpr std::size_t allowedGrowth = std::size_t{64} * 1024;

constexpr std::array pages{SettingsSection::planning, SettingsSection::browser, SettingsSection::data,
                           SettingsSection::about, SettingsSection::general};

void write(const QString &path, const QByteArray &bytes)
{
    const QString whole = QDir::homePath() + u'/' + path;
    ASSERT_TRUE(QDir().mkpath(QFileInfo(whole).path()));
    QFile file(whole);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

void settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// The whole window with a home that fills every page; the parameter is the number of rounds measured.
class Growth : public testing::TestWithParam<int>
{
protected:
    void SetUp() override
    {
        write(u".vantle/sessions.json"_s, R"([{"cwd":"/srv/a"},{"cwd":"/srv/b"}])");
        write(u"planning/projects.toml"_s,
              "[[projects]]\nname = 'a'\npath = '/srv/a'\n[[projects]]\nname = 'b'\n"
              "path = '/srv/b'\n");
        write(u".vantle/planning.json"_s, R"({"root":")" + QDir::homePath().toUtf8() + R"(/planning"})");
        m_model = std::make_unique<SettingsModel>();
        m_view = std::make_unique<SettingsRootView>(*m_model, 0);
        m_view->resize(860, 640);
        m_view->show();
        settle();
    }

    /// Runs the action until caches are warm, and then the measured rounds, which may leave nothing behind.
    template <class Action>
    void expectNoGrowth(Action action)
    {
        for (int round = 0; round < warmUpRounds; ++round)
            action();
        const auto objects = m_view->findChildren<QObject *>().size();
        const std::size_t bytes = heapInUse();
        for (int round = 0; round < GetParam(); ++round)
            action();
        EXPECT_EQ(m_view->findChildren<QObject *>().size(), objects);
        EXPECT_LE(heapInUse(), bytes + allowedGrowth);
    }

    std::unique_ptr<SettingsModel> m_model;
    std::unique_ptr<SettingsRootView> m_view;
};

TEST_P(Growth, PageChangesLeaveNothingBehind)
{
    expectNoGrowth([this, page = 0U]() mutable {
        m_model->section = pages.at(page++ % pages.size());
        settle();
    });
}

TEST_P(Growth, RefreshesLeaveNothingBehind)
{
    m_model->section = SettingsSection::planning;
    expectNoGrowth([this] {
        m_model->refreshPlanningProjects();
        settle();
    });
}

TEST_P(Growth, RefreshesOfAListThatChangesLeaveNothingBehind)
{
    m_model->section = SettingsSection::planning;
    expectNoGrowth([this, more = false]() mutable {
        more = !more;
        write(u"planning/projects.toml"_s, more ? "[[projects]]\nname = 'c'\npath = '/srv/c'\n" : "");
        m_model->refreshPlanningProjects();
        settle();
    });
}

INSTANTIATE_TEST_SUITE_P(Short, Growth, testing::Values(100));
INSTANTIATE_TEST_SUITE_P(Long, Growth, testing::Values(1000));

} // namespace
