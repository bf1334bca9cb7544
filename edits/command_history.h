#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>

#include "edits/command.h"
#include "plugin/host_calls.h"

namespace IFC {

/// The commands that the host's undo and redo buttons reach. Owns them.
class CommandHistory {
public:
    static constexpr std::size_t kLimit = 100;

    /// host: borrowed.
    explicit CommandHistory(const HostCalls& host) : host_(host) {}

    /// Takes over a command that was applied. Those that were undone before are lost, and beyond
    /// the limit the oldest one.
    void record(std::unique_ptr<Command> command, const std::u16string& displayText);

    /// Does what the host asks for (HostUndoAction); other codes do nothing.
    void act(std::int32_t action);
    void undo();
    void redo();
    void forget();

private:
    const HostCalls& host_;
    std::deque<std::unique_ptr<Command>> commands_;
    std::int32_t currentIndex_ = -1;  // of the command that undo() takes back
};

}  // namespace IFC
