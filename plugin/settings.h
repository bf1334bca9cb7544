#pragma once

#include <cstdint>
#include <string>

#include "ifc/io/error_callback.h"

/// The plug-in's own options, kept in "config.txt": one line each in this order, "true" or "false".
struct PluginOptions {
    bool ignoreEnumerationErrors = true;  ///< values that a schema's enumeration does not have
    bool eraseWhiteSigns = true;          ///< blanks around names and values that are entered

    bool operator==(const PluginOptions&) const = default;
};

/// Takes over what the file at `path` says; an option whose line is neither of the two words, and
/// all options where there is no file, stay as they are. A file that cannot be read to its end is
/// told to the user by a message box.
void readOptions(const std::u16string& path, PluginOptions& options);

/// Writes the file anew; the old one stays when that fails, and the user is told by a message box.
void writeOptions(const std::u16string& path, const PluginOptions& options);

/// The options of the host that the plug-in asks for, by their numbers.
enum class HostOption : std::int32_t { UseGeometryCache = 0 };

/// Name of an option in the host's configuration. A number that is none is reported.
std::string hostOptionName(HostOption option, const ErrorCallback& errors);

/// Whether an option of the host is on. The configuration at `path` lists those that are switched
/// off; where it cannot be opened, that is reported and the option taken as off.
bool readHostOption(HostOption option, const std::u16string& path, const ErrorCallback& errors);
