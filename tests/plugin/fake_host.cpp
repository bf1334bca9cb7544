#include "tests/plugin/fake_host.h"

#include <algorithm>

#include "platform/text.h"

namespace {

FakeHost* host = nullptr;

std::string utf8(const char16_t* text) { return text ? platform::toUtf8(text) : "-"; }

std::string number(std::int64_t value) { return std::to_string(value); }

template <class Value>
std::int32_t listed(const std::vector<Value>& values, Value* buffer, std::int32_t capacity) {
    const auto count = static_cast<std::int32_t>(values.size());
    if (buffer)
        std::copy_n(values.begin(), std::min(count, capacity), buffer);
    return count;
}

}  // namespace

struct FakeHostFunctions {
    static HostButtonId create(const std::string& what) {
        const HostButtonId id = host->nextButton_++;
        host->ribbon.push_back(what + "=" + number(id));
        return id;
    }

    template <class Function>
    static HostButtonId createItem(const char* function, HostButtonId group, const char16_t* text,
                                   const char16_t* hint, Function clicked) {
        host->clickedCallback = clicked;
        return create(std::string(function) + "(" + number(group) + " " + utf8(text) + " " +
                      utf8(hint) + ")");
    }

    static void addObjects(HostApi& api) {
        api.get_all_objects_id = [](HostHandle) { return FakeHost::kAllObjects; };
        api.get_childs = [](HostHandle, HostObjectId parent, HostObjectId* buffer,
                            std::int32_t capacity) {
            return parent == FakeHost::kAllObjects
                       ? listed(std::vector<HostObjectId>{FakeHost::kFile}, buffer, capacity)
                       : 0;
        };
        api.get_all_objects = [](HostHandle, HostObjectId* buffer, std::int32_t capacity) {
            return listed(std::vector<HostObjectId>{FakeHost::kWall}, buffer, capacity);
        };
        api.get_selected = [](HostHandle, HostObjectId* buffer, std::int32_t capacity) {
            return listed(host->selected, buffer, capacity);
        };
        api.get_object_info = [](HostHandle, HostObjectId object, HostObjectInfo* info) {
            *info = {};
            info->id = object;
            info->fileId = FakeHost::kFile;
            info->guid = "3aP0vaNNWm5LC0gJaDf$li";
            info->name = u"South wall";
            info->entityName = host->entityName.c_str();
            info->instanceNumber = host->instanceNumber;
            return object == FakeHost::kWall;
        };
        api.get_object_properties2 = [](HostHandle, HostObjectId, std::int32_t,
                                        HostProperty* buffer, std::int32_t capacity) {
            return listed(host->rows, buffer, capacity);
        };
        api.get_project_path = [](HostHandle, HostObjectId) { return host->filePath.c_str(); };
        api.get_loaded_ifc_files_count = [](HostHandle) { return 1; };
        api.add_del_or_change_property = [](HostHandle, const HostPropertyRequest* request,
                                            const HostProperty* property) {
            std::string change = number(request->action) + " " + utf8(request->setName);
            if (request->newSetName)
                change += " -> " + utf8(request->newSetName);
            if (request->propertyName)
                change += "." + utf8(request->propertyName) + " = " + utf8(property->name) + " " +
                          utf8(property->value);
            host->changes.push_back(change);
            return host->nextChange_++;
        };
        api.register_undo_action = [](HostHandle, const char16_t* text) {
            host->undoList.push_back(utf8(text));
        };
        api.need_save_ahx = [](HostHandle, bool needed) { host->savesNeeded += needed ? 1 : 0; };
        api.invalidate = [](HostHandle) {};
    }

    static void addTexts(HostApi& api) {
        api.get_language = [](HostHandle) {
            host->text_ = platform::fromUtf8(host->language);
            return host->text_.c_str();
        };
        api.load_texts = [](HostHandle, const char16_t* name) {
            host->loadedFiles.push_back(utf8(name));
            return std::find(host->missingFiles.begin(), host->missingFiles.end(), utf8(name)) ==
                   host->missingFiles.end();
        };
        api.get_text = [](HostHandle, const char* key) {
            host->text_ = platform::fromUtf8("<" + std::string(key) + ">");
            return host->text_.c_str();
        };
        api.message_box = [](HostHandle, const char16_t* caption, const char16_t* text,
                             std::uint32_t flags) {
            host->messages.push_back(utf8(caption) + "|" + utf8(text) + "|" + number(flags));
            return 0;
        };
    }

