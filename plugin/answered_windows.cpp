#include "plugin/answered_windows.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "platform/text.h"
#include "plugin/plugin_texts.h"

namespace {

using platform::MessageAnswer;
using platform::MessageButtons;

template <class Value>
struct Word {
    std::u16string_view word;
    Value value;
};

constexpr Word<IFC::PropertyWindowMode> kModes[] = {
    {u"add-property", IFC::PropertyWindowMode::AddProperty},
    {u"edit-property", IFC::PropertyWindowMode::EditProperty},
    {u"add-set", IFC::PropertyWindowMode::AddSet},
    {u"rename-set", IFC::PropertyWindowMode::RenameSet}};
constexpr Word<IFC::ManyEdit::Kind> kKinds[] = {
    {u"add-set", IFC::ManyEdit::Kind::AddSet},
    {u"add-property", IFC::ManyEdit::Kind::AddProperty},
    {u"edit-property", IFC::ManyEdit::Kind::EditProperty},
    {u"delete-property", IFC::ManyEdit::Kind::DeleteProperty},
    {u"rename-set", IFC::ManyEdit::Kind::RenameSet},
    {u"delete-set", IFC::ManyEdit::Kind::DeleteSet}};
constexpr Word<std::int32_t> kValueTypes[] = {{u"text", kTextValue},
                                              {u"real", kRealValue},
                                              {u"truth", kTruthValue},
                                              {u"integer", kIntegerValue}};
constexpr Word<std::int32_t> kPolicies[] = {{u"0", 0}, {u"1", 1}, {u"2", 2}, {u"3", 3}};
constexpr Word<MessageButtons> kButtons[] = {{u"ok", MessageButtons::Ok},
                                             {u"ok-cancel", MessageButtons::OkCancel},
                                             {u"yes-no", MessageButtons::YesNo},
                                             {u"yes-no-cancel", MessageButtons::YesNoCancel}};
constexpr Word<MessageAnswer> kAnswers[] = {{u"ok", MessageAnswer::Ok},
                                            {u"cancel", MessageAnswer::Cancel},
                                            {u"yes", MessageAnswer::Yes},
                                            {u"no", MessageAnswer::No}};

template <class Value, std::size_t count>
std::u16string wordOf(const Word<Value> (&words)[count], Value value) {
    const auto found = std::find_if(std::begin(words), std::end(words),
                                    [&](const Word<Value>& word) { return word.value == value; });
    return std::u16string(found != std::end(words) ? found->word : std::u16string_view());
}

/// @return whether `word` is one of them.
template <class Value, std::size_t count>
bool takeWord(const Word<Value> (&words)[count], std::u16string_view word, Value& value) {
    const auto found = std::find_if(std::begin(words), std::end(words),
                                    [&](const Word<Value>& known) { return known.word == word; });
    if (found == std::end(words))
        return false;
    value = found->value;
    return true;
}

/// @return whether a property has such a field, and `value` is one for it.
bool takeField(std::string_view key, const std::u16string& value, IfcProperty& property) {
    if (key == "value-type")
        return takeWord(kValueTypes, value, property.valueType);
    const std::pair<std::string_view, std::u16string*> fields[] = {
        {"name", &property.name},     {"value", &property.value},
        {"prefix", &property.prefix}, {"quantity-type", &property.quantityType},
        {"unit", &property.unit},     {"entity", &property.entityName}};
    for (const auto& [name, field] : fields) {
        if (name == key) {
            *field = value;
            return true;
        }
    }
    return false;
}

bool takeField(std::string_view key, const std::u16string& value, IFC::ManyEdit& edit) {
    if (key == "set")
        edit.setName = value;
    else if (key == "new-set")
        edit.newSetName = value;
    else if (key == "new-name")
        edit.property.initialName = value;  // exchanged with the name when the edit is complete
    else
        return takeField(key, value, edit.property);
    return true;
}

bool isOffered(MessageButtons buttons, MessageAnswer answer) {
    switch (answer) {
        case MessageAnswer::Ok:
            return buttons == MessageButtons::Ok || buttons == MessageButtons::OkCancel;
        case MessageAnswer::Cancel:
            return buttons == MessageButtons::OkCancel || buttons == MessageButtons::YesNoCancel;
        case MessageAnswer::Yes:
        case MessageAnswer::No:
            return buttons == MessageButtons::YesNo || buttons == MessageButtons::YesNoCancel;
    }
    return false;
}

MessageAnswer answerMessage(const HostCalls& host, std::u16string_view text,
                            std::u16string_view caption, MessageButtons buttons) {
    const auto answer = host.answerWindow("message", {{"caption", std::u16string(caption)},
                                                      {"text", std::u16string(text)},
                                                      {"buttons", wordOf(kButtons, buttons)}});
    MessageAnswer pressed = platform::neutralAnswer(buttons);
    if (!answer)
        return pressed;
    for (const auto& [key, value] : *answer) {
        MessageAnswer named = pressed;
        if (key == "button" && takeWord(kAnswers, value, named) && isOffered(buttons, named))
            pressed = named;
    }
    return pressed;
}

}  // namespace

