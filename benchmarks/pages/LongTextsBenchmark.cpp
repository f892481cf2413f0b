#include "BenchmarkApplication.h"
#include "Components/Text/PatternsEditor.h"
#include "OpenPage.h"
#include "Persistence/Persistence.h"
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

const QStringList &lengths()
{
    static const QStringList all{u"1000"_s, u"10000"_s, u"100000"_s, u"1000000"_s, u"10000000"_s};
    return all;
}

std::vector<std::string> registerAll()
{
    struct Work {
        const char *name;
        void (*function)(benchmark::State &, Text);
    };
    struct Kind {
        const char *name;
        Text text;
    };
    std::vector<std::string> names;
    for (const Work &work : {Work{"planning", planning}, Work{"browser", browser}, Work{"key", key},
                             Work{"save", save}, Work{"load", load}}) {
        for (const Kind &kind :
             {Kind{"word", word}, Kind{"folders", folders}, Kind{"letter", letter}, Kind{"lines", lines}}) {
            names.push_back(std::string(work.name) + '-' + kind.name);
            benchmark::RegisterBenchmark(names.back().c_str(), work.function, kind.text)
                ->RangeMultiplier(10)
                ->Range(1000, 10000000)
                ->Unit(benchmark::kMillisecond)
                ->MinTime(0.1)
                ->Repetitions(3);
        }
    }
    return names;
}

/// Prints what each length took; true when none took much longer than the shortest.
bool isFlat(const Ratios &ratios, const std::string &name)
{
    std::printf("%-18s", name.c_str());
    const double shortest = ratios.seconds(name + '/' + lengths().front().toStdString());
    bool flat = shortest > 0;
    for (const QString &length : lengths()) {
        const double time = ratios.seconds(name + '/' + length.toStdString());
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

    benchmark::Initialize(&argc, argv);
    const std::vector<std::string> names = registerAll();
    Ratios ratios;
    benchmark::RunSpecifiedBenchmarks(&ratios);

    std::puts(
        "\nThe best processor times of this run in milliseconds by the length of the text in characters "
        "(1,000 to"
        "\n10,000,000), and whether none is more than 100 ms above the first:");
    bool good = true;
    for (const std::string &name : names)
        good = isFlat(ratios, name) && good;
    return good ? 0 : 1;
}
