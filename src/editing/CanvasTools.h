// Step 1 on the canvas: carries the canvas's mouse and keyboard events to the editing logic and shows what it
// says afterwards: the pointer, the coordinates, the value panels, the keyboard's cursor.
#pragma once

#include <QObject>

#include "canvas/CanvasWidget.h"
#include "editing/KeyboardCursor.h"
#include "editing/MouseEditing.h"
#include "editing/ValueEditor.h"
#include "editing/ValueEditorFrame.h"

class CanvasTools final : public QObject {
  Q_OBJECT

 public:
  /// What it works with; all of it must outlive this object.
  struct Partners {
    Truss& Document;
    Drawing& Picture;
    ToolPalette& Tools;
    MessageBox& Messages;
    NumberFormat Numbers;
    CanvasWidget& Canvas;
    std::function<void()> Redraw;  ///< redraws everything after the truss has changed
  };

  explicit CanvasTools(const Partners& partners);

  /// Whether the canvas can be edited, as in Step 1. Leaving it abandons a drag.
  void SetActive(bool active);

  /// Abandons a drag, as before every command of the window.
  void Cancel();

  /// Tool 1 .. 8 was clicked.
  void SelectTool(int tool);

  /// Shows the logic's state after the window has redrawn or the canvas has a new size.
  void ShowState();

  /// The part of the canvas (pixels) in which value panels may lie.
  void SetPanelRoom(const QRect& room);

 Q_SIGNALS:
  void ReadOutChanged(const QString& text);
  /// A tool was chosen with a key.
  void ToolChosen(int tool);
  /// A mouse button or the key that stands for it went down: hints have done their part.
  void WorkBegan();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  EditingContext Context();
  bool HandleMouse(QEvent* event);
  bool HandleKey(QKeyEvent* event);
  bool HandleArrow(QKeyEvent* event);

  Partners on_;
  ValueEditor valueEditor_;
  MouseEditing mouse_;
  KeyboardCursor cursor_;
  ValueEditorFrame memberFrame_;
  ValueEditorFrame forceFrame_;
  bool active_ = false;
};
