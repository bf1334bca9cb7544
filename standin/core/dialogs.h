#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace standin {

/// Keys and texts of a window.
using WindowFields = std::vector<std::pair<std::string, std::u16string>>;

/// Something that the plug-in showed to the user.
struct Shown {
    enum class Kind { Message, SaveDialog, Window, ProgressShown, Progress, ProgressHidden };

    Kind kind = Kind::Message;
    std::u16string caption = {};  ///< of a window its name; of the progress the overall label
    std::u16string text =
        {};  ///< of a save dialog the default name; of the progress the other label
    std::uint32_t flags = 0;  ///< of a message
    /// Of a message the button; of a save dialog and a window 1 when it was confirmed.
    std::int32_t answer = 0;
    bool isUnexpected = false;  ///< a question to which no answer was prepared
    WindowFields fields = {};   ///< what a window showed; filter and extension of a save dialog
    std::int32_t overallPercent = 0;
    std::int32_t currentPercent = 0;
};

/// What the plug-in says of a save dialog before it asks for it.
struct SaveDialogRequest {
    std::optional<std::u16string> filterCaption = {};
    std::u16string defaultName = {};
    std::optional<std::u16string> extension = {};
    std::optional<std::u16string> defaultExtension = {};
    bool forSeveralFiles = false;  ///< a folder is asked for
};

/// Who looks at the host's dialogs. Each call returns when the dialog is closed.
class DialogUser {
public:
    DialogUser() = default;
    DialogUser(const DialogUser&) = delete;
    DialogUser& operator=(const DialogUser&) = delete;
    virtual ~DialogUser() = default;

    /// flags: those of Windows. @return the number of the button.
    virtual std::int32_t messageBox(const std::u16string& caption, const std::u16string& text,
                                    std::uint32_t flags) = 0;
    /// @return the full path; nothing when the dialog was cancelled.
    virtual std::optional<std::u16string> saveDialog(const SaveDialogRequest& request) = 0;
    virtual void showProgress(bool show, const std::u16string& caption) = 0;
    virtual void updateProgress(std::int32_t overallPercent, const std::u16string& overallLabel,
                                std::int32_t currentPercent,
                                const std::u16string& currentLabel) = 0;
};

/// The host's dialogs with somebody who answers them: what is asked takes the next answer that was
/// prepared for its kind. Without one the user is asked. Where there is no user, a question is
/// answered so that it agrees to nothing, and recorded as unexpected.
class Dialogs {
public:
    // Buttons of message boxes, the numbers of Windows.
    static constexpr std::int32_t kOk = 1;
    static constexpr std::int32_t kCancel = 2;
    static constexpr std::int32_t kYes = 6;
    static constexpr std::int32_t kNo = 7;

    /// Borrowed; null for nobody.
    void setUser(DialogUser* user) { user_ = user; }

    // For who plays the user.
    void answerMessage(std::int32_t button) { messageAnswers_.push_back(button); }
    /// name: full path, or the folder when several files are saved; nothing cancels.
    void answerSaveDialog(std::optional<std::u16string> name) {
        saveAnswers_.push_back(std::move(name));
    }
    /// Nothing cancels.
    void answerWindow(const std::string& window, std::optional<WindowFields> fields) {
        windowAnswers_[window].push_back(std::move(fields));
    }
    /// How many prepared answers nobody asked for.
    std::size_t unusedAnswers() const;

    /// Everything shown, in order; where a user looks on, only the last state of a progress.
    const std::vector<Shown>& shown() const { return shown_; }
    /// The messages among it, as "caption|text" in UTF-8.
    std::vector<std::string> messages() const;
    std::size_t unexpectedQuestions() const;
    void forgetShown() { shown_.clear(); }
    bool isProgressShown() const { return isProgressShown_; }

    // For the plug-in.
    std::int32_t messageBox(std::u16string caption, std::u16string text, std::uint32_t flags);
    void setSaveDialogParams(std::optional<std::u16string> filterCaption,
                             std::u16string defaultName, std::optional<std::u16string> extension);
    void setSaveDialogDefaultExtension(std::u16string extension);
    bool saveDialog(bool severalFiles);
    const std::u16string& saveDialogName() const { return saveDialogName_; }
    void showProgress(bool show, std::u16string caption);
    void updateProgress(std::int32_t overallPercent, std::u16string overallLabel,
                        std::int32_t currentPercent, std::u16string currentLabel);
    std::optional<WindowFields> window(const std::string& name, WindowFields fields);

private:
    DialogUser* user_ = nullptr;
    std::vector<Shown> shown_;
    std::deque<std::int32_t> messageAnswers_;
    std::deque<std::optional<std::u16string>> saveAnswers_;
    std::map<std::string, std::deque<std::optional<WindowFields>>> windowAnswers_;
    SaveDialogRequest nextSaveDialog_;
    std::u16string saveDialogName_;
    bool isProgressShown_ = false;
};

}  // namespace standin
