#pragma once

#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/CoreGraphics/CGDrawing.h"
#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/UIKit/UILabel.h"
#include "Platform/UIKit/UITableView.h"
#include "Platform/UIKit/UITableViewCell.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// A data source and delegate that writes down what it is asked and told, and does with each what a test
/// likes.
class ListSource : public Foundation::Adopting<Foundation::NSObject, UIKit::UITableViewDataSource,
                                               UIKit::UITableViewDelegate> {
public:
    static const Foundation::Class& classObject() {
        static const Foundation::Class& object =
            Foundation::ClassBuilder<ListSource, NSObject>("Test.ListSource")
                .adopts<UIKit::UITableViewDataSource>()
                .method<&ListSource::numberOfSections>("numberOfSectionsInTableView:")
                .method<&ListSource::didSelect>("tableView:didSelectRowAtIndexPath:")
                .build();
        return object;
    }

    std::vector<std::int64_t> counts;
    std::vector<std::string> log;
    std::function<void(const std::string&)> onCall;
    bool givesCells = true;

    std::int64_t numberOfSections(const std::shared_ptr<UIKit::UITableView>& /*table*/) {
        note("sections");
        return static_cast<std::int64_t>(counts.size());
    }
    std::int64_t tableViewNumberOfRowsInSection(const std::shared_ptr<UIKit::UITableView>& /*table*/,
                                                std::int64_t section) override {
        note("rows " + std::to_string(section));
        const auto at = static_cast<std::size_t>(section);
        return at < counts.size() ? counts[at] : 0;
    }
    std::shared_ptr<UIKit::UITableViewCell>
    tableViewCellForRowAtIndexPath(const std::shared_ptr<UIKit::UITableView>& /*table*/,
                                   const std::shared_ptr<Foundation::NSIndexPath>& path) override {
        const std::string name = nameOf(*path);
        note("cell " + name);
        if (!givesCells) {
            return nullptr;
        }
        const auto cell = Foundation::make<UIKit::UITableViewCell>();
        cell->textLabel()->setText(name);
        return cell;
    }
    void didSelect(const std::shared_ptr<UIKit::UITableView>& /*table*/,
                   const std::shared_ptr<Foundation::NSIndexPath>& path) {
        note("chose " + nameOf(*path));
    }

    static std::string nameOf(const Foundation::NSIndexPath& path) {
        return std::to_string(path.section()) + "." + std::to_string(path.row());
    }

private:
    void note(const std::string& what) {
        log.push_back(what);
        if (const auto call = onCall) {
            call(what);
        }
    }
};

/// A source of sections with so many rows each.
inline std::shared_ptr<ListSource> makeSource(std::vector<std::int64_t> counts) {
    auto source = Foundation::make<ListSource>();
    source->counts = std::move(counts);
    return source;
}
