#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

/// Who may include whom: what the files of a folder, or those whose names begin so, include begins
/// with one of these.
struct Layer {
    std::string folder;
    std::vector<std::string> mayInclude;
};

const std::vector<Layer> kLayers = {
    {"platform/", {"platform/"}},
    {"ifc/io/", {"ifc/io/", "ifc/model/", "platform/"}},
    {"ifc/model/", {"ifc/io/", "ifc/model/", "platform/"}},
    {"ifc/schemas/", {"ifc/model/", "ifc/schemas/"}},
    {"plugin/host_", {"plugin/host_", "platform/"}},
    {"edits/", {"edits/", "ifc/io/", "ifc/model/", "platform/", "plugin/host_"}},
    {"gui/", {"edits/", "gui/", "ifc/io/", "ifc/model/", "platform/", "plugin/host_"}},
    {"native/", {"native/", "platform/"}},
    {"gui/win32/", {"edits/", "gui/", "ifc/model/", "native/", "platform/"}},
    {"plugin/", {"edits/", "ifc/io/", "ifc/model/", "platform/", "plugin/"}},
    {"plugin/own_windows", {"gui/", "platform/", "plugin/"}},
    {"plugin/system_windows_win32.cpp", {"native/", "platform/", "plugin/"}},
    {"standin/desktop/qt_text.h", {"gui/qt_text.h"}},
    {"standin/", {"ifc/io/", "ifc/model/", "platform/", "plugin/host_abi.h", "standin/"}},
    {"cli/", {"cli/", "edits/", "ifc/io/", "ifc/model/", "platform/"}},
    {"tools/schema_generator/", {"tools/schema_generator/"}},
};

/// Headers of others, and the only files that may include them; but those of Qt and, for windows,
/// Windows, only in .cpp files.
const std::vector<Layer> kForeign = {
    {"Q", {"gui/", "standin/desktop/"}},
    {"windows.h", {"platform/win32/", "native/", "gui/win32/", "standin/desktop/win32/"}},
    {"unistd.h", {"platform/posix/"}},
    {"sys/", {"platform/posix/"}},
    {"iconv.h", {"platform/posix/"}},
    {"minizip/", {"ifc/io/", "standin/core/project_archive.cpp"}},
    {"zlib.h", {"ifc/io/", "standin/core/project_archive.cpp"}},
    {"tinyxml2.h", {"ifc/model/xml_", "edits/edit_log.cpp", "gui/form_reader.cpp"}},
    {"utf8.h", {"platform/", "ifc/model/xml_"}},
};

/// The layer that tells most of the file.
const Layer* layerOf(const std::string& file) {
    const Layer* found = nullptr;
    for (const Layer& layer : kLayers)
        if (file.starts_with(layer.folder) &&
            (!found || layer.folder.size() > found->folder.size()))
            found = &layer;
    return found;
}

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
    for (const Layer& folder : kLayers) {
        if (!folder.folder.ends_with('/'))
            continue;
        for (const auto& entry : fs::recursive_directory_iterator(root / folder.folder)) {
            const std::string extension = entry.path().extension().string();
            if (extension != ".h" && extension != ".cpp")
                continue;
            ++files;
            const std::string name = entry.path().lexically_relative(root).generic_string();
            const Layer& layer = *layerOf(name);
            for (const Include& include : includesOf(entry.path())) {
                if (include.own && name != kRegistry) {
                    EXPECT_TRUE(beginsWithOne(include.name, layer.mayInclude))
                        << name << " includes " << include.name;
                }
                for (const Layer& foreign : kForeign) {
                    if (include.own || !include.name.starts_with(foreign.folder))
                        continue;
                    const bool isPlaceRight = extension == ".cpp" || foreign.folder == "Q" ||
                                              name.starts_with("native/") ||
                                              name.starts_with("gui/win32/");
                    EXPECT_TRUE(beginsWithOne(name, foreign.mayInclude) && isPlaceRight)
                        << name << " includes " << include.name;
                }
            }
        }
    }
    EXPECT_GT(files, 300U);
}

}  // namespace
