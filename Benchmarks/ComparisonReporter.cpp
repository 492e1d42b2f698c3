#include "Benchmarks/ComparisonReporter.h"

#include <algorithm>
#include <iomanip>
#include <ostream>
#include <sstream>

namespace Benchmarks {

namespace {

const std::string ourselves = "KivUICore";

std::string withDigits(double number, int significant) {
    std::ostringstream text;
    text << std::setprecision(significant) << number;
    return text.str();
}

std::string withDecimals(double number, int decimals) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(decimals) << number;
    return text.str();
}

void printRow(std::ostream& out, const std::string& measure, const std::string& own, const std::string& peer,
              const std::string& peersName, const std::string& ratio) {
    out << std::left << std::setw(44) << measure << std::right << std::setw(14) << own << std::setw(14)
        << peer << "  " << std::left << std::setw(24) << peersName << std::right << std::setw(6) << ratio
        << '\n';
}

} // namespace

void ComparisonReporter::ReportRuns(const std::vector<Run>& runs) {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
            note(run);
        }
    }
}

void ComparisonReporter::note(const Run& run) {
    const std::string& name = run.run_name.function_name;
    const std::size_t slash = name.rfind('/');
    if (slash == std::string::npos) {
        return;
    }
    const std::string system = name.substr(slash + 1);
    std::string measure = name.substr(0, slash);
    if (!run.run_name.args.empty()) {
        measure += ", " + run.run_name.args;
    }
    note(measure, system, {run.GetAdjustedCPUTime(), benchmark::GetTimeUnitString(run.time_unit)});
    for (const auto& [counter, value] : run.counters) {
        std::string counted = measure;
        counted += ": " + counter;
        note(counted, system, {value, ""});
    }
}

void ComparisonReporter::note(const std::string& measure, const std::string& system, const Value& value) {
    auto found = std::find_if(measures_.begin(), measures_.end(),
                              [&measure](const Measure& each) { return each.name == measure; });
    if (found == measures_.end()) {
        found = measures_.insert(found, {measure, {}});
    }
    const auto [known, isNew] = found->bySystem.emplace(system, value);
    if (!isNew && value.number < known->second.number) {
        known->second = value;
    }
}

void ComparisonReporter::Finalize() {
    ConsoleReporter::Finalize();
    std::sort(measures_.begin(), measures_.end(),
              [](const Measure& a, const Measure& b) { return a.name < b.name; });
    printTable(GetOutputStream());
}

void ComparisonReporter::printTable(std::ostream& out) const {
    out << '\n';
    printRow(out, "Quickest of the repetitions", ourselves, "peer", "", "ratio");
    for (const Measure& measure : measures_) {
        const auto own = measure.bySystem.find(ourselves);
        if (own == measure.bySystem.end()) {
            continue;
        }
        const auto text = [](const Value& value) {
            return value.unit.empty() ? withDigits(value.number, 9)
                                      : withDecimals(value.number, 2) + " " + value.unit;
        };
        if (measure.bySystem.size() == 1) {
            printRow(out, measure.name, text(own->second), "", "", "");
        }
        for (const auto& [system, value] : measure.bySystem) {
            if (system != ourselves) {
                const std::string ratio =
                    value.number > 0.0 ? withDigits(own->second.number / value.number, 2) : "";
                printRow(out, measure.name, text(own->second), text(value), system, ratio);
            }
        }
    }
}

} // namespace Benchmarks
