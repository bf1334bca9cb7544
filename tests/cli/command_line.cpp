#include "tests/cli/command_line.h"

#include <regex>
#include <vector>

#include "cli/printable.h"
#include "cli/quillet_cli.h"
#include "platform/text.h"
#include "tests/support/step_model.h"

namespace {

std::vector<std::string> split(std::string_view words) {
    std::vector<std::string> parts;
    bool isQuoted = false;
    bool isInWord = false;
    for (const char c : words) {
        if (c == '\'') {
            isQuoted = !isQuoted;
        } else if (c == ' ' && !isQuoted) {
            isInWord = false;
            continue;
        }
        if (!isInWord)
            parts.emplace_back();
        isInWord = true;
        if (c != '\'')
            parts.back().push_back(c);
    }
    return parts;
}

void replaceAll(std::string& text, const std::string& from, std::string_view to) {
    for (std::size_t at = text.find(from); at != text.npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

}  // namespace

Outcome CommandLine::run(std::string_view words, std::function<bool()> interrupted,
                         bool showsProgress) const {
    std::vector<std::u16string> arguments;
    for (const std::string& word : split(words)) {
        const std::u16string text = platform::fromUtf8(word);
        arguments.push_back(text.starts_with(u'@') ? folder / text.substr(1) : text);
    }
    Outcome outcome;
    const cli::Console console{.out = [&](std::string_view text) { outcome.out += text; },
                               .err = [&](std::string_view text) { outcome.err += text; },
                               .showsProgress = showsProgress,
                               .interrupted = std::move(interrupted)};
    outcome.status = static_cast<int>(cli::run(arguments, console));
    outcome.out = shortened(outcome.out);
    outcome.err = shortened(outcome.err);
    return outcome;
}

std::string CommandLine::sets(std::string_view file) const {
    const Outcome outcome = run("psets " + std::string(file) + " 1 2 3");
    static const std::regex kIdentity(" \\(Ifc[A-Za-z]* #[0-9]+, [^)]*\\)");
    return outcome.err + std::regex_replace(outcome.out, kIdentity, "");
}

std::string CommandLine::shortened(std::string text) const {
    std::u16string prefix = folder / u"x";
    prefix.pop_back();
    replaceAll(text, platform::toUtf8(prefix), "@");
    const std::string inJson = cli::jsonString(prefix);
    replaceAll(text, inJson.substr(1, inJson.size() - 2), "@");
    return text;
}

std::string smallModel() {
    return stepFile(
        "#1=IFCWALL('0000000000000000000001',$,'South wall',$,$,$,$,$,$);\n"
        "#2=IFCWALL('0000000000000000000002',$,'North wall',$,$,$,$,$,$);\n"
        "#3=IFCDOOR('0000000000000000000003',$,$,$,$,$,$,$,$,$,$,$,$);\n"
        "#10=IFCPROPERTYSINGLEVALUE('FireRating',$,IFCLABEL('F 90'),$);\n"
        "#11=IFCPROPERTYSINGLEVALUE('Lead',$,IFCPOSITIVELENGTHMEASURE(1.5),$);\n"
        "#12=IFCPROPERTYSET('0000000000000000000012',$,'Common',$,(#10,#11));\n"
        "#13=IFCRELDEFINESBYPROPERTIES('0000000000000000000013',$,$,$,(#1,#2),#12);\n"
        "#20=IFCSIUNIT(*,.LENGTHUNIT.,.MILLI.,.METRE.);\n"
        "#21=IFCQUANTITYLENGTH('Length',$,#20,6000.,$);\n"
        "#22=IFCELEMENTQUANTITY('0000000000000000000022',$,'Sizes',$,$,(#21));\n"
        "#23=IFCRELDEFINESBYPROPERTIES('0000000000000000000023',$,$,$,(#1),#22);\n"
        "#30=IFCPROPERTYENUMERATEDVALUE('Lock','at hand, isn''t it',(IFCLABEL('CODE')),$);\n"
        "#31=IFCPROPERTYSINGLEVALUE('Panes',$,IFCINTEGER(3),$);\n"
        "#32=IFCCOMPLEXPROPERTY('Glass',$,'pane',(#31,#32));\n"
        "#33=IFCPROPERTYSINGLEVALUE('Open',$,$,$);\n"
        "#34=IFCPROPERTYSET('0000000000000000000034',$,'Kinds',$,(#30,#32,#33));\n"
        "#35=IFCRELDEFINESBYPROPERTIES('0000000000000000000035',$,$,$,(#3),#34);\n"
        "#36=IFCDOORLININGPROPERTIES('0000000000000000000036',$,'Lining',$,$,$,$,$,$,$,$,$,$,$,$,$,"
        "$);\n"
        "#37=IFCRELDEFINESBYPROPERTIES('0000000000000000000037',$,$,$,(#3),#36);\n"
        "#38=IFCRELDEFINESBYPROPERTIES('0000000000000000000038',$,$,$,(#3),#36);\n"
        "#40=IFCPROPERTYSINGLEVALUE('Layers',$,IFCCOUNTMEASURE(2.),$);\n"
        "#41=IFCPROPERTYSET('0000000000000000000041',$,'Build-up',$,(#40));\n"
        "#42=IFCWALLTYPE('0000000000000000000042',$,'W24',$,$,(#41),$,$,$,.SOLIDWALL.);\n");
}
