#include "ifc/io/output_text_stream.h"

#include <utility>

namespace FileStream {

OutputTextStream::OutputTextStream()
    : OutpoutStream(std::u16string(), ErrorCallback(), kCapacityBytes, kKeepBackBytes) {
    if (allocateBuffer())
        openAt(0);
}

std::string OutputTextStream::take() {
    close();
    if (buffer_)
        openAt(0);
    return std::exchange(text_, {});
}

void OutputTextStream::writeRaw(const char* bytes, std::size_t count) {
    text_.append(bytes, count);
}

void OutputTextStream::close() {
    text_.append(buffered());
    shutAt(0);
}

std::int32_t OutputTextStream::movePointer(std::int32_t delta) {
    moveBy(delta);
    return delta;
}

void OutputTextStream::flushIfFull() {
    if (!open_ || !isFull())
        return;
    text_.append(flushable());
    keepTail();
}

}  // namespace FileStream
