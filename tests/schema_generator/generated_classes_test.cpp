#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "ifc/model/entity.h"
#include "ifc/model/enumeration.h"
#include "ifc/model/memory_pool.h"
#include "ifc/model/views.h"
#include "ifc/schemas/IFC2X2_FINAL/enums.h"
#include "ifc/schemas/IFC2X2_FINAL/registration.h"
#include "ifc/schemas/IFC2X2_PLATFORM/registration.h"
#include "ifc/schemas/IFC2X3/classes.h"
#include "ifc/schemas/IFC2X3/registration.h"
#include "ifc/schemas/IFC2X_FINAL/registration.h"
#include "ifc/schemas/IFC4/classes.h"
#include "ifc/schemas/IFC4/registration.h"
#include "ifc/schemas/IFC4X1/enums.h"
#include "ifc/schemas/IFC4X1/registration.h"
#include "ifc/schemas/IFC4X2/registration.h"
#include "ifc/schemas/IFC4X3_ADD2/enums.h"
#include "ifc/schemas/IFC4X3_ADD2/registration.h"
#include "platform/text.h"

namespace IFC {
namespace {

/// One release and the objects that a test makes of it.
struct Release {
    std::string_view name;
    std::span<const ClassInfo* const> classes;

    /// Null when the release has no such class.
    IfcEntity* create(std::string_view key) {
        for (const ClassInfo* info : classes) {
            if (info->key == key)
                return info->create(pool);
        }
        return nullptr;
    }
    MemoryPool pool;
};

class EveryRelease : public ::testing::Test {
protected:
    Release releases_[8] = {
        {"IFC2X_FINAL", IFC2X_FINAL::registeredClasses(), {}},
        {"IFC2X2_PLATFORM", IFC2X2_PLATFORM::registeredClasses(), {}},
        {"IFC2X2_FINAL", IFC2X2_FINAL::registeredClasses(), {}},
        {"IFC2X3", IFC2X3::registeredClasses(), {}},
        {"IFC4", IFC4::registeredClasses(), {}},
        {"IFC4X1", IFC4X1::registeredClasses(), {}},
        {"IFC4X2", IFC4X2::registeredClasses(), {}},
        {"IFC4X3_ADD2", IFC4X3_ADD2::registeredClasses(), {}},
    };
};

TEST_F(EveryRelease, CreatesFreshObjectsOfEachRegisteredClass) {
    for (Release& release : releases_) {
        std::set<std::string_view> keys;
        for (const ClassInfo* info : release.classes) {
            SCOPED_TRACE(std::string(release.name) + " " + std::string(info->key));
            EXPECT_TRUE(keys.insert(info->key).second);
            std::string upperCase;
            for (const char16_t* unit = info->name; *unit; ++unit)
                upperCase += static_cast<char>(std::toupper(static_cast<int>(*unit)));
            EXPECT_EQ(info->key, upperCase);

            IfcEntity* entity = info->create(release.pool);
            ASSERT_TRUE(entity);
            EXPECT_EQ(&entity->classInfo(), info);
            EXPECT_EQ(entity->isComplex(), !info->isValue);
            EXPECT_EQ(entity->isComplex(), dynamic_cast<IfcComplexType*>(entity) != nullptr);
            EXPECT_EQ(entity->id(), 0);
            EXPECT_TRUE(entity->referencing().empty());
            std::deque<IfcEntity*> queue;
            entity->collectReferences(queue);
            EXPECT_TRUE(queue.empty());
            void* part = info->cast(entity);
            ASSERT_TRUE(part);
            EXPECT_EQ(info->toEntity(part), entity);
        }
    }
}

template <class View>
bool isA(IfcEntity* entity) {
    return dynamic_cast<View*>(entity) != nullptr;
}

/// The views of an object, as letters.
std::string viewsOf(IfcEntity* entity) {
    using Check = std::pair<char, bool (*)(IfcEntity*)>;
    static constexpr Check kChecks[] = {
        {'r', isA<VirtualIfcRoot>},
        {'p', isA<VirtualIfcProduct>},
        {'j', isA<IfcProjectVirtual>},
        {'s', isA<VirtualIfcPropertySet>},
        {'e', isA<VIfcElementQuantitySet>},
        {'d', isA<VirtualPropertyRelation>},
        {'m', isA<VirtualRelatedObjects>},
        {'x', isA<VirtualOverridingRelation>},
        {'b', isA<VirtualIfcTypeObject>},
        {'f', isA<VirtualTypeRelation>},
        {'h', isA<VirtualAttachment>},
        {'y', isA<VIfcProperty>},
        {'c', isA<Prototype>},
        {'k', isA<VComplexProperty>},
        {'v', isA<VIfcPropertySingleValue>},
        {'q', isA<VQuantityProperty>},
        {'a', isA<VirtualIfcUnitAssignment>},
        {'u', isA<IfcUnit>},
        {'i', isA<VirtualIfcSIUnit>},
        {'n', isA<VirtualNamedUnit>},
        {'l', isA<VirtualLocalPlacement>},
        {'3', isA<VirtualIfcAxis2Placement3D>},
        {'o', isA<VirtualIfcCartesianPoint>},
        {'t', isA<VirtualIfcDirection>},
        {'g', isA<VirtualGeometricRepresentation>},
    };
    std::string result;
    for (const auto& [letter, check] : kChecks) {
        if (check(entity))
            result += letter;
    }
    return result;
}

struct ViewCase {
    std::string_view key;
    std::string_view views;
    int releases;  // that have the class
};

TEST_F(EveryRelease, GivesEachKindOfObjectItsViewsAndNoOthers) {
    static constexpr ViewCase kCases[] = {
        {"IFCWALL", "rp", 8},
        {"IFCSPACE", "rp", 8},
        {"IFCPROJECT", "rj", 8},
        {"IFCPROPERTYSET", "rsc", 8},
        {"IFCELEMENTQUANTITY", "rec", 8},
        {"IFCRELDEFINESBYPROPERTIES", "rdm", 8},
        {"IFCRELOVERRIDESPROPERTIES", "rdmx", 4},
        {"IFCRELDEFINESBYTYPE", "rf", 8},
        {"IFCTYPEOBJECT", "rb", 8},
        {"IFCTYPEPRODUCT", "rb", 8},
        {"IFCRELASSOCIATESCLASSIFICATION", "rh", 8},
        {"IFCRELDECLARES", "rh", 4},
        {"IFCRELDEFINESBYTEMPLATE", "rh", 4},
        {"IFCEXTERNALREFERENCERELATIONSHIP", "h", 4},
        {"IFCAPPROVALPROPERTYRELATIONSHIP", "h", 2},
        {"IFCRELAGGREGATES", "r", 8},
        {"IFCPROPERTYSINGLEVALUE", "ycv", 8},
        {"IFCPROPERTYENUMERATEDVALUE", "yc", 8},
        {"IFCPROPERTYREFERENCEVALUE", "yc", 8},
        {"IFCCOMPLEXPROPERTY", "yck", 8},
        {"IFCQUANTITYAREA", "ycq", 8},
        {"IFCQUANTITYCOUNT", "ycq", 8},
        {"IFCQUANTITYLENGTH", "ycq", 8},
        {"IFCQUANTITYTIME", "ycq", 7},
        {"IFCQUANTITYVOLUME", "ycq", 8},
        {"IFCQUANTITYWEIGHT", "ycq", 8},
        {"IFCQUANTITYNUMBER", "ycq", 1},
        {"IFCPHYSICALCOMPLEXQUANTITY", "yck", 6},
        {"IFCUNITASSIGNMENT", "a", 8},
        {"IFCSIUNIT", "ui", 8},
        {"IFCCONVERSIONBASEDUNIT", "un", 8},
        {"IFCCONVERSIONBASEDUNITWITHOFFSET", "un", 4},
        {"IFCCONTEXTDEPENDENTUNIT", "un", 8},
        {"IFCDERIVEDUNIT", "u", 8},
        {"IFCMONETARYUNIT", "un", 8},
        {"IFCLOCALPLACEMENT", "l", 8},
        {"IFCAXIS2PLACEMENT3D", "3", 8},
        {"IFCAXIS2PLACEMENT2D", "", 8},
        {"IFCCARTESIANPOINT", "o", 8},
        {"IFCDIRECTION", "t", 8},
        {"IFCEXTRUDEDAREASOLID", "g", 8},
        {"IFCEXTRUDEDAREASOLIDTAPERED", "g", 4},
        {"IFCLABEL", "", 8},
    };
    for (const auto& [key, views, releaseCount] : kCases) {
        int found = 0;
        for (Release& release : releases_) {
            IfcEntity* entity = release.create(key);
            if (!entity)
                continue;
            ++found;
            EXPECT_EQ(viewsOf(entity), views) << release.name << " " << key;
        }
        EXPECT_EQ(found, releaseCount) << key;
    }
}

TEST_F(EveryRelease, SetsRootAttributesThatAreGivenAndOnlyThese) {
    for (Release& release : releases_) {
        auto* wall = dynamic_cast<VirtualIfcRoot*>(release.create("IFCWALL"));
        EXPECT_EQ(wall->globalId(), u"");
        const std::u16string_view guid = u"0YvctVUKr0kugbFTf53O9L";
        const std::u16string_view name = u"W-01";
        wall->setRootAttributes(release.pool, &guid, nullptr, &name);
        wall->setRootAttributes(release.pool, nullptr, release.create("IFCPERSON"), nullptr);
        EXPECT_EQ(wall->globalId(), guid);
        EXPECT_EQ(wall->name(), name);
        std::deque<IfcEntity*> references;
        wall->collectReferences(references);
        EXPECT_TRUE(references.empty()) << "a person is no owner history";
        IfcEntity* history = release.create("IFCOWNERHISTORY");
        wall->setRootAttributes(release.pool, nullptr, history, nullptr);
        wall->collectReferences(references);
        EXPECT_EQ(references, std::deque<IfcEntity*>{history}) << release.name;
    }
}

std::vector<IfcEntity*> propertiesOf(const VirtualIfcPropertySet& set) {
    std::vector<IfcEntity*> result;
    set.properties(result);
    return result;
}

using Entities = std::vector<IfcEntity*>;

TEST_F(EveryRelease, EditsAListWithoutTouchingTheCopyThatSharesIt) {
    for (Release& release : releases_) {
        auto* set = dynamic_cast<VirtualIfcPropertySet*>(release.create("IFCPROPERTYSET"));
        IfcEntity* a = release.create("IFCPROPERTYSINGLEVALUE");
        IfcEntity* b = release.create("IFCCOMPLEXPROPERTY");
        IfcEntity* c = release.create("IFCPROPERTYSINGLEVALUE");
        EXPECT_FALSE(set->addProperty(release.pool, release.create("IFCWALL")));
        EXPECT_FALSE(set->addProperty(release.pool, nullptr));
        EXPECT_TRUE(set->addProperty(release.pool, a));
        EXPECT_TRUE(set->addProperty(release.pool, b));
        IfcEntity* copied = dynamic_cast<Prototype*>(set)->clone(release.pool);
        const auto* copy = dynamic_cast<VirtualIfcPropertySet*>(copied);
        ASSERT_TRUE(copy);
        EXPECT_EQ(&copied->classInfo(), &set->classInfo());

        EXPECT_FALSE(set->replaceProperty(release.pool, c, a));
        EXPECT_FALSE(set->replaceProperty(release.pool, a, release.create("IFCWALL")));
        EXPECT_FALSE(set->replaceProperty(release.pool, nullptr, c));
        EXPECT_TRUE(set->replaceProperty(release.pool, a, c));
        EXPECT_EQ(propertiesOf(*set), (Entities{c, b}));
        EXPECT_TRUE(set->replaceProperty(release.pool, c, nullptr));
        EXPECT_EQ(propertiesOf(*set), Entities{b}) << release.name;
        EXPECT_EQ(propertiesOf(*copy), (Entities{a, b})) << release.name;
    }
}

TEST_F(EveryRelease, RelatesObjectsToASet) {
    for (Release& release : releases_) {
        auto* relation =
            dynamic_cast<VirtualPropertyRelation*>(release.create("IFCRELDEFINESBYPROPERTIES"));
        IfcEntity* first = release.create("IFCWALL");
        IfcEntity* second = release.create("IFCSLAB");
        dynamic_cast<VirtualIfcRoot*>(second)->setGlobalId(release.pool, u"SLAB");
        EXPECT_TRUE(relation->addRelatedObject(release.pool, first));
        EXPECT_TRUE(relation->addRelatedObject(release.pool, second));
        EXPECT_FALSE(relation->addRelatedObject(release.pool, release.create("IFCDIRECTION")));
        EXPECT_FALSE(relation->removeRelatedObject(release.pool, u"NONE"));
        EXPECT_TRUE(relation->removeRelatedObject(release.pool, u"SLAB"));
        Entities objects;
        relation->relatedObjects(objects);
        EXPECT_EQ(objects, Entities{first}) << release.name;

        auto* many = dynamic_cast<VirtualRelatedObjects*>(relation);
        EXPECT_FALSE(many->setRelatedObjects(release.pool, Entities{second, nullptr}));
        EXPECT_FALSE(many->setRelatedObjects(release.pool, Entities{release.create("IFCLABEL")}));
        EXPECT_TRUE(many->setRelatedObjects(release.pool, Entities{second, first}));
        EXPECT_TRUE(relation->removeRelatedObject(release.pool, u"SLAB"));

        IfcEntity* set = release.create("IFCPROPERTYSET");
        EXPECT_TRUE(relation->setRelatingPropertyDefinition(set));
        EXPECT_FALSE(relation->setRelatingPropertyDefinition(first));
        EXPECT_EQ(relation->relatingPropertyDefinition(), set);
        std::deque<IfcEntity*> references;
        relation->collectReferences(references);
        EXPECT_EQ(references, (std::deque<IfcEntity*>{first, set})) << release.name;
    }
}

TEST_F(EveryRelease, HoldsValuesAndUnitsOfProperties) {
    for (Release& release : releases_) {
        SCOPED_TRACE(release.name);
        auto* property =
            dynamic_cast<VIfcPropertySingleValue*>(release.create("IFCPROPERTYSINGLEVALUE"));
        property->setPropertyName(release.pool, u"Width");
        EXPECT_EQ(property->propertyName(), u"Width");
        IfcEntity* label = release.create("IFCLABEL");
        EXPECT_TRUE(property->setNominalValue(label));
        EXPECT_FALSE(property->setNominalValue(release.create("IFCWALL")));
        EXPECT_EQ(property->nominalValue(), label);
        EXPECT_TRUE(dynamic_cast<IfcSimpleType*>(label)->value().text);

        IfcEntity* unit = release.create("IFCSIUNIT");
        auto* metre = dynamic_cast<VirtualIfcSIUnit*>(unit);
        EXPECT_FALSE(metre->setSIUnit("LENGTHUNIT", "MEGAMILLI", "METRE"));
        EXPECT_EQ(metre->unitName(), "");
        EXPECT_TRUE(metre->setSIUnit("LENGTHUNIT", "MILLI", "METRE"));
        EXPECT_EQ(metre->prefix(), "MILLI");
        EXPECT_TRUE(metre->setSIUnit("LENGTHUNIT", "", "METRE"));
        EXPECT_EQ(metre->prefix(), "");
        EXPECT_EQ(metre->unitName(), "METRE");
        EXPECT_EQ(dynamic_cast<IfcUnit*>(unit)->unitType(), "LENGTHUNIT");
        EXPECT_TRUE(property->setUnit(unit));
        EXPECT_EQ(property->unit(), unit);
        EXPECT_TRUE(property->setUnit(nullptr));
        EXPECT_EQ(property->unit(), nullptr);

        auto* count = dynamic_cast<VQuantityProperty*>(release.create("IFCQUANTITYCOUNT"));
        const SimpleValue value = count->quantityValue();
        EXPECT_NE(value.real != nullptr, value.integer != nullptr);
        EXPECT_TRUE(count->setQuantityUnit(unit));
        EXPECT_FALSE(count->setQuantityUnit(release.create("IFCDERIVEDUNIT")));
        EXPECT_EQ(count->quantityUnit(), unit);
    }
}

TEST(GeneratedSelect, HasEveryMemberAndNoOther) {
    MemoryPool pool;
    struct Case {
        const ClassInfo& member;
        const ClassInfo& select;
        bool expected;
    };
    const Case cases[] = {
        {IFC4::kIfcLabel, IFC4::kIfcSimpleValue, true},
        {IFC4::kIfcLabel, IFC4::kIfcValue, true},  // through IfcSimpleValue
        {IFC4::kIfcLabel, IFC4::kIfcMetricValueSelect, true},
        {IFC4::kIfcLabel, IFC4::kIfcMeasureValue, false},
        {IFC4::kIfcLengthMeasure, IFC4::kIfcSizeSelect, true},
        {IFC4::kIfcSIUnit, IFC4::kIfcUnit, true},  // as an IfcNamedUnit
        {IFC4::kIfcCartesianPoint, IFC4::kIfcTrimmingSelect, true},
        {IFC4::kIfcPolyline, IFC4::kIfcTrimmingSelect, false},
        {IFC4::kIfcNullStyle, IFC4::kIfcPresentationStyleSelect, true},
        {IFC4::kIfcPropertySetDefinitionSet, IFC4::kIfcPropertySetDefinitionSelect, true},
        {IFC2X3::kIfcLabel, IFC4::kIfcValue, false},  // of another release
        {IFC2X3::kIfcWall, IFC4::kIfcWall, false},
    };
    for (const auto& [member, select, expected] : cases) {
        IfcEntity* entity = member.create(pool);
        EXPECT_EQ(select.cast(entity) != nullptr, expected) << member.key << " " << select.key;
    }
}

TEST(GeneratedEnumeration, HasItsReleasesOwnValues) {
    using Values = std::vector<std::string_view>;
    const auto valuesOf = [](const EnumerationInfo& info) {
        return Values(info.values().begin(), info.values().end());
    };
    EXPECT_EQ(valuesOf(IFC2X2_FINAL::kIfcWallTypeEnum),
              (Values{"STANDARD", "POLYGONAL", "SHEAR", "USERDEFINED", "NOTDEFINED"}));
    EXPECT_EQ(valuesOf(IFC4X1::kIfcWallTypeEnum),
              (Values{"MOVABLE", "PARAPET", "PARTITIONING", "PLUMBINGWALL", "SHEAR", "SOLIDWALL",
                      "STANDARD", "POLYGONAL", "ELEMENTEDWALL", "USERDEFINED", "NOTDEFINED"}));
    EXPECT_EQ(valuesOf(IFC4X3_ADD2::kIfcWallTypeEnum),
              (Values{"ELEMENTEDWALL", "MOVABLE", "PARAPET", "PARTITIONING", "PLUMBINGWALL",
                      "POLYGONAL", "RETAININGWALL", "SHEAR", "SOLIDWALL", "STANDARD", "WAVEWALL",
                      "USERDEFINED", "NOTDEFINED"}));
    EXPECT_EQ(valuesOf(IFC4X1::kIfcDirectionSenseEnum), (Values{"POSITIVE", "NEGATIVE"}));
}

}  // namespace
}  // namespace IFC
