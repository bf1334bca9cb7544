#pragma once

namespace platform {

/// While it lives, the system finds no function of that name among those that the running program
/// exports: as if the program had been built without it. For programs that play an older edition of
/// themselves to the libraries that they load.
class HiddenExport {
public:
    explicit HiddenExport(const char* name);
    ~HiddenExport();
    HiddenExport(const HiddenExport&) = delete;
    HiddenExport& operator=(const HiddenExport&) = delete;

    /// False when the program exports no such function, or its table cannot be changed.
    bool isHidden() const { return place_ != nullptr; }

private:
    void* place_ = nullptr;  // in the program's table of exports
    unsigned stood_ = 0;     // what stands there otherwise
};

}  // namespace platform
