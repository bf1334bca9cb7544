#include "ifc/io/parser.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <exception>
#include <limits>
#include <new>
#include <unordered_set>
#include <vector>

#include "ifc/io/guid.h"
#include "ifc/io/input_stream.h"
#include "ifc/io/io_texts.h"
#include "ifc/io/log_file.h"
#include "ifc/io/output_file_stream.h"
#include "ifc/io/parser_texts.h"
#include "ifc/io/record_text.h"
#include "ifc/io/schema_registry.h"
#include "ifc/io/tokenizer.h"
#include "ifc/model/attribute_reader.h"
#include "ifc/model/class_info_impl.h"
#include "ifc/model/model.h"
#include "ifc/model/read_context.h"
#include "ifc/model/views.h"
#include "platform/files.h"
#include "platform/message_box.h"
#include "platform/physical_memory.h"

namespace IFC {

namespace {

constexpr std::size_t kCopyCapacityBytes = 0xA00000;  // 10 MiB
constexpr std::size_t kCopyKeepBackBytes = 10;
constexpr int kLenientSeverity = 2;
constexpr ClassInfo kRoot = selectClass<VirtualIfcRoot>(u"IfcRoot", "IFCROOT");

std::u16string decimal(std::int64_t number) { return widened(std::to_string(number)); }

/// Class names of tokens as words; those not listed stand for themselves.
struct TokenWords {
    std::u16string_view typeName;
    std::u16string_view words;
};
constexpr std::array<TokenWords, 4> kTokenWords = {{
    {u"EmptyParameterToken", u"empty argument"},
    {u"EnumerationToken", u"enumeration value"},
    {u"EntityNameToken", u"entity name"},
    {u"CloseBracketToken", u"closing bracket"},
}};

/// The classes of a model by the name that stands in a record. One name follows another in few
/// different orders, so a small table in front of the hash map answers nearly all look-ups with one
/// comparison.
class ClassLookup {
public:
    struct Entry {
        const ClassInfo* info = nullptr;
        bool roleKnown = false;
        Model::ClassRole role;
    };

    explicit ClassLookup(const Model& model) : model_(model) {}

    /// entry.info is null when the release has no such class.
    Entry& find(std::string_view key) {
        Entry& entry = entries_[slotOf(key)];
        if (!entry.info || entry.info->key != key) [[unlikely]]
            entry = {.info = model_.findClass(key), .roleKnown = false, .role = {}};
        return entry;
    }

private:
    static constexpr std::size_t kSlotBits = 11;

    static std::size_t slotOf(std::string_view key) {
        std::uint64_t head = 0;
        std::uint64_t tail = 0;
        const std::size_t part = std::min<std::size_t>(key.size(), 8);
        const std::size_t skip = std::min<std::size_t>(key.size() - part, 3);  // all begin with IFC
        std::memcpy(&head, key.data() + skip, part);
        std::memcpy(&tail, key.data() + key.size() - part, part);
        const std::uint64_t hash =
            (head * 31 + tail + key.size()) * std::uint64_t{0x9E3779B97F4A7C15};
        return static_cast<std::size_t>(hash >> (64 - kSlotBits));
    }

    const Model& model_;
    std::vector<Entry> entries_{std::size_t{1} << kSlotBits};
};

/// Whether the input ended before the record did.
bool atEndOfFile(const Tokenizer& tokenizer) {
    return tokenizer.pending() && tokenizer.pending()->kind == TokenKind::EndOfFile;
}

/// While it lives, the lines of the log are indented under `title`.
class LogBlock {
public:
    /// log: may be null.
    LogBlock(LogFile* log, std::u16string_view title) : log_(log) {
        if (log_)
            log_->write(title, true);
    }
    ~LogBlock() {
        if (log_)
            log_->endBlock();
    }
    LogBlock(const LogBlock&) = delete;
    LogBlock& operator=(const LogBlock&) = delete;

private:
    LogFile* log_;
};

/// Removes the temporary copy whatever happens.
struct TemporaryFile {
    std::u16string path = platform::createTemporaryFile(texts::kTemporarySuffix);
    TemporaryFile() = default;
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (!path.empty())
            platform::removeFile(path);
    }
};

}  // namespace

