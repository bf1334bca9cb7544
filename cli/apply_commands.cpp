#include <string>

#include "cli/cli_texts.h"
#include "cli/command_table.h"
#include "cli/model_file.h"
#include "edits/edit_log.h"
#include "edits/pending_edits.h"
#include "ifc/model/record_texts.h"
#include "platform/whole_file.h"

namespace cli {
namespace {

/// The place that the library puts behind the text of a report, "(edits.xml, line 12)", goes before
/// it.
void reportOfLog(Session& session, const std::u16string& path, std::u16string_view text) {
    const std::u16string placeBegin =
        std::u16string(::texts::kPlaceOpen) + path + std::u16string(::texts::kPlaceLine);
    const std::size_t at = text.rfind(placeBegin);
    Place place{.file = path};
    if (at != text.npos)
        for (const char16_t unit : text.substr(at + placeBegin.size()))
            if (unit >= u'0' && unit <= u'9')
                place.line = place.line * 10 + (unit - u'0');
    session.reports.add(place, text.substr(0, at));
}

bool readEdits(Session& session, const std::u16string& path, IFC::PendingEdits& edits) {
    const std::optional<std::string> xml = platform::readWholeFile(path);
    if (!xml) {
        session.reports.add({.file = path}, texts::kCanNotReadEdits);
        return false;
    }
    const auto reportAll = [&](const char*, const char16_t* text, int) {
        reportOfLog(session, path, text);
    };
    return IFC::readEditLog(*xml, edits, reportAll, path);
}

std::u16string fileNames(const IFC::PendingEdits& edits) {
    if (edits.files().empty())
        return std::u16string(texts::kEditsAreForNone);
    std::u16string names;
    for (const auto& [name, entry] : edits.files())
        names.append(names.empty() ? texts::kEditsAreFor : texts::kListJoint).append(name);
    return names;
}

}  // namespace

ExitStatus applyLoggedEdits(Session& session) {
    const Arguments& arguments = session.arguments;
    const std::u16string& model = arguments.operands[0];
    const std::u16string& log = arguments.operands[1];
    const std::u16string& output = arguments.operands[2];
    IFC::PendingEdits edits;
    if (!checkOutput(session, output, {model, log}) || !readEdits(session, log, edits))
        return ExitStatus::NotDone;
    const std::u16string entry(arguments.has(options::kEntry) ? arguments.value(options::kEntry)
                                                              : model);
    const IFC::FileEdits* fileEdits = edits.find(entry);
    if (!fileEdits) {
        session.reports.add({.file = log}, std::u16string(texts::kNoEditsForFile) +
                                               IFC::normalisedFileName(entry) + fileNames(edits));
        return ExitStatus::NotDone;
    }
    ModelFile file(session, model);
    return file.read() ? applyAndWrite(session, file, *fileEdits, output) : ExitStatus::NotDone;
}

ExitStatus copyModel(Session& session) {
    const std::u16string& model = session.arguments.operands[0];
    const std::u16string& output = session.arguments.operands[1];
    if (!checkOutput(session, output, {model}))
        return ExitStatus::NotDone;
    ModelFile file(session, model);
    return file.read() && file.write(output) ? ExitStatus::Done : ExitStatus::NotDone;
}

}  // namespace cli
