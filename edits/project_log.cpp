#include "edits/project_log.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "edits/display_rows.h"
#include "edits/edit_log.h"
#include "edits/object_numbers.h"
#include "edits/project_log_texts.h"
#include "platform/message_box.h"
#include "platform/text.h"

namespace IFC {
namespace {

using Numbers = std::map<std::int32_t, std::int32_t>;

/// Counts the steps for whoever shows them.
class StepCounter {
public:
    /// tell: borrowed. steps: of all the work.
    StepCounter(const LogProgressCallback& tell, std::size_t steps) : tell_(tell) {
        progress_.ofAll.total = steps;
    }

    /// file: borrowed until the next part begins.
    void begin(LogProgress::Part part, std::u16string_view file, std::size_t steps) {
        progress_.part = part;
        progress_.file = file;
        progress_.ofPart = {.done = 0, .total = steps};
        advance(0);
    }
    void advance(std::size_t steps = 1) {
        for (LogProgress::Count* count : {&progress_.ofPart, &progress_.ofAll})
            count->done = std::min(count->done + steps, count->total);
        if (tell_)
            tell_(progress_);
    }

private:
    const LogProgressCallback& tell_;
    LogProgress progress_;
};

/// Finds the host's objects by GUID and file.
class ObjectFinder {
public:
    explicit ObjectFinder(const HostCalls& host) : host_(host) {}

    /// file: 0 for any. Empty when the host knows no such object.
    std::optional<ObjectInfo> find(const std::u16string& guid, HostObjectId file) {
        const HostObjectId id = host_.objectByGuid(guid);
        if (id == 0)
            return std::nullopt;
        auto info = host_.objectInfo2(id);
        if (!info) {  // a host that tells nothing: its word has to do
            info.emplace();
            info->id = id;
            return info;
        }
        info->id = id;
        if (file == 0 || info->fileId == 0 || info->fileId == file)
            return info;
        return findInFile(guid, file);
    }

private:
    /// A GUID that several files have: only going over all objects, once, tells them apart.
    std::optional<ObjectInfo> findInFile(const std::u16string& guid, HostObjectId file) {
        if (!isIndexed_) {
            isIndexed_ = true;
            for (const HostObjectId id : host_.allObjects())
                if (const auto info = host_.objectInfo2(id); info && !info->guid.empty())
                    index_.try_emplace({info->fileId, info->guid}, id);
        }
        const auto found = index_.find({file, guid});
        if (found == index_.end())
            return std::nullopt;
        auto info = host_.objectInfo2(found->second);
        if (info)
            info->id = found->second;
        return info;
    }

    const HostCalls& host_;
    std::map<std::pair<HostObjectId, std::u16string>, HostObjectId> index_;
    bool isIndexed_ = false;
};

/// Brings what the host displays of one object into line with its edits.
class ObjectDisplay {
public:
    ObjectDisplay(EditSession& session, std::int32_t number, const ObjectEdits& object)
        : session_(session), number_(number), object_(object) {
        for (DisplayedProperty& row : session.host.properties(object.objectId)) {
            Shown& set = shown_[row.setGuid];
            set.name = row.setName;
            set.isOfFile |= row.state != kHostAdded;
            if (row.kind != kHostEmptySet)
                set.states.emplace(std::move(row.name), row.state);
        }
    }

    /// All but the deleted sets.
    void update() {
        for (const auto& set : object_.newSets)
            putSet(*set);
        for (const auto& set : object_.editedSets)
            changeSet(*set);
    }
    void removeSets() {
        for (const auto& set : object_.deletedSets)
            send(kHostRemove, *set, {}, {});
    }

private:
    struct Shown {
        std::u16string name;
        bool isOfFile = false;
        std::map<std::u16string, std::int32_t> states;  // by name of the property

        bool isPending(const std::u16string& property) const {
            const auto state = states.find(property);
            return state != states.end() && state->second == kHostAdded;
        }
    };

    const Shown* find(const IfcPropertySet& set) const {
        const auto found = shown_.find(set.SetIdentifier);
        return found != shown_.end() ? &found->second : nullptr;
    }

    void putSet(const IfcPropertySet& set) {
        const Shown* shown = find(set);
        if (!shown)
            return send(kHostPutSet, set, {}, rowsOf(set));
        if (shown->isOfFile)  // one that is displayed as pending is this one
            session_.reporter.report("", std::u16string(texts::kGuidDuplication).append(set.name));
    }

