// edits-bench OBJECTS: what one edit costs while OBJECTS objects have pending edits, with the
// snapshot that its undo needs. Prints {"seconds": 0.00005, "bytes": 5400} on one line: per edit,
// of 100 edits whose snapshots are all kept, as the history keeps them. Bytes are those in use on
// the heap.

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <random>
#include <string>
#include <vector>

#include "bench/bench_texts.h"
#include "edits/pending_edits.h"
#include "platform/text.h"

namespace {

namespace texts = bench::texts;

std::size_t bytesInUse = 0;

/// Before each block, so that its size is known when it is given back.
union BlockHead {
    std::size_t bytes;
    std::max_align_t alignment;
};

constexpr int kEdits = 100;
constexpr int kPropertiesOfAnObject = 5;
constexpr std::string_view kGuid = "0000000000000000000000";

std::u16string numbered(std::string_view begin, std::size_t number) {
    return platform::fromUtf8(std::string(begin) + std::to_string(number));
}

IFC::EditTarget targetOf(std::size_t object) {
    std::u16string guid = numbered("", object);
    guid.insert(0, kGuid.size() - guid.size(), u'0');
    return {.fileName = u"model.ifc",
            .objectNumber = static_cast<std::int32_t>(object),
            .objectId = object,
            .objectGuid = guid,
            .setName = u"Pset_Bench",
            .setGuid = guid};
}

IfcProperty propertyOf(int number, std::u16string value) {
    IfcProperty property;
    property.initialName = property.name = numbered("Property ", static_cast<std::size_t>(number));
    property.value = std::move(value);
    return property;
}

IFC::PendingEdits storeOf(std::size_t objects) {
    IFC::PendingEdits store;
    for (std::size_t object = 1; object <= objects; ++object)
        for (int property = 0; property < kPropertiesOfAnObject; ++property)
            store.editProperty(targetOf(object), propertyOf(property, numbered("value ", object)));
    return store;
}

void measure(std::size_t objects) {
    IFC::PendingEdits store = storeOf(objects);
    std::vector<IFC::PendingEdits> snapshots;
    snapshots.reserve(kEdits);
    std::mt19937 random(1);
    const std::size_t before = bytesInUse;
    const auto start = std::chrono::steady_clock::now();
    for (int edit = 0; edit < kEdits; ++edit) {
        snapshots.push_back(store);
        store.editProperty(targetOf(1 + random() % objects), propertyOf(0, u"edited"));
    }
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    std::cout << "{\"seconds\": " << elapsed.count() / kEdits
              << ", \"bytes\": " << (bytesInUse - before) / kEdits << "}\n";
}

}  // namespace

void* operator new(std::size_t bytes) {
    auto* head = static_cast<BlockHead*>(std::malloc(sizeof(BlockHead) + bytes));
    if (!head)
        throw std::bad_alloc();
    head->bytes = bytes;
    bytesInUse += bytes;
    return head + 1;
}

void operator delete(void* block) noexcept {
    if (!block)
        return;
    BlockHead* const head = static_cast<BlockHead*>(block) - 1;
    bytesInUse -= head->bytes;
    std::free(head);
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

int main(int argc, char** argv) {
    try {
        const std::size_t objects = argc == 2 ? std::strtoul(argv[1], nullptr, 10) : 0;
        if (objects == 0) {
            std::cerr << texts::kEditsBenchUsage;
            return EXIT_FAILURE;
        }
        measure(objects);
        return EXIT_SUCCESS;
    } catch (const std::exception& fault) {
        std::cerr << texts::kBenchFailed << fault.what() << '\n';
        return EXIT_FAILURE;
    }
}
