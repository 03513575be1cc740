#include "reports/ReportProgressDialog.h"

#include <QCoreApplication>
#include <algorithm>

namespace {

constexpr int Steps = 1000;
constexpr int EventInterval = 30;  // milliseconds between two looks at what the user does

}  // namespace

ReportProgressDialog::ReportProgressDialog(const QString& what, int delay, QWidget* parent)
    : QProgressDialog(what, QStringLiteral("Cancel"), 0, Steps, parent) {
  setObjectName(QStringLiteral("progress"));
  setWindowTitle(QStringLiteral("Orvane"));
  setWindowModality(Qt::WindowModal);
  setMinimumDuration(delay);
  setAutoClose(false);
  setAutoReset(false);
  setValue(0);
  sinceEvents_.start();
}

bool ReportProgressDialog::operator()(double done) {
  const int step = std::clamp(static_cast<int>(done * Steps), 0, Steps);
  if (step != value()) {
    const bool wasShown = isVisible();
    setValue(step);  // handles events when it was shown before
    if (isVisible() && !wasShown) QCoreApplication::processEvents();
    sinceEvents_.restart();
  } else if (isVisible() && sinceEvents_.elapsed() >= EventInterval) {
    QCoreApplication::processEvents();
    sinceEvents_.restart();
  }
  return !wasCanceled();
}
