#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standin/core/disk.h"
#include "standin/core/objects.h"
#include "standin/core/project_archive.h"

namespace standin {

/// What was read from disk, before it takes the place of what was open.
struct OpenedFiles {
    std::u16string projectPath;               ///< empty when IFC files were opened
    std::unique_ptr<TemporaryFolder> folder;  ///< of the extracted models
    std::vector<LoadedFile> files;
    std::vector<ProjectEntry> entries;  ///< those that are no models
};

/// Reads IFC files, or one project file. `error`: why there is nothing; UTF-8.
std::optional<OpenedFiles> readFiles(const std::vector<std::u16string>& paths, std::string& error);

/// The project file of what is open, and the entries that plug-ins keep in it. Entries are written
/// to a buffer during a save and count from its success on; one that nobody wrote is carried over.
class Project {
public:
    /// The host's own entry.
    static constexpr std::u16string_view kDisplayEntry = u"Display.bin";

    void begin(OpenedFiles& files);
    void clear();

    /// Empty while there is no file.
    const std::u16string& path() const { return path_; }
    /// Null when the project has no such entry.
    const std::string* entry(std::u16string_view name) const;
    std::vector<std::u16string> entryNames() const;

    // Reading by the plug-in.
    bool beginRead(const std::u16string& name);
    /// -1 when nothing is being read.
    std::int64_t readSize() const;
    std::int64_t read(void* buffer, std::int64_t size);

    // Saving.
    void beginSave() { pending_.emplace(); }
    bool isSaving() const { return pending_.has_value(); }
    /// @return false outside of a save and for names that are the host's own.
    bool beginWrite(const std::u16string& name);
    /// @return false when no entry was begun.
    bool write(const void* data, std::int64_t size);
    /// Writes models, entries, and `displays` when given; what the project was stays when that
    /// fails.
    bool endSave(const std::u16string& path, const Objects& objects,
                 const std::optional<std::string>& displays, std::int64_t diskBytes,
                 std::string& error);

private:
    std::u16string path_;
    std::unique_ptr<TemporaryFolder> folder_;
    std::vector<ProjectEntry> entries_;
    std::optional<std::vector<ProjectEntry>> pending_;
    ProjectEntry* written_ = nullptr;  // in pending_
    std::optional<std::string> read_;  // what of the entry being read is left
};

}  // namespace standin
