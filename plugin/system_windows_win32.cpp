#include "native/options_window.h"
#include "native/progress_window.h"
#include "plugin/system_windows.h"

namespace {

class NativeProgress : public IFC::ProgressView {
public:
    explicit NativeProgress(const ProgressWindowInput& input)
        : window_(input.title, input.cancel, input.iconFile) {}

    bool isOpen() const { return window_.isOpen(); }

    void show(int overallPercent, const std::u16string& overallLabel, int currentPercent,
              const std::u16string& currentLabel) noexcept override {
        window_.show(overallPercent, overallLabel, currentPercent, currentLabel);
    }
    bool takeCancel() noexcept override { return window_.takeCancel(); }

private:
    native::ProgressWindow window_;
};

class NativeWindows : public SystemWindows {
public:
    bool showOptions(const OptionsWindowInput& input,
                     const std::function<void(std::size_t, bool)>& changed) override {
        std::vector<native::Option> options;
        for (const OptionsWindowInput::Option& option : input.options)
            options.push_back({option.caption, option.isOn});
        return native::showOptionsWindow(input.title, options, changed, input.close,
                                         input.iconFile);
    }
    std::unique_ptr<IFC::ProgressView> openProgress(const ProgressWindowInput& input) override {
        auto progress = std::make_unique<NativeProgress>(input);
        if (!progress->isOpen())
            return nullptr;
        return progress;
    }
};

}  // namespace

std::unique_ptr<SystemWindows> makeSystemWindows() { return std::make_unique<NativeWindows>(); }
