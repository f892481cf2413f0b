#include "BenchmarkApplication.h"
#include "Components/RowList.h"
#include "Components/Text/PatternsEditor.h"
#include "HeapInUse.h"
#include "OpenPage.h"
#include "Ratios.h"
#include "SettingsWindow/Sections/BrowserPatternsSection.h"
#include "SettingsWindow/Sections/PlanningSection.h"

#include <QScrollBar>
#include <QTest>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <memory>

using namespace Qt::StringLiterals;

namespace
{

constexpr int few = 10;
constexpr int many = 10000;
constexpr double frame = 1.0 / 60; // seconds

/// A model with so many projects on either page.
std::unique_ptr<SettingsModel> modelOf(int count)
{
    auto model = std::make_unique<SettingsModel>();
    std::vector<BrowserConfigProject> browser;
    std::vector<PlanningProject> planning;
    for (int number = 0; number < count; ++number) {
        const QString root = u"/Users/someone/code/project-%1"_s.arg(number);
        browser.push_back({.root = root, .urls = u"host-%1.example/*\nother.example/*"_s.arg(number)});
        planning.push_back({.name = u"Project %1"_s.arg(number), .path = root, .sessionCount = number % 3});
    }
    model->projects = std::move(browser);
    model->planningRoot = u"/Users/someone/planning"_s;
    model->planningProjects = std::move(planning);
    return model;
}

/// Creates a page and draws it for the first time.
template <class Section>
void open(benchmark::State &state, SettingsSection section)
{
    const auto model = modelOf(int(state.range(0)));
    for (auto _ : state)
        openPage<Section>(section, *model);
}

/// What a page takes of the heap while it is shown, in bytes.
template <class Section>
double memoryOf(SettingsSection section, int count)
{
    const auto model = modelOf(count);
    openPage<Section>(section, *model); // caches that every page fills
    const auto before = double(heapInUse());
    const auto pane = openPage<Section>(section, *model);
    return double(heapInUse()) - before;
}

/// The processor time of this program so far, in seconds: other work on the machine does not count.
double processorTime()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

/// The longest of many times, in seconds, that `act` and the drawing of what it changed take.
template <class Act>
double slowestOf(int times, Act act)
{
    double slowest = 0;
    for (int time = 0; time < times; ++time) {
        const double before = processorTime();
        act(time);
        QCoreApplication::processEvents();
        slowest = std::max(slowest, processorTime() - before);
    }
    return slowest;
}

double slowestKeyStroke()
{
    const auto model = modelOf(many);
    const auto pane = openPage<BrowserPatternsSection>(SettingsSection::browser, *model);
    auto *editor = pane->findChild<PatternsEditor *>();
    editor->setFocus();
    return slowestOf(200, [&](int) { QTest::keyClick(editor, Qt::Key_A); });
}

template <class Section>
double slowestScroll(SettingsSection section)
{
    const auto model = modelOf(many);
    const auto pane = openPage<Section>(section, *model);
    QScrollBar *bar = pane->verticalScrollBar();
    return slowestOf(200, [&](int time) { bar->setValue(time * 120); });
}

bool within(const char *what, double value, double limit, const char *unit)
{
    std::printf("%-44s %8.2f %s   at most %.2f: %s\n", what, value, unit, limit,
                value <= limit ? "yes" : "NO");
    return value <= limit;
}

/// How much more of the heap many projects take than few, in megabytes.
template <class Section>
double growth(SettingsSection section)
{
    return (memoryOf<Section>(section, many) - memoryOf<Section>(section, few)) / 1e6;
}

} // namespace

int main(int argc, char **argv)
{
    const BenchmarkApplication application(argc, argv);

    constexpr auto planning = SettingsSection::planning;
    constexpr auto browser = SettingsSection::browser;
    benchmark::Initialize(&argc, argv);
    for (auto *open : {benchmark::RegisterBenchmark("planning", open<PlanningSection>, planning),
                       benchmark::RegisterBenchmark("browser", open<BrowserPatternsSection>, browser)})
        open->Arg(few)->Arg(many)->Unit(benchmark::kMillisecond)->MinTime(0.5)->Repetitions(3);
    Ratios ratios;
    benchmark::RunSpecifiedBenchmarks(&ratios);

    std::puts("\nThe best times of this run, and their ratios:");
    bool good = ratios.compare("planning/10000", "planning/10", 2);
    good = ratios.compare("browser/10000", "browser/10", 2) && good;
    std::puts("\nWith 10,000 projects:");
    good = within("Planning adds to the heap", growth<PlanningSection>(planning), 15, "MB") && good;
    good = within("Browser Patterns adds to the heap", growth<BrowserPatternsSection>(browser), 15, "MB") &&
           good;
    good = within("The slowest of 200 key strokes", slowestKeyStroke() * 1e3, frame * 1e3, "ms") && good;
    good = within("The slowest of 200 scrolls, Planning", slowestScroll<PlanningSection>(planning) * 1e3,
                  frame * 1e3, "ms") &&
           good;
    good = within("The slowest of 200 scrolls, Browser Patterns",
                  slowestScroll<BrowserPatternsSection>(browser) * 1e3, frame * 1e3, "ms") &&
           good;
    return good ? 0 : 1;
}
