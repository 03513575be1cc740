// Shows how far a long piece of work on the report has come, and lets the user cancel it.
#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

/// Appears over its parent only when the work lasts longer than the delay. It lives as long as the work, and
/// is a ReportProgress. While it is shown, events are handled in every call, so anything that the window can
/// do may happen in between.
class ReportProgressDialog final : public QProgressDialog {
  Q_OBJECT

 public:
  /// `delay` in milliseconds.
  ReportProgressDialog(const QString& what, int delay, QWidget* parent);

  /// `done` is a part of the whole, 0 .. 1. False once the user has cancelled.
  bool operator()(double done);

 private:
  QElapsedTimer sinceEvents_;
};
