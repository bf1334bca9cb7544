#include <exception>
#include <iostream>

#include "tools/schema_generator/command_line.h"

int main(int argumentCount, char** arguments) {
    try {
        return schema_generator::runCommandLine({arguments + 1, arguments + argumentCount},
                                                std::cout, std::cerr);
    } catch (const std::exception& fault) {
        std::cerr << "schema_generator: " << fault.what() << "\n";
        return 1;
    }
}
