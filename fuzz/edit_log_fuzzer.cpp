// Input: an edit log (XML). Reading it and writing what is left gives a log that a second pass does
// not change.

#include "edits/edit_log.h"
#include "fuzz/fuzz_target.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const auto rewritten = IFC::rewrittenEditLog(textOf(bytes, size), {});
    if (!rewritten)
        return 0;
    const auto again = IFC::rewrittenEditLog(*rewritten, {});
    require(again.has_value(), "what was written is well-formed");
    require(*again == *rewritten, "a second pass changes nothing");
    return 0;
}
