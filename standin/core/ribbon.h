#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "plugin/host_abi.h"

namespace standin {

/// A group, button or check box of the ribbon.
struct RibbonItem {
    enum class Kind { Group, Button, CheckBox, SubButton };

    Kind kind = Kind::Button;
    HostButtonId id = 0;
    HostButtonId group = 0;
    HostButtonId list = 0;  ///< the sub-button in whose list it stands; 0 for none
    std::u16string text;
    std::u16string hint;
    std::u16string image;  ///< path
    std::u16string smallImage;
    bool isEnabled = true;
    bool isDown = false;
    HostEventCallback clicked = nullptr;
};

/// The plug-in's part of the ribbon, and the context menu that it fills.
class Ribbon {
public:
    /// @return the new item's id; 0 when its group is none.
    HostButtonId create(RibbonItem item);
    /// Null when there is none.
    RibbonItem* find(HostButtonId id);
    /// The first item with that text that is no group.
    RibbonItem* findByText(std::u16string_view text);
    /// In the order of creation.
    const std::vector<RibbonItem>& items() const { return items_; }

    std::vector<HostButtonId>& contextMenu() { return contextMenu_; }

    /// Takes the plug-in's items away.
    void clear();

private:
    std::vector<RibbonItem> items_;
    std::vector<HostButtonId> contextMenu_;
    HostButtonId next_ = 501;  // items that are gone leave no number to others
};

}  // namespace standin
