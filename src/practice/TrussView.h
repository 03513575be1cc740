// A widget that shows a picture of a truss, as large as it has room for, on white paper in every theme, and
// can point at a place of it.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <optional>

#include "reports/TrussPaint.h"

class TrussView final : public QWidget {
  Q_OBJECT

 public:
  explicit TrussView(QWidget* parent);

  /// Without a truss the paper is blank. Points at nothing.
  void ShowTruss(std::optional<PaintedTruss> truss);

  /// Rings a place (world coordinates), or none.
  void PointAt(std::optional<PixelPoint> world);
  const std::optional<PixelPoint>& PointedAt() const { return pointedAt_; }

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void PaintAnew();
  void PaintRing(QPainter& painter, const QPointF& corner) const;

  std::optional<PaintedTruss> truss_;
  std::optional<PixelPoint> pointedAt_;
  QPixmap painted_;
  double scale_ = 1;  // points of the widget to a pixel of the picture
};
