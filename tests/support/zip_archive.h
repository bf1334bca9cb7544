#pragma once

#include <string>
#include <vector>

/// An entry of an archive that a test makes; stored entries are not compressed.
struct ZipEntry {
    std::string name;  // UTF-8
    std::string bytes;
    bool stored = false;
};

/// Writes an archive by the zip library itself, past the streams under test.
void writeZip(const std::u16string& path, const std::vector<ZipEntry>& entries);
