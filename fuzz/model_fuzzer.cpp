// Input: a letter that picks a release and the size of the read buffer, then STEP text: a whole
// file when it begins with "ISO", else what stands in the DATA section. Reading ends; what was read
// can be written; and what was written reads back, without a new report of a wrong argument, as a
// model that is written the same.

#include <array>
#include <string>

#include "fuzz/fuzz_target.h"
#include "tests/support/step_model.h"

namespace {

constexpr std::array<std::string_view, 8> kReleases = {
    "IFC4",   "IFC2X3",          "IFC4X3_ADD2", "IFC2X_FINAL",
    "IFC4X1", "IFC2X2_PLATFORM", "IFC4X2",      "IFC2X2_FINAL"};
constexpr std::array<std::size_t, 4> kBufferBytes = {0x10000, 1, 7, 64};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size == 0)
        return 0;
    const unsigned choice = bytes[0] - static_cast<unsigned>('A');
    std::string step(textOf(bytes, size).substr(1));
    if (!step.starts_with("ISO"))
        step = stepFile(step, kReleases[choice % kReleases.size()]);

    IFC::ModelParser::Options options;
    options.readBufferBytes = kBufferBytes[choice / kReleases.size() % kBufferBytes.size()];
    ReadModel read(step, options);
    if (!read.loaded()) {
        require(!read.reports().empty(), "a file that is not read is reported");
        return 0;
    }
    const std::string written = stepOf(read.model());
    require(!written.starts_with("not written"), "what was read can be written");

    ReadModel again(written);
    require(again.loaded(), "what was written can be read");
    require(stepOf(again.model()) == written, "what was read back is written the same");
    return 0;
}
