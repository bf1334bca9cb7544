#pragma once

#include <string>
#include <string_view>

/// Texts of the edit log between UTF-16 and XML, without loss. XML 1.0 has no form for some UTF-16
/// units, not even as a character reference: the control characters below U+0020 except tab, line
/// feed and carriage return, lone surrogates, U+FFFE and U+FFFF. Texts read from damaged STEP files
/// hold them all the same. Each is written in the manner of STEP's own escape, with four capital
/// hexadecimal digits:
///   U+0001     \X2\0001\X0\.
/// and so that the text \X2\ itself stays what it is, its backslash is written as
/// \X2\005C\X0\ then. No other sequence has a meaning, so a reader that does not know this rule
/// sees nothing but these few units in a strange spelling.
namespace IFC {

enum class XmlReferences {
    Written,        // here: for a document that leaves texts as they are
    LeftToPrinter,  // by a document that processes entities; it keeps no text of blanks only
};

/// UTF-8 for an attribute or an element. References are written for markup, tab, line ends, and for
/// a blank at either end, so that no parser trims or normalises them.
std::string toXmlText(std::u16string_view text, XmlReferences references);

struct TextFromXml {
    std::u16string text;
    bool damaged;  // was not UTF-8: each byte in question became U+FFFD
};

/// utf8: with references resolved, as an XML parser gives it.
TextFromXml fromXmlText(std::string_view utf8);

}  // namespace IFC
