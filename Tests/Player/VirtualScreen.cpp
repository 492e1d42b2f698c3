#include "Tests/Player/VirtualScreen.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace KivUICore::Player {

namespace {

// A window may go while it is looked at. The library would end the program then.
int ignoreError(Display* /*display*/, XErrorEvent* /*error*/) { return 0; }

struct ImageRelease {
    void operator()(XImage* image) const { XDestroyImage(image); }
};

void send(Display* display, Window window, XEvent& event) {
    XSendEvent(display, window, False, NoEventMask, &event);
    XFlush(display);
}

} // namespace

void VirtualScreen::Release::operator()(_XDisplay* display) const { XCloseDisplay(display); }

VirtualScreen::VirtualScreen() {
    const std::string size = std::to_string(width) + "x" + std::to_string(height) + "x24";
    server_ = std::make_unique<Process>(
        std::vector<std::string>{"Xvfb", "-displayfd", "1", "-screen", "0", size, "-nolisten", "tcp"});
    // It writes its number once it is ready.
    if (!eventually([this] { return server_->output().ends_with('\n') || !server_->isRunning(); }) ||
        server_->output().empty()) {
        throw std::runtime_error("Xvfb does not start: " + server_->errors());
    }
    const std::string number = server_->output();
    name_ = ":" + number.substr(0, number.find('\n'));
    XSetErrorHandler(ignoreError);
    display_.reset(XOpenDisplay(name_.c_str()));
    if (!display_) {
        throw std::runtime_error("cannot connect to Xvfb at " + name_);
    }
}

VirtualScreen::~VirtualScreen() {
    display_.reset();
    manager_.reset();
    server_->signal(SIGTERM);
    server_->wait();
}

// A window manager puts the program's window into one of its own.
unsigned long VirtualScreen::findWindow() const { return findWindowIn(DefaultRootWindow(display_.get())); }

unsigned long VirtualScreen::findWindowIn(unsigned long parent) const {
    Window ignored = 0;
    Window* children = nullptr;
    unsigned count = 0;
    Window found = 0;
    XQueryTree(display_.get(), parent, &ignored, &ignored, &children, &count);
    for (unsigned index = 0; index < count && found == 0; ++index) {
        found = isProgram(children[index]) ? children[index] : findWindowIn(children[index]);
    }
    if (children) {
        XFree(children);
    }
    return found;
}

bool VirtualScreen::isProgram(unsigned long window) const {
    XWindowAttributes attributes{};
    XClassHint hint{};
    if (XGetWindowAttributes(display_.get(), window, &attributes) == 0 ||
        attributes.map_state != IsViewable || XGetClassHint(display_.get(), window, &hint) == 0) {
        return false;
    }
    const bool isPlayer = std::string(hint.res_class) == "kivplayer";
    XFree(hint.res_name);
    XFree(hint.res_class);
    return isPlayer;
}

void VirtualScreen::startWindowManager() {
    manager_ = std::make_unique<Process>(std::vector<std::string>{"openbox"},
                                         Environment{{"DISPLAY", name_}, {"XDG_RUNTIME_DIR", {}}});
    const Atom check = XInternAtom(display_.get(), "_NET_SUPPORTING_WM_CHECK", False);
    const bool isThere = eventually([&] {
        Atom type = 0;
        int format = 0;
        unsigned long count = 0;
        unsigned long rest = 0;
        unsigned char* value = nullptr;
        XGetWindowProperty(display_.get(), DefaultRootWindow(display_.get()), check, 0, 1, False,
                           AnyPropertyType, &type, &format, &count, &rest, &value);
        if (value) {
            XFree(value);
        }
        return count > 0;
    });
    if (!isThere) {
        throw std::runtime_error("no window manager starts: " + manager_->errors());
    }
}

std::optional<Picture> VirtualScreen::window() const {
    const Window window = findWindow();
    XWindowAttributes attributes{};
    if (window == 0 || XGetWindowAttributes(display_.get(), window, &attributes) == 0) {
        return std::nullopt;
    }
    const std::unique_ptr<XImage, ImageRelease> image(
        XGetImage(display_.get(), window, 0, 0, static_cast<unsigned>(attributes.width),
                  static_cast<unsigned>(attributes.height), AllPlanes, ZPixmap));
    if (!image) {
        return std::nullopt;
    }
    Picture picture(attributes.width, attributes.height);
    for (int y = 0; y < attributes.height; ++y) {
        for (int x = 0; x < attributes.width; ++x) {
            picture.set(x, y, static_cast<std::uint32_t>(XGetPixel(image.get(), x, y)) | 0xFF000000U);
        }
    }
    return picture;
}

void VirtualScreen::setResources(const std::string& lines) const {
    XChangeProperty(display_.get(), DefaultRootWindow(display_.get()), XA_RESOURCE_MANAGER, XA_STRING, 8,
                    PropModeReplace, reinterpret_cast<const unsigned char*>(lines.data()),
                    static_cast<int>(lines.size()));
    XSync(display_.get(), False);
}

void VirtualScreen::resizeWindow(int newWidth, int newHeight) const {
    XMoveResizeWindow(display_.get(), findWindow(), 0, 0, static_cast<unsigned>(newWidth),
                      static_cast<unsigned>(newHeight));
    XFlush(display_.get());
}

void VirtualScreen::closeWindow() const {
    const Window window = findWindow();
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display_.get(), "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display_.get(), "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    send(display_.get(), window, event);
}

void VirtualScreen::destroyWindow() const {
    XDestroyWindow(display_.get(), findWindow());
    XFlush(display_.get());
}

