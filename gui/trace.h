#pragma once

#include <string_view>

/// The windows' steps in the log, for those who look for a fault. Nothing is written while no log
/// is open.

/// Whether trace() writes anything: build long texts only then.
bool isTracing();

/// One line of the log.
void trace(std::u16string_view text);
