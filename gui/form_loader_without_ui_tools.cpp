#include "gui/form_loader.h"
#include "gui/form_reader.h"

std::unique_ptr<QWidget> loadForm(const std::u16string& path, QString& error) {
    return readForm(path, error);
}
