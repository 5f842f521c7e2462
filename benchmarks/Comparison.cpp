#include "Comparison.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>

namespace
{
using namespace Comparison;

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Measures the row and leaves each figure as a counter, whose name tells the report what it is.
void measure(benchmark::State &state, const Row &row)
{
    std::vector<const Sample *> contenders = {&row.ours};
    for (const Rival &rival : row.rivals) {
        contenders.push_back(&rival.sample);
    }
    std::vector<std::vector<double>> samples(contenders.size());
    std::size_t first = 0;
    for (auto _ : state) {
        // Nobody is always first, or always after the same other one, who may leave the caches to his liking.
        first = (first + 1) % contenders.size();
        for (std::size_t turn = 0; turn < contenders.size(); ++turn) {
            const std::size_t contender = (first + turn) % contenders.size();
            samples[contender].push_back((*contenders[contender])());
        }
    }
    state.counters[row.unit + ": "] = median(samples[0]);
    for (std::size_t i = 0; i < row.rivals.size(); ++i) {
        const Rival &rival = row.rivals[i];
        const std::vector<double> &theirs = samples[i + 1];
        std::vector<double> ratios;
        std::transform(samples[0].begin(), samples[0].end(), theirs.begin(), std::back_inserter(ratios),
                       std::divides<>());
        state.counters[row.unit + ": " + rival.name] = median(theirs);
        state.counters["ratio: " + rival.name] = median(ratios);
        state.counters["goal: " + rival.name] = rival.goal;
    }
}
}

void Comparison::addRow(const std::string &name, int rounds, std::function<Row()> make)
{
    constexpr int repetitions = 3;
    const auto run = [make = std::move(make)](benchmark::State &state) { measure(state, make()); };
    benchmark::RegisterBenchmark(name.c_str(), run)->Iterations(rounds)->Repetitions(repetitions)->UseRealTime();
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    Comparison::addRows();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
