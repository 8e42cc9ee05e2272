#pragma once

#include <QtCore/QByteArray>
#include <QtWidgets/QApplication>

// Qt finds fonts only once an application object exists. It is made on first
// use, on the offscreen platform so that no display is needed, and lives
// until the program ends. A widgets application, so that the widget peers
// can use it too.
inline void ensureQtApplication() {
  static int argc = 1;
  static char programName[] = "zowidgets_bench";
  static char* argv[] = {programName, nullptr};
  static bool const offscreen = qputenv("QT_QPA_PLATFORM", "offscreen");
  static QApplication application(argc, argv);
  (void)offscreen;
}
