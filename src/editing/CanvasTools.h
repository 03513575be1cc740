// Step 1 on the canvas: carries the canvas's mouse and keyboard events to the editing logic and shows what it
// says afterwards: the pointer, the coordinates, the value panels, the keyboard's cursor.
#pragma once

#include <QObject>
#include <optional>

#include "canvas/CanvasWidget.h"
#include "editing/EditingWords.h"
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

  /// The part of the canvas (pixels) that no step's panel covers: value panels lie in it, and only there can
  /// something be dropped.
  void SetRoom(const QRect& room);

  // The same without a mouse, for who sees the drawing as a list of elements.

  /// Whether Step 1 is there and can be worked in.
  bool IsActive() const { return active_; }

  /// Whether a click on an element that is to be seen does something with the chosen tool.
  bool CanPress(const Element& element) const { return PlaceToPress(element).has_value(); }

  /// Goes to the element with the keyboard's cursor, and presses or releases there.
  void Press(const Element& element);

  /// Goes to where a click would act on the element, if any does.
  void MoveCursorTo(const Element& element);

  /// The keyboard's cursor goes there (world coordinates).
  void MoveCursor(float x, float y);

  /// Where a press at the keyboard's cursor would land (world coordinates).
  CanvasAccess::Place CursorPlace() const;

  /// The same in words, with what it would snap to and act on; empty while the cursor is not to be seen. A
  /// single-byte text.
  std::string CursorWords() const;

  /// As Space or Enter does.
  void PressAtCursor();

  /// A digit was typed where it chooses a tool; returns whether there is such a tool.
  bool ChooseTool(int digit);

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
  std::optional<PixelPoint> PlaceToPress(const Element& element) const;
  void ShowAfterKey();
  void Tell(const std::string& words);
  bool IsInRoom(float x, float y) const;

  Partners on_;
  ValueEditor valueEditor_;
  MouseEditing mouse_;
  KeyboardCursor cursor_;
  ValueEditorFrame memberFrame_;
  ValueEditorFrame forceFrame_;
  std::optional<ChangesInWords> beforePress_;  // while it goes on, and somebody listens
  QRect room_;
  bool active_ = false;
};
