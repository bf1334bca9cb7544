#include "gui/win32/property_layout.h"

#include <algorithm>

#include "gui/property_entry.h"
#include "gui/win32/list_box_typing.h"
#include "gui/win32/resource_ids.h"
#include "native/window_tools.h"

namespace {

// At 96 DPI.
constexpr int kWidth = 860;
constexpr int kHeight = 200;
constexpr int kHeightWithProperty = 260;
constexpr POINT kPlaceWithoutDesktop = {100, 100};
constexpr int kRight = 5;       // of a third of the desktop
constexpr int kOuterSpace = 6;  // around the frame
constexpr int kInnerSpace = 10;
constexpr int kGap = 4;  // between what belongs together
constexpr int kButtonGap = 8;
constexpr int kColumnGap = 12;
constexpr int kButtonWidth = 100;
constexpr int kButtonHeight = 25;
constexpr int kButtonPadding = 12;
constexpr int kMinFieldWidth = 120;
constexpr int kFieldPadding = 8;
constexpr int kMinValueLines = 2;

/// Of a combo box that is closed; its font makes it.
int heightOf(HWND box) {
    RECT rectangle{};
    GetWindowRect(box, &rectangle);
    return rectangle.bottom - rectangle.top;
}

bool isComboBox(HWND control) {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    return GetComboBoxInfo(control, &parts);
}

}  // namespace

PropertyLayout::PropertyLayout(HWND window, const IFC::PropertyWindowInput& input)
    : window_(window),
      resolution_(native::scaled(window, USER_DEFAULT_SCREEN_DPI)),
      hasProperty_(hasPropertyFields(input.mode)),
      isHigh_(hasProperty_ && !input.propertyData.empty() && !input.propertyNameMessage.empty()) {
    hasLabels_ = isHigh_;
    if (hasProperty_) {
        columns_ = {{QUILLET_PROPERTY_NAME_LABEL, QUILLET_PROPERTY_NAME, 6},
                    {QUILLET_VALUE_LABEL, QUILLET_VALUE, 6},
                    {QUILLET_UNIT_LABEL, QUILLET_UNIT, 5}};
        if (hasQuantityType(input))
            columns_.push_back({QUILLET_QUANTITY_TYPE_LABEL, QUILLET_QUANTITY_TYPE, 4});
    }
    lineHeight_ = native::textSize(control(QUILLET_OK), u"X").cy;
    fieldHeight_ = heightOf(control(QUILLET_UNIT));
}

RECT PropertyLayout::firstPlace() const {
    const SIZE smallest = smallestSize();
    const int width = std::max<int>(px(kWidth), smallest.cx);
    const int height = std::max<int>(px(isHigh_ ? kHeightWithProperty : kHeight), smallest.cy);
    POINT place = kPlaceWithoutDesktop;
    if (RECT desktop; GetWindowRect(GetDesktopWindow(), &desktop))
        place = {desktop.right / 3 - width / 3 + px(kRight), desktop.bottom / 3 - height / 3};
    RECT rectangle = {place.x, place.y, place.x + width, place.y + height};
    native::fitToScreen(rectangle);
    return rectangle;
}

SIZE PropertyLayout::smallestSize() const {
    RECT rectangle = {0, 0, smallestWidth(), smallestHeight()};
    AdjustWindowRectEx(&rectangle, static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_EXSTYLE)));
    return {rectangle.right - rectangle.left, rectangle.bottom - rectangle.top};
}

