#include "plugin/host_calls.h"

#include <algorithm>

#include "plugin/host_api.h"

namespace {

constexpr std::int64_t kLargestEntryBytes = std::int64_t{4} << 30;  // 4 GiB
/// A host that changes its mind about a count between two calls is asked so often.
constexpr int kCountAttempts = 3;

std::u16string textOf(const char16_t* text) { return text ? text : std::u16string(); }

std::u16string widened(const char* ascii) {
    const std::string_view text = ascii ? ascii : "";
    return {text.begin(), text.end()};
}

ObjectInfo copied(const HostObjectInfo& info) {
    return {.id = info.id,
            .fileId = info.fileId,
            .parentId = info.parentId,
            .guid = widened(info.guid),
            .name = textOf(info.name),
            .entityName = textOf(info.entityName),
            .instanceNumber = info.instanceNumber};
}

DisplayedProperty copied(const HostProperty& row) {
    return {.setName = textOf(row.setName),
            .setGuid = textOf(row.setGuid),
            .setEntityName = textOf(row.setEntityName),
            .name = textOf(row.name),
            .initialName = textOf(row.initialName),
            .value = textOf(row.value),
            .entityName = textOf(row.entityName),
            .quantityType = textOf(row.quantityType),
            .prefix = textOf(row.prefix),
            .unit = textOf(row.unit),
            .changeId = row.changeId,
            .kind = row.kind,
            .valueType = row.valueType,
            .state = row.state};
}

/// The texts stay those of `row`.
HostProperty lent(const DisplayedProperty& row) {
    HostProperty record{};
    record.setName = row.setName.c_str();
    record.setGuid = row.setGuid.c_str();
    record.setEntityName = row.setEntityName.c_str();
    record.name = row.name.c_str();
    record.initialName = row.initialName.c_str();
    record.value = row.value.c_str();
    record.entityName = row.entityName.c_str();
    record.quantityType = row.quantityType.c_str();
    record.prefix = row.prefix.c_str();
    record.unit = row.unit.c_str();
    record.changeId = row.changeId;
    record.kind = row.kind;
    record.valueType = row.valueType;
    record.state = row.state;
    return record;
}

const char16_t* textOrNull(const std::u16string& text) {
    return text.empty() ? nullptr : text.c_str();
}

/// All elements of a host list: `ask(buffer, capacity)` stores them and tells how many there are.
template <class Element, class Ask>
std::vector<Element> listOf(Ask ask) {
    std::int32_t count = ask(nullptr, 0);
    for (int attempt = 0; attempt < kCountAttempts && count > 0; ++attempt) {
        std::vector<Element> elements(static_cast<std::size_t>(count));
        const std::int32_t stored = ask(elements.data(), count);
        if (stored <= count) {
            elements.resize(static_cast<std::size_t>(std::max(stored, 0)));
            return elements;
        }
        count = stored;
    }
    return {};
}

}  // namespace

// Null when the host lacks the function, or before there is a handle.
#define QUILLET_FUNCTION(name) (handle_ != 0 ? api_->name : nullptr)

HostObjectId HostCalls::selectedId() const {
    const auto function = QUILLET_FUNCTION(get_selected_id);
    return function ? function(handle_) : 0;
}

HostObjectId HostCalls::allObjectsId() const {
    const auto function = QUILLET_FUNCTION(get_all_objects_id);
    return function ? function(handle_) : 0;
}

std::int32_t HostCalls::allObjectsCount() const {
    const auto function = QUILLET_FUNCTION(get_all_objects);
    return function ? std::max(function(handle_, nullptr, 0), 0) : 0;
}

std::vector<HostObjectId> HostCalls::allObjects() const {
    const auto function = QUILLET_FUNCTION(get_all_objects);
    if (!function)
        return {};
    return listOf<HostObjectId>([&](HostObjectId* buffer, std::int32_t capacity) {
        return function(handle_, buffer, capacity);
    });
}

std::int32_t HostCalls::selectedCount() const {
    const auto function = QUILLET_FUNCTION(get_selected);
    return function ? std::max(function(handle_, nullptr, 0), 0) : 0;
}

std::vector<HostObjectId> HostCalls::selected() const {
    const auto function = QUILLET_FUNCTION(get_selected);
    if (!function)
        return {};
    return listOf<HostObjectId>([&](HostObjectId* buffer, std::int32_t capacity) {
        return function(handle_, buffer, capacity);
    });
}

