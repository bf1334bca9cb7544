#include "cli/model_file.h"

#include <algorithm>

#include "cli/cli_texts.h"
#include "cli/command_table.h"
#include "edits/apply_edits.h"
#include "ifc/io/io_texts.h"
#include "ifc/io/parser_texts.h"
#include "ifc/io/paths.h"
#include "ifc/io/writer.h"
#include "ifc/model/model.h"
#include "platform/same_file.h"
#include "platform/text.h"

namespace cli {
namespace {

/// The parser tells 0 to 80 in each of its passes.
constexpr int kPassPercent = 80;

}  // namespace

ModelFile::ModelFile(Session& session, std::u16string path)
    : session_(session), path_(std::move(path)) {}

bool ModelFile::read() {
    if (session_.arguments.has(options::kLog))
        session_.log.open(path_);
    IFC::ModelParser::Options options;
    options.progress = [this](int percent, int) { return showReading(percent); };
    options.log = session_.log.isOpen() ? &session_.log : nullptr;
    const auto reportAll = [this](const char* key, const char16_t* text, int) {
        const IFC::ModelParser::Position position = parser_->position();
        const Place place{.file = path_, .line = position.line, .instance = position.instance};
        // Objects with unusable GUIDs are told together, one a line.
        const std::u16string whole = reportText(key, text);
        for (std::size_t begin = 0; begin < whole.size();) {
            const std::size_t end = std::min(whole.find(u'\n', begin), whole.size());
            session_.reports.add(place, std::u16string_view(whole).substr(begin, end - begin));
            begin = end + 1;
        }
    };
    parser_.emplace(reportAll, std::move(options));
    const bool isRead = parser_->load(path_);
    session_.screen.hideProgress();
    return isRead;
}

bool ModelFile::showReading(int percent) {
    isSecondPass_ |= percent < readPercent_;
    readPercent_ = percent;
    session_.screen.showProgress(isSecondPass_ ? texts::kReadingAgain : texts::kReading,
                                 percent * 100 / kPassPercent);
    return !session_.screen.interrupted();
}

bool ModelFile::write(const std::u16string& path) {
    std::optional<IFC::ModelWriter> writer;
    writer.emplace(
        [&](const char* key, const char16_t* text, int) {
            session_.reports.add({.file = path, .instance = writer->instance()},
                                 reportText(key, text));
        },
        [&](int percent, int) {
            session_.screen.showProgress(texts::kWriting, percent);
            return !session_.screen.interrupted();
        });
    const bool isWritten = writer->write(model(), path);
    session_.screen.hideProgress();
    if (isWritten)
        session_.note = path + std::u16string(texts::kWritten);
    return isWritten;
}

bool checkOutput(Session& session, const std::u16string& output,
                 std::initializer_list<std::u16string> inputs) {
    const std::u16string extension = FileStream::extensionOf(output);
    if (extension != ::texts::kIfcExtension && extension != ::texts::kIfcZipExtension) {
        session.reports.add({}, reportText(::texts::kCouldNotOpenFileExtensionKey, output));
        return false;
    }
    const bool isInput = std::any_of(
        inputs.begin(), inputs.end(),
        [&](const std::u16string& input) { return platform::isSameFile(input, output); });
    if (isInput && !session.arguments.has(options::kForce)) {
        session.reports.add({.file = output}, texts::kOutputIsInput);
        return false;
    }
    return true;
}

ExitStatus applyAndWrite(Session& session, ModelFile& file, const IFC::FileEdits& edits,
                         const std::u16string& output) {
    const IFC::ApplyResult result =
        IFC::applyEdits(file.model(), edits, session.reports.callback(file.path()));
    if (result.applied == 0 && result.failed > 0) {
        file.report(0, texts::kNothingDone);
        return ExitStatus::NotDone;
    }
    if (!file.write(output))
        return ExitStatus::NotDone;
    session.note += texts::kListJoint;
    session.note += platform::fromUtf8(std::to_string(result.applied));
    session.note += result.applied == 1 ? texts::kSetChanged : texts::kSetsChanged;
    return ExitStatus::Done;
}

}  // namespace cli
