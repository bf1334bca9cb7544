#include "edits/object_numbers.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace IFC {
namespace {

/// Takes back the wishes that collide. One that is taken back claims the number that its object
/// has, which may collide with another's wish in turn.
void keepApart(const FileEdits& file, std::map<std::int32_t, std::int32_t>& wanted) {
    std::unordered_map<std::int32_t, std::vector<std::int32_t>> claims;  // objects by new number
    for (const auto& [number, object] : file.objects)
        claims[wanted.try_emplace(number, number).first->second].push_back(number);
    std::vector<std::int32_t> contested;
    for (const auto& [number, objects] : claims)
        if (objects.size() > 1)
            contested.push_back(number);
    while (!contested.empty()) {
        const std::int32_t number = contested.back();
        contested.pop_back();
        for (const std::int32_t object : claims[number]) {
            if (object == number || wanted[object] != number)
                continue;
            wanted[object] = object;
            std::vector<std::int32_t>& own = claims[object];
            own.push_back(object);
            if (own.size() > 1)
                contested.push_back(object);
        }
        claims[number].clear();
        if (wanted.contains(number) && wanted[number] == number)
            claims[number].push_back(number);
    }
}

}  // namespace

FileEdits renumbered(const FileEdits& file, std::map<std::int32_t, std::int32_t> wanted) {
    std::erase_if(wanted, [&](const auto& wish) {
        return wish.first == wish.second || !file.objects.find(wish.first);
    });
    if (wanted.empty())
        return file;
    keepApart(file, wanted);
    FileEdits result;
    result.loggedAsCached = file.loggedAsCached;
    for (const auto& [number, object] : file.objects)
        result.objects[wanted[number]] = object;
    return result;
}

}  // namespace IFC
