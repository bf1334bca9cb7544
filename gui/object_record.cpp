#include "gui/object_record.h"

#include <QHash>
#include <unordered_map>

std::vector<const ObjectRecord*> sharedSetObjects(const SetCarriers& carriers) {
    struct Use {
        const ObjectRecord* object;
        bool isShared;
    };
    std::unordered_map<QString, Use> uses;
    for (const SetCarrier& carrier : carriers) {
        if (carrier.setGuid.isEmpty())
            continue;
        const auto [use, isNew] = uses.try_emplace(carrier.setGuid, Use{carrier.object, false});
        use->second.isShared |= use->second.object != carrier.object;
    }
    std::vector<const ObjectRecord*> objects;
    for (const SetCarrier& carrier : carriers) {
        const auto use = uses.find(carrier.setGuid);
        const bool isShared = use != uses.end() && use->second.isShared;
        if (isShared && (objects.empty() || objects.back() != carrier.object))
            objects.push_back(carrier.object);
    }
    return objects;
}
