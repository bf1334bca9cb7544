#include "ifc/model/enumeration.h"

#include <algorithm>

#include "ifc/model/attribute_reader.h"
#include "ifc/model/attribute_writer.h"

namespace IFC {

std::int32_t EnumerationInfo::find(std::string_view text) const {
    const auto found = std::find(values_.begin(), values_.end(), text);
    return found == values_.end() ? -1 : static_cast<std::int32_t>(found - values_.begin());
}

std::int32_t EnumerationInfo::parse(AttributeReader& reader, std::string_view text) const {
    const std::int32_t index = find(text);
    if (index >= 0)
        return index;
    reader.unknownEnumerationValue(name_, text);
    return static_cast<std::int32_t>(values_.size()) - 1;
}

void EnumerationInfo::write(AttributeWriter& writer, std::int32_t index) const {
    if (index < 0 || index >= static_cast<std::int32_t>(values_.size()))
        writer.absent();
    else
        writer.enumerationValue(values_[static_cast<std::size_t>(index)]);
}

}  // namespace IFC
