#pragma once

#include <string>
#include <string_view>

/// Operations on the text of a path; none looks at the disk. A path of the form archive|entry names
/// one entry of an archive, as the host's project files (.ahx) hold models.
namespace FileStream {

/// Splits archive from entry.
inline constexpr char16_t kEntrySeparator = u'|';

/// The extension with its dot, in lower case (ASCII letters): of an archive path the four units
/// before the first "|", else the text from the last "." on; empty without a ".".
std::u16string extensionOf(std::u16string_view path);

/// The file's name without folder and extension, of an archive path the entry's: model of
/// /houses/model.ifc.
std::u16string baseNameOf(std::u16string_view path);

/// `path` with `extension` (given with its dot, or any other ending) in place of its own, if it has
/// one. An archive path becomes a file beside the archive: project.ahx|Model.ifc with "_LOG.txt"
/// gives project_LOG.txt.
std::u16string withExtension(std::u16string_view path, std::u16string_view extension);

}  // namespace FileStream
