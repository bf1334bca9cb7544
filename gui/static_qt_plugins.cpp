// Qt is linked statically here, and so are the parts of it that it otherwise finds as files: the
// windows of the system, and their look.

#include <QtPlugin>

Q_IMPORT_PLUGIN(QWindowsIntegrationPlugin)
Q_IMPORT_PLUGIN(QWindowsVistaStylePlugin)
