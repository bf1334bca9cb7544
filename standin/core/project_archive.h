#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace standin {

/// An entry of a project file. What a model holds stays on the disk.
struct ProjectEntry {
    std::u16string name;  ///< with "/" between folders
    std::string bytes;    ///< of an entry that is no model
    std::u16string file;  ///< where the model lies; empty for what is no model
};

/// Reads a project file (".ahx"), a zip archive: models are extracted into `folder`, other entries
/// are read. Names that lead out of the folder are refused. `error`: why there is nothing; UTF-8,
/// begins with the path.
std::optional<std::vector<ProjectEntry>> readProject(const std::u16string& path,
                                                     const std::u16string& folder,
                                                     std::string& error);

/// Writes a project file beside `path` and gives it that name when it is whole; whatever fails, the
/// file that was there stays. diskBytes: so many bytes fit on the disk, for trying out what happens
/// when it is full; -1 for as many as there are. `error` as above.
bool writeProject(const std::u16string& path, const std::vector<ProjectEntry>& entries,
                  std::int64_t diskBytes, std::string& error);

/// Whether a name has the extension of a model.
bool isModelName(const std::u16string& name);

}  // namespace standin
