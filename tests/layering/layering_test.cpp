#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

/// Who may include whom: what a folder's files include begins with one of these.
struct Layer {
    std::string folder;
    std::vector<std::string> mayInclude;
};

const std::vector<Layer> kLayers = {
    {"platform/", {"platform/"}},
    {"ifc/io/", {"ifc/io/", "ifc/model/", "platform/"}},
    {"ifc/model/", {"ifc/io/", "ifc/model/", "platform/"}},
    {"ifc/schemas/", {"ifc/model/", "ifc/schemas/"}},
    {"edits/", {"edits/", "ifc/io/", "ifc/model/", "platform/"}},
    {"cli/", {"cli/", "edits/", "ifc/io/", "ifc/model/", "platform/"}},
    {"tools/schema_generator/", {"tools/schema_generator/"}},
};

/// Headers of others, and the only files that may include them.
const std::vector<Layer> kForeign = {
    {"windows.h", {"platform/win32/"}},
    {"unistd.h", {"platform/posix/"}},
    {"sys/", {"platform/posix/"}},
    {"iconv.h", {"platform/posix/"}},
    {"minizip/", {"ifc/io/"}},
    {"zlib.h", {"ifc/io/"}},
    {"tinyxml2.h", {"ifc/model/xml_", "edits/edit_log.cpp"}},
    {"utf8.h", {"platform/", "ifc/model/xml_"}},
};

/// The one place that names the releases.
constexpr const char* kRegistry = "ifc/io/schema_registry.cpp";

bool beginsWithOne(const std::string& text, const std::vector<std::string>& begins) {
    return std::any_of(begins.begin(), begins.end(),
                       [&](const std::string& begin) { return text.starts_with(begin); });
}

struct Include {
    std::string name;
    bool own = false;  // in quotes
};

std::vector<Include> includesOf(const fs::path& file) {
    std::vector<Include> includes;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        if (!line.starts_with("#include "))
            continue;
        const bool own = line.at(9) == '"';
        includes.push_back({line.substr(10, line.find(own ? '"' : '>', 10) - 10), own});
    }
    return includes;
}

TEST(Layering, EveryFolderIncludesOnlyWhatLiesBelowIt) {
    const fs::path root = QUILLET_SOURCE_DIR;
    std::size_t files = 0;
    for (const Layer& layer : kLayers) {
        for (const auto& entry : fs::recursive_directory_iterator(root / layer.folder)) {
            const std::string extension = entry.path().extension().string();
            if (extension != ".h" && extension != ".cpp")
                continue;
            ++files;
            const std::string name = entry.path().lexically_relative(root).generic_string();
            for (const Include& include : includesOf(entry.path())) {
                if (include.own && name != kRegistry) {
                    EXPECT_TRUE(beginsWithOne(include.name, layer.mayInclude))
                        << name << " includes " << include.name;
                }
                for (const Layer& foreign : kForeign) {
                    if (include.own || !include.name.starts_with(foreign.folder))
                        continue;
                    EXPECT_TRUE(beginsWithOne(name, foreign.mayInclude) && extension == ".cpp")
                        << name << " includes " << include.name;
                }
            }
        }
    }
    EXPECT_GT(files, 300U);
}

}  // namespace
