#pragma once

#include <QComboBox>
#include <QObject>
#include <QString>
#include <cstdint>
#include <functional>

class QKeyEvent;
class QListView;

/// Fills `box` with the labels of the units that can be chosen, in their order, and makes it look
/// and behave as in the rows: editable, but typed text is not inserted. index: of a label, or -1
/// for none.
void setUpUnitComboBox(QComboBox& box, int index);

/// Lets wheel events on a combo box scroll what the box lies in, instead of changing its value.
class WheelIgnorer : public QObject {
    Q_OBJECT

public:
    /// box: owns the filter.
    explicit WheelIgnorer(QComboBox& box);

    bool eventFilter(QObject* watched, QEvent* event) override;
};

/// Choosing from a long list by typing: the list shows only what begins with the signs typed so far
/// or else, in whatever case, contains them. A pause begins anew. Return takes the marked one.
class UnitTypeAhead : public QObject {
    Q_OBJECT

public:
    /// Milliseconds from any fixed point of time.
    using Clock = std::function<std::int64_t()>;
    static constexpr std::int64_t kPauseMs = 1100;

    /// box: owns the filter; set up already. clock: empty for the system's.
    explicit UnitTypeAhead(QComboBox& box, Clock clock = {});

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool keyPressed(const QKeyEvent& key);
    void showRowsFor(const QString& prefix);
    void showAllRows();

    QComboBox& box_;
    QListView& list_;  // the box's
    Clock clock_;
    QString prefix_;
    std::int64_t lastKeyMs_ = 0;
};

/// Choosing from a long list by typing into the box: each sign that is typed chooses the entry that
/// is meant so far, selects what it adds, so that the next sign replaces it, and drops the list
/// down. An entry that only contains what is typed is marked in the list, and chosen when the box
/// is left.
class UnitTextMatcher : public QObject {
    Q_OBJECT

public:
    /// Position of the entry that a typed text means, negative for none.
    using Match = std::function<int(const QString& typed)>;
    static constexpr int kMaxTyped = 256;  // signs

    /// box: owns the filter; editable.
    UnitTextMatcher(QComboBox& box, Match match);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool takeFromList(QKeyEvent& key);
    QString typedText() const;
    void choose(int index);
    void typed(bool isErasing);

    QComboBox& box_;
    Match match_;
};
