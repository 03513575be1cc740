// The canvas `picDraw`: white paper in every theme, with a persistent backing image (rulers, grid, force
// arrows) under the objects of the Drawing. It shows both and says where the mouse and the keyboard are; it
// decides nothing.
#pragma once

#include <QHelpEvent>
#include <QImage>
#include <QWidget>
#include <functional>
#include <optional>

#include "canvas/CanvasAccess.h"
#include "canvas/Drawing.h"
#include "document/Truss.h"
#include "platform/Surface.h"

class CanvasWidget final : public QWidget {
  Q_OBJECT

 public:
  /// Both must outlive the widget.
  CanvasWidget(const Truss& truss, const Drawing& drawing, QWidget* parent);

  /// Runs `paint` on the backing image, which has the widget's size at its device pixel ratio, and then shows
  /// everything anew.
  void PaintBacking(const std::function<void(Surface&)>& paint);

  /// The Drawing or the captions have changed; the backing image has not.
  void ShowDrawing();

  /// Whether a click on a name label means something; labels then have a pointing hand and can be reached
  /// with Tab.
  void SetLabelsActive(bool active);

  /// The label that the keyboard is on; 0 when it is on none.
  LabelIndex FocusLabel() const;

  /// The element that the keyboard is on: a label, or what FocusOn was told.
  const std::optional<Element>& FocusElement() const { return focus_; }

  /// Takes the keyboard and puts it on an element that is to be seen, with a frame around it.
  void FocusOn(const Element& element);

  /// Presses on an element, or without one at the cursor, once the caller has gone: what opens then waits for
  /// an answer, and who asked for the press must not wait for that. An element gets the keys too, to come
  /// back to it.
  void PressLater(const std::optional<Element>& element);

  /// What can be told of the elements and done to them; must outlive the widget, and may be null.
  void SetAccess(CanvasAccess* access) { access_ = access; }
  CanvasAccess* Access() const { return access_; }

  /// The decimal separator of what is told.
  std::string Separator() const { return access_ != nullptr ? access_->Separator() : "."; }

  /// Where the keyboard's cursor stands (pixels); nothing hides it.
  void ShowKeyboardCursor(std::optional<QPointF> place);

  /// A ring around a place (world coordinates), until it is taken away; nothing of the document changes.
  void PointAt(std::optional<PixelPoint> world);
  const std::optional<PixelPoint>& PointedAt() const { return pointedAt_; }

  const QImage& Backing() const { return backing_; }

  /// The drawing that the widget shows, and the truss that it is of.
  const Drawing& Shown() const { return drawing_; }
  const Truss& Document() const { return truss_; }

  /// Another number whenever something of the drawing may have changed.
  int Generation() const { return generation_; }

 Q_SIGNALS:
  /// A name label was clicked, or opened with Enter.
  void LabelActivated(int label);

  /// The window came to a screen with another device pixel ratio, for which there is no backing image yet.
  void BackingLost();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  bool BackingFits() const;
  void FitBacking();
  void RenderScene();
  void PaintFocus(QPainter& painter) const;
  void PaintKeyboardCursor(QPainter& painter) const;
  void PaintPointer(QPainter& painter) const;
  LabelIndex LabelUnder(const QPointF& position) const;
  bool ShowToolTip(QHelpEvent* event);
  bool CanHoldFocus(int label) const;
  void MoveFocus(const Element& element);
  void TellChanges();
  void TellFocus();
  LabelIndex NextLabel(int step) const;

  const Truss& truss_;
  const Drawing& drawing_;
  QImage backing_;
  QImage scene_;  // the backing image with the drawing on it, as last rendered
  bool sceneIsCurrent_ = false;
  std::optional<QPointF> keyboardCursor_;
  std::optional<PixelPoint> pointedAt_;  // world coordinates
  bool labelsActive_ = false;
  CanvasAccess* access_ = nullptr;
  int generation_ = 0;
  std::optional<Element> focus_;
  bool focusCameByTab_ = false;
  LabelIndex pressedLabel_ = 0;  // 0 but between press and release of the mouse on a label
};
