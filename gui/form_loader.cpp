#include "gui/form_loader.h"

#include <QFile>
#include <QUiLoader>

#include "gui/qt_text.h"

std::unique_ptr<QWidget> loadForm(const std::u16string& path, QString& error) {
    QFile file(toQString(path));
    if (!file.open(QIODevice::ReadOnly)) {
        error = file.errorString();
        return nullptr;
    }
    QUiLoader loader;
    std::unique_ptr<QWidget> form(loader.load(&file));
    if (!form)
        error = loader.errorString();
    return form;
}