std::u16string_view tokenWords(std::u16string_view typeName) {
    const auto found =
        std::find_if(kTokenWords.begin(), kTokenWords.end(),
                     [&](const TokenWords& entry) { return entry.typeName == typeName; });
    return found == kTokenWords.end() ? typeName : found->words;
}

/// One run of load(): the passes, and where they stand.
class ModelParser::Reading final : public ReadContext {
public:
    Reading(ModelParser& parser, Model& model)
        : ReadContext(model.pool(), model.table()),
          parser_(parser),
          model_(model),
          classes_(model),
          errors_(parser.errors_) {
        parser.reading_ = this;
    }
    ~Reading() override { parser_.reading_ = nullptr; }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

    State run(const std::u16string& path);
    Position position() const;

private:
    enum class Step { GoOn, Stop };

    /// Makes a tokenizer the one that reports refer to, as long as both live.
    class Pass {
    public:
        Pass(Reading& reading, Tokenizer& tokenizer) : reading_(reading) {
            reading_.tokenizer_ = &tokenizer;
        }
        ~Pass() {
            reading_.lastLine_ = reading_.tokenizer_->lineNumber();
            reading_.tokenizer_ = nullptr;
        }
        Pass(const Pass&) = delete;
        Pass& operator=(const Pass&) = delete;

    private:
        Reading& reading_;
    };

    bool firstPass(Tokenizer& tokenizer, FileStream::OutpoutFileStream& copy);
    bool secondPass(Tokenizer& tokenizer);
    void readInstance(Tokenizer& tokenizer, AttributeReader& reader,
                      FileStream::OutpoutFileStream& copy);
    void keepShape(const Tokenizer& tokenizer, const AttributeReader& reader);
    void reportUnclosed(const Tokenizer& tokenizer);
    void finishStatement(Tokenizer& tokenizer);
    static void skipStatement(Tokenizer& tokenizer);
    bool inputFits(const FileStream::InputStream& stream);
    Step checkProgress(const FileStream::InputStream& stream);
    VirtualIfcRoot* rootOf(IfcEntity* entity) {
        return static_cast<VirtualIfcRoot*>(casts.cast(entity, kRoot).part);
    }
    std::u16string freeGuid(const std::u16string& name) const;
    void repairGuids();
    void fail() { state_ = State::Failed; }
    void reportHere(std::u16string_view text, int flag = 0) { report(errors_, "", text, flag); }

    void wrongArgument(const char16_t* expected, const char16_t* found) override;
    void surplusArgument(const char16_t* found) override;
    void unknownEnumerationValue(std::string_view enumeration, std::string_view value) override;
    void numberOutOfRange() override { reportHere(texts::kNumberOutOfRange); }
    void malformedNumber() override { reportHere(texts::kMalformedNumber); }
    void missingReference(std::int64_t number) override;
    bool wasLeftOut(std::int64_t number) const override { return leftOut_.contains(number); }
    void wrongReference(const IfcEntity& target, const ClassInfo& declared) override;
    void unknownValueType(std::string_view name) override;
    const ClassInfo* findValueClass(std::string_view name) override;

    ModelParser& parser_;
    Model& model_;
    ClassLookup classes_;
    const ErrorCallback& errors_;
    State state_ = State::Reading;
    Tokenizer* tokenizer_ = nullptr;  // of the current pass
    std::int32_t lastLine_ = 0;       // where a pass ended
    std::int64_t instance_ = 0;
    std::unordered_set<std::int64_t> leftOut_;  // instances of unknown types
    bool sawEndIso_ = false;
    std::uint64_t totalSize_ = 0;
    int lastPercent_ = 0;
    // The copied statements' line numbers in the file, in order, and the place in them during the
    // second pass.
    std::vector<std::int32_t> copiedLines_;
    std::size_t copiedLine_ = 0;
};

ModelParser::ModelParser(ErrorCallback errors, Options options)
    : errors_(std::move(errors)), options_(std::move(options)) {}

