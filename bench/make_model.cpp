// make_model OUTPUT.ifc --megabytes N ...: writes a model of any size for the benchmarks.

#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include "bench/bench_texts.h"
#include "bench/model_content.h"

namespace {

namespace texts = bench::texts;

struct CommandLine {
    std::filesystem::path output;
    bench::ModelOptions model;
};

/// Throws std::invalid_argument with the argument that was not understood.
CommandLine parsed(std::span<char* const> arguments) {
    std::size_t next = 0;
    const auto take = [&]() -> std::string_view {
        if (next == arguments.size())
            throw std::invalid_argument(arguments.empty() ? "" : arguments.back());
        return arguments[next++];
    };
    const auto takeNumber = [&](std::uint64_t low, std::uint64_t high) {
        const std::string_view text = take();
        std::uint64_t number = 0;
        const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (fault != std::errc() || end != text.data() + text.size() || number < low ||
            number > high)
            throw std::invalid_argument(std::string(text));
        return number;
    };

    CommandLine result;
    while (next < arguments.size()) {
        const std::string_view argument = take();
        if (argument == "--megabytes") {
            result.model.targetBytes = static_cast<std::int64_t>(takeNumber(1, 10'000)) * 1'000'000;
        } else if (argument == "--schema") {
            const std::string_view release = take();
            if (release != "IFC2X3" && release != "IFC4")
                throw std::invalid_argument(std::string(release));
            result.model.release =
                release == "IFC4" ? bench::SchemaRelease::kIfc4 : bench::SchemaRelease::kIfc2x3;
        } else if (argument == "--forward") {
            result.model.forwardPercent =
                static_cast<int>(takeNumber(0, bench::kMaxForwardPercent));
        } else if (argument == "--gaps") {
            result.model.numberGaps = true;
        } else if (argument == "--seed") {
            result.model.seed = takeNumber(0, UINT64_MAX);
        } else if (result.output.empty() && !argument.starts_with("--")) {
            result.output = argument;
        } else {
            throw std::invalid_argument(std::string(argument));
        }
    }
    if (result.output.empty() || result.model.targetBytes == 0)
        throw std::invalid_argument("");
    return result;
}

/// Writes beside the target and renames, so that a file of that name is always complete.
std::optional<bench::WrittenCounts> writeFile(const CommandLine& command) {
    const std::filesystem::path partial = command.output.string() + ".part";
    std::ofstream file(partial, std::ios::binary);
    const bench::WrittenCounts counts = bench::writeModel(file, command.model);
    file.close();
    std::error_code fault;
    if (file)
        std::filesystem::rename(partial, command.output, fault);
    if (file && !fault)
        return counts;
    std::filesystem::remove(partial, fault);
    return std::nullopt;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const CommandLine command = parsed({argv + (argc > 0 ? 1 : 0), argv + argc});
        const auto counts = writeFile(command);
        if (!counts) {
            std::cerr << texts::kCannotWrite << command.output.string() << '\n';
            return EXIT_FAILURE;
        }
        std::cout << counts->bytes << " bytes, " << counts->instances << " instances, "
                  << (counts->forward * 100 + counts->instances / 2) / counts->instances
                  << " % refer forward, largest number " << counts->largestNumber << '\n';
        return EXIT_SUCCESS;
    } catch (const std::invalid_argument& fault) {
        if (*fault.what() != '\0')
            std::cerr << texts::kNotUnderstood << fault.what() << '\n';
        std::cerr << texts::kMakeModelUsage;
    } catch (const std::exception& fault) {
        std::cerr << texts::kCannotWrite << fault.what() << '\n';
    }
    return EXIT_FAILURE;
}
