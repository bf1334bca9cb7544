#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "platform/hidden_export.h"

namespace standin {

/// What a host function does wrong. Nothing: it does nothing and returns null, false or 0.
/// Negative: likewise, but a count or size is -1. Wrong: it does its work and returns a count, size
/// or id that is not true (more than there is; an id that there is not).
enum class Fault { Nothing, Negative, Wrong };

/// The faults that this host has for the time being.
class Faults {
public:
    /// The program no longer exports the function: for plug-ins that are loaded from now on.
    /// @return false when it never did.
    bool lack(const std::string& function);
    void set(const std::string& function, Fault fault) { faults_[function] = fault; }
    std::optional<Fault> of(std::string_view function) const;
    /// The host is whole again.
    void clear();

    /// So many bytes fit on the disk; -1 for as many as there are.
    std::int64_t diskBytes = -1;

private:
    std::map<std::string, Fault, std::less<>> faults_;
    std::map<std::string, std::unique_ptr<platform::HiddenExport>> lacking_;
};

/// The result of a function that has not done its work.
template <class Result>
Result resultOfNothing(Fault fault) {
    if constexpr (std::is_signed_v<Result> && !std::is_same_v<Result, bool>)
        return fault == Fault::Negative ? Result(-1) : Result();
    else if constexpr (!std::is_void_v<Result>)
        return Result();
}

/// A result that is not true; pointers stay, since nothing good could be read from any other.
template <class Result>
Result wrongResult(Result result) {
    if constexpr (std::is_same_v<Result, bool>)
        return true;
    else if constexpr (std::is_signed_v<Result>)
        return static_cast<Result>(result * 2 + 7);
    else if constexpr (std::is_integral_v<Result>)
        return result + 0x7000000000000000;
    else
        return result;
}

}  // namespace standin
