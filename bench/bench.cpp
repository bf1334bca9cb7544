// quillet-bench TASK MODEL [TARGET]: one measurement of the library, in a process of its own so
// that the peak memory that the system reports is that of the task. Prints {"seconds": 1.25} on one
// line; times include opening and closing files, not the start of the process.

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bench/bench_texts.h"
#include "ifc/io/parser.h"
#include "ifc/io/tokenizer.h"
#include "ifc/io/writer.h"
#include "ifc/model/model.h"
#include "ifc/model/property_operations.h"
#include "ifc/model/property_queries.h"
#include "ifc/model/views.h"
#include "platform/files.h"
#include "platform/program_arguments.h"
#include "platform/text.h"

namespace {

namespace texts = bench::texts;

struct Files {
    std::u16string model;
    std::u16string target;
};

class Stopwatch {
public:
    void print(std::string_view furtherFields = {}) const {
        const std::chrono::duration<double> elapsed = Clock::now() - start_;
        std::cout << "{\"seconds\": " << elapsed.count() << furtherFields << "}\n";
    }

private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point start_ = Clock::now();
};

/// The machine's limit: how fast the statements of a file in memory can be told apart at all.
void scan(const Files& files) {
    const platform::FileHandle file(platform::openFile(files.model, "rb"));
    std::string bytes(platform::fileSize(files.model), '\0');
    if (!file || std::fread(bytes.data(), 1, bytes.size(), file.get()) != bytes.size())
        throw std::runtime_error(std::string(texts::kCannotRead));
    const Stopwatch stopwatch;
    std::int64_t statements = 0;
    for (std::size_t at = bytes.find(';'); at != std::string::npos; at = bytes.find(';', at + 1))
        ++statements;
    stopwatch.print(", \"statements\": " + std::to_string(statements));
}

void tokenise(const Files& files) {
    const Stopwatch stopwatch;
    Tokenizer tokenizer(files.model, IFC::ModelParser::Options().readBufferBytes, {});
    while (tokenizer.nextToken()->kind != TokenKind::EndOfFile)
        tokenizer.clearTokens();
    stopwatch.print();
}

/// The library with its reports: of a failure the last one is thrown, what was read over does not
/// matter here.
class Library {
public:
    Library() : parser_(reports(), {}), writer_(reports()) {}

    void read(const Files& files) { require(parser_.load(files.model)); }
    void write(const Files& files) { require(writer_.write(*parser_.model(), files.target)); }

    void editSharedText() {
        const SharedText found = findSharedText();
        IfcProperty record;
        record.initialName = record.name = found.propertyName;
        record.value = u"edited";
        IFC::PropertyOperations operations(*parser_.model(), reports());
        require(operations.EditPropertyInModel(found.objectGuid, found.setGuid, record));
    }

private:
    struct SharedText {
        std::u16string objectGuid;
        std::u16string setGuid;
        std::u16string propertyName;
    };

    ErrorCallback reports() {
        return [this](const char* key, const char16_t* text, int) {
            lastReport_ = platform::fromUtf8(key) + text;
        };
    }

    void require(bool succeeded) const {
        if (!succeeded)
            throw std::runtime_error(platform::toUtf8(lastReport_));
    }

    /// The first label of the first set that several objects share.
    SharedText findSharedText() {
        for (IFC::IfcEntity* entity : parser_.model()->entities()) {
            if (dynamic_cast<IFC::VirtualPropertyRelation*>(entity) == nullptr)
                continue;
            const std::vector<IFC::IfcEntity*> objects = IFC::objectsOf(entity);
            if (objects.size() < 2)
                continue;
            for (IFC::IfcEntity* set : IFC::definitionsOf(entity))
                for (IFC::IfcEntity* member : IFC::membersOf(set))
                    if (const auto display = IFC::displayOf(member); display.type == u"IfcLabel")
                        return {std::u16string(IFC::guidOf(objects.front())),
                                std::u16string(IFC::guidOf(set)), display.name};
        }
        throw std::runtime_error(std::string(texts::kNoSharedText));
    }

    std::u16string lastReport_;
    IFC::ModelParser parser_;
    IFC::ModelWriter writer_;
};

void read(const Files& files) {
    Library library;
    const Stopwatch stopwatch;
    library.read(files);
    stopwatch.print();
}

void write(const Files& files) {
    Library library;
    library.read(files);
    const Stopwatch stopwatch;
    library.write(files);
    stopwatch.print();
}

void edit(const Files& files) {
    Library library;
    const Stopwatch stopwatch;
    library.read(files);
    library.editSharedText();
    library.write(files);
    stopwatch.print();
}

struct Task {
    void (*run)(const Files&);
    bool writes;
};
const std::map<std::u16string_view, Task> kTasks = {
    {u"scan", {scan, false}},  {u"tokenise", {tokenise, false}}, {u"read", {read, false}},
    {u"write", {write, true}}, {u"edit", {edit, true}},
};

}  // namespace

int main(int argc, char** argv) {
    try {
        const std::vector<std::u16string> arguments = platform::programArguments(argc, argv);
        const auto task = arguments.size() < 3 ? kTasks.end() : kTasks.find(arguments[1]);
        if (task == kTasks.end() || arguments.size() != (task->second.writes ? 4 : 3)) {
            std::cerr << texts::kBenchUsage;
            return EXIT_FAILURE;
        }
        task->second.run({arguments[2], task->second.writes ? arguments[3] : std::u16string()});
        return EXIT_SUCCESS;
    } catch (const std::exception& fault) {
        std::cerr << texts::kBenchFailed << fault.what() << '\n';
        return EXIT_FAILURE;
    }
}
