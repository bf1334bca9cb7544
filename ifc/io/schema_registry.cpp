#include "ifc/io/schema_registry.h"

#include <algorithm>
#include <array>

#include "ifc/schemas/IFC2X2_FINAL/registration.h"
#include "ifc/schemas/IFC2X2_PLATFORM/registration.h"
#include "ifc/schemas/IFC2X3/registration.h"
#include "ifc/schemas/IFC2X_FINAL/registration.h"
#include "ifc/schemas/IFC4/registration.h"
#include "ifc/schemas/IFC4X1/registration.h"
#include "ifc/schemas/IFC4X2/registration.h"
#include "ifc/schemas/IFC4X3_ADD2/registration.h"

namespace IFC {

namespace {

struct Selection {
    std::u16string_view identifier;
    bool prefix;  ///< any identifier that begins so
    SchemaRelease release;
};

}  // namespace

const SchemaRelease* findRelease(std::u16string_view schemaIdentifier) {
    // Order matters: the prefix stands behind the longer names that begin with it.
    static const std::array<Selection, 9> kSelections = {{
        {u"IFC2X2_PLATFORM", false, {"IFC2X2_PLATFORM", IFC2X2_PLATFORM::registeredClasses()}},
        {u"IFC2X2_FINAL", false, {"IFC2X2_FINAL", IFC2X2_FINAL::registeredClasses()}},
        {u"IFC2X3", false, {"IFC2X3", IFC2X3::registeredClasses()}},
        {u"IFC2X", true, {"IFC2X_FINAL", IFC2X_FINAL::registeredClasses()}},
        {u"IFC4", false, {"IFC4", IFC4::registeredClasses()}},
        {u"IFC4X1", false, {"IFC4X1", IFC4X1::registeredClasses()}},
        {u"IFC4X2", false, {"IFC4X2", IFC4X2::registeredClasses()}},
        {u"IFC4X3", false, {"IFC4X3_ADD2", IFC4X3_ADD2::registeredClasses()}},
        {u"IFC4X3_ADD2", false, {"IFC4X3_ADD2", IFC4X3_ADD2::registeredClasses()}},
    }};
    const auto found =
        std::find_if(kSelections.begin(), kSelections.end(), [&](const Selection& selection) {
            return selection.prefix ? schemaIdentifier.starts_with(selection.identifier)
                                    : schemaIdentifier == selection.identifier;
        });
    return found == kSelections.end() ? nullptr : &found->release;
}

}  // namespace IFC
