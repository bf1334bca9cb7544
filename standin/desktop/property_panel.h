#pragma once

#include <QAction>
#include <QLabel>
#include <QTreeWidget>
#include <QWidget>
#include <string>
#include <vector>

#include "plugin/host_abi.h"
#include "standin/core/objects.h"
#include "standin/desktop/empty_note.h"
#include "standin/desktop/shown_properties.h"

namespace standin {

/// What the user asks the plug-in for.
struct PropertyRequest {
    HostChangeAction action = kHostAskEditProperty;
    std::u16string setName;
    std::u16string setGuid;
    std::u16string propertyName;  ///< empty for a set
    bool asQuantity = false;
};

/// The sets and properties of the selected object, with the pending edits marked. Changes are asked
/// of the plug-in.
class PropertyPanel : public QWidget {
    Q_OBJECT

public:
    explicit PropertyPanel(QWidget* parent = nullptr);

    /// Of several objects the first is shown, and cannot be changed here. Null for none. Keeps the
    /// place where the user was.
    void show(const Object* first, std::size_t selectedCount);

    QTreeWidget& tree() { return *tree_; }
    /// For the context menu and the keys.
    const std::vector<QAction*>& requests() const { return requests_; }

signals:
    void requested(const standin::PropertyRequest& request);
    void menuWanted(const QPoint& globalPosition);

private:
    void showHead(const Object* first, std::size_t selectedCount);
    void addRequest(HostChangeAction action, bool asQuantity, std::u16string_view text,
                    std::u16string_view hint, const QKeySequence& key, const char* name);
    void addToolBar();
    void fill();
    void enableRequests();
    void ask(HostChangeAction action, bool asQuantity);
    void askDefault();
    bool isPossible(HostChangeAction action) const;
    /// Of the current row; null when there is none.
    const ShownSet* currentSet() const;
    const ShownProperty* currentProperty() const;

    QLabel* head_ = nullptr;
    QLabel* detail_ = nullptr;
    QLabel* note_ = nullptr;
    QTreeWidget* tree_ = nullptr;
    EmptyNote* emptyNote_ = nullptr;
    std::vector<QAction*> requests_;
    std::vector<ShownSet> sets_;
    HostObjectId object_ = 0;
    bool isReadOnly_ = true;
};

}  // namespace standin
