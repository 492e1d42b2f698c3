#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace Foundation {
class NSTimer;
} // namespace Foundation

namespace UIKit {
class UIView;
} // namespace UIKit

namespace Overlay {

class MessageView;
class NoticeView;
class SpinnerView;
struct PlaybackState;

/// What is shown between the bars: a spinner while the film has been waiting for long, why it can't be played
/// with a way to try again, and notices.
class StatusViews {
public:
    /// `retry` is what the viewer asks for after an error.
    StatusViews(const std::shared_ptr<UIKit::UIView>& host, std::function<void()> retry);
    StatusViews(const StatusViews&) = delete;
    StatusViews& operator=(const StatusViews&) = delete;
    ~StatusViews();

    void show(const PlaybackState& state);

    /// Show a line for a while: as it is, or what went wrong as a sentence without its end.
    void showNotice(const std::string& text);
    void showProblem(const std::string& problem);

    /// Call it after each change of the host view's size.
    void layOut();

private:
    void showError(const std::optional<std::string>& error);
    void layOutMessage();
    void showWaiting(bool isWaiting);
    void showNextFilm(const std::optional<std::string>& name);

    std::shared_ptr<UIKit::UIView> host_;
    std::function<void()> retry_;
    std::shared_ptr<SpinnerView> spinner_;
    std::shared_ptr<MessageView> message_;
    std::shared_ptr<NoticeView> notice_;
    std::optional<std::string> error_;
    bool isWaiting_ = false;
    std::shared_ptr<Foundation::NSTimer> waitingTimer_;
    std::optional<std::string> nextFilm_;
    std::shared_ptr<Foundation::NSTimer> nextFilmTimer_;
};

} // namespace Overlay
