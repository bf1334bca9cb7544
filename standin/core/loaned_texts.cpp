#include "standin/core/loaned_texts.h"

#include <cstring>
#include <utility>

namespace standin {
namespace {

/// A sanitizer wants the memory freed: it reports who reads it afterwards.
#if defined(__SANITIZE_ADDRESS__)
constexpr std::size_t kKeptLoans = 0;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr std::size_t kKeptLoans = 0;
#else
constexpr std::size_t kKeptLoans = 4096;
#endif
#else
constexpr std::size_t kKeptLoans = 4096;
#endif

}  // namespace

bool LoanedTexts::keepsExpired() { return kKeptLoans > 0; }

void* LoanedTexts::lendBytes(std::size_t bytes) {
    loans_.push_back({std::make_unique<std::byte[]>(bytes), bytes});
    return loans_.back().memory.get();
}

const char16_t* LoanedTexts::lend(std::u16string_view text) {
    auto* const copy =
        static_cast<char16_t*>(lendBytes((text.size() + 1) * sizeof(char16_t)));  // zeroed
    text.copy(copy, text.size());
    return copy;
}

const char* LoanedTexts::lend(std::string_view ascii) {
    auto* const copy = static_cast<char*>(lendBytes(ascii.size() + 1));
    ascii.copy(copy, ascii.size());
    return copy;
}

void LoanedTexts::expire() {
    for (Loan& loan : loans_) {
        std::memset(loan.memory.get(), kPoison, loan.bytes);
        expired_.push_back(std::move(loan));
    }
    loans_.clear();
    while (expired_.size() > kKeptLoans)
        expired_.pop_front();
}

}  // namespace standin