std::vector<HostObjectId> HostCalls::children(HostObjectId parent) const {
    const auto function = QUILLET_FUNCTION(get_childs);
    if (!function)
        return {};
    return listOf<HostObjectId>([&](HostObjectId* buffer, std::int32_t capacity) {
        return function(handle_, parent, buffer, capacity);
    });
}

std::optional<ObjectInfo> HostCalls::objectInfo(HostObjectId object) const {
    HostObjectInfo info{};
    if (const auto function = QUILLET_FUNCTION(get_object_info))
        return function(handle_, object, &info) ? std::optional(copied(info)) : std::nullopt;
    if (const auto function = QUILLET_FUNCTION(get_object_info2))
        return function(handle_, &object, 1, &info) ? std::optional(copied(info)) : std::nullopt;
    return std::nullopt;
}

std::optional<ObjectInfo> HostCalls::objectInfo2(HostObjectId object) const {
    HostObjectInfo info{};
    if (const auto function = QUILLET_FUNCTION(get_object_info2))
        return function(handle_, &object, 1, &info) ? std::optional(copied(info)) : std::nullopt;
    return objectInfo(object);
}

std::vector<DisplayedProperty> HostCalls::properties(HostObjectId object) const {
    const auto function = QUILLET_FUNCTION(get_object_properties2);
    if (!function)
        return {};
    const auto records = listOf<HostProperty>([&](HostProperty* buffer, std::int32_t capacity) {
        return function(handle_, object, kHostOwnProperties, buffer, capacity);
    });
    std::vector<DisplayedProperty> rows;
    rows.reserve(records.size());
    for (const HostProperty& record : records)
        rows.push_back(copied(record));
    return rows;
}

std::u16string HostCalls::projectPath(HostObjectId file) const {
    const auto function = QUILLET_FUNCTION(get_project_path);
    return function ? textOf(function(handle_, file)) : std::u16string();
}

std::u16string HostCalls::loadedIfcPath() const {
    const auto function = QUILLET_FUNCTION(get_loaded_ifc_path);
    return function ? textOf(function(handle_)) : std::u16string();
}

std::int32_t HostCalls::loadedIfcFilesCount() const {
    const auto function = QUILLET_FUNCTION(get_loaded_ifc_files_count);
    return function ? std::max(function(handle_), 0) : 0;
}

HostObjectId HostCalls::objectByGuid(std::u16string_view guid) const {
    const auto function = QUILLET_FUNCTION(calculate_object_id);
    const bool isAscii = std::all_of(guid.begin(), guid.end(),
                                     [](char16_t unit) { return unit > 0 && unit < 0x80; });
    if (!function || guid.empty() || !isAscii)
        return 0;
    std::string narrow;
    for (const char16_t unit : guid)
        narrow.push_back(static_cast<char>(unit));
    return function(handle_, narrow.c_str());
}

HostChangeId HostCalls::changeProperty(const DisplayRequest& request,
                                       std::span<const DisplayedProperty> properties) const {
    const auto function = QUILLET_FUNCTION(add_del_or_change_property);
    if (!function)
        return 0;
    std::vector<HostProperty> records;
    records.reserve(properties.size());
    for (const DisplayedProperty& row : properties)
        records.push_back(lent(row));
    HostPropertyRequest record{};
    record.action = request.action;
    record.instanceNumber = request.instanceNumber;
    record.objectId = request.objectId;
    record.objectGuid = request.objectGuid.c_str();
    record.setName = request.setName.c_str();
    record.setGuid = request.setGuid.c_str();
    record.newSetName = textOrNull(request.newSetName);
    record.propertyName = textOrNull(request.propertyName);
    record.previousChange = request.previousChange;
    record.propertyCount = static_cast<std::int32_t>(records.size());
    return function(handle_, &record, records.empty() ? nullptr : records.data());
}

void HostCalls::registerUndoAction(const std::u16string& displayText) const {
    if (const auto function = QUILLET_FUNCTION(register_undo_action))
        function(handle_, displayText.c_str());
}

void HostCalls::needSaveProject(bool needed) const {
    if (const auto function = QUILLET_FUNCTION(need_save_ahx))
        function(handle_, needed);
}

void HostCalls::invalidate() const {
    if (const auto function = QUILLET_FUNCTION(invalidate))
        function(handle_);
}

bool HostCalls::beginReadEntry(const std::u16string& name) const {
    const auto function = QUILLET_FUNCTION(begin_read_ahx_v2);
    return function && function(handle_, name.c_str());
}

