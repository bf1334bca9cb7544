#pragma once

#include <QWidget>
#include <memory>
#include <string>

/// Builds the widgets of a form file (.ui) as Qt's own loader of forms does, without it. Knows what
/// the forms of this product need, and refuses all else. path: UTF-16. @return null when that is
/// not possible; then `error` names, for people, the file, the line and the reason.
std::unique_ptr<QWidget> readForm(const std::u16string& path, QString& error);
