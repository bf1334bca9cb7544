#pragma once

namespace platform {

/// Owns a handle of Windows' to a file; it may be the invalid one.
class Handle {
public:
    explicit Handle(void* handle) : handle_(handle) {}
    ~Handle();
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    explicit operator bool() const;
    void* get() const { return handle_; }
    /// Gives up ownership.
    void* release();

private:
    void* handle_;
};

}  // namespace platform
