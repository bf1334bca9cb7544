#include "platform/file_error.h"

#include <cerrno>
#include <system_error>

#include "platform/text.h"

namespace platform {

std::u16string systemErrorText() { return fromUtf8(std::generic_category().message(errno)); }

}  // namespace platform
