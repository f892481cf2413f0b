#include "Model/SettingsModel.h"
#include "SettingsWindow/SettingsRootView.h"
#include "agent/HeapInUse.h"

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
/// Far less than one widget a round would take, and more than what caches still settle.
constexpr std::size_t bytesOfSettling = std::size_t{64} * 1024;

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

/// The whole window over a home with something on every page; the parameter is how often to do a thing.
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

    /// Does a thing until caches are warm, and then as often as asked; nothing may be left of it.
    template <class Thing>
    void expectNothingLeftOf(Thing thing)
    {
        for (int round = 0; round < warmUpRounds; ++round)
            thing();
        const auto objects = m_view->findChildren<QObject *>().size();
        const std::size_t bytes = heapInUse();
        for (int round = 0; round < GetParam(); ++round)
            thing();
        EXPECT_EQ(m_view->findChildren<QObject *>().size(), objects);
        EXPECT_LE(heapInUse(), bytes + bytesOfSettling);
    }

    std::unique_ptr<SettingsModel> m_model;
    std::unique_ptr<SettingsRootView> m_view;
};

TEST_P(Growth, PageChangesLeaveNothingBehind)
{
    expectNothingLeftOf([this, page = 0U]() mutable {
        m_model->section = pages.at(page++ % pages.size());
        settle();
    });
}

TEST_P(Growth, RefreshesLeaveNothingBehind)
{
    m_model->section = SettingsSection::planning;
    expectNothingLeftOf([this] {
        m_model->refreshPlanningProjects();
        settle();
    });
}

TEST_P(Growth, RefreshesOfAListThatChangesLeaveNothingBehind)
{
    m_model->section = SettingsSection::planning;
    expectNothingLeftOf([this, more = false]() mutable {
        more = !more;
        write(u"planning/projects.toml"_s, more ? "[[projects]]\nname = 'c'\npath = '/srv/c'\n" : "");
        m_model->refreshPlanningProjects();
        settle();
    });
}

INSTANTIATE_TEST_SUITE_P(Short, Growth, testing::Values(100));
INSTANTIATE_TEST_SUITE_P(Long, Growth, testing::Values(1000));

} // namespace
