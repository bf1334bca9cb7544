#pragma once

#include <QString>
#include <cstdint>
#include <vector>

/// What the window knows of one of the selected objects.
struct ObjectRecord {
    std::uint64_t id = 0;  ///< the host's
    QString guid;          ///< a substitute text where the host has none
    QString entityName;    ///< "IfcWall"
    QString name;
    std::int32_t ifcNumber = 0;  ///< instance number in its file; 0 for none

    /// What the object is called where the user has to tell it from others.
    QString displayName() const {
        return !name.isEmpty() ? name
               : ifcNumber     ? entityName + QStringLiteral(" #%1").arg(ifcNumber)
                               : entityName;
    }
};

/// One set of a name that an object has.
struct SetCarrier {
    const ObjectRecord* object = nullptr;
    QString setGuid;  ///< may be empty
    bool isEditable = false;
};

/// All sets of one name, also those without properties, in the order in which they were met.
using SetCarriers = std::vector<SetCarrier>;

/// The objects of which a set of that name is, by its GUID, another object's set too.
std::vector<const ObjectRecord*> sharedSetObjects(const SetCarriers& carriers);
