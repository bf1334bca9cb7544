#include "tests/gui/window_test_tools.h"

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

MessageAnswerer::MessageAnswerer(std::function<void(QMessageBox&)> answer) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this, answer = std::move(answer)] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || !box->isVisible())
            return;
        ++count_;
        answer(*box);
        if (box->isVisible())
            box->reject();
    });
    timer_.start(1);
}
