#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tools/schema_generator/generator.h"

namespace schema_generator {

/// Makes `folder` hold exactly these generated files: writes those that differ from what is there,
/// and removes generated ones that are no longer made. Other files are left alone, and so are the
/// times of unchanged ones.
/// @return "" or what went wrong, naming the file.
std::string writeFiles(const std::filesystem::path& folder,
                       const std::vector<GeneratedFile>& files);

/// The whole file. @return false when it cannot be read.
bool readFile(const std::filesystem::path& path, std::string& content);

}  // namespace schema_generator
