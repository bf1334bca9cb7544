// Stands in for libFuzzer where there is none: runs a fuzz target over files, and over all files of
// folders.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/fuzz_target.h"

namespace {

bool runFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "cannot read %s\n", path.string().c_str());
        return false;
    }
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    std::printf("%s\n", path.string().c_str());
    std::fflush(stdout);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    int files = 0;
    for (int index = 1; index < argc; ++index) {
        std::vector<std::filesystem::path> paths = {argv[index]};
        if (std::filesystem::is_directory(paths.front())) {
            const std::filesystem::recursive_directory_iterator folder(paths.front());
            paths.assign(begin(folder), end(folder));
        }
        for (const std::filesystem::path& path : paths) {
            if (std::filesystem::is_directory(path))
                continue;
            if (!runFile(path))
                return 1;
            ++files;
        }
    }
    std::printf("%d inputs\n", files);
    return files > 0 ? 0 : 1;
}
