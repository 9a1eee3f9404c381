#pragma once

#include <QApplication>
#include <memory>

namespace paperway::qt {

/// Qt's application with the C number format kept, which Qt takes away: files that the library
/// writes have "." as the decimal mark. A host with a QApplication of its own calls
/// keepNumberFormat() after making it. argc and argv live as long as the application.
std::unique_ptr<QApplication> makeApplication(int& argc, char** argv);
void keepNumberFormat();

/// Colours for eyes that like it dark, where the desktop does not say so itself.
void useDarkColors();

}  // namespace paperway::qt
