#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/schema_generator/schema.h"

namespace schema_generator {

/// A body and the kinds of value (of the operation's first attribute) that it is for; no kinds: for
/// all.
///
/// `$1$` is the member that holds the first attribute, `$1.info$` the constant that goes with it,
/// `$1.texts$` the values of its enumeration as lines of UTF-16 literals; `$2$` and so on likewise;
/// `$class$` is the implementing class.
struct ViewBody {
    std::string_view lines;  ///< not indented, without the last line end
    std::vector<ElementKind> elements = {};
};

struct ViewOperationRow {
    std::string_view result;
    std::string_view name;
    std::vector<std::string> parameters;
    bool isConst;
    std::vector<std::string_view> attributes;  ///< own or inherited ones of the implementing class
    std::vector<ViewBody> bodies;              ///< the first that fits is taken
};

/// Classes that stand for a view in the same way. A class that a release lacks is left out there.
struct ViewRow {
    std::string_view view;
    bool isVirtual;  ///< a more special view repeats this one
    std::vector<std::string_view> classes;
    std::vector<ViewOperationRow> operations;
};

/// The views of ifc/model/views.h and who implements them.
const std::vector<ViewRow>& viewTable();

}  // namespace schema_generator
