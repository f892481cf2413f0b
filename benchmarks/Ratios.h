#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

/// Reports like the console reporter and remembers the best processor time of each benchmark, so that times
/// of one run can be compared: other work on the machine only ever makes a run slower.
class Ratios : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override;

    /// The best time of a benchmark in seconds; 0 when it did not run.
    double seconds(const std::string &name) const;

    /// Prints how many times as long `name` took as `baseline`, and whether that is at most `limit` (0: no
    /// limit). False when it is more, or when one of them did not run.
    bool compare(const std::string &name, const std::string &baseline, double limit) const;

private:
    std::map<std::string, double> m_best;
};
