// The window that lists the checks of the drawing.
#pragma once

#include <QWidget>
#include <vector>

#include "explanation/DrawingChecks.h"

class QLabel;
class QListWidget;

/// Created once and kept.
class ChecksWindow final : public QWidget {
  Q_OBJECT

 public:
  explicit ChecksWindow(QWidget* parent = nullptr);

  /// Shows these findings, or that there are none. A finding that was chosen stays chosen when it is still
  /// there. `points` is the size of the letters.
  void ShowChecks(const std::vector<DrawingCheck>& checks, float points);

  /// Shows the window before all others, also when it was minimised.
  void BringUp();

  /// What Ctrl+C copies: the findings that are chosen, or all.
  QString CopiedText() const;

 Q_SIGNALS:
  /// A finding was chosen whose place is to be shown; world coordinates.
  void PlaceChosen(float x, float y);

  /// None is chosen any more, or the window is closed.
  void PlaceLeft();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Copy() const;
  void TellPlace();

  std::vector<DrawingCheck> checks_;
  QLabel* lblChecks_;
  QListWidget* lstChecks_;
};
