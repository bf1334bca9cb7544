#pragma once

#include <string>
#include <vector>

namespace IFC {

/// One file to export.
struct ExportJob {
    std::u16string source;
    std::u16string target;
    std::vector<std::u16string> mustNotExist;  // without the user's agreement
};

/// "house_edited" for /a/house.ifc.
std::u16string defaultExportName(const std::u16string& source);

/// What is written where. chosen: the dialog's name; with several sources a folder. Sources of one
/// base name get targets of different names: "house_edited.ifc", "house_2_edited.ifc".
std::vector<ExportJob> exportJobs(const std::vector<std::u16string>& sources,
                                  const std::u16string& chosen);

}  // namespace IFC
