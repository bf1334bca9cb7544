#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace IFC {
class IfcEntity;
class Model;
struct ClassInfo;
}  // namespace IFC

namespace cli {

/// Upper case of the ASCII letters, as the keys of classes are; other units become "?", which no
/// key contains.
std::string classKey(std::u16string_view name);

/// The objects of a model and their property sets and quantities.
class ObjectSets {
public:
    /// model: outlives this.
    explicit ObjectSets(IFC::Model& model);

    /// The object with that GUID or instance number ("65" or "#65"); null when there is none.
    IFC::IfcEntity* find(std::u16string_view name) const;
    /// Objects of exactly this class, in the order of the file.
    std::vector<IFC::IfcEntity*> objectsOfClass(const IFC::ClassInfo& objectClass) const;
    /// Objects to which the file's relations assign sets, in the order of the file.
    std::vector<IFC::IfcEntity*> objectsWithSets() const;

    /// The object's sets, predefined ones too, each once: of a type its own, then those that
    /// relations assign.
    std::vector<IFC::IfcEntity*> setsOf(IFC::IfcEntity* object) const;

    /// Whether `object` is a type (IfcTypeObject), which holds its sets itself.
    bool isType(IFC::IfcEntity* object) const;

private:
    IFC::Model& model_;
    std::unordered_map<IFC::IfcEntity*, std::vector<IFC::IfcEntity*>> assigned_;
};

}  // namespace cli
