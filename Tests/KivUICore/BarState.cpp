#include "Tests/KivUICore/BarState.h"

#include <cmath>
#include <sstream>

namespace KivUICoreTests {

namespace {

// What is shown travels on a curve, which is solved in steps, worst at its steep end; all else is exact.
constexpr double tolerance = 1e-4;

std::string inWords(const std::vector<std::string>& calls) {
    std::string text;
    for (const std::string& call : calls) {
        text += (text.empty() ? "" : ", ") + call;
    }
    return calls.empty() ? "no call" : text;
}

std::string inWords(double number) {
    std::ostringstream text;
    text.precision(12);
    text << number;
    return text.str();
}

std::string inWords(bool value) { return value ? "yes" : "no"; }

std::string inWords(std::size_t number) { return std::to_string(number); }

std::string inWords(const CoreGraphics::CGRect& rect) {
    return '(' + inWords(rect.origin.x) + ", " + inWords(rect.origin.y) + ", " + inWords(rect.size.width) +
           ", " + inWords(rect.size.height) + ')';
}

std::string inWords(const Range& range) {
    return range.least == range.most ? inWords(range.least)
                                     : inWords(range.least) + " to " + inWords(range.most);
}

std::string inWords(const std::vector<std::int64_t>& sizes) {
    std::string text = "sizes";
    for (const std::int64_t size : sizes) {
        text += ' ' + std::to_string(size);
    }
    return text;
}

template <class Value>
std::string inWords(const std::optional<Value>& value) {
    return value ? inWords(*value) : "nothing";
}

template <class Value>
bool agrees(const Value& is, const Value& should) {
    return is == should;
}

bool agrees(double is, double should) { return is == should || (std::isnan(is) && std::isnan(should)); }

bool agrees(const Range& is, const Range& should) {
    return is.least >= should.least - tolerance && is.most <= should.most + tolerance;
}

class Comparison {
public:
    template <class Value>
    void compare(const char* what, const Value& is, const Value& should) {
        if (result_.empty() && !agrees(is, should)) {
            result_ = std::string(what) + ": " + inWords(is) + ", where the model says " + inWords(should);
        }
    }

    /// One of several of a kind.
    template <class Value>
    void compare(const char* kind, std::size_t index, const char* what, const Value& is,
                 const Value& should) {
        if (result_.empty() && !agrees(is, should)) {
            compare((std::string(kind) + ' ' + std::to_string(index) + what).c_str(), is, should);
        }
    }

    const std::string& result() const { return result_; }

private:
    std::string result_;
};

void compareViews(Comparison& comparison, const BarState& bar, const BarState& model) {
    for (std::size_t index = 0; index < bar.views.size(); ++index) {
        const BarState::View& is = bar.views[index];
        const BarState::View& should = model.views[index];
        comparison.compare("view", index, ", alpha", is.alpha, should.alpha);
        comparison.compare("view", index, ", frame", is.frame, should.frame);
        comparison.compare("view", index, ", views inside", is.inside, should.inside);
        comparison.compare("view", index, ", shown alpha", is.shown, should.shown);
    }
}

} // namespace

std::string difference(const BarState& bar, const BarState& model) {
    Comparison comparison;
    comparison.compare("calls", bar.calls, model.calls);
    comparison.compare("alive", bar.isAlive, model.isAlive);
    comparison.compare("timers made", bar.timers.size(), model.timers.size());
    comparison.compare("views", bar.views.size(), model.views.size());
    if (!comparison.result().empty()) {
        return comparison.result();
    }
    if (bar.isAlive) {
        comparison.compare("delay", bar.delay, model.delay);
        comparison.compare("autoHideTimer", bar.autoHideTimer, model.autoHideTimer);
        comparison.compare("elemets", bar.sizes, model.sizes);
    }
    for (std::size_t index = 0; index < bar.timers.size(); ++index) {
        comparison.compare("timer", index, " is due", bar.timers[index], model.timers[index]);
    }
    compareViews(comparison, bar, model);
    comparison.compare("next work", bar.nextWork, model.nextWork);
    return comparison.result();
}

} // namespace KivUICoreTests