void PropertyLayout::place() const {
    RECT inside{};
    GetClientRect(window_, &inside);
    const int outer = px(kOuterSpace);
    const int inner = px(kInnerSpace);
    // The line of a frame without a caption is half a line below its top.
    const int frameTop = outer - lineHeight_ / 2;
    put(QUILLET_FRAME, outer, frameTop, inside.right - 2 * outer, inside.bottom - outer - frameTop);

    const int left = outer + inner;
    const int width = inside.right - 2 * left;
    const int setTop = left;
    put(QUILLET_SET_GROUP, left, setTop, width, groupHeight(0, fieldHeight_));
    put(QUILLET_SET_NAME, left + inner, setTop + lineHeight_ + px(kGap), width - 2 * inner,
        fieldHeight_);

    const int buttonTop = inside.bottom - left - buttonHeight();
    int right = inside.right - left;
    for (const int button : {QUILLET_CANCEL, QUILLET_OK}) {
        put(button, right - buttonWidth(button), buttonTop, buttonWidth(button), buttonHeight());
        right -= buttonWidth(button) + px(kButtonGap);
    }
    if (hasProperty_) {
        const int groupTop = setTop + groupHeight(0, fieldHeight_) + px(kGap);
        placeProperty({left, groupTop, left + width, buttonTop - px(kButtonGap)});
    }
    RedrawWindow(window_, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void PropertyLayout::placeProperty(const RECT& group) const {
    const int inner = px(kInnerSpace);
    put(QUILLET_PROPERTY_GROUP, group.left, group.top, group.right - group.left,
        group.bottom - group.top);
    const int labelTop = group.top + lineHeight_ + px(kGap);
    const int fieldTop = labelTop + labelsHeight();
    const std::vector<int> widths =
        columnWidths(static_cast<int>(group.right - group.left) - 2 * inner);
    int left = group.left + inner;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const Column& column = columns_[i];
        put(column.labelId, left, labelTop, widths[i], hasLabels_ ? lineHeight_ : 0);
        put(column.fieldId, left, fieldTop, widths[i],
            fieldHeightOf(column.fieldId, group.bottom - inner - fieldTop));
        left += widths[i] + px(kColumnGap);
    }
}

int PropertyLayout::px(int lengthAt96Dpi) const {
    return MulDiv(lengthAt96Dpi, resolution_, USER_DEFAULT_SCREEN_DPI);
}

int PropertyLayout::widthOf(int id) const {
    return native::textSize(control(id), native::textOf(control(id))).cx;
}

int PropertyLayout::buttonWidth(int id) const {
    return std::max(px(kButtonWidth), widthOf(id) + 2 * px(kButtonPadding));
}

int PropertyLayout::buttonHeight() const {
    return std::max(px(kButtonHeight), lineHeight_ + px(kFieldPadding));
}

int PropertyLayout::labelsHeight() const { return hasLabels_ ? lineHeight_ + px(kGap) / 2 : 0; }

int PropertyLayout::groupHeight(int labelsHeight, int fieldsHeight) const {
    return lineHeight_ + px(kGap) + labelsHeight + fieldsHeight + px(kInnerSpace);
}

int PropertyLayout::smallestWidth() const {
    int width = 0;
    for (const Column& column : columns_)
        width += smallestWidthOf(column);
    if (!columns_.empty())
        width += (static_cast<int>(columns_.size()) - 1) * px(kColumnGap);
    for (const int group : {QUILLET_SET_GROUP, QUILLET_PROPERTY_GROUP})
        width = std::max(width, widthOf(group));
    const int buttons = buttonWidth(QUILLET_OK) + px(kButtonGap) + buttonWidth(QUILLET_CANCEL);
    return std::max(width + 2 * px(kInnerSpace), buttons) + 2 * (px(kOuterSpace) + px(kInnerSpace));
}

int PropertyLayout::smallestHeight() const {
    const int edge = px(kOuterSpace) + px(kInnerSpace);
    int height = 2 * edge + groupHeight(0, fieldHeight_) + px(kButtonGap) + buttonHeight();
    if (hasProperty_) {
        const int valueHeight = kMinValueLines * lineHeight_ + px(kFieldPadding);
        height += groupHeight(labelsHeight(), hasLabels_ ? valueHeight : fieldHeight_) + px(kGap);
    }
    return height;
}

int PropertyLayout::smallestWidthOf(const Column& column) const {
    return std::max(px(kMinFieldWidth), widthOf(column.labelId));
}

/// The columns' shares of the room, but none is too small.
std::vector<int> PropertyLayout::columnWidths(int room) const {
    std::vector<int> widths(columns_.size(), 0);
    room -= (static_cast<int>(columns_.size()) - 1) * px(kColumnGap);
    for (bool isSettled = false; !isSettled;) {
        // Those that got their smallest width already share no more.
        int shares = 0;
        int left = room;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            left -= widths[i];
            shares += widths[i] == 0 ? columns_[i].share : 0;
        }
        isSettled = true;
        std::vector<int> shared = widths;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (widths[i] != 0)
                continue;
            shared[i] = left * columns_[i].share / shares;
            if (shared[i] < smallestWidthOf(columns_[i])) {
                widths[i] = smallestWidthOf(columns_[i]);
                isSettled = false;
            }
        }
        if (isSettled)
            return shared;
    }
    return widths;
}

/// Of a combo box: with its list.
int PropertyLayout::fieldHeightOf(int id, int room) const {
    HWND const field = control(id);
    if (isComboBox(field)) {
        const auto entries = static_cast<int>(SendMessageW(field, CB_GETCOUNT, 0, 0));
        const auto height = static_cast<int>(SendMessageW(field, CB_GETITEMHEIGHT, 0, 0));
        return fieldHeight_ + std::clamp(entries, 1, ListBoxTyping::kVisibleEntries) * height + 2;
    }
    return id == QUILLET_VALUE ? std::max(room, fieldHeight_) : fieldHeight_;
}

void PropertyLayout::put(int id, int x, int y, int width, int height) const {
    SetWindowPos(control(id), nullptr, x, y, width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW | SWP_NOCOPYBITS);
}
