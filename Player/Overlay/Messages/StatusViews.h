#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"
#include "Player/Overlay/Film/PlaybackError.h"

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

namespace KivUICore::Overlay {

class MessageView;
class NoticeView;
class SpinnerView;
struct PlaybackState;

/// What is shown between the bars: a spinner while the film has been waiting for long, what it waits for if
/// it is still being opened then, with a way to give up, why it can't be played with a way to try again, and
/// notices.
class StatusViews {
public:
    /// What the viewer asks for: `retry` after an error, `cancel` while a film is being opened.
    StatusViews(const std::shared_ptr<UIKit::UIView>& host, std::function<void()> retry,
                std::function<void()> cancel);
    StatusViews(const StatusViews&) = delete;
    StatusViews& operator=(const StatusViews&) = delete;
    ~StatusViews();

    void show(const PlaybackState& state);

    /// Show a line for a while.
    void showNotice(const std::string& text);
    void showProblem(const PlaybackError& problem);

    /// `room` is where no bar is, in the host view's coordinates. Until it is told, nothing has a place.
    void layOut(const CoreGraphics::CGRect& room);

private:
    void showError(const std::optional<PlaybackError>& error);
    void showOpening(const std::optional<std::string>& name);
    void setSlow(bool isSlow);
    void updateMessage();
    void layOutMessage();
    void showWaiting(bool isWaiting);
    void showNextFilm(const std::optional<std::string>& name);

    std::shared_ptr<UIKit::UIView> host_;
    std::function<void()> retry_;
    std::function<void()> cancel_;
    std::shared_ptr<SpinnerView> spinner_;
    std::shared_ptr<MessageView> message_;
    std::shared_ptr<NoticeView> notice_;
    std::optional<PlaybackError> error_;

    // The film that is being opened, and whether that takes so long that it is told.
    std::optional<std::string> opening_;
    bool isSlow_ = false;
    std::shared_ptr<Foundation::NSTimer> openingTimer_;
    bool isWaiting_ = false;
    std::shared_ptr<Foundation::NSTimer> waitingTimer_;
    std::optional<std::string> nextFilm_;
    std::shared_ptr<Foundation::NSTimer> nextFilmTimer_;
};

} // namespace KivUICore::Overlay
