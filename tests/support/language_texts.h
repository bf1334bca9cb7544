#pragma once

#include <string>

#include "gui/text_lookup.h"

/// The texts of a language file of the product: "de".
TextLookup textsOfLanguage(const std::string& language);
