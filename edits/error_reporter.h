#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "ifc/io/error_callback.h"
#include "plugin/host_calls.h"

namespace IFC {

/// The plug-in's one way to report trouble: to the log when it is open, and to the user in a
/// message box.
class ErrorReporter {
public:
    /// host: borrowed.
    explicit ErrorReporter(const HostCalls& host) : host_(host) {}
    ErrorReporter(const ErrorReporter&) = delete;
    ErrorReporter& operator=(const ErrorReporter&) = delete;

    /// key: entry of the language files (ASCII), or "" (also null) for none; the report is its
    /// text, one blank and `detail`. A key without a text stands for itself. flag: severity; what
    /// the user chose to ignore (2) only goes to the log and is no error.
    void report(const char* key, std::u16string_view detail, int flag = 0);

    /// For the IFC library; valid as long as this.
    ErrorCallback callback();

    /// Whether anything was reported since the start or clearError().
    bool errorSeen() const { return errorSeen_; }
    void clearError() { errorSeen_ = false; }

    /// While it lives, reports are not shown. At its end, unless that is to be silent, one message
    /// shows the first of them, each once, and how many more there are. Of those that lie within
    /// each other the outermost one counts.
    class Collecting {
    public:
        static constexpr std::size_t kShownReports = 20;

        enum class End { Summary, Silent };

        explicit Collecting(ErrorReporter& reporter, End end = End::Summary);
        ~Collecting();
        Collecting(const Collecting&) = delete;
        Collecting& operator=(const Collecting&) = delete;

        void endWith(End end) { end_ = end; }

    private:
        friend ErrorReporter;
        void add(std::u16string_view text);

        ErrorReporter& reporter_;
        End end_;
        std::vector<std::u16string> shown_;
        std::size_t count_ = 0;
    };

private:
    std::u16string composed(const char* key, std::u16string_view detail) const;

    const HostCalls& host_;
    Collecting* collecting_ = nullptr;  // the outermost one
    bool errorSeen_ = false;
};

}  // namespace IFC
