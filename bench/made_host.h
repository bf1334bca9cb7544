#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "plugin/host_api.h"

namespace bench {

/// A host of walls that are all made alike, for measuring what the windows cost beyond it: its
/// functions do next to nothing. One at a time.
class MadeHost {
public:
    static constexpr int kPropertyCount = 20;  ///< of each object, in two sets

    /// distinctValues: how many values the first property has; each of the others has five.
    MadeHost(std::size_t objects, std::size_t distinctValues);
    ~MadeHost();
    MadeHost(const MadeHost&) = delete;
    MadeHost& operator=(const MadeHost&) = delete;

    const HostApi& api() const { return api_; }
    const std::vector<HostObjectId>& objects() const { return objects_; }
    std::size_t changeCount() const { return changeCount_; }

private:
    static constexpr std::size_t kValueCount = 5;

    void fill(HostObjectId object, HostProperty* rows);
    void fill(HostObjectId object, HostObjectInfo& info);

    HostApi api_;
    std::vector<HostObjectId> objects_;
    std::vector<std::u16string> firstValues_;
    std::array<std::u16string, kPropertyCount> names_;
    std::array<std::u16string, kValueCount> values_;
    // Lent until the next call.
    std::u16string setGuid_;
    std::u16string objectName_;
    std::string objectGuid_;
    std::size_t changeCount_ = 0;
};

}  // namespace bench