ModelParser::~ModelParser() = default;

bool ModelParser::load(const std::u16string& path) {
    std::u16string identifier;
    {
        Tokenizer tokenizer(path, options_.readBufferBytes, errors_);
        const FileStream::InputStream* stream = tokenizer.stream();
        if (!stream || !stream->isOpen()) {
            // A zip archive and a wrong extension have been reported.
            if (stream && stream->extension() == texts::kIfcExtension)
                report(errors_, texts::kCouldNotOpenFileKey,
                       std::u16string(texts::kFilePath) + path);
            state_ = State::Failed;
            return false;
        }
        constexpr int kTokensBeforeHeader = 3;  // the ISO line, its ";" and HEADER
        const HeaderToken* header = nullptr;
        for (int count = 0; count < kTokensBeforeHeader && !header; ++count) {
            const Token* token = tokenizer.nextToken();
            if (token->kind == TokenKind::Header)
                header = static_cast<const HeaderToken*>(token);
        }
        if (!header) {
            report(errors_, "", texts::kNoHeaderToken);
            state_ = State::Failed;
            return false;
        }
        identifier = header->fields.schemaIdentifier;
    }
    const SchemaRelease* release = findRelease(identifier);
    if (!release) {
        report(errors_, texts::kUnknownSchemaIdentifierKey, identifier);
        state_ = State::Failed;
        return false;
    }
    releaseName_ = release->name;
    auto model = std::make_unique<Model>(release->classes);
    model->filePath = path;
    state_ = Reading(*this, *model).run(path);
    if (state_ != State::Finished)
        return false;
    model_ = std::move(model);
    return true;
}

ModelParser::Position ModelParser::position() const {
    return reading_ ? reading_->position() : Position{};
}

Model* ModelParser::modelOr(std::u16string_view complaint) const {
    if (!model_)
        report(errors_, "", complaint);
    return model_.get();
}

std::u16string ModelParser::filePath() const {
    const Model* model = modelOr(texts::kNoFilePath);
    return model ? model->filePath : std::u16string();
}

HeaderFields ModelParser::headerInfo() const {
    const Model* model = modelOr(texts::kNoHeaderInfo);
    return model ? model->header : HeaderFields();
}

IfcEntity* ModelParser::unitAssignment() const {
    const Model* model = modelOr(texts::kNoUnitAssignment);
    return model ? model->unitAssignment() : nullptr;
}

IfcEntity* ModelParser::ownerHistory() const {
    const Model* model = modelOr(texts::kNoOwnerHistory);
    return model ? model->ownerHistory() : nullptr;
}

std::u16string ModelParser::iso() const {
    const Model* model = modelOr(texts::kNoIso);
    return model ? model->iso : std::u16string();
}

MemoryPool* ModelParser::memoryPool() const {
    Model* model = modelOr(texts::kNoMemoryPool);
    return model ? &model->pool() : nullptr;
}

// Reading.

ModelParser::State ModelParser::Reading::run(const std::u16string& path) {
    const TemporaryFile temporary;
    const LogBlock parsing(parser_.options_.log, texts::kParsingFile);
    try {
        Tokenizer tokenizer(path, parser_.options_.readBufferBytes, errors_);
        FileStream::OutpoutFileStream copy(temporary.path, ErrorCallback(), kCopyCapacityBytes,
                                           kCopyKeepBackBytes);
        if (!copy.isOpen()) {
            reportHere(std::u16string(texts::kUnableToCopy) + temporary.path + u"\"");
            return State::Failed;
        }
        if (!tokenizer.stream() || !tokenizer.stream()->isOpen() || !inputFits(*tokenizer.stream()))
            return State::Failed;
        const Pass pass(*this, tokenizer);
        const bool complete = firstPass(tokenizer, copy);
        copy.close();
        if (complete && copy.failureCount() > 0) {
            reportHere(texts::kCouldNotWriteToFile);
            fail();
        }
    } catch (const std::bad_alloc&) {
        reportHere(texts::kOutOfMemory);
        reportHere(texts::kUnableToReadEntity);
        fail();
    } catch (const std::exception& fault) {
        reportHere(widened(fault.what()));
        reportHere(std::u16string(texts::kErrorReadingEntity) + decimal(instance_));
        reportHere(texts::kUnableToReadEntity);
        fail();
    }
    if (state_ != State::Reading)
        return state_;
    try {
        if (!copiedLines_.empty()) {
            Tokenizer tokenizer(temporary.path, parser_.options_.readBufferBytes, errors_);
            const Pass pass(*this, tokenizer);
            secondPass(tokenizer);
        }
        if (state_ == State::Reading) {
            instance_ = 0;
            lastLine_ = 0;
            repairGuids();
            model_.noteEditableOwners(std::move(editableOwners));
            state_ = State::Finished;
            if (parser_.options_.log)
                parser_.options_.log->done();
        }
    } catch (const std::bad_alloc&) {
        reportHere(texts::kOutOfMemory);
        fail();
    } catch (const std::exception& fault) {
        reportHere(widened(fault.what()));
        fail();
    }
    return state_;
}

