// The functions that the host offers to plug-ins, each forwarded to the Host. In C++ they have
// names of their own, because some of the names are taken by the system's headers (select); the
// names under which plug-ins find them are given to the linker only.

#include <algorithm>

#include "platform/files.h"
#include "standin/core/host.h"
#include "standin/core/standin_texts.h"

#ifdef _WIN32
#define QUILLET_EXPORTED __declspec(dllexport)
#else
#define QUILLET_EXPORTED __attribute__((visibility("default")))
#endif

using standin::Host;
using standin::Object;
using standin::Objects;
using standin::RibbonItem;

extern "C" {
#define QUILLET_DECLARE(name, result, arguments) \
    QUILLET_EXPORTED result host_##name arguments noexcept __asm__(#name);
QUILLET_HOST_FUNCTIONS(QUILLET_DECLARE)
#undef QUILLET_DECLARE
}

namespace {

template <class Body>
auto serve(HostHandle handle, const char* function, Body body) noexcept {
    Host* const host = Host::current();
    return host ? host->serve(handle, function, body) : std::invoke_result_t<Body, Host&>();
}

std::u16string textOf(const char16_t* text) { return text ? text : std::u16string(); }

std::optional<std::u16string> optionalText(const char16_t* text) {
    return text ? std::optional<std::u16string>(text) : std::nullopt;
}

/// Stores as many as there is room for. @return how many there are.
std::int32_t fill(const std::vector<HostObjectId>& ids, HostObjectId* buffer,
                  std::int32_t capacity) {
    if (buffer && capacity > 0)
        std::copy_n(ids.begin(), std::min(ids.size(), static_cast<std::size_t>(capacity)), buffer);
    return static_cast<std::int32_t>(ids.size());
}

HostButtonId create(Host& host, RibbonItem::Kind kind, HostButtonId group, const char16_t* text,
                    const char16_t* hint, HostEventCallback clicked) {
    RibbonItem item;
    item.kind = kind;
    item.group = group;
    item.text = textOf(text);
    item.hint = textOf(hint);
    item.clicked = clicked;
    const HostButtonId id = host.ribbon().create(std::move(item));
    host.tellObserver(standin::HostPart::Ribbon);
    return id;
}

template <class Change>
void changeItem(HostHandle handle, const char* function, HostButtonId id, Change change) noexcept {
    serve(handle, function, [&](Host& host) {
        RibbonItem* const item = host.ribbon().find(id);
        if (!item)
            return host.violate(function, standin::texts::kUnknownButton);
        change(*item);
        host.tellObserver(standin::HostPart::Ribbon);
    });
}

}  // namespace

// ---- objects ----

HostObjectId host_get_selected_id(HostHandle handle) noexcept {
    return serve(handle, "get_selected_id", [](Host&) { return Objects::kSelection; });
}

HostObjectId host_get_all_objects_id(HostHandle handle) noexcept {
    return serve(handle, "get_all_objects_id", [](Host&) { return Objects::kAllObjects; });
}

std::int32_t host_get_all_objects(HostHandle handle, HostObjectId* buffer,
                                  std::int32_t capacity) noexcept {
    return serve(handle, "get_all_objects",
                 [&](Host& host) { return fill(host.objects().all(), buffer, capacity); });
}

std::int32_t host_get_selected(HostHandle handle, HostObjectId* buffer,
                               std::int32_t capacity) noexcept {
    return serve(handle, "get_selected",
                 [&](Host& host) { return fill(host.objects().selected(), buffer, capacity); });
}

std::int32_t host_get_childs(HostHandle handle, HostObjectId parent, HostObjectId* buffer,
                             std::int32_t capacity) noexcept {
    return serve(handle, "get_childs", [&](Host& host) {
        return fill(host.objects().children(parent), buffer, capacity);
    });
}

/// 1 for every object, 3 for a selected one.
std::int32_t host_get_object_state(HostHandle handle, HostObjectId id) noexcept {
    return serve(handle, "get_object_state", [&](Host& host) {
        return !host.objects().find(id) ? 0 : host.objects().isSelected(id) ? 3 : 1;
    });
}

bool host_get_object_info(HostHandle handle, HostObjectId id, HostObjectInfo* info) noexcept {
    return serve(handle, "get_object_info",
                 [&](Host& host) { return host.describe("get_object_info", id, info); });
}

