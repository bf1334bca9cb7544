#include "ifc/io/writer.h"

#include <exception>
#include <memory>
#include <new>
#include <vector>

#include "ifc/io/io_texts.h"
#include "ifc/io/output_file_stream.h"
#include "ifc/io/output_zip_stream.h"
#include "ifc/io/parser_texts.h"
#include "ifc/io/paths.h"
#include "ifc/model/attribute_writer.h"
#include "ifc/model/model.h"
#include "platform/files.h"
#include "platform/text.h"

namespace IFC {

namespace {

constexpr std::size_t kCapacityBytes = 0xA00000;  // 10 MiB
constexpr std::size_t kKeepBackBytes = 10;
/// Ends the names of files that are not complete yet.
constexpr std::u16string_view kIncompleteSuffix = u".part";

/// The file being filled beside its target; removed unless it was moved there.
class IncompleteFile {
public:
    explicit IncompleteFile(std::u16string_view target)
        : target_(target), path_(platform::createFileBeside(target, kIncompleteSuffix)) {}
    ~IncompleteFile() {
        if (!path_.empty())
            platform::removeFile(path_);
    }
    IncompleteFile(const IncompleteFile&) = delete;
    IncompleteFile& operator=(const IncompleteFile&) = delete;

    /// Empty when it could not be created.
    const std::u16string& path() const { return path_; }

    /// Gives the complete file its name. What it replaces is only given up once the new content is
    /// safe on the disk.
    bool moveToTarget() {
        if (platform::fileExists(target_) && !platform::flushToDisk(path_))
            return false;
        if (!platform::renameOver(path_, target_))
            return false;
        path_.clear();
        return true;
    }

private:
    std::u16string target_;
    std::u16string path_;
};

/// Writes the strings in brackets, and removes each from the list once it is written.
void writeStringList(std::vector<std::u16string>& list, FileStream::OutpoutStream& out) {
    out.append("(");
    const bool any = !list.empty();
    while (!list.empty()) {
        AttributeWriter::appendString(out, list.front());
        list.erase(list.begin());
    }
    if (any)
        out.movePointer(-1);
    out.append("),");
}

}  // namespace

ModelWriter::ModelWriter(ErrorCallback errors, Progress progress)
    : errors_(std::move(errors)), progress_(std::move(progress)) {}

bool ModelWriter::write(Model& model, const std::u16string& path) {
    error_ = {};
    if (writeFile(model, path))
        return true;
    if (error_.trouble != platform::FileTrouble::None)
        report(errors_, platform::textKey(error_.trouble), u"(" + error_.systemText + u")");
    return false;
}

bool ModelWriter::writeFile(Model& model, const std::u16string& path) {
    const std::u16string extension = FileStream::extensionOf(path);
    const bool zipped = extension == texts::kIfcZipExtension;
    if (!zipped && extension != texts::kIfcExtension) {
        report(errors_, texts::kCouldNotOpenFileExtensionKey, u" " + path);
        return false;
    }
    IncompleteFile file(path);
    if (file.path().empty())
        return failToWrite(path, platform::lastFileError());
    try {
        std::unique_ptr<FileStream::OutpoutStream> out;
        if (zipped)
            out = std::make_unique<FileStream::OutputZipFileStream>(
                file.path(), errors_,
                FileStream::baseNameOf(path) + std::u16string(texts::kIfcExtension));
        else
            out = std::make_unique<FileStream::OutpoutFileStream>(file.path(), errors_,
                                                                  kCapacityBytes, kKeepBackBytes);
        if (!out->isOpen())
            return failToWrite(path, out->error());
        const bool isWritten = writeModel(model, *out);
        if (isWritten)
            out->close();
        error_ = out->error();
        if (!isWritten || out->failureCount() > 0)
            return false;
    } catch (const std::bad_alloc&) {
        report(errors_, "", texts::kOutOfMemory);
        return false;
    } catch (const std::exception& fault) {
        report(errors_, "", widened(fault.what()));
        return false;
    }
    return file.moveToTarget() || failToWrite(path, platform::lastFileError());
}

/// @return false.
bool ModelWriter::failToWrite(const std::u16string& path, platform::FileError error) {
    report(errors_, texts::kCouldNotOpenFileWriteKey, std::u16string(texts::kWriteFilePath) + path);
    error_ = std::move(error);
    return false;
}

bool ModelWriter::writeModel(Model& model, FileStream::OutpoutStream& out) {
    out.write(model.iso);
    out.append(";\n");
    writeHeader(model, out);
    out.append("\nDATA;\n");
    if (!writeInstances(model, out))
        return false;
    out.append("ENDSEC;\nEND-");
    out.write(model.iso);
    out.append(";\n");
    return true;
}

void ModelWriter::writeHeader(Model& model, FileStream::OutpoutStream& out) {
    HeaderFields& header = model.header;
    const auto string = [&](std::u16string_view text) { AttributeWriter::appendString(out, text); };
    out.append("HEADER;\nFILE_DESCRIPTION (\n\t\t");
    writeStringList(header.description, out);
    out.append("\n\t\t");
    string(header.implementationLevel);
    out.movePointer(-1);
    out.append(");\nFILE_NAME (\n\t\t");
    string(header.name);
    out.append("\n\t\t");
    string(header.timeStamp);
    out.append("\n\t\t");
    writeStringList(header.author, out);
    out.append("\n\t\t");
    writeStringList(header.organization, out);
    out.append("\n\t\t");
    string(header.preprocessorVersion);
    out.append("\n\t\t");
    string(header.originatingSystem);
    out.append("\n\t\t");
    string(header.authorization);
    out.movePointer(-1);
    out.append(");\nFILE_SCHEMA ((");
    string(header.schemaIdentifier);
    out.movePointer(-1);
    out.append("));\nENDSEC;\n");
}

bool ModelWriter::writeInstances(Model& model, FileStream::OutpoutStream& out) {
    AttributeWriter writer(out);
    const std::size_t total = model.entities().size();
    const bool anyShape = model.hasShapes();
    int lastPercent = 0;
    std::size_t count = 0;
    for (const IfcEntity* entity : model.entities()) {
        if (entity->id() > 0) {
            instance_ = entity->id();
            try {
                const RecordShape* shape = anyShape ? model.shapeOf(entity) : nullptr;
                out.put('#');
                writer.number(entity->id());
                out.append("=");
                out.append(entity->classInfo().key);
                out.append("(");
                writer.beginRecord(entity->classInfo().derived, shape);
                entity->writeAttributes(writer);
                if (shape && !shape->surplus.empty()) {
                    out.append(shape->surplus);
                    out.append(",");
                }
                out.movePointer(-1);
                out.append(");\n");
            } catch (const std::exception& fault) {
                report(errors_, "", widened(fault.what()));
                report(errors_, "",
                       std::u16string(texts::kErrorWritingEntity) +
                           widened(std::to_string(instance_)));
                return false;
            }
        }
        ++count;
        const int percent = static_cast<int>(count * 100 / total);
        if (progress_ && percent > lastPercent) {
            lastPercent = percent;
            if (!progress_(percent, static_cast<int>(count * 100 % total)))
                return false;
        }
    }
    instance_ = 0;
    return true;
}

}  // namespace IFC
