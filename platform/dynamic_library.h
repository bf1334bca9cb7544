#pragma once

#include <string>

namespace platform {

/// A dynamic library in this process, from construction to destruction.
class DynamicLibrary {
public:
    /// path: full path of the library's file; trouble is told by `error`.
    explicit DynamicLibrary(const std::u16string& path);
    ~DynamicLibrary();
    DynamicLibrary(const DynamicLibrary&) = delete;
    DynamicLibrary& operator=(const DynamicLibrary&) = delete;

    bool isOpen() const { return handle_ != nullptr; }
    /// Why it is not open, in the system's words; UTF-8.
    const std::string& error() const { return error_; }

    /// A function that the library exports, null when it has none of that name.
    void* symbol(const char* name) const;

private:
    void* handle_ = nullptr;
    std::string error_;
};

}  // namespace platform