bool host_get_object_info2(HostHandle handle, const HostObjectId* ids, std::int32_t count,
                           HostObjectInfo* infos) noexcept {
    return serve(handle, "get_object_info2", [&](Host& host) {
        if (!ids || !infos) {
            host.violate("get_object_info2", standin::texts::kNullArgument);
            return false;
        }
        bool areAllKnown = true;
        for (std::int32_t at = 0; at < count; ++at)
            areAllKnown &= host.describe("get_object_info2", ids[at], infos + at);
        return areAllKnown;
    });
}

std::int32_t host_get_object_properties2(HostHandle handle, HostObjectId id, std::int32_t selector,
                                         HostProperty* buffer, std::int32_t capacity) noexcept {
    return serve(handle, "get_object_properties2", [&](Host& host) {
        return selector == kHostOwnProperties ? host.properties(id, buffer, capacity) : 0;
    });
}

HostObjectId host_get_project(HostHandle handle) noexcept {
    return serve(handle, "get_project", [](Host& host) -> HostObjectId {
        for (const HostObjectId id : host.objects().all())
            if (host.objects().find(id)->entityName == u"IfcProject")
                return id;
        return 0;
    });
}

const char16_t* host_get_project_path(HostHandle handle, HostObjectId file) noexcept {
    return serve(handle, "get_project_path", [&](Host& host) -> const char16_t* {
        const standin::LoadedFile* const found = host.objects().findFile(file);
        return found ? host.loans().lend(found->path) : nullptr;
    });
}

const char16_t* host_get_loaded_ifc_path(HostHandle handle) noexcept {
    return serve(handle, "get_loaded_ifc_path", [](Host& host) -> const char16_t* {
        const auto& files = host.objects().files();
        return files.empty() ? nullptr : host.loans().lend(files[0].path);
    });
}

std::int32_t host_get_loaded_ifc_files_count(HostHandle handle) noexcept {
    return serve(handle, "get_loaded_ifc_files_count", [](Host& host) {
        return static_cast<std::int32_t>(host.objects().files().size());
    });
}

HostObjectId host_calculate_object_id(HostHandle handle, const char* guid) noexcept {
    return serve(handle, "calculate_object_id", [&](Host& host) -> HostObjectId {
        const std::string_view ascii = guid ? guid : "";
        const Object* const object =
            host.objects().findByGuid(std::u16string(ascii.begin(), ascii.end()));
        return object ? object->id : 0;
    });
}

void host_select(HostHandle handle, HostObjectId id) noexcept {
    serve(handle, "select", [&](Host& host) {
        if (!host.objectFor("select", id))
            return;
        host.objects().select({id});
        host.tellObserver(standin::HostPart::Selection);
    });
}

// ---- edits and the project file ----

void host_register_undo_action(HostHandle handle, const char16_t* displayText) noexcept {
    serve(handle, "register_undo_action", [&](Host& host) { host.addUndo(textOf(displayText)); });
}

void host_need_save_ahx(HostHandle handle, bool isNeeded) noexcept {
    serve(handle, "need_save_ahx", [&](Host& host) { host.setNeedsSave(isNeeded); });
}

void host_invalidate(HostHandle handle) noexcept {
    serve(handle, "invalidate", [](Host& host) { host.repaint(); });
}

bool host_begin_read_ahx_v2(HostHandle handle, const char16_t* entryName) noexcept {
    return serve(handle, "begin_read_ahx_v2",
                 [&](Host& host) { return host.project().beginRead(textOf(entryName)); });
}

std::int64_t host_get_ahx_size_v2(HostHandle handle) noexcept {
    return serve(handle, "get_ahx_size_v2", [](Host& host) {
        if (host.project().readSize() < 0)
            host.violate("get_ahx_size_v2", standin::texts::kNotBegun);
        return std::max<std::int64_t>(host.project().readSize(), 0);
    });
}

std::int64_t host_read_ahx_v2(HostHandle handle, void* buffer, std::int64_t size) noexcept {
    return serve(handle, "read_ahx_v2", [&](Host& host) {
        if (host.project().readSize() < 0)
            host.violate("read_ahx_v2", standin::texts::kNotBegun);
        return host.project().read(buffer, size);
    });
}

bool host_begin_write_ahx_v2(HostHandle handle, const char16_t* entryName) noexcept {
    return serve(handle, "begin_write_ahx_v2", [&](Host& host) {
        const bool isSaving = host.project().isSaving();
        const bool isBegun = host.project().beginWrite(textOf(entryName));
        if (!isBegun)
            host.violate("begin_write_ahx_v2",
                         isSaving ? standin::texts::kHostEntry : standin::texts::kNotSaving);
        return isBegun;
    });
}

