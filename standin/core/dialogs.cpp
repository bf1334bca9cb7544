#include "standin/core/dialogs.h"

#include <algorithm>
#include <span>

#include "platform/text.h"

namespace standin {
namespace {

/// By the lowest four bits of a message's flags; the last agrees to nothing.
std::span<const std::int32_t> buttonsOf(std::uint32_t flags) {
    static constexpr std::int32_t kOkOnly[] = {1};
    static constexpr std::int32_t kOkCancel[] = {1, 2};
    static constexpr std::int32_t kAbortRetryIgnore[] = {4, 5, 3};
    static constexpr std::int32_t kYesNoCancel[] = {6, 7, 2};
    static constexpr std::int32_t kYesNo[] = {6, 7};
    static constexpr std::int32_t kRetryCancel[] = {4, 2};
    switch (flags & 0xF) {
        case 1: return kOkCancel;
        case 2: return kAbortRetryIgnore;
        case 3: return kYesNoCancel;
        case 4: return kYesNo;
        case 5: return kRetryCancel;
        default: return kOkOnly;
    }
}

}  // namespace

std::size_t Dialogs::unusedAnswers() const {
    std::size_t count = messageAnswers_.size() + saveAnswers_.size();
    for (const auto& [window, answers] : windowAnswers_)
        count += answers.size();
    return count;
}

std::vector<std::string> Dialogs::messages() const {
    std::vector<std::string> messages;
    for (const Shown& shown : shown_)
        if (shown.kind == Shown::Kind::Message)
            messages.push_back(platform::toUtf8(shown.caption) + "|" +
                               platform::toUtf8(shown.text));
    return messages;
}

std::size_t Dialogs::unexpectedQuestions() const {
    return static_cast<std::size_t>(std::count_if(
        shown_.begin(), shown_.end(), [](const Shown& shown) { return shown.isUnexpected; }));
}

std::int32_t Dialogs::messageBox(std::u16string caption, std::u16string text, std::uint32_t flags) {
    const auto buttons = buttonsOf(flags);
    Shown message{.kind = Shown::Kind::Message,
                  .caption = std::move(caption),
                  .text = std::move(text),
                  .flags = flags,
                  .answer = buttons.back()};
    // A message without a choice takes no answer away from the question behind it.
    const bool hasChoice = buttons.size() > 1;
    const bool fits =
        hasChoice && !messageAnswers_.empty() &&
        std::find(buttons.begin(), buttons.end(), messageAnswers_.front()) != buttons.end();
    message.isUnexpected = hasChoice && !fits && !user_;
    if (fits) {
        message.answer = messageAnswers_.front();
        messageAnswers_.pop_front();
    }
    const std::size_t place = shown_.size();
    shown_.push_back(message);
    if (!user_ || fits)
        return message.answer;
    // Other things may be shown until the user answers.
    const std::int32_t answer = user_->messageBox(message.caption, message.text, flags);
    if (place < shown_.size())
        shown_[place].answer = answer;
    return answer;
}

void Dialogs::setSaveDialogParams(std::optional<std::u16string> filterCaption,
                                  std::u16string defaultName,
                                  std::optional<std::u16string> extension) {
    nextSaveDialog_ = {.filterCaption = std::move(filterCaption),
                       .defaultName = std::move(defaultName),
                       .extension = std::move(extension)};
}

void Dialogs::setSaveDialogDefaultExtension(std::u16string extension) {
    nextSaveDialog_.defaultExtension = std::move(extension);
}

bool Dialogs::saveDialog(bool severalFiles) {
    SaveDialogRequest request = std::exchange(nextSaveDialog_, {});
    request.forSeveralFiles = severalFiles;
    const bool isPrepared = !saveAnswers_.empty();
    std::optional<std::u16string> name;
    if (isPrepared) {
        name = std::move(saveAnswers_.front());
        saveAnswers_.pop_front();
    } else if (user_) {
        name = user_->saveDialog(request);
    }
    Shown dialog{.kind = Shown::Kind::SaveDialog,
                 .text = request.defaultName,
                 .answer = name ? 1 : 0,
                 .isUnexpected = !isPrepared && !user_};
    const auto tell = [&](const char* key, const std::optional<std::u16string>& value) {
        if (value)
            dialog.fields.emplace_back(key, *value);
    };
    tell("filter", request.filterCaption);
    tell("extension", request.extension);
    tell("defaultExtension", request.defaultExtension);
    tell("severalFiles", severalFiles ? u"1" : u"0");
    shown_.push_back(std::move(dialog));
    saveDialogName_ = name.value_or(u"");
    return name.has_value();
}

void Dialogs::showProgress(bool show, std::u16string caption) {
    isProgressShown_ = show;
    if (user_)
        user_->showProgress(show, caption);
    shown_.push_back({.kind = show ? Shown::Kind::ProgressShown : Shown::Kind::ProgressHidden,
                      .caption = std::move(caption)});
}

void Dialogs::updateProgress(std::int32_t overallPercent, std::u16string overallLabel,
                             std::int32_t currentPercent, std::u16string currentLabel) {
    if (user_) {
        user_->updateProgress(overallPercent, overallLabel, currentPercent, currentLabel);
        if (!shown_.empty() && shown_.back().kind == Shown::Kind::Progress)
            shown_.pop_back();
    }
    shown_.push_back({.kind = Shown::Kind::Progress,
                      .caption = std::move(overallLabel),
                      .text = std::move(currentLabel),
                      .overallPercent = overallPercent,
                      .currentPercent = currentPercent});
}

std::optional<WindowFields> Dialogs::window(const std::string& name, WindowFields fields) {
    Shown window{.kind = Shown::Kind::Window,
                 .caption = platform::fromUtf8(name),
                 .isUnexpected = true,
                 .fields = std::move(fields)};
    std::optional<WindowFields> answer;
    auto& answers = windowAnswers_[name];
    if (!answers.empty()) {
        answer = std::move(answers.front());
        answers.pop_front();
        window.isUnexpected = false;
        window.answer = answer ? 1 : 0;
    }
    shown_.push_back(std::move(window));
    return answer;
}

}  // namespace standin
