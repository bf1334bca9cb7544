#include "tools/schema_generator/templates.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace schema_generator {

namespace {

[[noreturn]] void abortOn(std::string_view placeholder, std::string_view pattern) {
    std::cerr << "schema_generator: no value for \"" << placeholder << "\" in template:\n"
              << pattern << std::endl;
    std::abort();
}

template <class Values>
std::string fill(std::string_view pattern, const Values& values) {
    std::string result;
    std::size_t position = 0;
    while (true) {
        const std::size_t open = pattern.find('$', position);
        result += pattern.substr(position, open - position);
        if (open == std::string_view::npos)
            return result;
        const std::size_t close = pattern.find('$', open + 1);
        if (close == std::string_view::npos)
            abortOn("$", pattern);
        const std::string_view name = pattern.substr(open + 1, close - open - 1);
        const auto value = std::find_if(values.begin(), values.end(),
                                        [&](const auto& entry) { return entry.first == name; });
        if (value == values.end())
            abortOn(name, pattern);
        result += value->second;
        position = close + 1;
    }
}

}  // namespace

std::string filled(std::string_view pattern, TemplateValues values) {
    return fill(pattern, values);
}

std::string filled(std::string_view pattern,
                   const std::vector<std::pair<std::string, std::string>>& values) {
    return fill(pattern, values);
}

}  // namespace schema_generator
