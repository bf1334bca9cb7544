#pragma once

#include <string>

/// The running program and the library that this code stands in.
namespace platform {

/// A function that the process's main program exports, null when it has none of that name.
void* mainModuleSymbol(const char* name);

/// Full path of the process's main program; empty when the system does not tell.
std::u16string mainModulePath();

/// Full path of the library, or of the program, that this code was linked into.
std::u16string ownModulePath();

}  // namespace platform
