#include "plugin/settings.h"

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include "platform/files.h"
#include "platform/message_box.h"
#include "platform/text.h"
#include "platform/whole_file.h"
#include "plugin/plugin_texts.h"

namespace {

[[noreturn]] void throwLastError() { throw std::system_error(errno, std::generic_category()); }

/// A line holds one of two words: of a longer one this much tells that it is neither.
constexpr std::size_t kReadLineUnits = 10;

/// The next line without its line break, at most kReadLineUnits of it; the rest is skipped.
std::string readLine(std::FILE* file) {
    std::string line;
    int byte = 0;
    while ((byte = std::fgetc(file)) != EOF && byte != '\n')
        if (line.size() < kReadLineUnits)
            line.push_back(static_cast<char>(byte));
    if (std::ferror(file))
        throwLastError();
    if (line.ends_with('\r'))
        line.pop_back();
    return line;
}

void takeLine(const std::string& line, bool& option) {
    if (line == texts::kTrue)
        option = true;
    else if (line == texts::kFalse)
        option = false;
}

/// Runs `body`; what it throws is told to the user.
template <class Body>
void withMessage(std::u16string_view what, const std::u16string& path, Body body) {
    std::u16string fault;
    try {
        body();
        return;
    } catch (const std::exception& exception) {
        fault = platform::fromUtf8(exception.what());
    }
    if (fault.empty())
        fault = texts::kUnknownException;
    std::u16string text(what);
    text.append(path).append(u"\"\n").append(texts::kErrorMessage).append(fault);
    platform::showMessageBox(text, texts::kSettingsErrorCaption, platform::MessageButtons::Ok,
                             platform::MessageIcon::Warning);
}

}  // namespace

void readOptions(const std::u16string& path, PluginOptions& options) {
    withMessage(texts::kUnableToReadConfig, path, [&] {
        const platform::FileHandle file(platform::openFile(path, "rb"));
        if (!file)
            return;
        takeLine(readLine(file.get()), options.ignoreEnumerationErrors);
        takeLine(readLine(file.get()), options.eraseWhiteSigns);
    });
}

void writeOptions(const std::u16string& path, const PluginOptions& options) {
    withMessage(texts::kUnableToWriteConfig, path, [&] {
        std::string bytes;
        for (const bool option : {options.ignoreEnumerationErrors, options.eraseWhiteSigns})
            bytes.append(option ? texts::kTrue : texts::kFalse).append("\n");
        if (!platform::writeWholeFile(path, bytes))
            throwLastError();
    });
}

std::string hostOptionName(HostOption option, const ErrorCallback& errors) {
    switch (option) {
        case HostOption::UseGeometryCache: return std::string(texts::kUseGeometryCache);
    }
    report(errors, "", texts::kUnknownHostOption);
    return std::string(texts::kUnknownHostOptionName);
}

bool readHostOption(HostOption option, const std::u16string& path, const ErrorCallback& errors) {
    const std::string name = hostOptionName(option, errors);
    const platform::FileHandle file(platform::openFile(path, "rb"));
    if (!file) {
        report(errors, "", std::u16string(texts::kUnableToOpenHostConfig) + path);
        return false;
    }
    // Anywhere in any line is anywhere in the file: a name has no line break. Read by pieces that
    // overlap, so that nothing depends on how long lines are.
    constexpr std::size_t kPieceBytes = 0x4000;
    std::string piece;
    for (;;) {
        const std::size_t kept = piece.size();
        piece.resize(kept + kPieceBytes);
        const std::size_t count = std::fread(piece.data() + kept, 1, kPieceBytes, file.get());
        piece.resize(kept + count);
        if (piece.find(name) != std::string::npos)
            return false;
        if (count == 0)
            return std::ferror(file.get()) == 0;
        if (piece.size() >= name.size())
            piece.erase(0, piece.size() - name.size() + 1);
    }
}
