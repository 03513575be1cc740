// Truss files that are dropped on a window.
#pragma once

#include <QObject>
#include <functional>

class QDropEvent;
class QWidget;

/// A file manager may propose to move the file, and who moves deletes what was taken. Opening takes a copy,
/// and a drop that allows none is refused.
class TrussDrop final : public QObject {
  Q_OBJECT

 public:
  /// Lets the window take drops while `takes` says so.
  TrussDrop(QWidget& window, std::function<bool()> takes);

 Q_SIGNALS:
  /// One truss file was dropped. Sent when the drop is done: the program that the file comes from waits until
  /// then, and a question must not hold it up.
  void Dropped(const QString& path);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Take(QDropEvent* event);

  std::function<bool()> takes_;
};