    static void addRibbon(HostApi& api) {
        api.create_group = [](HostHandle, const char16_t* caption) {
            return create("create_group(" + utf8(caption) + ")");
        };
        api.create_small_button = [](HostHandle, HostButtonId group, const char16_t* text,
                                     const char16_t* hint, HostEventCallback clicked) {
            return createItem("create_small_button", group, text, hint, clicked);
        };
        api.create_sub_button = [](HostHandle, HostButtonId group, const char16_t* text,
                                   const char16_t* hint, HostEventCallback clicked) {
            return createItem("create_sub_button", group, text, hint, clicked);
        };
        api.create_checkbox = [](HostHandle, HostButtonId group, const char16_t* text,
                                 const char16_t* hint, HostEventCallback clicked) {
            return createItem("create_checkbox", group, text, hint, clicked);
        };
        api.add_button = [](HostHandle, HostButtonId list, HostButtonId item) {
            host->ribbon.push_back("add_button " + number(list) + " " + number(item));
        };
        api.set_button_image = [](HostHandle, HostButtonId button, const char16_t* path) {
            const std::string image = utf8(path);
            host->ribbon.push_back("set_button_image " + number(button) + " " +
                                   image.substr(image.find_last_of("/\\") + 1));
        };
        api.set_button_small_image = [](HostHandle, HostButtonId button, const char16_t* path) {
            const std::string image = utf8(path);
            host->ribbon.push_back("set_button_small_image " + number(button) + " " +
                                   image.substr(image.find_last_of("/\\") + 1));
        };
        api.set_button_down = [](HostHandle, HostButtonId button, bool down) {
            host->ribbon.push_back("set_button_down " + number(button) + (down ? " on" : " off"));
        };
        api.enable_button = [](HostHandle, HostButtonId button, bool enabled) {
            host->ribbon.push_back("enable_button " + number(button) + (enabled ? " on" : " off"));
        };
        api.clicked_button = [](HostHandle) { return host->clicked; };
        api.add_context_button = [](HostHandle, HostButtonId button) {
            host->ribbon.push_back("add_context_button " + number(button));
        };
    }

    static void addEvents(HostApi& api) {
#define QUILLET_REGISTER(name, result, arguments) \
    api.name = [](HostHandle, auto) { host->registered.push_back(#name); };
        QUILLET_HOST_EVENT_FUNCTIONS(QUILLET_REGISTER)
#undef QUILLET_REGISTER
        api.on_context_menu = [](HostHandle, HostEventCallback callback) {
            host->registered.push_back("on_context_menu");
            host->contextMenuCallback = callback;
        };
    }

    static const HostWindowField* answerWindow(HostHandle, const char* window,
                                               const HostWindowField* shown) {
        std::string noted = window;
        for (; shown->key; ++shown)
            noted += std::string(" ") + shown->key + "=" + utf8(shown->value);
        host->windows.push_back(noted);
        if (host->answers_.empty())
            return nullptr;
        const auto answer = host->answers_.front();
        host->answers_.pop_front();
        if (!answer)
            return nullptr;
        host->answer_ = *answer;
        host->answerRecords_.clear();
        for (const auto& [key, value] : host->answer_)
            host->answerRecords_.push_back({key.c_str(), value.c_str()});
        host->answerRecords_.push_back({nullptr, nullptr});
        return host->answerRecords_.data();
    }
};

FakeHost::FakeHost() {
    host = this;
    FakeHostFunctions::addObjects(api);
    FakeHostFunctions::addTexts(api);
    FakeHostFunctions::addRibbon(api);
    FakeHostFunctions::addEvents(api);
}

FakeHost::~FakeHost() { host = nullptr; }

void FakeHost::answer(std::optional<WindowFields> fields) {
    api.answer_window = &FakeHostFunctions::answerWindow;
    answers_.push_back(std::move(fields));
}
