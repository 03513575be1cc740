// For targets that draw: the toolkit needs an application, made once, and no screen.
#include <QGuiApplication>

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static QGuiApplication application(*count, *arguments);
  return 0;
}