ModelParser::Position ModelParser::Reading::position() const {
    Position position;
    position.instance = instance_;
    if (bindingPass)  // whose own lines are those of the copy
        position.line = instance_ != 0 && copiedLine_ > 0 ? copiedLines_[copiedLine_ - 1] : 0;
    else
        position.line = tokenizer_ ? tokenizer_->lineNumber() : lastLine_;
    return position;
}

/// An archive entry that claims to be larger than the machine's memory is refused before it fills
/// it.
bool ModelParser::Reading::inputFits(const FileStream::InputStream& stream) {
    totalSize_ = stream.size();
    const std::uint64_t memory = platform::physicalMemoryBytes();
    if (memory == 0 || totalSize_ <= memory)
        return true;
    reportHere(texts::kOutOfMemory);
    return false;
}

bool ModelParser::Reading::firstPass(Tokenizer& tokenizer, FileStream::OutpoutFileStream& copy) {
    const LogBlock block(parser_.options_.log, texts::kReadingFirstPart);
    const FileStream::InputStream& stream = *tokenizer.stream();
    AttributeReader reader(tokenizer, *this);
    while (true) {
        const Token* token = tokenizer.nextToken();
        switch (token->kind) {
            case TokenKind::EndOfFile:
                if (tokenizer.failed() || stream.readFailed()) {
                    fail();
                    return false;
                }
                if (!sawEndIso_)
                    reportHere(texts::kNoEndOfFile);
                return true;
            case TokenKind::Iso:
                if (model_.iso.empty())
                    model_.iso = static_cast<const IsoToken*>(token)->value;
                break;
            case TokenKind::Header:
                if (model_.header.schemaIdentifier.empty())
                    model_.header = static_cast<const HeaderToken*>(token)->fields;
                break;
            case TokenKind::EndIso:
                sawEndIso_ =
                    static_cast<const EndIsoToken*>(token)->text.starts_with(texts::kEndIso);
                break;
            case TokenKind::Identifier: {
                const auto& name = *static_cast<const IdentifierToken*>(token);
                instance_ = name.exact;
                if (name.overflow || name.number < 1) {
                    reportHere(std::u16string(texts::kInstanceNumberOutOfRange) +
                               decimal(instance_));
                    skipStatement(tokenizer);
                } else {
                    readInstance(tokenizer, reader, copy);
                }
                instance_ = 0;
                if (state_ != State::Reading || checkProgress(stream) == Step::Stop)
                    return false;
                break;
            }
            default: break;
        }
        tokenizer.clearTokens();
    }
}

