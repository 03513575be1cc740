// The palette of Step 1 as eight picture buttons, `imgTool(1)` to `imgTool(8)`.
#pragma once

#include <QFrame>
#include <QToolButton>
#include <array>

#include "editing/ToolPalette.h"

class ToolBox final : public QFrame {
  Q_OBJECT

 public:
  /// The palette must outlive the widget.
  ToolBox(ToolPalette& palette, QWidget* parent);

  /// Gives every button the look that the palette's state asks for.
  void ShowPalette();

 Q_SIGNALS:
  /// A tool was clicked and is now selected.
  void ToolSelected(int tool);
  /// A hint for the status bar.
  void HintShown(const QString& hint);
  /// The mouse has left the buttons.
  void HintEnded();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  ToolPalette& palette_;
  std::array<QToolButton*, NumTools> buttons_{};
};
