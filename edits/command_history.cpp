#include "edits/command_history.h"

#include <utility>

namespace IFC {

void CommandHistory::record(std::unique_ptr<Command> command, const std::u16string& displayText) {
    host_.registerUndoAction(displayText);
    commands_.resize(static_cast<std::size_t>(currentIndex_ + 1));
    commands_.push_back(std::move(command));
    ++currentIndex_;
    if (commands_.size() > kLimit) {
        commands_.pop_front();
        --currentIndex_;
    }
}

void CommandHistory::act(std::int32_t action) {
    switch (action) {
        case kHostUndo: return undo();
        case kHostRedo: return redo();
        case kHostForget: return forget();
        default: return;
    }
}

void CommandHistory::undo() {
    if (currentIndex_ < 0)
        return;
    commands_[static_cast<std::size_t>(currentIndex_)]->undo();
    --currentIndex_;
}

void CommandHistory::redo() {
    const auto next = static_cast<std::size_t>(currentIndex_ + 1);
    if (next >= commands_.size())
        return;
    ++currentIndex_;
    commands_[next]->redo();
}

void CommandHistory::forget() {
    commands_.clear();
    currentIndex_ = -1;
}

}  // namespace IFC