void host_write_ahx_v2(HostHandle handle, const void* data, std::int64_t size) noexcept {
    serve(handle, "write_ahx_v2", [&](Host& host) {
        if (size < 0 || (size > 0 && !data))
            host.violate("write_ahx_v2",
                         size < 0 ? standin::texts::kNegativeSize : standin::texts::kNullArgument);
        else if (!host.project().write(data, size))
            host.violate("write_ahx_v2", standin::texts::kNotBegun);
    });
}

// ---- texts and dialogs ----

const char16_t* host_get_language(HostHandle handle) noexcept {
    return serve(handle, "get_language",
                 [](Host& host) { return host.loans().lend(host.language()); });
}

bool host_load_texts(HostHandle handle, const char16_t* fileName) noexcept {
    return serve(handle, "load_texts",
                 [&](Host& host) { return host.loadTexts(textOf(fileName)); });
}

const char16_t* host_get_text(HostHandle handle, const char* key) noexcept {
    return serve(handle, "get_text", [&](Host& host) -> const char16_t* {
        const std::u16string* const text = host.texts().find(key ? key : "");
        return text ? host.loans().lend(*text) : nullptr;
    });
}

std::int32_t host_message_box(HostHandle handle, const char16_t* caption, const char16_t* text,
                              std::uint32_t flags) noexcept {
    return serve(handle, "message_box", [&](Host& host) {
        return host.dialogs().messageBox(textOf(caption), textOf(text), flags);
    });
}

void host_set_save_dialog_params(HostHandle handle, const char16_t* filterCaption,
                                 const char16_t* defaultName, const char16_t* extension) noexcept {
    serve(handle, "set_save_dialog_params", [&](Host& host) {
        host.dialogs().setSaveDialogParams(optionalText(filterCaption), textOf(defaultName),
                                           optionalText(extension));
    });
}

void host_set_save_dialog_default_extension(HostHandle handle, const char16_t* extension) noexcept {
    serve(handle, "set_save_dialog_default_extension",
          [&](Host& host) { host.dialogs().setSaveDialogDefaultExtension(textOf(extension)); });
}

bool host_save_dialog(HostHandle handle, bool severalFiles) noexcept {
    return serve(handle, "save_dialog",
                 [&](Host& host) { return host.dialogs().saveDialog(severalFiles); });
}

const char16_t* host_get_save_dialog_name(HostHandle handle) noexcept {
    return serve(handle, "get_save_dialog_name",
                 [](Host& host) { return host.loans().lend(host.dialogs().saveDialogName()); });
}

void host_show_progress_bar(HostHandle handle, bool show, bool, const char16_t* caption) noexcept {
    serve(handle, "show_progress_bar",
          [&](Host& host) { host.dialogs().showProgress(show, textOf(caption)); });
}

void host_update_progress_bar(HostHandle handle, std::int32_t overallPercent,
                              const char16_t* overallLabel, std::int32_t currentPercent,
                              const char16_t* currentLabel) noexcept {
    serve(handle, "update_progress_bar", [&](Host& host) {
        host.dialogs().updateProgress(overallPercent, textOf(overallLabel), currentPercent,
                                      textOf(currentLabel));
    });
}

// ---- ribbon ----

HostButtonId host_create_group(HostHandle handle, const char16_t* caption) noexcept {
    return serve(handle, "create_group", [&](Host& host) {
        return create(host, RibbonItem::Kind::Group, 0, caption, nullptr, nullptr);
    });
}

HostButtonId host_create_small_button(HostHandle handle, HostButtonId group, const char16_t* text,
                                      const char16_t* hint, HostEventCallback clicked) noexcept {
    return serve(handle, "create_small_button", [&](Host& host) {
        return create(host, RibbonItem::Kind::Button, group, text, hint, clicked);
    });
}

HostButtonId host_create_checkbox(HostHandle handle, HostButtonId group, const char16_t* text,
                                  const char16_t* hint, HostEventCallback clicked) noexcept {
    return serve(handle, "create_checkbox", [&](Host& host) {
        return create(host, RibbonItem::Kind::CheckBox, group, text, hint, clicked);
    });
}

HostButtonId host_create_sub_button(HostHandle handle, HostButtonId group, const char16_t* text,
                                    const char16_t* hint, HostEventCallback clicked) noexcept {
    return serve(handle, "create_sub_button", [&](Host& host) {
        return create(host, RibbonItem::Kind::SubButton, group, text, hint, clicked);
    });
}

