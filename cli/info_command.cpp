#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

#include "cli/cli_texts.h"
#include "cli/command_table.h"
#include "cli/json_writer.h"
#include "cli/model_file.h"
#include "cli/printable.h"
#include "ifc/model/model.h"
#include "platform/text.h"

namespace cli {
namespace {

struct TypeCount {
    std::u16string_view type;
    std::size_t count = 0;
};

/// The most frequent types first, those of equal count by name.
std::vector<TypeCount> typeCounts(const IFC::Model& model) {
    std::unordered_map<const IFC::ClassInfo*, std::size_t> counts;
    for (const IFC::IfcEntity* entity : model.entities())
        ++counts[&entity->classInfo()];
    std::vector<TypeCount> sorted;
    sorted.reserve(counts.size());
    for (const auto& [info, count] : counts)
        sorted.push_back({.type = info->name, .count = count});
    std::sort(sorted.begin(), sorted.end(), [](const TypeCount& a, const TypeCount& b) {
        return a.count != b.count ? a.count > b.count : a.type < b.type;
    });
    return sorted;
}

/// A field of the header, one text or a list.
struct HeaderField {
    std::string_view key;
    std::string_view label;
    std::u16string HeaderFields::*text = nullptr;
    std::vector<std::u16string> HeaderFields::*list = nullptr;
};
constexpr HeaderField kHeaderFields[] = {
    {.key = "description", .label = texts::kDescription, .list = &HeaderFields::description},
    {.key = "implementationLevel",
     .label = texts::kImplementationLevel,
     .text = &HeaderFields::implementationLevel},
    {.key = "name", .label = texts::kName, .text = &HeaderFields::name},
    {.key = "timeStamp", .label = texts::kTimeStamp, .text = &HeaderFields::timeStamp},
    {.key = "author", .label = texts::kAuthor, .list = &HeaderFields::author},
    {.key = "organization", .label = texts::kOrganization, .list = &HeaderFields::organization},
    {.key = "preprocessorVersion",
     .label = texts::kPreprocessorVersion,
     .text = &HeaderFields::preprocessorVersion},
    {.key = "originatingSystem",
     .label = texts::kOriginatingSystem,
     .text = &HeaderFields::originatingSystem},
    {.key = "authorization", .label = texts::kAuthorization, .text = &HeaderFields::authorization},
    {.key = "schemaIdentifier",
     .label = texts::kSchemaIdentifier,
     .text = &HeaderFields::schemaIdentifier},
};

std::u16string joined(const std::vector<std::u16string>& list) {
    std::u16string text;
    for (const std::u16string& item : list)
        text.append(text.empty() ? u"" : texts::kListJoint).append(item);
    return text;
}

void printField(Screen& screen, std::string_view label, std::u16string_view text) {
    constexpr std::size_t kTextColumn = 23;
    std::string line = std::string(label) + ":";
    line.resize(std::max(line.size() + 1, kTextColumn), ' ');
    screen.print(line + printable(text) + "\n");
}

void printCount(Screen& screen, std::size_t count, std::string_view joint,
                std::u16string_view text) {
    constexpr std::size_t kDigits = 10;
    const std::string digits = std::to_string(count);
    screen.print(std::string(kDigits - std::min(kDigits, digits.size()), ' ') + digits);
    screen.print(joint);
    screen.print(printable(text) + "\n");
}

void printText(Session& session, ModelFile& file) {
    Screen& screen = session.screen;
    const IFC::Model& model = file.model();
    printField(screen, texts::kFile, file.path());
    printField(screen, texts::kRelease, platform::fromUtf8(file.releaseName()));
    for (const HeaderField& field : kHeaderFields)
        printField(screen, field.label,
                   field.text ? model.header.*field.text : joined(model.header.*field.list));
    printField(screen, texts::kInstances,
               platform::fromUtf8(std::to_string(model.entities().size())));
    for (const TypeCount& entry : typeCounts(model))
        printCount(screen, entry.count, "  ", entry.type);
    if (session.reports.count() == 0)
        return;
    printField(screen, texts::kReportedWhileReading,
               platform::fromUtf8(std::to_string(session.reports.count())));
    for (const Reports::Kind& kind : session.reports.kinds())
        printCount(screen, kind.count, texts::kTimes, kind.text);
}

void printJson(Session& session, ModelFile& file) {
    JsonWriter json(session.screen);
    const IFC::Model& model = file.model();
    json.beginObject();
    json.key("file").value(file.path());
    json.key("release").value(platform::fromUtf8(file.releaseName()));
    json.key("header").beginObject();
    for (const HeaderField& field : kHeaderFields) {
        json.key(field.key);
        if (field.text) {
            json.value(model.header.*field.text);
            continue;
        }
        json.beginArray();
        for (const std::u16string& item : model.header.*field.list)
            json.value(item);
        json.endArray();
    }
    json.endObject();
    json.key("instances").value(static_cast<std::int64_t>(model.entities().size()));
    json.key("types").beginArray();
    for (const TypeCount& entry : typeCounts(model)) {
        json.beginObject();
        json.key("type").value(entry.type);
        json.key("count").value(static_cast<std::int64_t>(entry.count));
        json.endObject();
    }
    json.endArray();
    json.key("reports").beginArray();
    for (const Reports::Kind& kind : session.reports.kinds()) {
        json.beginObject();
        json.key("count").value(static_cast<std::int64_t>(kind.count));
        json.key("line").value(static_cast<std::int64_t>(kind.place.line));
        json.key("instance").value(kind.place.instance);
        json.key("text").value(kind.text);
        json.endObject();
    }
    json.endArray();
    json.endObject();
}

}  // namespace

ExitStatus showInfo(Session& session) {
    ModelFile file(session, session.arguments.operands[0]);
    if (!file.read())
        return ExitStatus::NotDone;
    if (session.arguments.has(options::kJson))
        printJson(session, file);
    else
        printText(session, file);
    return ExitStatus::Done;
}

}  // namespace cli
