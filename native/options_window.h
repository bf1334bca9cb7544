#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace native {

struct Option {
    std::u16string caption;
    bool isOn = false;
};

/// Shows a check box for each option and a button that closes, and returns when the window is
/// closed, by whatever means. Modal to the window that the user works in. All texts are shown as
/// they are.
/// changed: told at once when an option changes, by its place in `options`; an exception closes the
/// window and comes out here. iconFile: path; may be missing.
/// @return whether the window could be opened.
bool showOptionsWindow(const std::u16string& title, const std::vector<Option>& options,
                       const std::function<void(std::size_t index, bool isOn)>& changed,
                       const std::u16string& closeCaption, const std::u16string& iconFile);

}  // namespace native
