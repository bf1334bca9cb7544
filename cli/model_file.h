#pragma once

#include <optional>
#include <string>

#include "cli/session.h"
#include "ifc/io/parser.h"

namespace IFC {
struct FileEdits;
}

namespace cli {

/// The model that a command works on. Reading and writing show their progress and stop when the
/// user wants that; what goes wrong is reported.
class ModelFile {
public:
    /// session: outlives the file. With --log its log is opened.
    ModelFile(Session& session, std::u16string path);
    ModelFile(const ModelFile&) = delete;
    ModelFile& operator=(const ModelFile&) = delete;

    /// @return whether there is a model now.
    bool read();
    /// Writes the model once, and notes so. @return success.
    bool write(const std::u16string& path);

    const std::u16string& path() const { return path_; }
    // Only after read().
    IFC::Model& model() { return *parser_->model(); }
    std::string_view releaseName() const { return parser_->releaseName(); }

    /// instance: 0 for the file as a whole.
    void report(std::int64_t instance, std::u16string_view text) {
        session_.reports.add({.file = path_, .instance = instance}, text);
    }

private:
    bool showReading(int percent);

    Session& session_;
    const std::u16string path_;
    std::optional<IFC::ModelParser> parser_;
    int readPercent_ = 0;
    bool isSecondPass_ = false;
};

/// Whether `output` can be written to and, unless --force is given, is none of the `inputs`;
/// otherwise that is reported.
bool checkOutput(Session& session, const std::u16string& output,
                 std::initializer_list<std::u16string> inputs);

/// Applies the edits and writes the model.
ExitStatus applyAndWrite(Session& session, ModelFile& file, const IFC::FileEdits& edits,
                         const std::u16string& output);

}  // namespace cli
