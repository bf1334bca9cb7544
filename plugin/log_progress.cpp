#include "plugin/log_progress.h"

#include <cstddef>
#include <utility>

namespace {

constexpr int kWhole = 100;  // percent

int percentOf(const IFC::LogProgress::Count& count) {
    return count.total == 0 ? kWhole : static_cast<int>(count.done * kWhole / count.total);
}

}  // namespace

DelayedProgress::DelayedProgress(Open open, std::chrono::milliseconds delay, Clock clock)
    : open_(std::move(open)), clock_(std::move(clock)), due_(clock_() + delay) {}

std::chrono::milliseconds DelayedProgress::steadyTime() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

void DelayedProgress::show(int overallPercent, const std::u16string& overallLabel,
                           int currentPercent, const std::u16string& currentLabel) noexcept {
    // Not for the end alone.
    if (open_ && overallPercent < kWhole && clock_() >= due_) {
        const Open open = std::exchange(open_, nullptr);
        try {
            view_ = open();
        } catch (...) {
            // No memory for a window.
        }
    }
    if (view_)
        view_->show(overallPercent, overallLabel, currentPercent, currentLabel);
}

void LogProgressBars::show(const IFC::LogProgress& progress) noexcept {
    try {
        view_.show(percentOf(progress.ofAll), texts_.overall, percentOf(progress.ofPart),
                   labelOf(progress));
    } catch (...) {
        // No memory for the label: the bars stay where they are.
    }
}

std::u16string LogProgressBars::labelOf(const IFC::LogProgress& progress) const {
    using Part = IFC::LogProgress::Part;
    switch (progress.part) {
        case Part::Loading: return texts_.loading;
        case Part::Deleting: return texts_.deleting;
        case Part::Saving: break;
    }
    return (texts_.saving + u' ').append(progress.file);
}
