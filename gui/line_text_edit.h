#pragma once

#include <QString>
#include <QTextEdit>

/// A text editor that looks and behaves as a field of one line. What the user does not touch is
/// read back exactly as it was set.
class LineTextEdit : public QTextEdit {
    Q_OBJECT

public:
    explicit LineTextEdit(QWidget* parent = nullptr);

    /// Shows `text` as it stands, markup included. The cursor goes to its beginning.
    void setLine(const QString& text);
    /// The same in bold letters.
    void setBoldLine(const QString& text);
    QString line() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void centreVertically();

    QString line_;  // as it was set
    QString raw_;   // what the document made of it
};
