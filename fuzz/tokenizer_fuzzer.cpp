// Input: STEP text. It gives the same tokens whatever the size of the read buffer, and ends.

#include "fuzz/fuzz_target.h"
#include "ifc/io/tokenizer.h"
#include "tests/support/memory_stream.h"
#include "tests/support/token_text.h"

namespace {

struct Scan {
    std::string tokens;
    std::int32_t lines = 0;
};

Scan scan(std::string_view step, std::size_t bufferBytes) {
    Tokenizer tokenizer(std::make_unique<MemoryInputStream>(step, bufferBytes), {});
    Scan result;
    result.tokens = remainingTokens(tokenizer);
    result.lines = tokenizer.lineNumber();
    require(!tokenizer.failed(), "no text makes the tokenizer fail");
    require(tokenizer.nextToken()->kind == TokenKind::EndOfFile, "the end is followed by the end");
    return result;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string_view step = textOf(bytes, size);
    const Scan whole = scan(step, size + 1);
    constexpr std::size_t kBufferSizes[] = {1, 2, 7};
    for (const std::size_t bufferBytes : kBufferSizes) {
        const Scan pieces = scan(step, bufferBytes);
        require(pieces.tokens == whole.tokens, "tokens do not depend on the buffer");
        require(pieces.lines == whole.lines, "line numbers do not depend on the buffer");
    }
    return 0;
}
