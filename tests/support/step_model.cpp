#include "tests/support/step_model.h"

#include <algorithm>

#include "ifc/io/writer.h"
#include "platform/text.h"
#include "tests/support/zip_archive.h"

std::string stepFile(std::string_view data, std::string_view schema) {
    std::string step =
        "ISO-10303-21;\n"
        "HEADER;\n"
        "FILE_DESCRIPTION(('ViewDefinition'),'2;1');\n"
        "FILE_NAME('n','2024-01-02T03:04:05',('a'),('o'),'p','s','z');\n"
        "FILE_SCHEMA(('";
    step += schema;
    step += "'));\nENDSEC;\nDATA;\n";
    step += data;
    return step + "ENDSEC;\nEND-ISO-10303-21;\n";
}

ReadModel::ReadModel(std::string_view step, IFC::ModelParser::Options options, bool zipped)
    : parser_(
          [this](const char* key, const char16_t* text, int flag) {
              const IFC::ModelParser::Position position = parser_.position();
              std::string line =
                  std::to_string(position.line) + " #" + std::to_string(position.instance) + " ";
              if (*key)
                  line += std::string("[") + key + "]";
              line += platform::toUtf8(text);
              if (flag != 0)
                  line += "{" + std::to_string(flag) + "}";
              std::replace(line.begin(), line.end(), '\n', '/');
              reports_ += line + "\n";
          },
          std::move(options)) {
    if (zipped)
        writeZip(folder_ / u"model.ifczip", {{"model.ifc", std::string(step)}});
    else
        folder_.write(u"model.ifc", step);
    parser_.load(folder_ / (zipped ? u"model.ifczip" : u"model.ifc"));
}

std::string stepOf(IFC::Model& model) {
    const TempFolder folder;
    const HeaderFields header = model.header;
    std::string reports;
    IFC::ModelWriter writer([&](const char* key, const char16_t* text, int) {
        reports += std::string(key) + "|" + platform::toUtf8(text);
    });
    const bool written = writer.write(model, folder / u"model.ifc");
    model.header = header;
    return written ? folder.read(u"model.ifc") : "not written: " + reports;
}

std::string dataOf(std::string_view step) {
    const std::size_t begin = step.find("DATA;\n");
    const std::size_t end = step.rfind("ENDSEC;\n");
    if (begin == std::string_view::npos || end == std::string_view::npos || end < begin)
        return std::string(step);
    return std::string(step.substr(begin + 6, end - begin - 6));
}
