#include "BenchmarkApplication.h"
#include "Model/SettingsModel.h"
#include "SettingsWindow/SettingsWindowController.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace
{

constexpr double frame = 1000.0 / 60; // milliseconds
constexpr int windows = 15;
constexpr int rounds = 20;

/// From the choice of a page until it is drawn, in milliseconds.
double timeToShow(SettingsSection section, SettingsModel &model)
{
    QElapsedTimer timer;
    timer.start();
    model.section = section;
    QCoreApplication::processEvents(); // shows the page
    QCoreApplication::processEvents(); // draws it
    return double(timer.nsecsElapsed()) / 1e6;
}

double median(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

bool report(SettingsSection section, const char *when, const std::vector<double> &times, int frames)
{
    const bool holds = median(times) <= frames * frame;
    std::printf("%-18s %-12s %6.2f ms in the middle, %6.2f at most; %d frame%s: %s\n",
                qPrintable(rawValue(section)), when, median(times),
                *std::max_element(times.begin(), times.end()), frames, frames == 1 ? "" : "s",
                holds ? "yes" : "NO");
    return holds;
}

/// Whether this page is drawn within three frames when it is first shown, and within one from then on.
bool measure(SettingsSection section)
{
    const SettingsSection other =
        section == SettingsSection::general ? SettingsSection::about : SettingsSection::general;
    std::vector<double> first;
    std::vector<double> again;
    for (int window = 0; window < windows; ++window) {
        SettingsModel model;
        SettingsWindowController controller(other, model);
        controller.showWindow();
        QCoreApplication::processEvents();
        first.push_back(timeToShow(section, model));
        for (int round = 0; round < rounds; ++round) {
            timeToShow(other, model);
            again.push_back(timeToShow(section, model));
        }
    }
    const bool firstHolds = report(section, "first", first, 3);
    return report(section, "from then on", again, 1) && firstHolds;
}

} // namespace

/// Switching pages in software rendering, against the frames of a 60 Hz screen.
int main(int argc, char **argv)
{
    const BenchmarkApplication application(argc, argv);
    bool all = true;
    for (const SettingsSection section : allSettingsSections)
        all = measure(section) && all;
    return all ? 0 : 1;
}
