#include "tools/schema_generator/view_table.h"

namespace schema_generator {

namespace {

constexpr bool kConst = true;
constexpr bool kChanges = false;
constexpr bool kVirtual = true;
constexpr bool kDirect = false;

constexpr std::string_view kEntity = "IFC::IfcEntity*";
constexpr std::string_view kText = "std::u16string_view";
constexpr std::string_view kName = "std::string_view";

constexpr std::string_view kReturnMember = "return $1$;";
constexpr std::string_view kReturnView = "return $1$.view();";
constexpr std::string_view kReturnValueName = "return IFC::nameOf($1.info$, $1$);";
constexpr std::string_view kAppendAll = "IFC::append(out, $1$, $1.info$);";
/// For parameters called `entity` and `replacement`.
constexpr std::string_view kReplace =
    "return IFC::replace(pool, $1$, $1.info$, entity, replacement);";
/// The same for an optional list, which is never empty.
constexpr std::string_view kReplaceOptional =
    "if (!IFC::replace(pool, $1$, $1.info$, entity, replacement))\n"
    "    return false;\n"
    "$1$.present = $1$.count > 0;\n"
    "return true;";

const std::string kPool = "IFC::MemoryPool& pool";
const std::string kOut = "std::vector<IFC::IfcEntity*>& out";

const ViewOperationRow kClone = {kEntity, "clone", {kPool},
                                 kConst,  {},      {{"return pool.create<$class$>(*this);"}}};

/// The six views of quantities differ in the name of the attribute that holds the value.
ViewRow quantityRow(std::string_view className, std::string_view valueAttribute) {
    return {"IFC::VQuantityProperty",
            kDirect,
            {className},
            {{"IFC::SimpleValue",
              "quantityValue",
              {},
              kChanges,
              {valueAttribute},
              {{"return {.real = &$1$};", {ElementKind::Real, ElementKind::Number}},
               {"return {.integer = &$1$};", {ElementKind::Integer}}}},
             {kEntity, "quantityUnit", {}, kConst, {"Unit"}, {{kReturnMember}}},
             {"bool",
              "setQuantityUnit",
              {"IFC::IfcEntity* unit"},
              kChanges,
              {"Unit"},
              {{"return IFC::assign($1$, unit, $1.info$);"}}},
             kClone}};
}

ViewRow namedUnitRow(std::string_view className, std::string_view nameAttribute) {
    return {"IFC::VirtualNamedUnit",
            kDirect,
            {className},
            {{kText,
              "displayName",
              {},
              kConst,
              {nameAttribute},
              {{kReturnView, {ElementKind::Text}},
               {"static constexpr std::u16string_view kTexts[] = {\n"
                "    $1.texts$\n"
                "};\n"
                "const auto index = static_cast<std::size_t>($1$.index);\n"
                "if (!$1$.present || index >= std::size(kTexts))\n"
                "    return {};\n"
                "return kTexts[index];",
                {ElementKind::Enumeration}}}}}};
}

ViewRow unitRow(std::vector<std::string_view> classes) {
    return {"IFC::IfcUnit",
            kDirect,
            std::move(classes),
            {{kName, "unitType", {}, kConst, {"UnitType"}, {{kReturnValueName}}}}};
}

/// IfcProperty and IfcPhysicalQuantity, which share no supertype with a name in all releases.
ViewRow propertyRow() {
    return {"IFC::VIfcProperty",
            kVirtual,
            {"IfcProperty", "IfcPhysicalQuantity"},
            {{kText, "propertyName", {}, kConst, {"Name"}, {{kReturnView}}},
             {"void",
              "setPropertyName",
              {kPool, "std::u16string_view name"},
              kChanges,
              {"Name"},
              {{"$1$ = IFC::keptText(pool, name);"}}}}};
}

ViewRow rootRow() {
    return {"IFC::VirtualIfcRoot",
            kDirect,
            {"IfcRoot"},
            {{"void",
              "setRootAttributes",
              {kPool, "const std::u16string_view* globalId", "IFC::IfcEntity* ownerHistory",
               "const std::u16string_view* name"},
              kChanges,
              {"GlobalId", "OwnerHistory", "Name"},
              {{"if (globalId)\n"
                "    $1$ = IFC::keptText(pool, *globalId);\n"
                "if (ownerHistory)\n"
                "    IFC::assign($2$, ownerHistory, $2.info$);\n"
                "if (name)\n"
                "    $3$ = IFC::keptText(pool, *name);"}}},
             {kText, "globalId", {}, kConst, {"GlobalId"}, {{kReturnView}}},
             {"void",
              "setGlobalId",
              {kPool, "std::u16string_view globalId"},
              kChanges,
              {"GlobalId"},
              {{"$1$ = IFC::keptText(pool, globalId);"}}},
             {kText, "name", {}, kConst, {"Name"}, {{kReturnView}}}}};
}

ViewRow propertySetRow() {
    return {"IFC::VirtualIfcPropertySet",
            kDirect,
            {"IfcPropertySet"},
            {{"void", "properties", {kOut}, kConst, {"HasProperties"}, {{kAppendAll}}},
             {"bool",
              "addProperty",
              {kPool, "IFC::IfcEntity* property"},
              kChanges,
              {"HasProperties"},
              {{"return IFC::replace(pool, $1$, $1.info$, nullptr, property);"}}},
             {"bool",
              "replaceProperty",
              {kPool, "IFC::IfcEntity* property", "IFC::IfcEntity* replacement"},
              kChanges,
              {"HasProperties"},
              {{"return property && IFC::replace(pool, $1$, $1.info$, property, replacement);"}}}}};
}

ViewRow propertyRelationRow() {
    return {"IFC::VirtualPropertyRelation",
            kDirect,
            {"IfcRelDefinesByProperties"},
            {{"bool",
              "addRelatedObject",
              {kPool, "IFC::IfcEntity* object"},
              kChanges,
              {"RelatedObjects"},
              {{"return IFC::replace(pool, $1$, $1.info$, nullptr, object);"}}},
             {"bool",
              "setRelatingPropertyDefinition",
              {"IFC::IfcEntity* definition"},
              kChanges,
              {"RelatingPropertyDefinition"},
              {{"return IFC::assign($1$, definition, $1.info$);"}}},
             {"void", "relatedObjects", {kOut}, kConst, {"RelatedObjects"}, {{kAppendAll}}},
             {"bool",
              "removeRelatedObject",
              {kPool, "std::u16string_view globalId"},
              kChanges,
              {"RelatedObjects"},
              {{"return IFC::removeByGlobalId(pool, $1$, $1.info$, globalId);"}}},
             {kEntity,
              "relatingPropertyDefinition",
              {},
              kConst,
              {"RelatingPropertyDefinition"},
              {{kReturnMember}}}}};
}

/// A view of one list: who is in it, and `replaceName` to change it.
ViewRow listRow(std::string_view view, std::string_view className, std::string_view attribute,
                std::string_view listName, std::string_view replaceName,
                std::string_view replaceBody) {
    return {view,
            kDirect,
            {className},
            {{"void", listName, {kOut}, kConst, {attribute}, {{kAppendAll}}},
             {"bool",
              replaceName,
              {kPool, "IFC::IfcEntity* entity", "IFC::IfcEntity* replacement"},
              kChanges,
              {attribute},
              {{replaceBody}}}}};
}

ViewRow complexPropertyRow(std::string_view className, std::string_view attribute) {
    ViewRow row = listRow("IFC::VComplexProperty", className, attribute, "members", "replaceMember",
                          kReplace);
    row.operations.push_back(kClone);
    return row;
}

ViewRow attachmentRow(std::vector<std::string_view> classes, std::string_view attribute) {
    return {"IFC::VirtualAttachment",
            kDirect,
            std::move(classes),
            {{"void", "attachedTo", {kOut}, kConst, {attribute}, {{kAppendAll}}}}};
}

ViewRow singleValueRow() {
    return {"IFC::VIfcPropertySingleValue",
            kDirect,
            {"IfcPropertySingleValue"},
            {{kEntity, "nominalValue", {}, kConst, {"NominalValue"}, {{kReturnMember}}},
             {"bool",
              "setNominalValue",
              {"IFC::IfcEntity* value"},
              kChanges,
              {"NominalValue"},
              {{"return IFC::assign($1$, value, $1.info$);"}}},
             {kEntity, "unit", {}, kConst, {"Unit"}, {{kReturnMember}}},
             {"bool",
              "setUnit",
              {"IFC::IfcEntity* unit"},
              kChanges,
              {"Unit"},
              {{"return IFC::assign($1$, unit, $1.info$);"}}},
             kClone}};
}

ViewRow siUnitRow() {
    return {"IFC::VirtualIfcSIUnit",
            kDirect,
            {"IfcSIUnit"},
            {{"bool",
              "setSIUnit",
              {"std::string_view unitType", "std::string_view prefix", "std::string_view unitName"},
              kChanges,
              {"UnitType", "Prefix", "Name"},
              {{"const IFC::Enumeration newType = IFC::valueOf($1.info$, unitType);\n"
                "const IFC::Enumeration newPrefix = IFC::valueOf($2.info$, prefix);\n"
                "const IFC::Enumeration newName = IFC::valueOf($3.info$, unitName);\n"
                "if (!newType.present || !newName.present || newPrefix.present == prefix.empty())\n"
                "    return false;\n"
                "$1$ = newType;\n"
                "$2$ = newPrefix;\n"
                "$3$ = newName;\n"
                "return true;"}}},
             {kName, "prefix", {}, kConst, {"Prefix"}, {{kReturnValueName}}},
             {kName, "unitName", {}, kConst, {"Name"}, {{kReturnValueName}}}}};
}

std::vector<ViewRow> allRows() {
    return {
        rootRow(),
        {"IFC::VirtualIfcProduct",
         kDirect,
         {"IfcProduct"},
         {{kEntity, "objectPlacement", {}, kConst, {"ObjectPlacement"}, {{kReturnMember}}}}},
        {"IFC::IfcProjectVirtual",
         kDirect,
         {"IfcProject"},
         {{kEntity, "unitsInContext", {}, kConst, {"UnitsInContext"}, {{kReturnMember}}}}},
        propertySetRow(),
        listRow("IFC::VIfcElementQuantitySet", "IfcElementQuantity", "Quantities", "quantities",
                "replaceQuantity", kReplace),
        propertyRelationRow(),
        {"IFC::VirtualRelatedObjects",
         kDirect,
         {"IfcRelDefinesByProperties"},
         {{"bool",
           "setRelatedObjects",
           {kPool, "std::span<IFC::IfcEntity* const> objects"},
           kChanges,
           {"RelatedObjects"},
           {{"return IFC::assignAll(pool, $1$, $1.info$, objects);"}}}}},
        listRow("IFC::VirtualOverridingRelation", "IfcRelOverridesProperties",
                "OverridingProperties", "overridingProperties", "replaceOverridingProperty",
                kReplace),
        listRow("IFC::VirtualIfcTypeObject", "IfcTypeObject", "HasPropertySets", "propertySets",
                "replacePropertySet", kReplaceOptional),
        {"IFC::VirtualTypeRelation",
         kDirect,
         {"IfcRelDefinesByType"},
         {{kEntity, "relatingType", {}, kConst, {"RelatingType"}, {{kReturnMember}}},
          {"void", "relatedObjects", {kOut}, kConst, {"RelatedObjects"}, {{kAppendAll}}}}},
        attachmentRow({"IfcRelAssociates"}, "RelatedObjects"),
        attachmentRow({"IfcRelDeclares"}, "RelatedDefinitions"),
        attachmentRow({"IfcRelDefinesByTemplate"}, "RelatedPropertySets"),
        attachmentRow({"IfcExternalReferenceRelationship", "IfcResourceApprovalRelationship",
                       "IfcResourceConstraintRelationship"},
                      "RelatedResourceObjects"),
        attachmentRow({"IfcApprovalPropertyRelationship"}, "ApprovedProperties"),
        attachmentRow({"IfcPropertyConstraintRelationship"}, "RelatedProperties"),
        propertyRow(),
        {"IFC::Prototype",
         kVirtual,
         {"IfcPropertySet", "IfcElementQuantity", "IfcPropertyEnumeratedValue",
          "IfcPropertyListValue", "IfcPropertyBoundedValue", "IfcPropertyTableValue",
          "IfcPropertyReferenceValue"},
         {kClone}},
        complexPropertyRow("IfcComplexProperty", "HasProperties"),
        complexPropertyRow("IfcPhysicalComplexQuantity", "HasQuantities"),
        singleValueRow(),
        quantityRow("IfcQuantityArea", "AreaValue"),
        quantityRow("IfcQuantityCount", "CountValue"),
        quantityRow("IfcQuantityLength", "LengthValue"),
        quantityRow("IfcQuantityNumber", "NumberValue"),
        quantityRow("IfcQuantityTime", "TimeValue"),
        quantityRow("IfcQuantityVolume", "VolumeValue"),
        quantityRow("IfcQuantityWeight", "WeightValue"),
        {"IFC::VirtualIfcUnitAssignment",
         kDirect,
         {"IfcUnitAssignment"},
         {{"void", "units", {kOut}, kConst, {"Units"}, {{kAppendAll}}}}},
        unitRow({"IfcNamedUnit", "IfcDerivedUnit"}),
        {"IFC::IfcUnit",
         kDirect,
         {"IfcMonetaryUnit"},
         {{kName, "unitType", {}, kConst, {}, {{"return {};"}}}}},
        siUnitRow(),
        namedUnitRow("IfcConversionBasedUnit", "Name"),
        namedUnitRow("IfcContextDependentUnit", "Name"),
        namedUnitRow("IfcMonetaryUnit", "Currency"),
        {"IFC::VirtualLocalPlacement",
         kDirect,
         {"IfcLocalPlacement"},
         {{kEntity, "placementRelativeTo", {}, kConst, {"PlacementRelTo"}, {{kReturnMember}}},
          {kEntity, "relativePlacement", {}, kConst, {"RelativePlacement"}, {{kReturnMember}}}}},
        {"IFC::VirtualIfcAxis2Placement3D",
         kDirect,
         {"IfcAxis2Placement3D"},
         {{kEntity, "location", {}, kConst, {"Location"}, {{kReturnMember}}},
          {kEntity, "axis", {}, kConst, {"Axis"}, {{kReturnMember}}},
          {kEntity, "refDirection", {}, kConst, {"RefDirection"}, {{kReturnMember}}}}},
        {"IFC::VirtualIfcCartesianPoint",
         kDirect,
         {"IfcCartesianPoint"},
         {{"std::span<const double>",
           "coordinates",
           {},
           kConst,
           {"Coordinates"},
           {{kReturnView}}}}},
        {"IFC::VirtualIfcDirection",
         kDirect,
         {"IfcDirection"},
         {{"std::span<const double>",
           "directionRatios",
           {},
           kConst,
           {"DirectionRatios"},
           {{kReturnView}}}}},
        {"IFC::VirtualGeometricRepresentation",
         kDirect,
         {"IfcExtrudedAreaSolid"},
         {{"double", "extrusionDepth", {}, kConst, {"Depth"}, {{"return $1$.value;"}}}}},
    };
}

}  // namespace

const std::vector<ViewRow>& viewTable() {
    static const std::vector<ViewRow> rows = allRows();
    return rows;
}

}  // namespace schema_generator
