#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "edits/pending_edits.h"
#include "plugin/host_calls.h"

namespace IFC {

/// The IFC files that the host has loaded, by the host's ids of them.
class LoadedFiles {
public:
    struct File {
        HostObjectId id = 0;
        std::u16string name;  ///< its key in the store
        std::u16string
            path;  ///< on disk, "archive|entry" in a project; empty when the host tells none
    };

    /// Asks the host anew. Files that share a base name are told apart by their paths from now on,
    /// in `store` too.
    void refresh(const HostCalls& host, PendingEdits& store);

    /// In the host's order.
    const std::vector<File>& all() const { return files_; }
    /// Null when there is none.
    const File* find(HostObjectId file) const;
    /// The file with that key in `store`, null when it is not loaded.
    const File* findByKey(const PendingEdits& store, std::u16string_view key) const;
    /// Empty for an unknown file.
    std::u16string pathOf(HostObjectId file) const;

    /// Tells `store` which names are shared: one that was restored may come from before.
    void keepNamesakesApart(PendingEdits& store) const;
    /// For each name that several files share, the path of the one that was there first.
    const std::vector<std::u16string>& namesakes() const { return namesakes_; }

private:
    void findNamesakes(const std::vector<File>& before);

    std::vector<File> files_;
    std::unordered_map<HostObjectId, std::size_t> places_{8};
    std::vector<std::u16string> namesakes_;
};

}  // namespace IFC
