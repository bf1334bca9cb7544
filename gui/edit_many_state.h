#pragma once

#include <QIcon>
#include <QString>
#include <cstdint>
#include <memory>

#include "gui/loading_dialog.h"
#include "plugin/host_calls.h"

/// What value rows of one property are put together by.
enum class GroupingType : std::int32_t { NamesAndIfcEntity = 0, Names = 1, DoNotGroup = 2 };

/// Captions of the rows in the user's language.
struct RowCaptions {
    QString select;
    QString selectValue;
    QString editSeparately;
    QString addProperty;
    QString deleteSet;
    QString deleteProperty;
    QString numberAllowed;
    QString yes;
    QString no;
    QString setName;
    QString propertyName;
    QString value;
    QString before;
    // Questions.
    QString editAllQuestion;
    QString deleteAllQuestion;
    QString addToAllQuestion;
};

RowCaptions rowCaptions(const HostCalls& host);

/// What the edit-many window and its rows share. There is one window at a time, and one thread.
struct EditManyState {
    bool isWindowOpen = false;
    GroupingType groupingType = GroupingType::NamesAndIfcEntity;
    std::uint32_t createdGuiCount = 0;  ///< row widgets built since the last rebuild
    double scrollRatio = 0;             ///< value rows created minus deleted by scrolling
    QIcon plusIcon;
    QIcon minusIcon;
    RowCaptions captions;
    bool showInitialValues = true;  ///< changed values tell by a tool tip what they were
    std::unique_ptr<LoadingDialog> loadingDialog;  ///< while the window is open
    std::int32_t lastAddingPolicy = 0;
    std::int32_t lastAction = 0;    ///< kActionEditMany once a run has stored its result
    std::uint32_t scrollCount = 0;  ///< numbers the scroll events in the log
};

inline constexpr std::int32_t kActionEditMany = 6;

EditManyState& editManyState();
