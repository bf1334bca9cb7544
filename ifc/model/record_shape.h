#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace IFC {

/// What a record had that its class has no place for: fewer or more arguments than attributes,
/// values of another kind, a reference to nothing. It is written back as it was, until an edit
/// gives the attribute a value.
struct RecordShape {
    std::uint32_t attributeCount =
        ~0U;  ///< attributes that the record had, when fewer than its class
    std::map<std::uint32_t, std::string>
        raw;  ///< STEP text of attributes that were not understood, by place in the record
    std::string surplus;  ///< STEP text of the arguments behind the last attribute, without the
                          ///< comma before them
    bool edited = false;  ///< attributes that are present now count, whatever `raw` has
};

}  // namespace IFC
