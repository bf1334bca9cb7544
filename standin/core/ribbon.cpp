#include "standin/core/ribbon.h"

#include <algorithm>
#include <utility>

namespace standin {

HostButtonId Ribbon::create(RibbonItem item) {
    if (item.group != 0) {
        const RibbonItem* const group = find(item.group);
        if (!group ||
            (group->kind != RibbonItem::Kind::Group && group->kind != RibbonItem::Kind::SubButton))
            return 0;
    }
    item.id = next_++;
    items_.push_back(std::move(item));
    return items_.back().id;
}

RibbonItem* Ribbon::find(HostButtonId id) {
    const auto found = std::find_if(items_.begin(), items_.end(),
                                    [id](const RibbonItem& item) { return item.id == id; });
    return found == items_.end() ? nullptr : &*found;
}

RibbonItem* Ribbon::findByText(std::u16string_view text) {
    const auto found = std::find_if(items_.begin(), items_.end(), [&](const RibbonItem& item) {
        return item.kind != RibbonItem::Kind::Group && item.text == text;
    });
    return found == items_.end() ? nullptr : &*found;
}

void Ribbon::clear() {
    items_.clear();
    contextMenu_.clear();
}

}  // namespace standin
