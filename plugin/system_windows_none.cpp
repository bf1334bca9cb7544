#include "plugin/system_windows.h"

std::unique_ptr<SystemWindows> makeSystemWindows() { return nullptr; }
