#include "Ratios.h"

#include <cstdio>

void Ratios::ReportRuns(const std::vector<Run> &runs)
{
    ConsoleReporter::ReportRuns(runs);
    for (const Run &run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred || run.iterations == 0)
            continue;
        const double time = run.cpu_accumulated_time / double(run.iterations);
        const auto [best, isFirst] =
            m_best.try_emplace(run.run_name.function_name + '/' + run.run_name.args, time);
        if (!isFirst && time < best->second)
            best->second = time;
    }
}

double Ratios::seconds(const std::string &name) const
{
    const auto best = m_best.find(name);
    return best == m_best.end() ? 0 : best->second;
}

bool Ratios::compare(const std::string &name, const std::string &baseline, double limit) const
{
    const double time = seconds(name);
    const double baselineTime = seconds(baseline);
    if (time <= 0 || baselineTime <= 0)
        return false;
    const double ratio = time / baselineTime;
    std::printf("%-28s %9.3f ms  = %5.2f x %-28s %9.3f ms", name.c_str(), time * 1e3, ratio, baseline.c_str(),
                baselineTime * 1e3);
    if (limit > 0)
        std::printf("   at most %.2f: %s", limit, ratio <= limit ? "yes" : "NO");
    std::puts("");
    return limit <= 0 || ratio <= limit;
}
