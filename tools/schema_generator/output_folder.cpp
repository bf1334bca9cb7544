#include "tools/schema_generator/output_folder.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <system_error>

namespace schema_generator {

namespace fs = std::filesystem;

namespace {

/// Beside the target first, so that a full disk leaves the old file as it was.
std::string replaceFile(const fs::path& path, const std::string& content) {
    fs::path temporary = path;
    temporary += ".new";
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    out.close();
    std::error_code failure;
    if (!out) {
        fs::remove(temporary, failure);
        return "cannot write " + temporary.string();
    }
    fs::rename(temporary, path, failure);
    return failure ? "cannot write " + path.string() + ": " + failure.message() : "";
}

bool isGenerated(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::string firstLine;
    return std::getline(in, firstLine) && firstLine.find(kBannerStart) != std::string::npos;
}

std::string removeStale(const fs::path& folder, const std::vector<GeneratedFile>& files) {
    std::error_code failure;
    std::vector<fs::path> stale;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, failure)) {
        const bool isCurrent = std::any_of(files.begin(), files.end(), [&](const auto& file) {
            return entry.path().filename() == file.name;
        });
        if (!isCurrent && entry.is_regular_file() && isGenerated(entry.path()))
            stale.push_back(entry.path());
    }
    for (const fs::path& path : stale) {
        if (!fs::remove(path, failure))
            return "cannot remove " + path.string() + ": " + failure.message();
    }
    return "";
}

}  // namespace

std::string writeFiles(const fs::path& folder, const std::vector<GeneratedFile>& files) {
    std::error_code failure;
    fs::create_directories(folder, failure);
    if (failure)
        return "cannot create " + folder.string() + ": " + failure.message();
    for (const GeneratedFile& file : files) {
        std::string present;
        if (readFile(folder / file.name, present) && present == file.content)
            continue;
        std::string fault = replaceFile(folder / file.name, file.content);
        if (!fault.empty())
            return fault;
    }
    return removeStale(folder, files);
}

bool readFile(const fs::path& path, std::string& content) {
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return false;
    content.assign(std::istreambuf_iterator<char>(in), {});
    return !in.bad();
}

}  // namespace schema_generator
