#include "cli/screen.h"

#include <algorithm>

namespace cli {
namespace {

constexpr std::size_t kPrintBytes = 0x10000;  // 64 KiB
constexpr int kBarColumns = 30;

}  // namespace

Screen::~Screen() {
    hideProgress();
    flush();
}

void Screen::print(std::string_view utf8) {
    unprinted_ += utf8;
    if (unprinted_.size() >= kPrintBytes)
        flush();
}

void Screen::printError(std::string_view utf8) {
    flush();  // on a terminal both come to the same place, in the right order
    hideProgress();
    console_.err(std::string(utf8) + "\n");
}

void Screen::printNote(std::string_view utf8) {
    if (!isQuiet_)
        printError(utf8);
}

void Screen::showProgress(std::string_view label, int percent) {
    if (!console_.showsProgress || isQuiet_)
        return;
    const int done = std::clamp(percent, 0, 100) * kBarColumns / 100;
    std::string line(label);
    line += " [";
    line.append(static_cast<std::size_t>(done), '#');
    line.append(static_cast<std::size_t>(kBarColumns - done), ' ');
    line += "] " + std::to_string(percent) + " %";
    const std::size_t width = line.size();
    if (width < progressWidth_)
        line.append(progressWidth_ - width, ' ');
    progressWidth_ = width;
    console_.err("\r" + line);
}

void Screen::hideProgress() {
    if (progressWidth_ == 0)
        return;
    console_.err("\r" + std::string(progressWidth_, ' ') + "\r");
    progressWidth_ = 0;
}

void Screen::flush() {
    if (unprinted_.empty())
        return;
    console_.out(unprinted_);
    unprinted_.clear();
}

}  // namespace cli