void host_add_button(HostHandle handle, HostButtonId list, HostButtonId id) noexcept {
    changeItem(handle, "add_button", id, [&](RibbonItem& item) { item.list = list; });
}

void host_set_button_text(HostHandle handle, HostButtonId id, const char16_t* text,
                          const char16_t* hint) noexcept {
    changeItem(handle, "set_button_text", id, [&](RibbonItem& item) {
        item.text = textOf(text);
        item.hint = textOf(hint);
    });
}

void host_set_button_image(HostHandle handle, HostButtonId id, const char16_t* path) noexcept {
    changeItem(handle, "set_button_image", id,
               [&](RibbonItem& item) { item.image = textOf(path); });
}

void host_set_button_small_image(HostHandle handle, HostButtonId id,
                                 const char16_t* path) noexcept {
    changeItem(handle, "set_button_small_image", id,
               [&](RibbonItem& item) { item.smallImage = textOf(path); });
}

void host_set_button_down(HostHandle handle, HostButtonId id, bool isDown) noexcept {
    changeItem(handle, "set_button_down", id, [&](RibbonItem& item) { item.isDown = isDown; });
}

void host_enable_button(HostHandle handle, HostButtonId id, bool isEnabled) noexcept {
    changeItem(handle, "enable_button", id, [&](RibbonItem& item) { item.isEnabled = isEnabled; });
}

HostButtonId host_clicked_button(HostHandle handle) noexcept {
    return serve(handle, "clicked_button", [](Host& host) { return host.clickedButton(); });
}

void host_add_context_button(HostHandle handle, HostButtonId id) noexcept {
    serve(handle, "add_context_button", [&](Host& host) {
        if (host.ribbon().find(id))
            host.ribbon().contextMenu().push_back(id);
        else
            host.violate("add_context_button", standin::texts::kUnknownButton);
    });
}

/// This host draws nothing that could be clicked.
HostObjectId host_get_draw_object_id(HostHandle handle) noexcept {
    return serve(handle, "get_draw_object_id", [](Host&) { return HostObjectId{0}; });
}

// ---- events ----

#define QUILLET_REGISTER(name)                                                          \
    void host_##name(HostHandle handle, HostEventCallback callback) noexcept {          \
        serve(handle, #name, [&](Host& host) { host.registerEvent(#name, callback); }); \
    }
QUILLET_REGISTER(on_measure_change)
QUILLET_REGISTER(on_model_clear)
QUILLET_REGISTER(on_main_form_close)
QUILLET_REGISTER(on_selection_change)
QUILLET_REGISTER(on_hover)
QUILLET_REGISTER(on_draw)
QUILLET_REGISTER(on_draw_object_click)
QUILLET_REGISTER(on_context_menu)
QUILLET_REGISTER(on_gallery_item_context_menu)
QUILLET_REGISTER(on_tab_change)
QUILLET_REGISTER(on_tab_sheet_placement)
QUILLET_REGISTER(on_tab_sheet_change)
QUILLET_REGISTER(on_property_change)
QUILLET_REGISTER(on_object_list_changed)
QUILLET_REGISTER(on_model_load)
QUILLET_REGISTER(on_save_ahx)
#undef QUILLET_REGISTER

void host_on_plugin_message(HostHandle handle, HostMessageCallback callback) noexcept {
    serve(handle, "on_plugin_message", [&](Host& host) { host.registerMessage(callback); });
}

// ---- looked up late ----

HostChangeId host_add_del_or_change_property(HostHandle handle, const HostPropertyRequest* request,
                                             const HostProperty* records) noexcept {
    return serve(handle, "add_del_or_change_property",
                 [&](Host& host) { return host.changeDisplay(request, records); });
}

const HostWindowField* host_answer_window(HostHandle handle, const char* window,
                                          const HostWindowField* shown) noexcept {
    return serve(handle, "answer_window", [&](Host& host) -> const HostWindowField* {
        standin::WindowFields fields;
        for (const HostWindowField* field = shown; field && field->key; ++field)
            fields.emplace_back(field->key, textOf(field->value));
        const auto answer = host.dialogs().window(window ? window : "", std::move(fields));
        if (!answer)
            return nullptr;
        auto* const records = static_cast<HostWindowField*>(
            host.loans().lendBytes((answer->size() + 1) * sizeof(HostWindowField)));
        for (std::size_t at = 0; at < answer->size(); ++at)
            records[at] = {host.loans().lend((*answer)[at].first),
                           host.loans().lend((*answer)[at].second)};
        return records;  // its memory is zeroed: the end is marked
    });
}