void VirtualScreen::killWindow() const {
    XKillClient(display_.get(), findWindow());
    XFlush(display_.get());
}

void VirtualScreen::pressKey(unsigned long key) const {
    const Window window = findWindow();
    for (const int type : {KeyPress, KeyRelease}) {
        XEvent event{};
        event.xkey.type = type;
        event.xkey.window = window;
        event.xkey.root = DefaultRootWindow(display_.get());
        event.xkey.same_screen = True;
        event.xkey.keycode = XKeysymToKeycode(display_.get(), key);
        send(display_.get(), window, event);
    }
}

void VirtualScreen::giveFullScreen() const {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = findWindow();
    event.xclient.message_type = atom("_NET_WM_STATE");
    event.xclient.format = 32;
    event.xclient.data.l[0] = 1;
    event.xclient.data.l[1] = static_cast<long>(atom("_NET_WM_STATE_FULLSCREEN"));
    XSendEvent(display_.get(), DefaultRootWindow(display_.get()), False,
               SubstructureNotifyMask | SubstructureRedirectMask, &event);
    XFlush(display_.get());
}

unsigned long VirtualScreen::atom(const char* name) const { return XInternAtom(display_.get(), name, False); }

// The parts of the drag and drop protocol that a program hears when somebody lets go over its window.
bool VirtualScreen::drop(const std::string& text, const char* type) const {
    const Window target = findWindow();
    const Window source =
        XCreateSimpleWindow(display_.get(), DefaultRootWindow(display_.get()), 0, 0, 1, 1, 0, 0, 0);
    const Atom selection = atom("XdndSelection");
    XSetSelectionOwner(display_.get(), selection, source, CurrentTime);
    const auto tell = [&](const char* message, long second, long third, long fifth) {
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = target;
        event.xclient.message_type = atom(message);
        event.xclient.format = 32;
        event.xclient.data.l[0] = static_cast<long>(source);
        event.xclient.data.l[1] = second;
        event.xclient.data.l[2] = third;
        event.xclient.data.l[4] = fifth;
        send(display_.get(), target, event);
    };
    constexpr long version = 5L << 24;
    constexpr long place = 700L << 16 | 400L;
    const auto list = static_cast<long>(atom(type));
    tell("XdndEnter", version, list, 0);
    tell("XdndPosition", 0, place, static_cast<long>(atom("XdndActionCopy")));
    tell("XdndDrop", 0, CurrentTime, 0);
    const bool isTaken = eventually([&] { return handOver(text) || isFinished(source); });
    return isTaken && eventually([&] { return isFinished(source); });
}

// Answers a program that wants to know what is dropped on it.
bool VirtualScreen::handOver(const std::string& uris) const {
    XEvent event{};
    if (XCheckTypedEvent(display_.get(), SelectionRequest, &event) == False) {
        return false;
    }
    const XSelectionRequestEvent request = event.xselectionrequest;
    XChangeProperty(display_.get(), request.requestor, request.property, request.target, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(uris.data()), static_cast<int>(uris.size()));
    XEvent answer{};
    answer.xselection.type = SelectionNotify;
    answer.xselection.requestor = request.requestor;
    answer.xselection.selection = request.selection;
    answer.xselection.target = request.target;
    answer.xselection.property = request.property;
    answer.xselection.time = request.time;
    send(display_.get(), request.requestor, answer);
    return true;
}

bool VirtualScreen::isFinished(unsigned long source) const {
    XEvent event{};
    const Atom finished = atom("XdndFinished");
    while (XCheckTypedWindowEvent(display_.get(), source, ClientMessage, &event) == True) {
        if (event.xclient.message_type == finished) {
            return true;
        }
    }
    return false;
}

void VirtualScreen::movePointer(int x, int y) const {
    int rootX = 0;
    int rootY = 0;
    Window child = 0;
    XTranslateCoordinates(display_.get(), findWindow(), DefaultRootWindow(display_.get()), x, y, &rootX,
                          &rootY, &child);
    runTool({"mousemove", std::to_string(rootX), std::to_string(rootY)});
}

void VirtualScreen::runTool(std::vector<std::string> words) const {
    words.insert(words.begin(), "xdotool");
    Process tool(words, {{"DISPLAY", name_}});
    if (tool.wait() != 0) {
        throw std::runtime_error("xdotool failed: " + tool.errors());
    }
}

void VirtualScreen::pressButton() const { runTool({"mousedown", "1"}); }

void VirtualScreen::releaseButton() const { runTool({"mouseup", "1"}); }

void VirtualScreen::click(int x, int y) const {
    movePointer(x, y);
    runTool({"click", "1"});
}

void VirtualScreen::doubleClick(int x, int y) const {
    movePointer(x, y);
    runTool({"click", "--repeat", "2", "--delay", "60", "1"});
}

void VirtualScreen::turnWheel(int notches) const {
    runTool(
        {"click", "--repeat", std::to_string(std::abs(notches)), "--delay", "5", notches > 0 ? "4" : "5"});
}

std::string VirtualScreen::windowTitle() const {
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* text = nullptr;
    constexpr long mostWords = 256;
    XGetWindowProperty(display_.get(), findWindow(), XInternAtom(display_.get(), "_NET_WM_NAME", False), 0,
                       mostWords, False, AnyPropertyType, &type, &format, &count, &rest, &text);
    const std::string title = text ? reinterpret_cast<char*>(text) : "";
    if (text) {
        XFree(text);
    }
    return title;
}

} // namespace KivUICore::Player
