#pragma once

#include <QElapsedTimer>
#include <QFileDialog>
#include <QString>
#include <QWidget>
#include <memory>
#include <optional>

#include "standin/core/dialogs.h"
#include "standin/desktop/progress_window.h"

namespace standin {

/// Runs a dialog that asks for the name of a file to write. A name without a suffix gets this one
/// (without its dot), also in folders whose names have dots, where Qt gives it none.
/// @return nothing when the user cancels, or keeps the file that has the name.
std::optional<QString> askForNewFile(QFileDialog& dialog, const QString& suffix);

/// The plug-in's dialogs as windows over `parent`.
class QtDialogs : public DialogUser {
public:
    explicit QtDialogs(QWidget* parent);

    /// Where save dialogs begin.
    void setFolder(const QString& folder) { folder_ = folder; }

    std::int32_t messageBox(const std::u16string& caption, const std::u16string& text,
                            std::uint32_t flags) override;
    std::optional<std::u16string> saveDialog(const SaveDialogRequest& request) override;
    void showProgress(bool show, const std::u16string& caption) override;
    void updateProgress(std::int32_t overallPercent, const std::u16string& overallLabel,
                        std::int32_t currentPercent, const std::u16string& currentLabel) override;

private:
    QWidget* owner() const;

    QWidget* parent_;
    QString folder_;
    std::unique_ptr<ProgressWindow> progress_;
    QElapsedTimer paintedAgo_;
};

}  // namespace standin
