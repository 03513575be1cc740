// The widget that shows the truss with its forces: it zooms, pans, and marks the force that is chosen. Light
// or dark paper, as the desktop's theme has it.
#pragma once

#include <QWidget>
#include <memory>
#include <optional>

#include "explanation/forces/ForcesDrawing.h"
#include "explanation/forces/ForcesLegend.h"
#include "platform/qt/QtTextMeasure.h"

/// What a view shows.
struct ShownForces {
  std::shared_ptr<const Truss> Document;
  TrussForces Forces;
  float Points = 8;  ///< of the letters
};

class ForcesView final : public QWidget {
  Q_OBJECT

 public:
  explicit ForcesView(QWidget* parent);

  /// Shows something else, all of it. Nothing: empty paper.
  void Show(std::shared_ptr<const ShownForces> shown);

  void SwapHues(bool swapped);

  /// Marks an unknown and moves the drawing so that it can be seen; 0: none.
  void Mark(int unknown);

  void ZoomIn();
  void ZoomOut();
  void ShowWhole();

  double Zoom() const { return zoom_; }  ///< 1: the whole truss
  bool MayZoomIn() const;
  int Marked() const { return marked_; }
  bool IsOnDarkPaper() const;

  /// What is drawn, and how far it is moved (pixels); nothing before anything was shown.
  const std::optional<ForcesDrawing>& Drawn() const { return drawn_; }
  QPointF Pan() const { return pan_; }

  QSize sizeHint() const override;

 Q_SIGNALS:
  /// A click on an unknown; 0 beside all of them.
  void Clicked(int unknown);

  /// The zoom has changed, or what is drawn.
  void DrawnAnew();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void DrawAnew();
  PixelRect Room() const;
  void ZoomTo(double zoom, QPointF at);
  void PanBy(QPointF step);
  PixelPoint OnDrawing(QPointF at) const;

  std::shared_ptr<const ShownForces> shown_;
  std::optional<ForcesDrawing> drawn_;
  ForcesLegend legend_;
  QtTextMeasure measure_;
  double zoom_ = 1;
  QPointF pan_;
  int marked_ = 0;
  bool huesAreSwapped_ = false;
  std::optional<QPointF> pressedAt_;  // while the button is down: where the mouse was last
  bool dragged_ = false;
};
