#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

/// The large sample files, which lie outside the repository. Empty when they are not there; a test
/// that needs them then skips.
inline std::filesystem::path sharedFolder() {
    const char* const chosen = std::getenv("QUILLET_SHARED");
    return chosen && *chosen ? chosen : QUILLET_SHARED_DIR;
}

/// The models below shared/models, by their path in it ("ifc4/house.ifc"), in order. invalid: those
/// that are damaged on purpose, else all others.
inline std::vector<std::string> sharedModels(bool invalid) {
    const std::filesystem::path folder = sharedFolder() / "models";
    std::vector<std::string> models;
    std::error_code absent;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, absent)) {
        const std::string name = entry.path().lexically_relative(folder).generic_string();
        std::string extension = entry.path().extension().string();
        std::transform(extension.begin(), extension.end(), extension.begin(),
                       [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
        if ((extension == ".ifc" || extension == ".ifczip") &&
            name.starts_with("invalid/") == invalid)
            models.push_back(name);
    }
    std::sort(models.begin(), models.end());
    if (models.empty())
        models.emplace_back();  // so that there is a test, which skips
    return models;
}

/// A model's path as a name that a test may have.
inline std::string testNameOf(const std::string& model) {
    std::string name = model.empty() ? "NoSharedModels" : model;
    std::replace_if(
        name.begin(), name.end(),
        [](char c) {
            return !((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'));
        },
        '_');
    return name;
}
