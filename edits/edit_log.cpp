#include "edits/edit_log.h"

#include <tinyxml2.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <new>
#include <set>
#include <system_error>
#include <utility>
#include <vector>

#include "ifc/io/io_texts.h"
#include "ifc/model/xml_export_visitor.h"
#include "ifc/model/xml_property_set_format.h"
#include "ifc/model/xml_property_set_reader.h"
#include "ifc/model/xml_text.h"
#include "platform/text.h"

namespace IFC {
namespace {

constexpr const char* kFileElement = "File";
constexpr const char* kFileName = "FileName";
constexpr const char* kIsCached = "IsCached";

/// The lists of an object's sets in the order in which they are written.
struct SetList {
    const char16_t* type;
    PropertySetRecords ObjectEdits::*records;
};
constexpr SetList kSetLists[] = {
    {u"New", &ObjectEdits::newSets},
    {u"Edited", &ObjectEdits::editedSets},
    {u"Deleted", &ObjectEdits::deletedSets},
};

/// Far more than any element has. The XML parser compares each attribute with all before it.
constexpr int kMaxAttributes = 64;

/// A fault that the XML parser does not see, or only after hours.
struct Fault {
    std::u16string_view reason;
    std::size_t offset = 0;
};

/// Walks over the markup of `xml` once. Knows no more of XML than it needs to tell text, tags and
/// comments apart; what is not well-formed is left to the parser.
class MarkupCheck {
public:
    explicit MarkupCheck(std::string_view xml) : xml_(xml) {}

    std::optional<Fault> run() {
        if (const std::size_t zero = xml_.find('\0'); zero != xml_.npos)
            return Fault{texts::kZeroByte, zero};
        while (at_ < xml_.size() && !fault_) {
            if (xml_[at_] == '&')
                checkReference();
            else if (xml_[at_] != '<')
                ++at_;
            else if (!skip("<!--", "-->") && !skip("<![CDATA[", "]]>") && !skip("<?", "?>") &&
                     !skip("<!", ">"))
                checkTag();
        }
        return fault_;
    }

private:
    bool skip(std::string_view begin, std::string_view end) {
        if (!xml_.substr(at_).starts_with(begin))
            return false;
        const std::size_t found = xml_.find(end, at_ + begin.size());
        at_ = found == xml_.npos ? xml_.size() : found + end.size();
        return true;
    }

    /// The XML parser takes any number; a zero would end the text, one too high would vanish from
    /// it.
    void checkReference() {
        const std::size_t begin = at_++;
        if (!xml_.substr(at_).starts_with('#'))
            return;
        const bool isHexadecimal = xml_.substr(at_ + 1).starts_with('x');
        const std::size_t digits = at_ + (isHexadecimal ? 2 : 1);
        std::uint32_t value = 0;  // stays 0 when the digits are no number or one too high
        const auto [end, error] = std::from_chars(xml_.data() + digits, xml_.data() + xml_.size(),
                                                  value, isHexadecimal ? 16 : 10);
        const bool isEnded = end != xml_.data() + xml_.size() && *end == ';';
        if (error != std::errc() || !isEnded || value == 0 || value > 0x10FFFF)
            fault_ = Fault{texts::kBadReference, begin};
    }

    void checkTag() {
        const std::size_t begin = at_;
        char quote = 0;
        int attributes = 0;
        while (++at_ < xml_.size() && !fault_ && (quote || xml_[at_] != '>')) {
            const char c = xml_[at_];
            if (c == '&') {
                checkReference();
                --at_;
            } else if (quote ? c == quote : c == '"' || c == '\'') {
                quote = quote ? '\0' : c;
            } else if (!quote && c == '=' && ++attributes > kMaxAttributes) {
                fault_ = Fault{texts::kTooManyAttributes, begin};
            }
        }
        countDepth(xml_.substr(begin, at_ - begin), begin);
    }

    /// Outside all elements the parser takes an end tag as the end of the text and drops what
    /// follows.
    void countDepth(std::string_view tag, std::size_t begin) {
        if (tag.starts_with("</")) {
            if (depth_-- == 0)
                fault_ = Fault{texts::kEndWithoutStart, begin};
        } else if (!tag.ends_with('/')) {
            ++depth_;
        }
    }

