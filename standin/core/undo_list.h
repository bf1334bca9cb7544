#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace standin {

/// The host's undo list: the texts of what can be undone and, behind them, of what can be redone.
class UndoList {
public:
    /// A new entry takes the place of what could be redone.
    void add(std::u16string text) {
        texts_.resize(done_);
        texts_.push_back(std::move(text));
        ++done_;
    }
    bool canUndo() const { return done_ > 0; }
    bool canRedo() const { return done_ < texts_.size(); }
    void stepBack() { --done_; }
    void stepForward() { ++done_; }
    void clear() {
        texts_.clear();
        done_ = 0;
    }
    const std::vector<std::u16string>& texts() const { return texts_; }
    /// How many of them are done; those behind can be redone.
    std::size_t doneCount() const { return done_; }

private:
    std::vector<std::u16string> texts_;
    std::size_t done_ = 0;
};

}  // namespace standin