/// Behind the "#n" of an instance: reads the rest of its statement, up to the ";".
void ModelParser::Reading::readInstance(Tokenizer& tokenizer, AttributeReader& reader,
                                        FileStream::OutpoutFileStream& copy) {
    const auto number = static_cast<std::int32_t>(instance_);
    if (parser_.options_.log)
        parser_.options_.log->readingEntity(number);
    const std::int32_t line = tokenizer.lineNumber();
    const Token* token = tokenizer.nextToken();
    if (token->kind == TokenKind::Equal)
        token = tokenizer.nextToken();
    if (token->kind != TokenKind::EntityName) {
        wrongArgument(u"EntityNameToken", token->typeName());
        tokenizer.setPending(token);
        skipStatement(tokenizer);
        return;
    }
    const std::string_view key = static_cast<const EntityNameToken*>(token)->name;
    ClassLookup::Entry& found = classes_.find(key);
    if (!found.info || found.info->isValue) {
        reportHere(std::u16string(texts::kEntityNamed) + widened(key) +
                   std::u16string(texts::kNotFound));
        leftOut_.insert(number);
        entities.reserve(number);
        skipStatement(tokenizer);
        return;
    }
    if (entities.find(number)) {
        reportHere(std::u16string(texts::kEntityDuplicated) + decimal(number));
        skipStatement(tokenizer);
        return;
    }
    IfcEntity* entity = found.info->create(pool);
    if (!found.roleKnown) {
        found.role = Model::roleOf(entity);
        found.roleKnown = true;
    }
    const Model::ClassRole role = found.role;
    entity->setId(number);
    token = tokenizer.nextToken();
    if (token->kind == TokenKind::CloseBracket) {
        // So the writer leaves a record without arguments.
        tokenizer.setPending(token);
    } else if (token->kind != TokenKind::OpenBracket) {
        wrongArgument(u"OpenBracketToken", token->typeName());
        tokenizer.setPending(token);
        skipStatement(tokenizer);
        return;
    }
    const std::size_t argumentsBegin = tokenizer.stream()->statementLength();
    owner = entity;
    needsSecondPass = false;
    reader.beginRecord();
    entity->readAttributes(reader);
    if (!reader.endRecord())
        reportUnclosed(tokenizer);
    if (!needsSecondPass) {
        keepShape(tokenizer, reader);
    } else {
        if (tokenizer.stream()->statementTruncated()) {
            reportHere(std::u16string(texts::kErrorReadingEntity) + decimal(number));
            fail();
            return;
        }
        const std::string statement = tokenizer.stream()->statementText();
        copy.append("#" + std::to_string(number) + "=");
        copy.append(entity->classInfo().key);
        copy.append("(");
        copy.append(std::string_view(statement).substr(argumentsBegin));
        if (!atEndOfFile(tokenizer))  // inside a string, this would become a part of it
            copy.append(";\n");
        copiedLines_.push_back(line);
    }
    finishStatement(tokenizer);
    model_.add(entity, role);
}

void ModelParser::Reading::reportUnclosed(const Tokenizer& tokenizer) {
    reportHere(std::u16string(atEndOfFile(tokenizer) ? texts::kUnexpectedEnd
                                                     : texts::kStatementNotClosed) +
               decimal(instance_));
}

/// Keeps what the record of `owner`, just read, had beyond its class's attributes.
void ModelParser::Reading::keepShape(const Tokenizer& tokenizer, const AttributeReader& reader) {
    const std::uint64_t starred = reader.starredAttributes() & ~owner->classInfo().derived;
    const AttributeReader::TextRange surplus = reader.surplusArguments();
    // A record without any arguments is written with all of them: without any it could not be read
    // again.
    const bool shorter =
        reader.attributesFound() > 0 && reader.attributesFound() < reader.attributesAsked();
    if (!shorter && surplus.begin == surplus.end && reader.damagedAttributes().empty() &&
        starred == 0) [[likely]]
        return;
    RecordShape shape;
    if (shorter)
        shape.attributeCount = reader.attributesFound();
    for (std::uint32_t place = 0; place < 64; ++place) {
        if (((starred >> place) & 1U) != 0)
            shape.raw.emplace(place, "*");
    }
    const FileStream::InputStream& stream = *tokenizer.stream();
    if (!stream.statementTruncated()) {
        const std::string statement = stream.statementText();
        const auto textOf = [&](const AttributeReader::TextRange& range, std::size_t commas) {
            return std::string(argumentText(
                std::string_view(statement).substr(range.begin, range.end - range.begin), commas));
        };
        for (const AttributeReader::DamagedAttribute& damaged : reader.damagedAttributes())
            shape.raw.emplace(damaged.place, textOf(damaged.text, std::string::npos));
        if (surplus.begin != surplus.end)
            shape.surplus = textOf(surplus, reader.surplusCommas());
    }
    model_.keepShape(owner, std::move(shape));
}

