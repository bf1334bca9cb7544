#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "edits/progress_view.h"
#include "edits/project_log.h"

/// A progress window that opens when the work has taken longer than most does, so that no window
/// flashes up for short work.
class DelayedProgress : public IFC::ProgressView {
public:
    /// Gives null, or throws, when there is no window: the work then goes on without one.
    using Open = std::function<std::unique_ptr<IFC::ProgressView>()>;
    /// Time since any fixed moment.
    using Clock = std::function<std::chrono::milliseconds()>;

    DelayedProgress(Open open, std::chrono::milliseconds delay, Clock clock = &steadyTime);

    void show(int overallPercent, const std::u16string& overallLabel, int currentPercent,
              const std::u16string& currentLabel) noexcept override;
    bool takeCancel() noexcept override { return view_ && view_->takeCancel(); }

    static std::chrono::milliseconds steadyTime();

private:
    Open open_;  // empty once it was called
    Clock clock_;
    std::chrono::milliseconds due_;
    std::unique_ptr<IFC::ProgressView> view_;
};

/// The labels of a progress window.
struct ProgressTexts {
    std::u16string overall;
    std::u16string loading;
    std::u16string deleting;
    std::u16string saving;  ///< a file name follows
};

/// Shows how far the edit log is in a window's two bars.
class LogProgressBars {
public:
    /// Both are borrowed.
    LogProgressBars(IFC::ProgressView& view, const ProgressTexts& texts)
        : view_(view), texts_(texts) {}

    void show(const IFC::LogProgress& progress) noexcept;

private:
    std::u16string labelOf(const IFC::LogProgress& progress) const;

    IFC::ProgressView& view_;
    const ProgressTexts& texts_;
};
