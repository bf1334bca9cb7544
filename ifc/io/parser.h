#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "ifc/io/error_callback.h"
#include "ifc/io/token.h"

class LogFile;

namespace IFC {

class IfcEntity;
class MemoryPool;
class Model;

/// Reads one model from an IFC file, plain, zipped, or an entry of a project archive
/// (".ahx|entry").
///
/// The DATA section is read in two passes: the first creates every instance and fills it as far as
/// it can, and copies the text of those whose references lie ahead to a temporary file; the second
/// reads only these once more, when every instance exists. Afterwards missing and repeated GUIDs
/// are replaced by new ones. Trouble is reported and read over; only what leaves no model ends the
/// reading.
class ModelParser {
public:
    enum class State { Reading = 0, Finished = 1, Failed = 3, Cancelled = 4 };

    /// percent: 0 to 80 in each pass. @return false to ask for a stop.
    using Progress = std::function<bool(int percent, int remainder)>;

    struct Options {
        /// Unknown enumeration values are reported with severity 2 only. Otherwise with 0, and
        /// `continueQuestion` is asked.
        bool ignoreEnumerationErrors = true;
        /// Whether to read on; not asked when empty.
        std::function<bool()> continueQuestion;
        Progress progress;
        LogFile* log = nullptr;  ///< outlives the parser; none: nothing is logged
        /// Small enough to stay in the processor's cache between the system's copy and the scan.
        std::size_t readBufferBytes = 0x40000;  ///< 256 KiB
    };

    ModelParser(ErrorCallback errors, Options options);
    ~ModelParser();
    ModelParser(const ModelParser&) = delete;
    ModelParser& operator=(const ModelParser&) = delete;

    /// Reads the model at `path`, once per parser. @return whether there is one now.
    bool load(const std::u16string& path);

    State state() const { return state_; }

    /// Null before load() and when that failed.
    Model* model() const { return model_.get(); }
    /// The release's name ("IFC2X3"); empty while unknown.
    std::string_view releaseName() const { return releaseName_; }

    /// Where reading stands, for reports: a line of the file (0 when reading has not begun) and the
    /// instance being read (0 between instances).
    struct Position {
        std::int32_t line = 0;
        std::int64_t instance = 0;
    };
    Position position() const;

    // Without a model each reports that the parser is not initialised and returns nothing.
    std::u16string filePath() const;
    HeaderFields headerInfo() const;
    IfcEntity* unitAssignment() const;
    IfcEntity* ownerHistory() const;
    std::u16string iso() const;
    MemoryPool* memoryPool() const;

private:
    class Reading;

    /// The model, or null and a report.
    Model* modelOr(std::u16string_view complaint) const;

    ErrorCallback errors_;
    Options options_;
    State state_ = State::Reading;
    std::string_view releaseName_;
    std::unique_ptr<Model> model_;
    Reading* reading_ = nullptr;  // while load() runs
};

/// A token's class name as messages show it: "EmptyParameterToken" becomes "empty argument".
std::u16string_view tokenWords(std::u16string_view typeName);

}  // namespace IFC
