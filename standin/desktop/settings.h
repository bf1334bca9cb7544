#pragma once

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <optional>

namespace standin {

/// What the program keeps from one time to the next.
class Settings {
public:
    /// file: empty to keep nothing.
    explicit Settings(const QString& file);

    /// Where a program of the user keeps them.
    static QString defaultFile();

    /// Full paths, the last at the front.
    const QStringList& recentFiles() const { return recent_; }
    void addRecent(const QString& path);
    void removeRecent(const QString& path);

    /// "en" when none was chosen.
    QString language() const;
    void setLanguage(const QString& code);

    /// Place and size of a window or splitter, as Qt writes them.
    QByteArray layoutOf(const QString& part) const;
    void setLayout(const QString& part, const QByteArray& layout);

private:
    void keepRecent();

    std::optional<QSettings> file_;
    QStringList recent_;
};

}  // namespace standin
