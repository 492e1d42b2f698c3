#pragma once

#include <benchmark/benchmark.h>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace Benchmarks {

/// Shows runs as Google Benchmark's console does and ends with a table that sets this project beside each of
/// its peers. A benchmark is called "measure/system", this project being the system "KivUICore". What is
/// compared is the processor time of the quickest repetition, and each counter.
class ComparisonReporter : public benchmark::ConsoleReporter {
public:
    using ConsoleReporter::ConsoleReporter;

    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    struct Value {
        double number;
        std::string unit;
    };

    struct Measure {
        std::string name;
        std::map<std::string, Value> bySystem;
    };

    void note(const Run& run);
    void note(const std::string& measure, const std::string& system, const Value& value);
    void printTable(std::ostream& out) const;

    std::vector<Measure> measures_;
};

} // namespace Benchmarks
