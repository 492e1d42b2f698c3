#include "Benchmarks/ComparisonReporter.h"

#include <string>
#include <unistd.h>
#include <vector>

int main(int argc, char** argv) {
    // Repeated and interleaved, so that a measure and its peers share whatever else the machine is doing. The
    // command line's own options come later and win.
    std::vector<std::string> texts{*argv, "--benchmark_repetitions=9", "--benchmark_min_time=0.05",
                                   "--benchmark_enable_random_interleaving=true"};
    texts.insert(texts.end(), argv + 1, argv + argc);
    std::vector<char*> arguments;
    arguments.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        arguments.push_back(text.data());
    }
    int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return 2;
    }
    using Reporter = Benchmarks::ComparisonReporter;
    Reporter reporter(isatty(STDOUT_FILENO) != 0 ? Reporter::OO_ColorTabular : Reporter::OO_Tabular);
    benchmark::RunSpecifiedBenchmarks(&reporter);
}
