#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace standin {

/// Texts and records that the host has handed to the plug-in. They are the plug-in's to read until
/// the next call in either direction; then they are overwritten, so that a plug-in that keeps a
/// pointer reads nonsense at once, and a sanitizer sees it.
class LoanedTexts {
public:
    static constexpr unsigned char kPoison = 0xDD;

    /// A zero-terminated copy.
    const char16_t* lend(std::u16string_view text);
    const char* lend(std::string_view ascii);
    /// So many zeroed bytes, aligned for any record.
    void* lendBytes(std::size_t bytes);

    /// Ends all loans.
    void expire();

    /// Whether expired memory can be looked at for a while; not where a sanitizer watches it.
    static bool keepsExpired();

private:
    struct Loan {
        std::unique_ptr<std::byte[]> memory;  // operator new aligns it for any record
        std::size_t bytes = 0;
    };
    std::vector<Loan> loans_;
    // Overwritten, and kept for a while so that the memory is not put to another use.
    std::deque<Loan> expired_;
};

}  // namespace standin
