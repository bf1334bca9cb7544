#pragma once

#include <QDialog>
#include <vector>

namespace standin {

/// What reading the files reported, and rules that the plug-in broke, as text that can be copied.
class ReportsDialog : public QDialog {
    Q_OBJECT

public:
    ReportsDialog(const std::vector<QString>& lines, QWidget* parent);
};

}  // namespace standin
