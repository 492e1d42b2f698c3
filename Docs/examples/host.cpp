#include "KivUICore/KivUICore.h"
#include "Platform/CoreGraphics/CGDrawing.h"
#include "Platform/CoreGraphics/CGPath.h"
#include "Platform/Foundation/Clock.h"

#include <chrono>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

using namespace CoreGraphics;
using Foundation::make;

namespace {

class SteadyClock : public Foundation::Clock {
public:
    double now() const override {
        return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
    }
};

/// Draws as SVG. What the views draw next lies in the innermost group that is open.
class SvgContext : public CGContext {
public:
    SvgContext(std::ostream& out, const CGSize& size) : out_(out) {
        out_ << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << size.width << "\" height=\""
             << size.height << "\">\n";
    }
    ~SvgContext() override {
        close(0);
        out_ << "</svg>\n";
    }

    void saveState() override { saved_.push_back(open_); }
    void restoreState() override {
        close(saved_.back());
        saved_.pop_back();
    }

    void concatenate(const CGAffineTransform& t) override {
        std::ostringstream matrix;
        matrix << "matrix(" << t.a << ' ' << t.b << ' ' << t.c << ' ' << t.d << ' ' << t.tx << ' ' << t.ty
               << ')';
        open("transform", matrix.str());
    }

    void clipToRect(const CGRect& rect) override { clip("<rect" + place(rect) + "/>"); }
    void clipToPath(const CGPath& path) override { clip("<path d=\"" + data(path) + "\"/>"); }

    // A new document is transparent everywhere.
    void clearRect(const CGRect& /*rect*/) override {}

    void fillRect(const CGRect& rect, const CGColor& color) override { fillRoundedRect(rect, 0, color); }
    void fillRoundedRect(const CGRect& rect, CGFloat radius, const CGColor& color) override {
        if (!CGRectIsEmpty(rect)) {
            out_ << "<rect" << place(rect) << " rx=\"" << radius << '"' << paint("fill", color) << "/>\n";
        }
    }
    void fillPath(const CGPath& path, const CGColor& color) override {
        out_ << "<path d=\"" << data(path) << '"' << paint("fill", color) << "/>\n";
    }
    void strokePath(const CGPath& path, const CGStroke& stroke, const CGColor& color) override {
        out_ << "<path fill=\"none\" d=\"" << data(path) << '"' << paint("stroke", color)
             << " stroke-width=\"" << stroke.width << "\" stroke-linecap=\""
             << (stroke.cap == CGLineCap::Round ? "round" : "butt") << "\" stroke-linejoin=\""
             << (stroke.join == CGLineJoin::Round ? "round" : "miter") << "\"/>\n";
    }

    void drawText(std::string_view text, const CGTextStyle& style, const CGRect& rect) override {
        const bool isCentered = style.alignment == CGTextAlignment::Center;
        const bool isTrailing = style.alignment == CGTextAlignment::Trailing;
        const CGFloat x = isCentered   ? CGRectGetMidX(rect)
                          : isTrailing ? CGRectGetMaxX(rect)
                                       : CGRectGetMinX(rect);
        const CGFloat baseline = CGRectGetMidY(rect) + 0.35 * style.font.size;
        out_ << "<text x=\"" << x << "\" y=\"" << baseline << "\" text-anchor=\""
             << (isCentered   ? "middle"
                 : isTrailing ? "end"
                              : "start")
             << "\" font-family=\"sans-serif\" font-size=\"" << style.font.size << '"'
             << paint("fill", style.color) << '>' << escaped(text) << "</text>\n";
    }

    // Pixels would have to be packed into a file of some kind. This host shows the drawings only.
    void drawImage(const std::shared_ptr<const CGImage>& /*image*/, const CGRect& /*rect*/) override {}

    void fillPattern(const std::shared_ptr<const CGDrawing>& cell, const CGRect& rect) override {
        const std::string name = newName();
        out_ << "<pattern id=\"" << name << "\" patternUnits=\"userSpaceOnUse\" width=\""
             << cell->size().width << "\" height=\"" << cell->size().height << "\">\n";
        const int outside = open_;
        cell->replay(*this);
        close(outside);
        out_ << "</pattern>\n<rect" << place(rect) << " fill=\"url(#" << name << ")\"/>\n";
    }

