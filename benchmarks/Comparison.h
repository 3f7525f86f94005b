#pragma once

#include <QElapsedTimer>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <functional>
#include <vector>

/// Runs `ours` and `peers` turn about, so that both meet the same noise, and prints the median of each in milliseconds
/// and the ratio ours : peer. Returns the ratio.
inline double compare(const char* subject, int rounds, const std::function<void()>& ours,
                      const std::function<void()>& peers)
{
    const auto measure = [](const std::function<void()>& step) {
        QElapsedTimer timer;
        timer.start();
        step();
        return double(timer.nsecsElapsed()) / 1e6;
    };
    const auto median = [](std::vector<double> times) {
        const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
        std::nth_element(times.begin(), middle, times.end());
        return *middle;
    };

    ours(); // what is only done once in a process is nobody's share
    peers();
    std::vector<double> ourTimes;
    std::vector<double> peerTimes;
    for (int round = 0; round < rounds; ++round) {
        ourTimes.push_back(measure(ours));
        peerTimes.push_back(measure(peers));
    }
    const double ratio = median(ourTimes) / median(peerTimes);
    std::printf("%-50s ours %9.3f ms   peer %9.3f ms   ratio %.3f\n", subject, median(ourTimes), median(peerTimes),
                ratio);
    return ratio;
}
