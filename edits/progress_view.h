#pragma once

#include <string>

namespace IFC {

/// Shows how far a long piece of work is: a bar for the whole and one for its present part. Nothing
/// that goes wrong here may end the work, so nothing is thrown.
class ProgressView {
public:
    ProgressView() = default;
    ProgressView(const ProgressView&) = delete;
    ProgressView& operator=(const ProgressView&) = delete;
    virtual ~ProgressView() = default;

    /// Percents: 0 to 100.
    virtual void show(int overallPercent, const std::u16string& overallLabel, int currentPercent,
                      const std::u16string& currentLabel) noexcept = 0;
    /// Whether the user has asked to stop since this was last called.
    virtual bool takeCancel() noexcept = 0;
};

}  // namespace IFC
