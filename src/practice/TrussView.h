// A widget that shows a picture of a truss, as large as it has room for, on white paper in every theme.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <optional>

#include "platform/Picture.h"

class TrussView final : public QWidget {
  Q_OBJECT

 public:
  explicit TrussView(QWidget* parent);

  /// Without a picture the paper is blank.
  void ShowPicture(std::optional<Picture> picture);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void PaintAnew();

  std::optional<Picture> picture_;
  QPixmap painted_;
};