    std::string_view xml_;
    std::size_t at_ = 0;
    std::size_t depth_ = 0;
    std::optional<Fault> fault_;
};

int lineAt(std::string_view xml, std::size_t offset) {
    return 1 + static_cast<int>(std::count(
                   xml.begin(), xml.begin() + static_cast<std::ptrdiff_t>(offset), '\n'));
}

void reportMalformed(const XmlProblems& problems, int line, std::u16string_view reason) {
    problems.reportAt(line, std::u16string(texts::kParsingXmlError)
                                .append(texts::kParsingXmlErrorReason)
                                .append(reason));
}

/// Parses into `document`; reports why it cannot be. Depth is bounded by the XML parser.
bool parse(std::string_view xml, tinyxml2::XMLDocument& document, const XmlProblems& problems) {
    if (const auto fault = MarkupCheck(xml).run()) {
        reportMalformed(problems, lineAt(xml, fault->offset), fault->reason);
        return false;
    }
    const tinyxml2::XMLError error = document.Parse(xml.data(), xml.size());
    if (error == tinyxml2::XML_SUCCESS || error == tinyxml2::XML_ERROR_EMPTY_DOCUMENT)
        return true;
    reportMalformed(problems, document.ErrorLineNum(), platform::fromUtf8(document.ErrorName()));
    return false;
}

/// Prints to a string: a printer's own buffer ends at 2 GiB.
class StringPrinter : public tinyxml2::XMLPrinter {
public:
    std::string takeText() { return std::move(text_); }

protected:
    void Write(const char* bytes, std::size_t count) override { text_.append(bytes, count); }
    void Putc(char byte) override { text_.push_back(byte); }

private:
    std::string text_;
};

/// Fills a store from the elements of a log.
class EditLogReader {
public:
    /// leftOut: may be null.
    EditLogReader(PendingEdits& edits, XmlProblems& problems, std::string* leftOut)
        : edits_(edits), problems_(problems), leftOut_(leftOut) {}

    /// @return the names of the files, in the log's order.
    std::vector<std::u16string> read(const tinyxml2::XMLDocument& document) {
        std::vector<std::pair<const tinyxml2::XMLElement*, std::u16string>> files;
        for (const tinyxml2::XMLElement* element : childElements(document, problems_)) {
            if (std::string_view(element->Name()) != kFileElement)
                problems_.reportIgnored(element->GetLineNum(), element->Name());
            else if (std::u16string name = attributeText(*element, kFileName, problems_);
                     name.empty()) {
                problems_.reportAt(element->GetLineNum(), texts::kMissingFileName);
                leaveOut(*element);
            } else
                files.emplace_back(element, std::move(name));
        }
        keepNamesakesApart(files);
        std::vector<std::u16string> names;
        for (const auto& [element, name] : files) {
            readFile(*element, name);
            names.push_back(name);
        }
        return names;
    }

private:
    /// Whole paths of one base name in one log come from a session in which those files were kept
    /// apart.
    template <class Files>
    void keepNamesakesApart(const Files& files) {
        std::map<std::u16string, std::u16string_view, FileNameOrder> firstPaths;
        constexpr FileNameOrder isBefore;
        for (const auto& [element, name] : files) {
            const std::u16string_view first =
                firstPaths.try_emplace(normalisedFileName(name), name).first->second;
            if (isBefore(first, name) || isBefore(name, first))
                edits_.keepApart(name);
        }
    }

    void readFile(const tinyxml2::XMLElement& element, std::u16string_view name) {
        reportUnknownAttributes(element, {kFileName, kIsCached}, problems_);
        FileEdits& file = edits_.open(name);
        file.loggedAsCached = element.BoolAttribute(kIsCached);
        for (const tinyxml2::XMLElement* child : childElements(element, problems_)) {
            if (std::string_view(child->Name()) != xml_format::kSetElement)
                problems_.reportIgnored(child->GetLineNum(), child->Name());
            else if (auto logged = readPropertySet(*child, problems_);
                     !logged || !keepSet(file, *logged, child->GetLineNum()))
                leaveOut(*child, name);
        }
    }

    /// fileName: of the element around a set; empty for an element that stands alone.
    void leaveOut(const tinyxml2::XMLElement& element, std::u16string_view fileName = {}) {
        if (!leftOut_)
            return;
        StringPrinter printer;
        element.Accept(&printer);
        if (fileName.empty())
            leftOut_->append(printer.takeText());
        else
            leftOut_->append("<File FileName=\"")
                .append(toXmlText(fileName, XmlReferences::Written))
                .append("\">\n")
                .append(printer.takeText())
                .append("</File>\n");
    }

    /// @return whether it was kept.
    bool keepSet(FileEdits& file, LoggedPropertySet& logged, int line) {
        const std::u16string& setName = logged.record->name;
        const auto* list =
            std::find_if(std::begin(kSetLists), std::end(kSetLists),
                         [&logged](const SetList& known) { return known.type == logged.type; });
        if (list == std::end(kSetLists)) {
            problems_.reportAt(line, std::u16string(texts::kUnknownSetType).append(setName));
            return false;
        }
        ObjectEdits& object = file.objects[logged.ifcId];
        if (object.objectGuid.empty())
            object.objectGuid = logged.objectGuid;
        else if (object.objectGuid != logged.objectGuid)
            problems_.reportAt(line, std::u16string(texts::kOtherObjectGuid).append(setName));
        if (!guids_.emplace(&object, logged.record->SetIdentifier).second)
            problems_.reportAt(line, std::u16string(texts::kGuidDuplication).append(setName));
        (object.*list->records).push_back(std::move(logged.record));
        return true;
    }

