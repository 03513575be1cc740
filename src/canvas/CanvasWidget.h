// The canvas `picDraw`: white paper in every theme, with a persistent backing image (rulers, grid, force
// arrows) under the objects of the Drawing. It shows both and says where the mouse and the keyboard are; it
// decides nothing.
#pragma once

#include <QHelpEvent>
#include <QImage>
#include <QWidget>
#include <functional>
#include <optional>

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
  LabelIndex FocusLabel() const { return focusLabel_; }

  /// Where the keyboard's cursor stands (pixels); nothing hides it.
  void ShowKeyboardCursor(std::optional<QPointF> place);

  /// A ring around a place (world coordinates), until it is taken away; nothing of the document changes.
  void PointAt(std::optional<PixelPoint> world);
  const std::optional<PixelPoint>& PointedAt() const { return pointedAt_; }

  const QImage& Backing() const { return backing_; }

  /// The drawing that the widget shows.
  const Drawing& Shown() const { return drawing_; }

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
  LabelIndex NextLabel(int step) const;

  const Truss& truss_;
  const Drawing& drawing_;
  QImage backing_;
  QImage scene_;  // the backing image with the drawing on it, as last rendered
  bool sceneIsCurrent_ = false;
  std::optional<QPointF> keyboardCursor_;
  std::optional<PixelPoint> pointedAt_;  // world coordinates
  bool labelsActive_ = false;
  LabelIndex focusLabel_ = 0;
  LabelIndex pressedLabel_ = 0;  // 0 but between press and release of the mouse on a label
};
