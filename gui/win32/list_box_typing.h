#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

/// Choosing from a long list by typing into a combo box with an edit field: each sign that is typed
/// chooses the entry that is meant so far, selects what it adds, so that the next sign replaces it,
/// and drops the list down. An entry that only contains what is typed is marked in the list, and
/// chosen when the box is left. A click into the field drops the list down too.
class ListBoxTyping {
public:
    static constexpr std::size_t kMaxTyped = 256;  // UTF-16 units

    static constexpr int kVisibleEntries = 15;

    /// box: empty, with its font. first: the entry that is chosen now, negative for none. chosen:
    /// told when another entry is chosen; may be empty.
    ListBoxTyping(HWND box, std::vector<std::u16string> entries, int first,
                  std::function<void(int index)> chosen = {});

    HWND box() const { return box_; }
    const std::vector<std::u16string>& entries() const { return entries_; }
    std::u16string text() const;
    bool isDroppedDown() const;

    /// Negative: none, and no text.
    void choose(int index);
    /// After a change of its size, which selects its text.
    void deselect() const;

    /// A message of the thread, before anybody else sees it. @return whether it is done with.
    bool takes(const MSG& message);
    /// What the box tells its parent: CBN_...
    void notified(WORD notification);

private:
    bool takesKey(WPARAM key);
    std::u16string typedText() const;
    void becomeCurrent(int index);
    void typed(bool isErasing);
    void dropDown();
    void rollUp(bool isTaking);
    void setEditText(const std::u16string& text, std::size_t anchor, std::size_t caret);

    HWND box_;
    HWND edit_ = nullptr;  // parts of the box
    HWND list_ = nullptr;
    std::vector<std::u16string> entries_;
    std::function<void(int)> chosen_;
    int current_;
    std::u16string textBefore_;  // the key that is down
};
