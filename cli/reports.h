#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ifc/io/error_callback.h"

class LogFile;

namespace cli {

class Screen;

/// What a report is about; what is not known is empty or 0.
struct Place {
    std::u16string file;
    std::int32_t line = 0;
    std::int64_t instance = 0;
};

/// The text of a report of the library: that of its key, if it has one, and the detail.
std::u16string reportText(const char* key, std::u16string_view detail);

/// The reports of one run: prints each as "FILE:LINE: #INSTANCE: text" and counts them by kind.
class Reports {
public:
    /// Of each kind so many are printed; how many more there were is told by `printHidden`.
    static constexpr std::size_t kShownPerKind = 20;

    /// Reports that differ only in names and numbers.
    struct Kind {
        Place place;  // of the first one, and its text
        std::u16string text;
        std::size_t count = 0;
    };

    /// log: takes every report too while it is open. Both outlive the reports.
    Reports(Screen& screen, LogFile& log, bool showAll)
        : screen_(screen), log_(log), showAll_(showAll) {}

    /// text: line feeds in it become semicolons.
    void add(const Place& place, std::u16string_view text);
    /// Adds what the library reports, as far as that knows no line or instance.
    ErrorCallback callback(std::u16string file);

    /// Prints how many reports were not shown.
    void printHidden();

    std::size_t count() const { return count_; }
    /// In the order of their first reports.
    const std::vector<Kind>& kinds() const { return kinds_; }

private:
    Screen& screen_;
    LogFile& log_;
    const bool showAll_;
    std::size_t count_ = 0;
    std::vector<Kind> kinds_;
    std::unordered_map<std::u16string, std::size_t> kindIndices_;
};

}  // namespace cli
