// The floating panel of the numerical value editor, `frNewCoords(1)` for a member and `frNewCoords(2)` for a
// force. It shows what the editor says and tells it what was clicked and typed; it decides nothing.
#pragma once

#include <QFrame>
#include <array>
#include <optional>

#include "editing/PanelPlace.h"
#include "editing/ValueEditor.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QVBoxLayout;

/// A child of the canvas; hidden until the editor is open for its editing kind.
class ValueEditorFrame final : public QFrame {
  Q_OBJECT

 public:
  /// The editor must outlive the frame.
  ValueEditorFrame(EditingKind editingKind, ValueEditor& editor, QWidget* canvas);

  EditingKind Kind() const { return editingKind_; }

  /// The part of the canvas in which the frame may lie. Until it is set, that is the whole canvas.
  void SetRoom(const QRect& room);

  /// Shows the editor's state. To be called whenever it may have changed. A frame that opens takes a place
  /// beside the edited object and the keyboard focus; one that closes gives the focus back to the canvas.
  /// Where the user has put it, it opens again as long as it is for the same object.
  void ShowEditor();

  /// Forgets where the user has put it, because the objects are others now.
  void ForgetPlace();

 Q_SIGNALS:
  /// What was typed has been written into the truss.
  void ValuesStored();
  /// The editor has changed: its panel may be closed, the handles gone, the truss redrawn.
  void EditorChanged();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QString ControlName(const char* name) const;
  void AddOptions(QVBoxLayout* rows);
  QRadioButton* AddOption(const char* name, Notation notation, const char* toolTip);
  void AddBoxes(QVBoxLayout* rows);
  void AddButtons(QVBoxLayout* rows);
  void ShowValues();
  void Open();
  void Close();
  void FitIntoRoom();
  void MoveInside(PixelPoint leftTop);
  void EndDrag();
  PixelBox Room() const;
  PanelSize Size() const;

  const EditingKind editingKind_;
  ValueEditor& editor_;
  QRect room_;
  PanelDrag drag_;
  int shownIndex_ = 0;
  std::optional<PixelPoint> userPlace_;  // left top corner; for the object of shownIndex_

  std::array<QRadioButton*, 3> options_{};  // by Notation; a force has no absolute one
  std::array<QLabel*, 2> lblNewCoords_{};
  std::array<QLineEdit*, 2> txtNewCoords_{};
  QPushButton* cmdNewCoordsOK_ = nullptr;
  QPushButton* cmdNewCoordsCancel_ = nullptr;
};
