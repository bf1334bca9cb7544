#include "native/options_window.h"

#include <windows.h>

#include <algorithm>

#include "native/coded_dialog.h"

namespace native {
namespace {

// Lengths at 96 DPI.
constexpr int kGap = 8;
constexpr int kLongestLine = 480;  // longer captions are broken into lines
constexpr int kBoxWidth = 24;      // of the box that is checked, and the air before its caption
constexpr int kLineAir = 6;        // above and below a caption, together

constexpr int kFirstOption = 100;  // id of its check box

class OptionsWindow {
public:
    OptionsWindow(HWND owner, const std::u16string& title, const std::vector<Option>& options,
                  const std::function<void(std::size_t, bool)>& changed,
                  const std::u16string& closeCaption, const std::u16string& iconFile)
        : changed_(changed),
          dialog_(owner, title, iconFile,
                  [this](UINT message, WPARAM wide, LPARAM) { return take(message, wide); }) {
        if (!dialog_.window())
            return;
        for (const Option& option : options)
            addCheckBox(option);
        closeButton_ = dialog_.addControl(kButtonClass, asCaption(closeCaption),
                                          WS_TABSTOP | WS_GROUP | BS_DEFPUSHBUTTON, IDOK);
        SendMessageW(dialog_.window(), DM_SETDEFID, IDOK, 0);
        layOut(options, closeCaption);
    }

    bool isComplete() const {
        return dialog_.window() && closeButton_ &&
               std::find(boxes_.begin(), boxes_.end(), nullptr) == boxes_.end();
    }

    /// Returns when the window is closed.
    void run() {
        ShowWindow(dialog_.window(), SW_SHOW);
        SetFocus(boxes_.empty() ? closeButton_ : boxes_.front());
        runModal(dialog_.window(), [this] { return isClosed_ || dialog_.hasFault(); });
    }
    void rethrowFault() { dialog_.rethrowFault(); }

private:
    static constexpr const wchar_t* kButtonClass = L"BUTTON";

    void addCheckBox(const Option& option) {
        const int id = kFirstOption + static_cast<int>(boxes_.size());
        const DWORD group = boxes_.empty() ? WS_GROUP : 0;
        HWND const box =
            dialog_.addControl(kButtonClass, asCaption(option.caption),
                               WS_TABSTOP | group | BS_AUTOCHECKBOX | BS_MULTILINE | BS_TOP, id);
        SendMessageW(box, BM_SETCHECK, option.isOn ? BST_CHECKED : BST_UNCHECKED, 0);
        boxes_.push_back(box);
    }

    void layOut(const std::vector<Option>& options, const std::u16string& closeCaption) {
        const LONG margin = dialog_.margin();
        const LONG gap = dialog_.scaled(kGap);
        const LONG boxWidth = dialog_.scaled(kBoxWidth);
        const LONG longestLine = std::min<LONG>(dialog_.scaled(kLongestLine),
                                                dialog_.screenSize().cx * 3 / 4 - boxWidth);
        const SIZE button = dialog_.buttonSize(closeCaption);
        LONG width = std::max(button.cx, dialog_.titleWidth());
        std::vector<LONG> heights;
        for (const Option& option : options) {
            const SIZE caption = dialog_.sizeOf(option.caption, longestLine);
            width = std::max(width, boxWidth + caption.cx);
            heights.push_back(caption.cy + dialog_.scaled(kLineAir));
        }
        LONG top = margin;
        for (std::size_t index = 0; index < boxes_.size(); ++index) {
            MoveWindow(boxes_[index], margin, top, width, heights[index], FALSE);
            top += heights[index] + gap;
        }
        top += gap;
        MoveWindow(closeButton_, margin + width - button.cx, top, button.cx, button.cy, FALSE);
        dialog_.place(width + 2 * margin, top + button.cy + margin);
    }

    bool take(UINT message, WPARAM wide) {
        switch (message) {
            case WM_CLOSE:
            case WM_DESTROY: isClosed_ = true; return true;
            case WM_COMMAND: return takeCommand(LOWORD(wide), HIWORD(wide));
            default: return false;
        }
    }

    bool takeCommand(int id, int notification) {
        if (id == IDOK || id == IDCANCEL) {  // the button or Enter, Escape
            isClosed_ = true;
            return true;
        }
        const std::size_t index = static_cast<std::size_t>(id - kFirstOption);
        if (notification != BN_CLICKED || index >= boxes_.size())
            return false;
        changed_(index, SendMessageW(boxes_[index], BM_GETCHECK, 0, 0) == BST_CHECKED);
        return true;
    }

    const std::function<void(std::size_t, bool)>& changed_;
    std::vector<HWND> boxes_;
    HWND closeButton_ = nullptr;
    bool isClosed_ = false;
    CodedDialog dialog_;
};

}  // namespace

bool showOptionsWindow(const std::u16string& title, const std::vector<Option>& options,
                       const std::function<void(std::size_t index, bool isOn)>& changed,
                       const std::u16string& closeCaption, const std::u16string& iconFile) {
    OwnerBlock block;
    OptionsWindow window(block.owner(), title, options, changed, closeCaption, iconFile);
    if (!window.isComplete())
        return false;
    window.run();
    block.release();  // before the window goes
    window.rethrowFault();
    return true;
}

}  // namespace native