    void beginGroup(CGFloat alpha, const CGRect& /*bounds*/) override {
        saveState();
        open("opacity", std::to_string(alpha));
    }
    void endGroup() override { restoreState(); }

private:
    static std::string place(const CGRect& rect) {
        std::ostringstream text;
        text << " x=\"" << CGRectGetMinX(rect) << "\" y=\"" << CGRectGetMinY(rect) << "\" width=\""
             << CGRectGetWidth(rect) << "\" height=\"" << CGRectGetHeight(rect) << '"';
        return text.str();
    }

    static std::string paint(const std::string& property, const CGColor& color) {
        std::ostringstream text;
        text << ' ' << property << "=\"rgb(" << 100 * color.red << "%," << 100 * color.green << "%,"
             << 100 * color.blue << "%)\" " << property << "-opacity=\"" << color.alpha << '"';
        return text.str();
    }

    static std::string data(const CGPath& path) {
        std::ostringstream text;
        for (const CGPath::Element& element : path.elements()) {
            const auto& [a, b, c] = element.points;
            switch (element.verb) {
            case CGPath::Verb::Move:
                text << 'M' << a.x << ' ' << a.y;
                break;
            case CGPath::Verb::Line:
                text << 'L' << a.x << ' ' << a.y;
                break;
            case CGPath::Verb::Curve:
                text << 'C' << a.x << ' ' << a.y << ' ' << b.x << ' ' << b.y << ' ' << c.x << ' ' << c.y;
                break;
            case CGPath::Verb::Close:
                text << 'Z';
                break;
            }
        }
        return text.str();
    }

    static std::string escaped(std::string_view text) {
        std::string result;
        for (const char each : text) {
            result += each == '&' ? "&amp;" : each == '<' ? "&lt;" : std::string(1, each);
        }
        return result;
    }

    std::string newName() { return "n" + std::to_string(++names_); }

    void clip(const std::string& shape) {
        const std::string name = newName();
        out_ << "<clipPath id=\"" << name << "\">" << shape << "</clipPath>\n";
        open("clip-path", "url(#" + name + ")");
    }

    void open(const std::string& attribute, const std::string& value) {
        out_ << "<g " << attribute << "=\"" << value << "\">\n";
        ++open_;
    }
    void close(int level) {
        for (; open_ > level; --open_) {
            out_ << "</g>\n";
        }
    }

    std::ostream& out_;
    int open_ = 0;
    int names_ = 0;
    std::vector<int> saved_;
};

void drawInto(const std::string& file, UIKit::UIWindow& window) {
    std::ofstream out(file);
    // Each document starts empty, so each holds everything.
    window.setNeedsDisplayEverywhere();
    SvgContext context(out, window.bounds().size);
    window.display(context);
}

} // namespace

int main() {
    const SteadyClock clock;
    Foundation::NSRunLoop loop(clock);
    auto window = make<UIKit::UIWindow>(CGRectMake(0, 0, 640, 360));

    auto bar = make<KivUICore::BottomBar>(window);
    auto button = make<KivUICore::Button>(make<UIKit::UIButton>(), [] { std::cout << "A touch arrived.\n"; });
    button->setText("Play", UIKit::UIControlStateNormal);
    bar->addElementToView(button, 2);
    bar->addElementToView(
        make<KivUICore::SeekBar>(make<UIKit::UISlider>(), nullptr, make<KivCore::KivPlayer>()), 10);
    drawInto("overlay.svg", *window);

    window->sendTouch(0, UIKit::UITouchPhase::Began, {50, 340});
    window->sendTouch(0, UIKit::UITouchPhase::Ended, {50, 340});

    bar->setAutoHide(0.1);
    int frames = 0;
    while (const auto wait = loop.timeUntilNextWork()) {
        std::this_thread::sleep_for(std::chrono::duration<double>(*wait));
        loop.turn();
        if (window->needsDisplay()) {
            drawInto("fading.svg", *window);
            ++frames;
        }
    }
    const bool isGone = bar->view()->alpha() == 0 && frames > 0;
    std::cout << (isGone ? "The bar faded away." : "Something is missing.") << '\n';
}
