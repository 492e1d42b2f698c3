#include "Platform/UIKit/Drawing/ImageContexts.h"

#include <memory>
#include <vector>

namespace UIKit {

using namespace CoreGraphics;

namespace {

std::vector<std::unique_ptr<CGRecordingContext>>& contexts() {
    static std::vector<std::unique_ptr<CGRecordingContext>> open;
    return open;
}

} // namespace

void ImageContexts::open(const CGSize& size) {
    contexts().push_back(std::make_unique<CGRecordingContext>(size));
}

CGRecordingContext* ImageContexts::current() {
    return contexts().empty() ? nullptr : contexts().back().get();
}

void ImageContexts::close() {
    if (!contexts().empty()) {
        contexts().pop_back();
    }
}

} // namespace UIKit