    PendingEdits& edits_;
    XmlProblems& problems_;
    std::string* leftOut_;
    std::set<std::pair<const ObjectEdits*, std::u16string>> guids_;  // of the sets read so far
};

}  // namespace

std::string editLogFragment(std::u16string_view fileName, bool isCached, const FileEdits& edits) {
    tinyxml2::XMLDocument document(/*processEntities=*/false, tinyxml2::PRESERVE_WHITESPACE);
    tinyxml2::XMLElement* file = document.NewElement(kFileElement);
    document.InsertEndChild(file);
    file->SetAttribute(kFileName, toXmlText(fileName, XmlReferences::Written).c_str());
    file->SetAttribute(kIsCached, isCached);
    XMLExportVisitator visitor;
    visitor.setFileElement(file);
    for (const auto& [instanceNumber, object] : edits.objects) {
        visitor.setObjectGuid(object.objectGuid);
        visitor.setIfcId(instanceNumber);
        for (const SetList& list : kSetLists) {
            visitor.setSetType(list.type);
            for (const auto& record : object.*list.records)
                visitor.visit(*record);
        }
    }
    StringPrinter printer;
    document.Print(&printer);
    return printer.takeText();
}

std::string editLogText(const PendingEdits& edits, std::span<const LoadedFile> loaded) {
    std::string text;
    std::set<std::u16string, FileNameOrder> written;
    for (const LoadedFile& file : loaded) {
        const std::u16string key = edits.keyOf(file.name);
        if (!written.insert(key).second)
            continue;
        const FileEdits* entry = edits.find(file.name);
        text += editLogFragment(key, file.isCached, entry ? *entry : FileEdits());
    }
    for (const auto& [key, entry] : edits.files())
        if (!written.contains(key))
            text += editLogFragment(key, entry.loggedAsCached, entry);
    return text;
}

bool readEditLog(std::string_view xml, PendingEdits& edits, const ErrorCallback& errors,
                 std::u16string_view logName, std::string* leftOut,
                 std::vector<std::u16string>* fileNames) {
    try {
        while (xml.ends_with('\0'))  // left by writers that count the end of their text
            xml.remove_suffix(1);
        XmlProblems problems(errors, logName);
        tinyxml2::XMLDocument document(/*processEntities=*/true, tinyxml2::PRESERVE_WHITESPACE);
        if (!parse(xml, document, problems))
            return false;
        PendingEdits loaded = edits.emptied();
        std::vector<std::u16string> names = EditLogReader(loaded, problems, leftOut).read(document);
        edits = std::move(loaded);
        if (fileNames)
            *fileNames = std::move(names);
        return true;
    } catch (const std::bad_alloc&) {
        if (errors)  // without report(), which allocates
            errors("", texts::kOutOfMemory.data(), 0);
        return false;
    }
}

std::string unreadComment(std::string_view text) {
    std::string comment(texts::kUnreadComment);
    for (const char c : text) {
        const bool isPlain = (c >= ' ' && c <= '~' && c != '-' && c != '&') || c == '\n';
        if (isPlain)
            comment.push_back(c);
        else
            comment.append("&#").append(std::to_string(static_cast<unsigned char>(c))).append(";");
    }
    return comment.append(texts::kUnreadCommentEnd);
}

std::vector<std::string> unreadTextsOf(std::string_view xml) {
    const std::string_view end = texts::kUnreadCommentEnd.substr(
        0, texts::kUnreadCommentEnd.size() - 1);  // another program may have changed line ends
    std::vector<std::string> unread;
    for (std::size_t at = xml.find(texts::kUnreadComment); at != xml.npos;
         at = xml.find(texts::kUnreadComment, at)) {
        at += texts::kUnreadComment.size();
        const std::size_t last = xml.find(end, at);
        if (last == xml.npos)
            break;
        std::string text;
        while (at < last) {
            unsigned char byte = 0;
            const char* const digits = xml.data() + at + 2;
            const bool isReference = xml.substr(at, last - at).starts_with("&#");
            const auto [rest, error] =
                isReference ? std::from_chars(digits, xml.data() + last, byte)
                            : std::from_chars_result{nullptr, std::errc::invalid_argument};
            if (error == std::errc() && *rest == ';') {
                text.push_back(static_cast<char>(byte));
                at = static_cast<std::size_t>(rest + 1 - xml.data());
            } else {
                text.push_back(xml[at++]);
            }
        }
        unread.push_back(std::move(text));
    }
    return unread;
}

std::optional<std::string> rewrittenEditLog(std::string_view xml, const ErrorCallback& errors) {
    PendingEdits edits;
    if (!readEditLog(xml, edits, errors))
        return std::nullopt;
    return editLogText(edits);
}

}  // namespace IFC
