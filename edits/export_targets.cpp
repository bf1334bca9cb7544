#include "edits/export_targets.h"

#include <set>

#include "edits/export_texts.h"
#include "edits/pending_edits.h"
#include "ifc/io/paths.h"
#include "platform/files.h"
#include "platform/text.h"

namespace IFC {
namespace {

std::u16string inFolder(std::u16string_view folder, std::u16string_view name) {
    std::u16string path(folder);
    if (!path.empty() && !platform::isPathSeparator(path.back()))
        path += platform::pathSeparator();
    return path.append(name);
}

}  // namespace

std::u16string defaultExportName(const std::u16string& source) {
    return FileStream::baseNameOf(source).append(texts::kEdited);
}

std::vector<ExportJob> exportJobs(const std::vector<std::u16string>& sources,
                                  const std::u16string& chosen) {
    if (sources.size() == 1)
        return {{.source = sources[0], .target = chosen, .mustNotExist = {chosen}}};
    std::vector<ExportJob> jobs;
    std::set<std::u16string, FileNameOrder> names;  // most systems do not tell case apart
    for (const std::u16string& source : sources) {
        const std::u16string baseName = FileStream::baseNameOf(source);
        std::u16string name = baseName;
        for (int count = 2; !names.insert(name).second; ++count)
            name = baseName + u'_' + platform::fromUtf8(std::to_string(count));
        const std::u16string target = inFolder(chosen, name + std::u16string(texts::kEditedIfc));
        const std::u16string extension = FileStream::extensionOf(normalisedFileName(source));
        const std::u16string ownKind =
            inFolder(chosen, name + std::u16string(texts::kEdited) + extension);
        jobs.push_back({.source = source, .target = target, .mustNotExist = {target, ownKind}});
    }
    return jobs;
}

}  // namespace IFC
