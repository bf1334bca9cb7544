#pragma once

#include <functional>
#include <string>

#include "ifc/io/error_callback.h"
#include "ifc/io/token.h"
#include "platform/file_error.h"

namespace FileStream {
class OutpoutStream;
}

namespace IFC {

class Model;

/// Writes a model as an exchange file (ISO 10303-21): the header, then one instance per line in the
/// model's order.
class ModelWriter {
public:
    /// @return false to stop. percent: 0 to 100 of the instances.
    using Progress = std::function<bool(int percent, int remainder)>;

    explicit ModelWriter(ErrorCallback errors, Progress progress = {});

    /// Writes to `path`: ".ifc" plain, ".ifczip" zipped. The file appears there when it is
    /// complete; until then, and when writing fails or is stopped, what was there before stays as
    /// it was. The lists of the model's header are consumed; the header has to be filled again
    /// before a second write.
    /// @return whether the file was written.
    bool write(Model& model, const std::u16string& path);

    /// Why the last file was not written, as far as the disk is to blame; reported too, by the key
    /// of its trouble.
    const platform::FileError& error() const { return error_; }

    /// The instance being written, for reports; 0 otherwise.
    std::int32_t instance() const { return instance_; }

private:
    bool writeFile(Model& model, const std::u16string& path);
    bool failToWrite(const std::u16string& path, platform::FileError error);
    bool writeModel(Model& model, FileStream::OutpoutStream& out);
    void writeHeader(Model& model, FileStream::OutpoutStream& out);
    bool writeInstances(Model& model, FileStream::OutpoutStream& out);

    ErrorCallback errors_;
    Progress progress_;
    platform::FileError error_;
    std::int32_t instance_ = 0;
};

}  // namespace IFC
