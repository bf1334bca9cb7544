#pragma once

#include <QApplication>
#include <memory>

#include "gui/text_lookup.h"

/// Sees to it that there is an application object while windows are shown. A host has none: it is
/// made for the time of the windows. One that the process has already is used and left as it is.
class ApplicationScope {
public:
    /// textOf: for the message that there is no screen.
    explicit ApplicationScope(const TextLookup& textOf = {});
    ~ApplicationScope();
    ApplicationScope(const ApplicationScope&) = delete;
    ApplicationScope& operator=(const ApplicationScope&) = delete;

    /// False when there is no screen to show windows on; the user was told.
    bool isReady() const { return isReady_; }
    /// Whether the application object was made here.
    bool isOwner() const { return application_ != nullptr; }

private:
    // The application object refers to these as long as it lives.
    char programName_[8] = "quillet";
    char* arguments_[2] = {programName_, nullptr};
    int argumentCount_ = 1;
    std::unique_ptr<QApplication> application_;
    bool isReady_ = false;
};
