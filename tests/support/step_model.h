#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ifc/io/parser.h"
#include "ifc/model/model.h"
#include "tests/support/temp_folder.h"

/// A complete exchange file of a release around the text of its DATA section.
std::string stepFile(std::string_view data, std::string_view schema = "IFC4");

/// A model read from STEP text, and what was reported meanwhile.
class ReadModel {
public:
    /// zipped: the text is read from an archive's entry.
    explicit ReadModel(std::string_view step, IFC::ModelParser::Options options = {},
                       bool zipped = false);

    bool loaded() const { return parser_.model() != nullptr; }
    /// Only when loaded().
    IFC::Model& model() { return *parser_.model(); }
    IFC::ModelParser& parser() { return parser_; }

    /// Each report on a line of its own, as "3 #12 text": file line, instance, text in UTF-8; line
    /// ends inside the text become "/". A key stands before the text in brackets, a severity other
    /// than 0 behind it in braces.
    const std::string& reports() const { return reports_; }

private:
    TempFolder folder_;
    std::string reports_;
    IFC::ModelParser parser_;
};

/// The model as the writer writes it to a plain file. The header's lists are there again
/// afterwards.
std::string stepOf(IFC::Model& model);

/// The instances of an exchange file, from its first to its last DATA section, one a line.
std::string dataOf(std::string_view step);
