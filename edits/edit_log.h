#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "edits/edit_log_texts.h"
#include "edits/pending_edits.h"
#include "ifc/io/error_callback.h"

/// The edit log: the pending edits as the host's project file keeps them, in its entry "Data.xml".
/// UTF-8, one fragment per IFC file, one after another without a common root and without an XML
/// declaration:
///
///   <File FileName="house.ifc" IsCached="false">
///       <IfcPropertySet ...>...</IfcPropertySet>     (ifc/model/xml_property_set_format.h)
///   </File>
///   <File FileName="garage.ifc" IsCached="true"/>
///
/// FileName is the file's key in the store. IsCached says whether the host kept a geometry cache,
/// and with it the edited properties, when the log was written. Per object the new sets come first,
/// then the edited, then the deleted ones. What XML cannot hold is escaped (ifc/model/xml_text.h).
///
/// What this program could not read in an earlier log stands behind the fragments, in a comment for
/// each text, so that it is neither lost nor in the way:
///
///   <!--Quillet keeps what it could not read: ... -->
///
/// In it "-", "&" and all bytes but printable ASCII and line ends are references to bytes: &#45;
namespace IFC {

/// A file that the host has loaded, as the log names it.
struct LoadedFile {
    std::u16string name;  // any form that normalisedFileName() understands
    bool isCached = false;
};

/// The text of one "File" element. fileName is written as it is.
std::string editLogFragment(std::u16string_view fileName, bool isCached, const FileEdits& edits);

/// The text of the whole log: a fragment for each loaded file, in the given order and also when it
/// has no edits, then those of the store's other files, so that the edits of a file that is not
/// loaded today are kept.
std::string editLogText(const PendingEdits& edits, std::span<const LoadedFile> loaded = {});

/// Reads a whole log in place of what `edits` held; the names that it keeps apart stay so. Host
/// object ids are not known from a log (0). An empty text is a log without edits.
///
/// What is wrong is reported with `logName` and line, and reading goes on: an unusable set is left
/// out, of two properties of one name the last is kept, two sets of one GUID are both kept.
/// leftOut: receives the sets that were left out, as XML; null when nobody wants them.
/// fileNames: receives the names of the log's files in its order; likewise.
/// @return false when the text is not well-formed XML; `edits` is then unchanged.
bool readEditLog(std::string_view xml, PendingEdits& edits, const ErrorCallback& errors,
                 std::u16string_view logName = texts::kEditLogName, std::string* leftOut = nullptr,
                 std::vector<std::u16string>* fileNames = nullptr);

/// A comment that keeps `text`, any bytes.
std::string unreadComment(std::string_view text);
/// The texts that such comments in a log keep.
std::vector<std::string> unreadTextsOf(std::string_view xml);

/// What is left of a log after reading and writing it; empty when it is not well-formed. A second
/// pass changes nothing more.
std::optional<std::string> rewrittenEditLog(std::string_view xml, const ErrorCallback& errors);

}  // namespace IFC
