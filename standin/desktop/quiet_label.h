#pragma once

#include <QLabel>

namespace standin {

/// Plain text that steps back behind the rest, in any palette.
class QuietLabel : public QLabel {
public:
    explicit QuietLabel(const QString& text, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace standin
