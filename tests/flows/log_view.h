#pragma once

#include <string>

#include "tests/flows/displays.h"

/// What an object's display must show when `log`, the text of "Data.xml", is laid over what the
/// model itself shows. Reads the log by its format alone. Fails the test when it is not
/// well-formed.
SeenObjects withLog(SeenObjects model, const std::string& log);
