#include "Foundation/Text.h"
#include "Persistence/SessionRegistry.h"
#include "PlanningProjects/Manifest.h"
#include "PlanningProjects/SessionMatching.h"
#include "Platform/Files/Path.h"
#include "Ratios.h"
#include "SampleData.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <simdjson.h>

#include <cstdio>
#include <cstring>

using namespace Qt::StringLiterals;

namespace
{

constexpr int directories = 1000;

/// Makes a home whose registry holds so many sessions, once for all benchmarks of that size.
std::string registryOf(benchmark::State &state)
{
    static QTemporaryDir home;
    static int sessions = 0;
    const QString path = home.filePath(u".vantle/sessions.json"_s);
    if (sessions != state.range(0)) {
        sessions = int(state.range(0));
        qputenv("HOME", home.path().toUtf8());
        QFile file(path);
        const QByteArray bytes = sampleRegistry(sessions, directories);
        if (!QDir().mkpath(home.filePath(u".vantle"_s)) || !file.open(QFile::WriteOnly) ||
            file.write(bytes) != bytes.size())
            state.SkipWithError("the registry can't be written");
    }
    return path.toStdString();
}

/// The baseline: reads the bytes and parses them once, with a parser that has no memory allocated yet.
void loadAndParse(benchmark::State &state)
{
    const std::string path = registryOf(state);
    for (auto _ : state) {
        simdjson::dom::parser parser;
        benchmark::DoNotOptimize(parser.load(path).error());
    }
}

void count(benchmark::State &state)
{
    registryOf(state);
    for (auto _ : state) {
        if (Persistence::sessionsCount() != state.range(0))
            state.SkipWithError("miscounted");
    }
}

void list(benchmark::State &state)
{
    registryOf(state);
    for (auto _ : state) {
        if (Persistence::knownProjects().size() != qMin<qsizetype>(state.range(0), directories))
            state.SkipWithError("misread");
    }
}

/// A tenth as many projects as sessions, as in `match`.
void normalize(benchmark::State &state)
{
    qputenv("HOME", "/Users/someone");
    const auto sessions = sampleSessions(int(state.range(0)));
    const auto projects = sampleProjects(int(state.range(0)) / 10);
    for (auto _ : state) {
        for (const auto &session : sessions)
            benchmark::DoNotOptimize(Text::composed(Path::standardizing(session.path)));
        for (const QString &path : projects)
            benchmark::DoNotOptimize(Text::composed(Path::standardizing(path)));
    }
}

void match(benchmark::State &state)
{
    qputenv("HOME", "/Users/someone");
    const auto sessions = sampleSessions(int(state.range(0)));
    const auto projects = sampleProjects(int(state.range(0)) / 10);
    for (auto _ : state) {
        const auto counts = PlanningProjects::countSessions(projects, sessions);
        if (counts.front() != 1)
            state.SkipWithError("mismatched");
    }
}

void manifest(benchmark::State &state)
{
    const QByteArray bytes = sampleManifest(int(state.range(0)));
    for (auto _ : state) {
        const auto text = Text::decoded(bytes);
        if (PlanningProjects::parseProjectsTOML(*text).size() != std::size_t(state.range(0)))
            state.SkipWithError("misread");
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
}

/// The least that reading lines can cost.
void splitLines(benchmark::State &state)
{
    const QByteArray bytes = sampleManifest(int(state.range(0)));
    for (auto _ : state) {
        std::size_t lines = 0;
        const char *end = bytes.constEnd();
        for (const char *start = bytes.constBegin(); start != end; ++lines) {
            const void *lineFeed = std::memchr(start, '\n', std::size_t(end - start));
            start = lineFeed ? static_cast<const char *>(lineFeed) + 1 : end;
        }
        benchmark::DoNotOptimize(lines);
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
}

void registerAll()
{
    const std::initializer_list<std::pair<const char *, void (*)(benchmark::State &)>> all = {
        {"loadAndParse", loadAndParse}, {"count", count}, {"list", list},
        {"normalize", normalize},       {"match", match}, {"splitLines", splitLines},
        {"manifest", manifest}};
    for (const auto &[name, function] : all) {
        benchmark::RegisterBenchmark(name, function)
            ->RangeMultiplier(10)
            ->Range(1000, 1000000)
            ->Unit(benchmark::kMillisecond)
            ->MinTime(0.2)
            ->Repetitions(3);
    }
}

} // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    registerAll();
    Ratios ratios;
    benchmark::RunSpecifiedBenchmarks(&ratios);
    std::puts("\nThe best times of this run, and their ratios:");
    bool good = true;
    for (const char *size : {"/1000", "/10000", "/100000", "/1000000"}) {
        const std::string at = size;
        const bool atFullSize = at == "/1000000";
        good = ratios.compare("count" + at, "loadAndParse" + at, atFullSize ? 2 : 0) && good;
        good = ratios.compare("list" + at, "loadAndParse" + at, atFullSize ? 2 : 0) && good;
        good = ratios.compare("match" + at, "normalize" + at, at == "/100000" ? 2 : 0) && good;
        good = ratios.compare("manifest" + at, "splitLines" + at, 0) && good;
    }
    const double megabytes = double(sampleManifest(100000).size()) / 1e6;
    std::printf("A manifest of 100,000 blocks (%.1f MB) is read at %.0f MB/s.\n", megabytes,
                megabytes / ratios.seconds("manifest/100000"));
    return good ? 0 : 1;
}
