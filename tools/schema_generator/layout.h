#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Line breaks of the emitted code, as the house format has them.
namespace schema_generator {

inline constexpr std::size_t kColumnLimit = 100;

/// `head`, the comma-separated `arguments` and `tail`, on one line when it fits, e.g.
/// "reader.text(" {"Name_", "kOptional"}
/// ");". Otherwise filled lines that begin below the first argument or, when that leaves too little
/// room, on the next line four columns further in than `indent`. `head` and `indent` columns of
/// blanks come first; ends with a line feed.
std::string wrappedCall(std::size_t indent, std::string_view head,
                        const std::vector<std::string>& arguments, std::string_view tail);

/// The same, but what does not fit on one line begins on the next line in any case. For long lists.
std::string hangingCall(std::string_view head, const std::vector<std::string>& arguments,
                        std::string_view tail);

/// The items, separated by commas and closed by `tail`, in lines that begin at `column`, as many in
/// each as fit. The first line comes without its blanks, the last without its end.
std::string filledLines(const std::vector<std::string>& items, std::string_view tail,
                        std::size_t column);

/// "class X : public A, public B {", broken as the house format breaks a long list.
std::string classHead(std::string_view name, const std::vector<std::string>& bases);

/// `text` as "/// " lines in front of a class.
std::string docComment(std::string_view text);

/// "A, B and C"
std::string enumerated(const std::vector<std::string>& items, std::string_view lastWord);

}  // namespace schema_generator