std::optional<std::string> HostCalls::readEntry() const {
    const auto sizeOf = QUILLET_FUNCTION(get_ahx_size_v2);
    const auto read = QUILLET_FUNCTION(read_ahx_v2);
    if (!sizeOf || !read)
        return std::nullopt;
    const std::int64_t size = sizeOf(handle_);
    if (size < 0 || size > kLargestEntryBytes)
        return std::nullopt;
    std::string bytes(static_cast<std::size_t>(size), '\0');
    const std::int64_t count = size == 0 ? 0 : read(handle_, bytes.data(), size);
    return count == size ? std::optional(std::move(bytes)) : std::nullopt;
}

bool HostCalls::beginWriteEntry(const std::u16string& name) const {
    const auto function = QUILLET_FUNCTION(begin_write_ahx_v2);
    return function && function(handle_, name.c_str());
}

void HostCalls::writeEntry(std::string_view bytes) const {
    if (const auto function = QUILLET_FUNCTION(write_ahx_v2))
        function(handle_, bytes.data(), static_cast<std::int64_t>(bytes.size()));
}

std::u16string HostCalls::language() const {
    const auto function = QUILLET_FUNCTION(get_language);
    return function ? textOf(function(handle_)) : std::u16string();
}

bool HostCalls::loadTexts(const std::u16string& fileName) const {
    const auto function = QUILLET_FUNCTION(load_texts);
    return function && function(handle_, fileName.c_str());
}

std::u16string HostCalls::text(const char* key) const {
    const auto function = QUILLET_FUNCTION(get_text);
    return function ? textOf(function(handle_, key)) : std::u16string();
}

std::int32_t HostCalls::messageBox(const std::u16string& caption, const std::u16string& text,
                                   std::uint32_t flags) const {
    const auto function = QUILLET_FUNCTION(message_box);
    return function ? function(handle_, caption.c_str(), text.c_str(), flags) : 0;
}

void HostCalls::setSaveDialogParams(const std::optional<std::u16string>& filterCaption,
                                    const std::u16string& defaultName,
                                    const std::optional<std::u16string>& extension) const {
    if (const auto function = QUILLET_FUNCTION(set_save_dialog_params))
        function(handle_, filterCaption ? filterCaption->c_str() : nullptr, defaultName.c_str(),
                 extension ? extension->c_str() : nullptr);
}

void HostCalls::setSaveDialogDefaultExtension(const std::u16string& extension) const {
    if (const auto function = QUILLET_FUNCTION(set_save_dialog_default_extension))
        function(handle_, extension.c_str());
}

bool HostCalls::saveDialog(bool severalFiles) const {
    const auto function = QUILLET_FUNCTION(save_dialog);
    return function && function(handle_, severalFiles);
}

std::u16string HostCalls::saveDialogName() const {
    const auto function = QUILLET_FUNCTION(get_save_dialog_name);
    return function ? textOf(function(handle_)) : std::u16string();
}

bool HostCalls::hasProgressBar() const {
    return QUILLET_FUNCTION(show_progress_bar) && QUILLET_FUNCTION(update_progress_bar);
}

void HostCalls::showProgressBar(bool show, const std::u16string& caption) const {
    if (const auto function = QUILLET_FUNCTION(show_progress_bar))
        function(handle_, show, false, caption.c_str());
}

void HostCalls::updateProgressBar(std::int32_t overallPercent, const std::u16string& overallLabel,
                                  std::int32_t currentPercent,
                                  const std::u16string& currentLabel) const {
    if (const auto function = QUILLET_FUNCTION(update_progress_bar))
        function(handle_, overallPercent, overallLabel.c_str(), currentPercent,
                 currentLabel.c_str());
}

bool HostCalls::answersWindows() const { return QUILLET_FUNCTION(answer_window) != nullptr; }

std::optional<WindowFields> HostCalls::answerWindow(const char* window,
                                                    const WindowFields& shown) const {
    const auto function = QUILLET_FUNCTION(answer_window);
    if (!function)
        return std::nullopt;
    std::vector<HostWindowField> fields;
    for (const auto& [key, value] : shown)
        fields.push_back({key.c_str(), value.c_str()});
    fields.push_back({nullptr, nullptr});
    const HostWindowField* answer = function(handle_, window, fields.data());
    if (!answer)
        return std::nullopt;
    WindowFields entered;
    for (; answer->key; ++answer)
        entered.emplace_back(answer->key, textOf(answer->value));
    return entered;
}
