#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace schema_generator {

/// One complaint about a schema: where it stands and what is not understood.
struct Diagnostic {
    std::string fileName;
    int line = 0;  ///< from 1
    std::string message;
};

/// "IFC4.exp:12: message"
std::string toText(const Diagnostic& diagnostic);

/// The complaints about one file, in the order in which they were found. Keeps the first kLimit: a
/// file that is not EXPRESS at all would otherwise give one for every word.
class DiagnosticList {
public:
    static constexpr std::size_t kLimit = 50;

    explicit DiagnosticList(std::string_view fileName) : fileName_(fileName) {}

    void add(int line, std::string message);
    bool empty() const { return items_.empty(); }
    bool full() const { return items_.size() >= kLimit; }
    const std::vector<Diagnostic>& items() const { return items_; }

private:
    std::string fileName_;
    std::vector<Diagnostic> items_;
};

}  // namespace schema_generator
