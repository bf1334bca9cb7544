// A plug-in here shares our Qt: there are no other windows.

#include "standin/desktop/foreign_window.h"

namespace standin {

std::optional<ForeignWindow> ForeignWindow::onTop() { return std::nullopt; }
std::optional<ForeignWindow> ForeignWindow::named(const QString&) { return std::nullopt; }
QStringList ForeignWindow::titles() { return {}; }
bool ForeignWindow::hasArrived() { return true; }
void ForeignWindow::endAll() {}
bool ForeignWindow::takesInput() const { return false; }
std::optional<ForeignWindow::Control> ForeignWindow::find(const QString&) const {
    return std::nullopt;
}
bool ForeignWindow::isEnabled(Control) { return false; }
QString ForeignWindow::textOf(Control) { return {}; }
void ForeignWindow::click(Control) {}
bool ForeignWindow::choose(Control, const QString&) { return false; }
bool ForeignWindow::press(const QKeySequence&) { return false; }
void ForeignWindow::type(const QString&) {}
void ForeignWindow::close() const {}
QImage ForeignWindow::picture() const { return {}; }

}  // namespace standin
