#include "tools/schema_generator/names.h"

#include <algorithm>

namespace schema_generator {

namespace {

/// Every declared name begins so, in all releases.
constexpr std::string_view kPrefix = "Ifc";

constexpr char upperCased(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

constexpr char lowerCased(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::string upperCased(std::string_view name) {
    std::string result(name);
    for (char& c : result)
        c = upperCased(c);
    return result;
}

bool equalNames(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return upperCased(a) == upperCased(b); });
}

std::string memberName(std::string_view attribute) { return std::string(attribute) + "_"; }

std::string classInfoName(std::string_view className) { return "k" + std::string(className); }

std::string enumerationInfoName(std::string_view enumeration, bool isValueClass) {
    return "k" + std::string(enumeration) + (isValueClass ? "Enumeration" : "");
}

std::string bodyFileStem(std::string_view className) {
    return std::string("ifc_") + lowerCased(className[kPrefix.size()]);
}

bool isDeclarable(std::string_view name) {
    return name.starts_with(kPrefix) && name.size() > kPrefix.size() && name[kPrefix.size()] != '_';
}

}  // namespace schema_generator
