#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "edits/command.h"
#include "edits/edit_session.h"
#include "edits/editing_windows.h"

namespace IFC {

/// What the adding policy says of a new set on an object that has one of the name.
enum AddingPolicy : std::int32_t {
    kSkipExistingSet = 0,
    kOverrideExistingSet = 1,       // its sets of the name are deleted, then the new one is added
    kSkipExistingProperty = 2,      // only properties that the set lacks are added
    kOverrideExistingProperty = 3,  // properties of the same names are deleted first
};

/// Makes the changes, in their order, at each of the objects, and tells the host's display. A
/// change of a set concerns each set of that name that the object has and that can be edited, or
/// those that the change's places name; an object without one is left alone. An AddSet starts a new
/// set, to which the AddProperty changes of the same set name that follow belong; the policy
/// decides about it as a whole. An AddProperty that stands alone adds to existing sets; where the
/// set has such a property the policy decides, and without a policy the user is asked once.
/// @return what was done as one command, which is to be recorded; null when nothing was. Marking
/// the project as changed is the caller's.
std::unique_ptr<CommandGroup> applyToMany(EditSession& session,
                                          const std::vector<HostObjectId>& objects,
                                          const ManyEdits& edits,
                                          const ObjectProgress& progress = {});

}  // namespace IFC
