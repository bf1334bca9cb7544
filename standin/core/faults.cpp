#include "standin/core/faults.h"

namespace standin {

bool Faults::lack(const std::string& function) {
    if (lacking_.contains(function))
        return true;
    auto hidden = std::make_unique<platform::HiddenExport>(function.c_str());
    if (!hidden->isHidden())
        return false;
    lacking_.emplace(function, std::move(hidden));
    return true;
}

std::optional<Fault> Faults::of(std::string_view function) const {
    const auto found = faults_.find(function);
    return found == faults_.end() ? std::nullopt : std::optional(found->second);
}

void Faults::clear() {
    faults_.clear();
    lacking_.clear();
    diskBytes = -1;
}

}  // namespace standin
