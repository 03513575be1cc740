// Runs the tests of windows inside a QApplication, on the offscreen platform unless another is asked for.
#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // Settings of the person who runs the tests stay untouched, and dialogs are the toolkit's own.
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QLocale::setDefault(QLocale::c());
  QApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
