#include "BenchmarkApplication.h"
#include "Components/Text/PatternsEditor.h"
#include "OpenPage.h"
#include "Persistence/BrowserPatterns.h"
#include "Ratios.h"
#include "SettingsWindow/Sections/BrowserPatternsSection.h"
#include "SettingsWindow/Sections/PlanningSection.h"

#include <QTest>

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{

constexpr double maxExtraTime = 0.1; // seconds that any length may take longer than the shortest

QString word(qsizetype length)
{
    return u'/' + QString(length - 1, u'w');
}

QString folders(qsizetype length)
{
    return u"/folder-12"_s.repeated(length / 10);
}

QString letter(qsizetype length)
{
    return u"/e"_s + QString(length - 2, u'\u0301');
}

QString lines(qsizetype length)
{
    return u"host.example/path/*\n"_s.repeated(length / 20);
}

using Text = QString (*)(qsizetype length);

/// Creates the Planning page, all of whose texts have this length, and draws it for the first time.
void planning(benchmark::State &state, Text text)
{
    const QString path = text(state.range(0));
    SettingsModel model;
    model.planningRoot = path;
    model.planningProjects = {{.name = path, .path = path, .todoPath = path}};
    for (auto _ : state)
        openPage<PlanningSection>(SettingsSection::planning, model);
}

/// The same for the Browser Patterns page, whose editor has the text as well.
void browser(benchmark::State &state, Text text)
{
    const QString path = text(state.range(0));
    SettingsModel model;
    model.projects = std::vector<BrowserConfigProject>{{.root = path, .urls = path}};
    for (auto _ : state)
        openPage<BrowserPatternsSection>(SettingsSection::browser, model);
}

// So few that all rows exist if their texts are short: two of 200 characters are the longest of these.
constexpr int rowCount = 50;

/// Creates and draws the Planning page of many projects, each with texts of this length.
void planningRows(benchmark::State &state, Text text)
{
    SettingsModel model;
    model.planningRoot = u"/plan"_s;
    std::vector<PlanningProject> projects;
    for (int row = 0; row < rowCount; ++row) {
        const QString path = text(state.range(0));
        projects.push_back({.name = path, .path = path, .todoPath = path});
    }
    model.planningProjects = std::move(projects);
    for (auto _ : state)
        openPage<PlanningSection>(SettingsSection::planning, model);
}

/// The same for the Browser Patterns page.
void browserRows(benchmark::State &state, Text text)
{
    SettingsModel model;
    std::vector<BrowserConfigProject> projects;
    for (int row = 0; row < rowCount; ++row) {
        const QString path = text(state.range(0));
        projects.push_back({.root = path, .urls = path});
    }
    model.projects = std::move(projects);
    for (auto _ : state)
        openPage<BrowserPatternsSection>(SettingsSection::browser, model);
}

/// Two keys in the editor of such a text, and the drawing of what they changed.
void key(benchmark::State &state, Text text)
{
    SettingsModel model;
    model.projects = std::vector<BrowserConfigProject>{{.root = u"/plan"_s, .urls = text(state.range(0))}};
    const auto pane = openPage<BrowserPatternsSection>(SettingsSection::browser, model);
    auto *editor = pane->findChild<PatternsEditor *>();
    editor->setFocus();
    for (auto _ : state) {
        QTest::keyClick(editor, Qt::Key_A);
        QTest::keyClick(editor, Qt::Key_Backspace);
        QCoreApplication::processEvents();
    }
}

/// What Save does, with a file of the same patterns there.
void save(benchmark::State &state, Text text)
{
    const std::vector<BrowserConfigProject> rows{{.root = u"/plan"_s, .urls = text(state.range(0))}};
    for (auto _ : state)
        Persistence::saveBrowserPatterns(Persistence::browserPatterns(rows));
}

/// Reading what was saved, and what the page lists of it.
void load(benchmark::State &state, Text text)
{
    const std::vector<BrowserConfigProject> rows{{.root = u"/plan"_s, .urls = text(state.range(0))}};
    Persistence::saveBrowserPatterns(Persistence::browserPatterns(rows));
    for (auto _ : state)
        benchmark::DoNotOptimize(SettingsModel::buildProjectList(Persistence::loadBrowserPatterns()));
}

struct Work {
    const char *name;
    void (*function)(benchmark::State &state, Text text);
    std::vector<int> lengths; // in characters
};

const std::vector<Work> &works()
{
    static const std::vector<int> ofOne{1000, 10000, 100000, 1000000, 10000000};
    static const std::vector<int> ofRows{20, 200, 10000, 100000, 1000000};
    static const std::vector<Work> all{{"planning", planning, ofOne},
                                       {"browser", browser, ofOne},
                                       {"key", key, ofOne},
                                       {"save", save, ofOne},
                                       {"load", load, ofOne},
                                       {"planning-rows", planningRows, ofRows},
                                       {"browser-rows", browserRows, ofRows}};
    return all;
}

struct Kind {
    const char *name;
    Text text;
};

constexpr std::array<Kind, 4> kinds{
    {{"word", word}, {"folders", folders}, {"letter", letter}, {"lines", lines}}};

std::string nameOf(const Work &work, const Kind &kind)
{
    return std::string(work.name) + '-' + kind.name;
}

void registerAll()
{
    for (const Work &work : works()) {
        for (const Kind &kind : kinds) {
            auto *registered =
                benchmark::RegisterBenchmark(nameOf(work, kind).c_str(), work.function, kind.text);
            for (const int length : work.lengths)
                registered->Arg(length);
            registered->Unit(benchmark::kMillisecond)->MinTime(0.1)->Repetitions(5);
        }
    }
}

/// Prints what each length took; true when none took much longer than the shortest.
bool isFlat(const Ratios &ratios, const Work &work, const Kind &kind)
{
    const std::string name = nameOf(work, kind);
    std::printf("%-22s", name.c_str());
    const double shortest = ratios.seconds(name + '/' + std::to_string(work.lengths.front()));
    bool flat = shortest > 0;
    for (const int length : work.lengths) {
        const double time = ratios.seconds(name + '/' + std::to_string(length));
        std::printf(" %10.1f", time * 1e3);
        flat = flat && time > 0 && time - shortest <= maxExtraTime;
    }
    std::puts(flat ? "   yes" : "   NO");
    return flat;
}

} // namespace

int main(int argc, char **argv)
{
    const BenchmarkApplication application(argc, argv);

    // Other work on the machine comes in bursts: a benchmark's repetitions are spread over the whole run.
    std::string interleaved = "--benchmark_enable_random_interleaving=true";
    std::vector<char *> arguments(argv, argv + argc);
    arguments.insert(arguments.begin() + 1, interleaved.data());
    int argumentCount = int(arguments.size());
    benchmark::Initialize(&argumentCount, arguments.data());
    registerAll();
    Ratios ratios;
    benchmark::RunSpecifiedBenchmarks(&ratios);

    std::puts(
        "\nThe best processor times of this run in milliseconds by the length of the text in characters "
        "(1,000 to"
        "\n10,000,000; with fifty rows 20 to 1,000,000), and whether none is more than 100 ms above the "
        "first:");
    bool good = true;
    for (const Work &work : works()) {
        for (const Kind &kind : kinds)
            good = isFlat(ratios, work, kind) && good;
    }
    return good ? 0 : 1;
}
