#pragma once

#include <string>

#include "edits/editing_windows.h"
#include "tests/support/language_texts.h"

/// What the property window is opened with, without a property.
inline IFC::PropertyWindowInput inputFor(IFC::PropertyWindowMode mode,
                                         const std::string& language = "en") {
    const TextLookup text = textsOfLanguage(language);
    IFC::PropertyWindowInput input;
    input.mode = mode;
    input.setName = u"Pset_WallCommon";
    input.title = text("propertyWindowName");
    input.setLabel = text("setLabel");
    input.setNameMessage = text("propertySetNameMessage");
    input.propertyNameMessage = text("propertyNameMessage");
    input.propertyData = text("propertyData");
    input.quantityTypeLabel = text("quantityTypeLabel");
    input.yes = text("yes");
    input.no = text("no");
    input.ok = text("btnOkName");
    input.cancel = text("btnCancelName");
    return input;
}
