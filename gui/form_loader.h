#pragma once

#include <QWidget>
#include <memory>
#include <string>

/// Builds the widgets of a form file (.ui). path: UTF-16. @return null when that is not possible,
/// with the reason, for people, in `error`.
std::unique_ptr<QWidget> loadForm(const std::u16string& path, QString& error);
