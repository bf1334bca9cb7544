#include "tests/support/language_texts.h"

#include <fstream>
#include <map>

#include "platform/text.h"

TextLookup textsOfLanguage(const std::string& language) {
    std::map<std::string, std::u16string> texts;
    std::ifstream file(QUILLET_SOURCE_DIR "/data/plugins/quillet/lang." + language);
    for (std::string line; std::getline(file, line);) {
        const std::size_t end = line.find('=');
        if (end != std::string::npos && line[0] != '#')
            texts[line.substr(0, end)] = platform::fromUtf8(line.substr(end + 1));
    }
    return [texts](const char* key) {
        const auto found = texts.find(key);
        return found != texts.end() ? found->second : std::u16string();
    };
}
