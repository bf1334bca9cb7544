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

/// Removes its file unless it was given another name.
class FileToReplace {
public:
    explicit FileToReplace(const std::u16string& target)
        : target_(target), path_(platform::createFileBeside(target, u".tmp")) {}
    ~FileToReplace() {
        if (!path_.empty())
            platform::removeFile(path_);
    }
    FileToReplace(const FileToReplace&) = delete;
    FileToReplace& operator=(const FileToReplace&) = delete;

    void write(const std::string& bytes) {
        platform::FileHandle file(path_.empty() ? nullptr : platform::openFile(path_, "wb"));
        if (!file)
            throwLastError();
        if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size())
            throwLastError();
        if (std::fclose(file.release()) != 0 || !platform::renameOver(path_, target_))
            throwLastError();
        path_.clear();
    }

private:
    const std::u16string& target_;
    std::u16string path_;
};

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
        FileToReplace(path).write(bytes);
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
