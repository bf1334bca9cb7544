#pragma once

#include <string>
#include <string_view>

/// Windows takes paths of more than 259 units only behind the prefix "\\?\", and then as they are:
/// in full, with no separator but "\". Such paths stay within platform; the rest of the product
/// sees what users see.
namespace platform {

/// `path` as the functions that take files and folders understand it whatever its length.
/// Unchanged when it is short.
std::u16string unlimited(std::u16string_view path);

/// The opposite: `path` without the prefix.
std::u16string withoutPrefix(std::u16string_view path);

/// `path` from the root on, with "\" only and neither "." nor "..", without a prefix.
std::u16string fullPath(std::u16string_view path);

}  // namespace platform
