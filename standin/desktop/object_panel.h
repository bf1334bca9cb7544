#pragma once

#include <QLineEdit>
#include <QTimer>
#include <QTreeView>
#include <QWidget>
#include <vector>

#include "standin/desktop/empty_note.h"
#include "standin/desktop/object_model.h"

namespace standin {

/// The tree of objects, with a field to search them.
class ObjectPanel : public QWidget {
    Q_OBJECT

public:
    /// objects: borrowed.
    explicit ObjectPanel(const Objects& objects, QWidget* parent = nullptr);

    /// The objects came or went.
    void rebuild();
    /// Shows as selected what the host has selected.
    void showSelection();
    void focusSearch();
    void selectAllOfType();

    QTreeView& tree() { return *tree_; }
    const ObjectModel& model() const { return model_; }

signals:
    void selected(const std::vector<HostObjectId>& ids);
    void menuWanted(const QPoint& globalPosition);

private:
    void search();
    void openFirstLevels();
    void takeSelection();

    const Objects& objects_;
    ObjectModel model_;
    QLineEdit* searchField_ = nullptr;
    QTreeView* tree_ = nullptr;
    EmptyNote* emptyNote_ = nullptr;
    QTimer searchTimer_;
    bool isShowingSelection_ = false;
};

}  // namespace standin