/// Takes the ";" behind a record; anything else begins the next statement.
void ModelParser::Reading::finishStatement(Tokenizer& tokenizer) {
    const Token* token = tokenizer.nextToken();
    if (token->kind != TokenKind::Semicolon)
        tokenizer.setPending(token);
}

void ModelParser::Reading::skipStatement(Tokenizer& tokenizer) {
    const Token* token = tokenizer.nextToken();
    while (token->kind != TokenKind::Semicolon && token->kind != TokenKind::EndOfFile) {
        tokenizer.clearTokens();
        token = tokenizer.nextToken();
    }
    if (token->kind == TokenKind::EndOfFile)
        tokenizer.setPending(token);
}

bool ModelParser::Reading::secondPass(Tokenizer& tokenizer) {
    const LogBlock block(parser_.options_.log, texts::kReadingSecondPart);
    bindingPass = true;
    if (!tokenizer.stream() || !tokenizer.stream()->isOpen()) {
        reportHere(std::u16string(texts::kUnableToCopy) + u"\"");
        fail();
        return false;
    }
    const FileStream::InputStream& stream = *tokenizer.stream();
    totalSize_ = stream.size();
    lastPercent_ = 0;
    AttributeReader reader(tokenizer, *this);
    for (const Token* token = tokenizer.nextToken(); token->kind != TokenKind::EndOfFile;
         token = tokenizer.nextToken()) {
        if (token->kind == TokenKind::Identifier) {
            const auto number = static_cast<const IdentifierToken*>(token)->number;
            instance_ = number;
            if (copiedLine_ < copiedLines_.size())
                ++copiedLine_;
            if (parser_.options_.log)
                parser_.options_.log->readingEntity(number);
            for (int frame = 0; frame < 3; ++frame)  // "=", the type, "("
                tokenizer.nextToken();
            owner = entities.find(number);
            reader.beginRecord();
            if (owner)
                owner->readAttributes(reader);
            reader.endRecord();
            if (owner)
                keepShape(tokenizer, reader);
            finishStatement(tokenizer);
            instance_ = 0;
            if (checkProgress(stream) == Step::Stop)
                return false;
        }
        tokenizer.clearTokens();
    }
    if (tokenizer.failed() || stream.readFailed())
        fail();
    return state_ == State::Reading;
}

ModelParser::Reading::Step ModelParser::Reading::checkProgress(
    const FileStream::InputStream& stream) {
    if (!parser_.options_.progress || totalSize_ == 0)
        return Step::GoOn;
    const auto hundredfold =
        static_cast<std::uint64_t>(std::max<std::int64_t>(stream.tell(), 0)) * 100;
    // Kept: each pass reports 80 at most.
    const int percent = static_cast<int>(
        static_cast<double>(std::min<std::uint64_t>(hundredfold / totalSize_, 100)) * 0.8);
    if (percent <= lastPercent_)
        return Step::GoOn;
    lastPercent_ = percent;
    if (parser_.options_.progress(percent, static_cast<int>(hundredfold % totalSize_)))
        return Step::GoOn;
    const platform::MessageAnswer answer =
        platform::showMessageBox(texts::kCancelQuestion, texts::kCancelCaption,
                                 platform::MessageButtons::YesNo, platform::MessageIcon::Question);
    if (answer != platform::MessageAnswer::Yes)
        return Step::GoOn;
    state_ = State::Cancelled;
    return Step::Stop;
}

/// The first of the GUIDs that follow from `name` which nothing in the file has.
std::u16string ModelParser::Reading::freeGuid(const std::u16string& name) const {
    std::u16string guid = namedIfcGuid(name);
    for (std::int64_t attempt = 1; model_.findByGuid(guid); ++attempt)
        guid = namedIfcGuid(name + u":" + decimal(attempt));
    return guid;
}