AnsweredWindows::AnsweredWindows(const HostCalls& host)
    : host_(host),
      handlerBefore_(platform::setMessageBoxHandler(
          [&host](std::u16string_view text, std::u16string_view caption, MessageButtons buttons,
                  platform::MessageIcon) { return answerMessage(host, text, caption, buttons); })) {
}

AnsweredWindows::~AnsweredWindows() { platform::setMessageBoxHandler(std::move(handlerBefore_)); }

std::optional<IFC::PropertyWindowResult> AnsweredWindows::askProperty(
    const IFC::PropertyWindowInput& input) {
    IFC::PropertyWindowResult result;
    result.setName = input.setName;
    IfcProperty& property = result.property;
    property.name = input.propertyName;
    property.value = input.isTruthValue ? (input.truthValue ? u"1" : u"0") : input.value;
    property.valueType = input.isTruthValue ? kTruthValue : kTextValue;
    property.quantityType = input.quantityType;
    property.prefix = input.prefix;
    property.unit = input.unit;
    const auto answer = host_.answerWindow("property", {{"mode", wordOf(kModes, input.mode)},
                                                        {"title", input.title},
                                                        {"set", result.setName},
                                                        {"name", property.name},
                                                        {"value", property.value},
                                                        {"quantity-type", property.quantityType},
                                                        {"prefix", property.prefix},
                                                        {"unit", property.unit}});
    if (!answer)
        return std::nullopt;
    // A property that is there keeps its type.
    const bool isNew = input.mode != IFC::PropertyWindowMode::EditProperty;
    for (const auto& [key, value] : *answer) {
        if (key == "set") {
            result.setName = value;
        } else if ((key == "value-type" && !isNew) || !takeField(key, value, property)) {
            refuse(platform::fromUtf8(key) + u"=" + value);
            return std::nullopt;
        }
    }
    return result;
}

void AnsweredWindows::editMany(const std::vector<std::uint64_t>& objects,
                               const IFC::ApplyManyEdits& apply) {
    WindowFields shown;
    for (const std::uint64_t object : objects)
        shown.emplace_back("object", platform::fromUtf8(std::to_string(object)));
    const auto answer = host_.answerWindow("edit-many", shown);
    if (!answer)
        return;
    IFC::ManyEdits many;
    for (const auto& [key, value] : *answer) {
        bool isTaken = false;
        if (key == "policy") {
            isTaken = takeWord(kPolicies, value, many.addingPolicy);
        } else if (key == "edit") {
            isTaken = takeWord(kKinds, value, many.edits.emplace_back().kind);
        } else if (!many.edits.empty()) {
            isTaken = takeField(key, value, many.edits.back());
        }
        if (!isTaken)
            return refuse(platform::fromUtf8(key) + u"=" + value);
    }
    for (IFC::ManyEdit& edit : many.edits) {
        IfcProperty& property = edit.property;
        if (property.initialName.empty())
            property.initialName = property.name;
        else
            std::swap(property.initialName, property.name);
    }
    apply(std::move(many), {});
}

void AnsweredWindows::refuse(const std::u16string& what) const {
    host_.messageBox(std::u16string(texts::kErrorCaption), std::u16string(texts::kBadAnswer) + what,
                     static_cast<std::uint32_t>(platform::MessageIcon::Error));
}
