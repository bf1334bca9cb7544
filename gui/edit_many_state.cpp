#include "gui/edit_many_state.h"

#include "gui/edit_many_texts.h"
#include "gui/qt_text.h"

RowCaptions rowCaptions(const HostCalls& host) {
    namespace keys = texts::many;
    const auto text = [&](const char* key) { return toQString(host.text(key)); };
    return {.select = text(keys::kSelectKey),
            .selectValue = text(keys::kSelectValueKey),
            .editSeparately = text(keys::kEditSeparatelyKey),
            .addProperty = text(keys::kAddPropertyKey),
            .deleteSet = text(keys::kDeleteSetKey),
            .deleteProperty = text(keys::kDeletePropertyKey),
            .numberAllowed = text(keys::kNumberAllowedKey),
            .yes = text(keys::kYesKey),
            .no = text(keys::kNoKey),
            .setName = text(keys::kSetNameKey),
            .propertyName = text(keys::kPropertyNameKey),
            .value = text(keys::kValueKey),
            .before = text(keys::kOldNameKey),
            .editAllQuestion = text(keys::kEditAllQuestionKey),
            .deleteAllQuestion = text(keys::kDeleteAllQuestionKey),
            .addToAllQuestion = text(keys::kAddToAllQuestionKey)};
}

EditManyState& editManyState() {
    static EditManyState state;
    return state;
}
