#pragma once

#include "Platform/Foundation/Class.h"
#include "Platform/UIKit/UIButton.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIControl.h"
#include "Platform/UIKit/UIFocusHeading.h"
#include "Platform/UIKit/UIFont.h"
#include "Platform/UIKit/UIGraphics.h"
#include "Platform/UIKit/UIImage.h"
#include "Platform/UIKit/UIImageView.h"
#include "Platform/UIKit/UIKey.h"
#include "Platform/UIKit/UILabel.h"
#include "Platform/UIKit/UIPopoverPresentationController.h"
#include "Platform/UIKit/UIResponder.h"
#include "Platform/UIKit/UISlider.h"
#include "Platform/UIKit/UITableView.h"
#include "Platform/UIKit/UITableViewCell.h"
#include "Platform/UIKit/UITouch.h"
#include "Platform/UIKit/UIView.h"
#include "Platform/UIKit/UIViewController.h"
#include "Platform/UIKit/UIWindow.h"

namespace UIKit {

inline const Foundation::ClassList uiKitClasses{UIColor::classObject,
                                                UIImage::classObject,
                                                UIFont::classObject,
                                                UIResponder::classObject,
                                                UIView::classObject,
                                                UIWindow::classObject,
                                                UIControl::classObject,
                                                UIButton::classObject,
                                                UISlider::classObject,
                                                UILabel::classObject,
                                                UIImageView::classObject,
                                                UITableView::classObject,
                                                UITableViewCell::classObject,
                                                UIViewController::classObject,
                                                UIPresentationController::classObject,
                                                UIPopoverPresentationController::classObject};

} // namespace UIKit