    /// Deletions first and additions last, so that each name is free when a property gets it.
    void changeSet(const IfcPropertySet& set) {
        const Shown* shown = find(set);
        std::vector<DisplayedProperty> edited;
        for (const auto& [key, property] : set.properties) {
            DisplayedProperty row = rowOf(set.name, set.SetIdentifier, property);
            if (property.state == kPropertyDeleted)
                send(kHostRemove, set, row.initialName, {row});
            else if (property.state == kPropertyEdited)
                edited.push_back(std::move(row));
        }
        changeProperties(set, std::move(edited));
        for (const auto& [key, property] : set.properties)
            if (property.state == kPropertyAdded && (!shown || !shown->isPending(property.name)))
                send(kHostAddToSet, set, property.name,
                     {rowOf(set.name, set.SetIdentifier, property)});
        if (shown && !set.name.empty() && shown->name != set.name)
            send(kHostChange, set, {}, {}, set.name);
    }

    /// Renames may hand names on: a property changes when no other one still has its new name.
    /// Where they go in a circle, one steps aside first.
    void changeProperties(const IfcPropertySet& set, std::vector<DisplayedProperty> waiting) {
        std::set<std::u16string> names;  // that those waiting still have
        for (const DisplayedProperty& row : waiting)
            names.insert(row.initialName);
        while (!waiting.empty()) {
            const auto free = std::find_if(waiting.begin(), waiting.end(), [&](const auto& row) {
                return row.name == row.initialName || !names.contains(row.name);
            });
            if (free == waiting.end()) {
                DisplayedProperty& first = waiting.front();
                DisplayedProperty aside = first;
                aside.name.append(texts::kNameAside);
                send(kHostChange, set, first.initialName, {aside});
                names.erase(first.initialName);
                first.initialName = aside.name;
                continue;
            }
            send(kHostChange, set, free->initialName, {*free});
            names.erase(free->initialName);
            waiting.erase(free);
        }
    }

    void send(std::int32_t action, const IfcPropertySet& set, const std::u16string& propertyName,
              const std::vector<DisplayedProperty>& rows, const std::u16string& newSetName = {}) {
        const Shown* shown = find(set);
        session_.host.changeProperty({.action = action,
                                      .instanceNumber = number_,
                                      .objectId = object_.objectId,
                                      .objectGuid = object_.objectGuid,
                                      .setName = shown ? shown->name : set.name,
                                      .setGuid = set.SetIdentifier,
                                      .newSetName = newSetName,
                                      .propertyName = propertyName},
                                     rows);
    }

