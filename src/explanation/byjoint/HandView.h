// The widget that shows the picture of a step, on white paper in every theme.
#pragma once

#include <QWidget>
#include <memory>
#include <optional>

#include "explanation/byjoint/HandPicture.h"
#include "platform/qt/QtTextMeasure.h"

/// A truss solved by hand, kept alive as long as it is shown.
struct SolvedByHand {
  TrussGraph Graph;
  HandSolution Solution;
  ReportFormat Format;
};

class HandView final : public QWidget {
  Q_OBJECT

 public:
  explicit HandView(QWidget* parent);

  /// Shows step `index` (from 0); nothing, white paper, without a truss.
  void Show(std::shared_ptr<const SolvedByHand> solved, std::size_t index);

  /// What is drawn now.
  const std::optional<HandPicture>& Drawn() const { return drawn_; }

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void DrawAnew();

  std::shared_ptr<const SolvedByHand> solved_;
  std::size_t index_ = 0;
  std::optional<HandPicture> drawn_;
  QtTextMeasure measure_;
};