/// Every rooted entity gets a GUID of its own. It follows from the file alone, so that edits find
/// their objects and sets at the next reading.
void ModelParser::Reading::repairGuids() {
    std::u16string lines;
    std::vector<IfcEntity*> withoutOwn;
    model_.reserveGuids(model_.rooted().size());
    for (IfcEntity* entity : model_.rooted()) {
        const std::u16string_view guid = rootOf(entity)->globalId();
        if (guid.empty() || !model_.registerGuid(guid, entity))
            withoutOwn.push_back(entity);
    }
    for (IfcEntity* entity : withoutOwn) {
        VirtualIfcRoot* root = rootOf(entity);
        const std::u16string_view old = root->globalId();
        const std::u16string guid = freeGuid(decimal(entity->id()).append(u":").append(old));
        if (old.empty())
            lines += std::u16string(texts::kObject) + entity->typeName() +
                     std::u16string(texts::kHasNoGuid) + guid + u"\n";
        else
            lines += std::u16string(texts::kObjectWithGuid) + std::u16string(old) +
                     std::u16string(texts::kGuidExists) + u"\"" + guid + u"\"\n";
        model_.noteReplacedGuid(entity, old);
        model_.markEdited(entity);
        root->setGlobalId(pool, guid);
        if (const RecordShape* shape = model_.shapeOf(entity); shape && shape->raw.contains(0))
            model_.markEdited(entity);  // else the text that was no GUID would be written again
        model_.registerGuid(root->globalId(), entity);
    }
    if (!lines.empty())
        reportHere(lines);
}

// What the attribute reader reports.

void ModelParser::Reading::wrongArgument(const char16_t* expected, const char16_t* found) {
    if (parser_.options_.log && tokenizer_) {
        parser_.options_.log->write(std::u16string(texts::kWrongArgument) +
                                        decimal(tokenizer_->parameterIndex()) + u"). Line: " +
                                        decimal(tokenizer_->lineNumber()) + u".\n",
                                    false);
    }
    reportHere(std::u16string(texts::kExpected) + std::u16string(tokenWords(expected)) +
               std::u16string(texts::kGot) + std::u16string(tokenWords(found)) + u".\n");
}

void ModelParser::Reading::surplusArgument(const char16_t* found) {
    reportHere(std::u16string(texts::kSurplusArgument) + std::u16string(tokenWords(found)) +
               u".\n");
}

void ModelParser::Reading::unknownEnumerationValue(std::string_view enumeration,
                                                   std::string_view value) {
    const std::u16string text = std::u16string(texts::kEnume) + widened(enumeration) +
                                std::u16string(texts::kDoesNotContain) + widened(value) + u"\"";
    const ModelParser::Options& options = parser_.options_;
    if (options.ignoreEnumerationErrors) {
        reportHere(text, kLenientSeverity);
        return;
    }
    reportHere(text);
    if (options.continueQuestion && !options.continueQuestion())
        fail();
}

void ModelParser::Reading::missingReference(std::int64_t number) {
    entities.reserve(number);
    reportHere(std::u16string(texts::kReferenceNotFound) + decimal(number));
}

void ModelParser::Reading::wrongReference(const IfcEntity& target, const ClassInfo& declared) {
    std::u16string text = std::u16string(texts::kReferenceOfWrongClass) + declared.name +
                          std::u16string(texts::kGot) + target.typeName();
    if (target.id() > 0)
        text += u" #" + decimal(target.id());
    reportHere(text + u".\n");
}

void ModelParser::Reading::unknownValueType(std::string_view name) {
    reportHere(std::u16string(texts::kNoESetCalled) + widened(name) +
               std::u16string(texts::kExistsInMap));
}

const ClassInfo* ModelParser::Reading::findValueClass(std::string_view name) {
    const ClassInfo* found = classes_.find(name).info;
    return found && found->isValue ? found : nullptr;
}

}  // namespace IFC