    EditSession& session_;
    std::int32_t number_;
    const ObjectEdits& object_;
    std::map<std::u16string, Shown> shown_;  // by GUID
};

/// What of a log belongs to nothing that is loaded, for the one message about it.
class Unassigned {
public:
    void addFile(const std::u16string& name) {
        lines_.append(u"\n").append(name).append(texts::kFileNotLoaded);
    }
    void addObjects(const std::u16string& fileName, std::size_t count) {
        if (count > 0)
            lines_.append(u"\n")
                .append(fileName)
                .append(texts::kUnknownObjects)
                .append(platform::fromUtf8(std::to_string(count)))
                .append(texts::kUnknownObjectsEnd);
    }
    void report(ErrorReporter& reporter) const {
        if (!lines_.empty())
            reporter.report("", std::u16string(texts::kNotAssigned).append(lines_));
    }

private:
    std::u16string lines_;
};

/// Finds the host's object for each edited object of a file. @return how many there are not.
std::size_t assignObjects(FileEdits& file, HostObjectId fileId, ObjectFinder& finder,
                          StepCounter& steps) {
    std::size_t unknown = 0;
    Numbers wanted;
    std::vector<std::pair<std::int32_t, HostObjectId>> found;
    for (const auto& [number, object] : file.objects) {
        const auto info = finder.find(object.objectGuid, fileId);
        steps.advance();
        if (!info) {
            ++unknown;
            continue;
        }
        found.emplace_back(number, info->id);
        if (info->instanceNumber > 0)
            wanted.emplace(number, info->instanceNumber);
    }
    for (const auto& [number, id] : found)
        file.objects[number].objectId = id;
    file = renumbered(file, std::move(wanted));
    return unknown;
}

/// Files that share a name are told apart by their paths, and these change when a project is moved,
/// or extracted elsewhere. Where a name has as many paths in the log that are not loaded as loaded
/// files that are not in the log, they are the same files in the same order.
void followMovedNamesakes(EditSession& session, const std::vector<std::u16string>& loggedNames) {
    constexpr FileNameOrder isBefore;
    const std::set<std::u16string, FileNameOrder> logged(loggedNames.begin(), loggedNames.end());
    for (const std::u16string& namesake : session.files.namesakes()) {
        const std::u16string name = normalisedFileName(namesake);
        const auto isNamesake = [&](std::u16string_view path) {
            const std::u16string other = normalisedFileName(path);
            return !isBefore(name, other) && !isBefore(other, name);
        };
        std::vector<std::u16string> from;
        for (const std::u16string& path : loggedNames)
            if (isNamesake(path) && !session.files.findByKey(session.store, path))
                from.push_back(path);
        std::vector<std::u16string> to;
        for (const LoadedFiles::File& file : session.files.all())
            if (isNamesake(file.path) && !logged.contains(file.name))
                to.push_back(file.path);
        if (from.size() != to.size())
            continue;
        for (std::size_t index = 0; index < from.size(); ++index)
            session.store.moveFile(from[index], to[index]);
    }
}

bool hasDeletedSets(const ObjectEdits& object) { return !object.deletedSets.empty(); }

/// A file of the log.
struct LoggedFile {
    std::u16string key;
    HostObjectId id = 0;  // 0 when the host does not tell
    bool isLoaded = false;
    bool isDisplayed = false;
    std::size_t stepsToLoad = 0;
    std::size_t stepsToDelete = 0;
};

std::vector<LoggedFile> loggedFiles(const EditSession& session, bool usesCache) {
    constexpr FileNameOrder isBefore;
    const std::u16string loadedKey = session.store.keyOf(session.host.loadedIfcPath());
    std::vector<LoggedFile> files;
    for (const auto& [key, edits] : session.store.files()) {
        LoggedFile file{.key = key};
        if (const LoadedFiles::File* loaded = session.files.findByKey(session.store, key)) {
            file.id = loaded->id;
            file.isLoaded = true;
        } else {
            file.isLoaded = !isBefore(key, loadedKey) && !isBefore(loadedKey, key);
        }
        file.isDisplayed = usesCache && edits.loggedAsCached;
        file.stepsToLoad = edits.objects.size() * (file.isDisplayed ? 1 : 2);
        if (!file.isDisplayed)
            for (const auto& [number, object] : edits.objects)
                file.stepsToDelete += hasDeletedSets(object) ? 1 : 0;
        files.push_back(std::move(file));
    }
    return files;
}

void displayEdits(EditSession& session, const LoggedFile& file, const FileEdits& edits,
                  StepCounter& steps) {
    for (const auto& [number, object] : edits.objects) {
        if (object.objectId != 0)
            ObjectDisplay(session, number, object).update();
        steps.advance();
    }
    if (file.stepsToDelete == 0)
        return;
    steps.begin(LogProgress::Part::Deleting, file.key, file.stepsToDelete);
    for (const auto& [number, object] : edits.objects) {
        if (!hasDeletedSets(object))
            continue;
        if (object.objectId != 0)
            ObjectDisplay(session, number, object).removeSets();
        steps.advance();
    }
}

void assignAndDisplay(EditSession& session, bool usesCache, const LogProgressCallback& progress) {
    ObjectFinder finder(session.host);
    Unassigned unassigned;
    const std::vector<LoggedFile> files = loggedFiles(session, usesCache);
    std::size_t all = 0;
    for (const LoggedFile& file : files)
        if (file.isLoaded)
            all += file.stepsToLoad + file.stepsToDelete;
    StepCounter steps(progress, all);
    for (const LoggedFile& file : files) {
        FileEdits& edits = session.store.open(file.key);
        if (edits.objects.empty())
            continue;
        if (!file.isLoaded) {
            unassigned.addFile(file.key);
            continue;
        }
        steps.begin(LogProgress::Part::Loading, file.key, file.stepsToLoad);
        unassigned.addObjects(file.key, assignObjects(edits, file.id, finder, steps));
        if (!file.isDisplayed)
            displayEdits(session, file, edits, steps);
    }
    unassigned.report(session.reporter);
}

/// The edits of a loaded file with the GUIDs and numbers that the host has for their objects. An
/// object that the host knows without a GUID is left out.
FileEdits asHostKnows(const HostCalls& host, const FileEdits& file, StepCounter& steps) {
    Numbers wanted;
    std::set<std::int32_t> withoutGuid;
    FileEdits current = file;
    for (const auto& [number, object] : file.objects) {
        const auto info = object.objectId != 0 ? host.objectInfo2(object.objectId) : std::nullopt;
        steps.advance();
        if (!info)
            continue;
        if (info->guid.empty())
            withoutGuid.insert(number);
        else if (info->guid != object.objectGuid)
            current.objects[number].objectGuid = info->guid;
        if (info->instanceNumber > 0)
            wanted.emplace(number, info->instanceNumber);
    }
    if (withoutGuid.empty())
        return renumbered(current, std::move(wanted));
    FileEdits known;
    for (const auto& [number, object] : current.objects)
        if (!withoutGuid.contains(number))
            known.objects[number] = object;
    return renumbered(known, std::move(wanted));
}

/// The whole log as it is written.
struct LogTexts {
    std::vector<std::string> fragments;  // in their order
    /// Path of each loaded file with edits, and whether the log calls it cached.
    std::vector<std::pair<std::u16string, bool>> cached;
};

LogTexts logTexts(EditSession& session, const GeometryCacheReader& usesGeometryCache,
                  const LogProgressCallback& progress) {
    using Part = LogProgress::Part;
    const HostCalls& host = session.host;
    LogTexts log;
    std::set<std::u16string, FileNameOrder> written;
    const std::vector<HostObjectId> ids = host.children(host.allObjectsId());
    const bool isTableComplete = std::all_of(
        ids.begin(), ids.end(), [&](HostObjectId id) { return session.files.find(id); });
    if (!isTableComplete)
        session.files.refresh(host, session.store);
    std::size_t all = 0;
    for (const auto& [key, file] : session.store.files())
        all += file.objects.size();
    StepCounter steps(progress, all);
    for (const HostObjectId id : ids) {
        const std::u16string path = host.projectPath(id);
        if (path.empty()) {
            const LoadedFiles::File* file = session.files.find(id);
            session.reporter.report(
                "", std::u16string(texts::kNoProjectPath) + (file ? file->name : std::u16string()));
            continue;
        }
        const std::u16string key = session.store.keyOf(path);
        if (!written.insert(key).second)
            continue;
        const bool isCached = usesGeometryCache && usesGeometryCache(path);
        const FileEdits* file = session.store.find(path);
        if (!file) {
            log.fragments.push_back(editLogFragment(key, isCached, FileEdits()));
            continue;
        }
        steps.begin(Part::Saving, key, file->objects.size());
        log.fragments.push_back(editLogFragment(key, isCached, asHostKnows(host, *file, steps)));
        log.cached.emplace_back(path, isCached);
    }
    for (const auto& [key, file] : session.store.files()) {
        if (written.contains(key) || file.objects.empty())
            continue;
        steps.begin(Part::Saving, key, file.objects.size());
        log.fragments.push_back(editLogFragment(key, file.loggedAsCached, file));
        steps.advance(file.objects.size());
    }
    for (const std::string& text : session.unreadLog.texts)
        log.fragments.push_back(unreadComment(text));
    return log;
}

bool mayOverwrite() {
    return platform::showMessageBox(texts::kOverwriteQuestion, texts::kProjectLogCaption,
                                    platform::MessageButtons::YesNo,
                                    platform::MessageIcon::Warning) == platform::MessageAnswer::Yes;
}

}  // namespace

void loadProjectLog(EditSession& session, const GeometryCacheReader& usesGeometryCache,
                    const LogProgressCallback& progress) {
    const ErrorReporter::Collecting collecting(session.reporter);
    session.store = PendingEdits();
    session.files.keepNamesakesApart(session.store);
    session.unreadLog = UnreadLog();
    if (!session.host.beginReadEntry(texts::kProjectLogEntry))
        return;
    const auto xml = session.host.readEntry();
    if (!xml) {
        session.unreadLog.isUnreadable = true;
        session.reporter.report("", texts::kEntryNotReadable);
        return;
    }
    std::string leftOut;
    std::vector<std::u16string> fileNames;
    if (!readEditLog(*xml, session.store, session.reporter.callback(), texts::kEditLogName,
                     &leftOut, &fileNames)) {
        session.unreadLog.texts.push_back(*xml);
        session.reporter.report("", texts::kUnreadLogKept);
        platform::showMessageBox(texts::kParsingXmlError, texts::kProjectLogCaption);
        return;
    }
    session.unreadLog.texts = unreadTextsOf(*xml);
    if (!leftOut.empty()) {
        session.unreadLog.texts.push_back(std::move(leftOut));
        session.reporter.report("", texts::kSetsLeftOutKept);
    }
    followMovedNamesakes(session, fileNames);
    const bool usesCache = usesGeometryCache && usesGeometryCache(session.host.loadedIfcPath());
    assignAndDisplay(session, usesCache, progress);
}

bool saveProjectLog(EditSession& session, const GeometryCacheReader& usesGeometryCache,
                    const LogProgressCallback& progress) {
    const ErrorReporter::Collecting collecting(session.reporter);
    if (session.unreadLog.isUnreadable && !mayOverwrite())
        return false;
    const LogTexts log = logTexts(session, usesGeometryCache, progress);
    if (!session.host.beginWriteEntry(texts::kProjectLogEntry))
        return false;
    for (const std::string& fragment : log.fragments)
        session.host.writeEntry(fragment);
    for (const auto& [path, isCached] : log.cached)
        session.store.open(path).loggedAsCached = isCached;
    session.unreadLog.isUnreadable = false;
    return true;
}

}  // namespace IFC
