#include "standin/desktop/settings.h"

#include <QStandardPaths>

namespace standin {
namespace {

constexpr int kRecentFiles = 10;
const QString kRecentKey = QStringLiteral("recentFiles");
const QString kLanguageKey = QStringLiteral("language");
const QString kLayoutKey = QStringLiteral("layout/%1");

}  // namespace

Settings::Settings(const QString& file) {
    if (file.isEmpty())
        return;
    file_.emplace(file, QSettings::IniFormat);
    recent_ = file_->value(kRecentKey).toStringList();
}

QString Settings::defaultFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/quillet-desktop.ini");
}

void Settings::addRecent(const QString& path) {
    recent_.removeAll(path);
    recent_.prepend(path);
    while (recent_.size() > kRecentFiles)
        recent_.removeLast();
    keepRecent();
}

void Settings::removeRecent(const QString& path) {
    recent_.removeAll(path);
    keepRecent();
}

void Settings::keepRecent() {
    if (file_)
        file_->setValue(kRecentKey, recent_);
}

QString Settings::language() const {
    const QString english = QStringLiteral("en");
    return file_ ? file_->value(kLanguageKey, english).toString() : english;
}

void Settings::setLanguage(const QString& code) {
    if (file_)
        file_->setValue(kLanguageKey, code);
}

QByteArray Settings::layoutOf(const QString& part) const {
    return file_ ? file_->value(kLayoutKey.arg(part)).toByteArray() : QByteArray();
}

void Settings::setLayout(const QString& part, const QByteArray& layout) {
    if (file_)
        file_->setValue(kLayoutKey.arg(part), layout);
}

}  // namespace standin
