#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace IFC {

class AttributeReader;
class AttributeWriter;

/// One enumeration of one release: its values in the schema's order, and what turns text into a
/// position and back. One constant each, named k and the type's name (`IFC4::kIfcWallTypeEnum`).
/// AttributeReader::enumeration reads with it.
class EnumerationInfo {
public:
    /// name: "IfcWallTypeEnum". values: ASCII, upper case, without dots, at least one; both live
    /// for the whole run.
    constexpr EnumerationInfo(std::string_view name, std::span<const std::string_view> values)
        : name_(name), values_(values) {}

    std::string_view name() const { return name_; }
    std::span<const std::string_view> values() const { return values_; }

    /// Position of `text` (bytes between the dots), or -1.
    std::int32_t find(std::string_view text) const;

    /// Position of `text`; a text that is not in the list is reported through `reader` and becomes
    /// the last index, which is NOTDEFINED in most lists. Kept: where the list ends otherwise it is
    /// the last value all the same.
    std::int32_t parse(AttributeReader& reader, std::string_view text) const;

    /// Writes ".NAME.,", or "$," for an index outside the list.
    void write(AttributeWriter& writer, std::int32_t index) const;

private:
    std::string_view name_;
    std::span<const std::string_view> values_;
};

}  // namespace IFC
