// The widget that shows the truss with a motion or a self-stress, on white paper in every theme.
#pragma once

#include <QWidget>
#include <memory>
#include <optional>

#include "explanation/Explanation.h"
#include "explanation/MotionChoices.h"
#include "explanation/MotionDrawing.h"
#include "platform/qt/QtTextMeasure.h"

/// What a view shows, kept alive as long as the view needs it.
struct ShownMotion {
  std::shared_ptr<const Truss> Document;
  std::shared_ptr<const Explanation> Reasons;
  std::optional<MotionChoice> Choice;  ///< without one the truss stands as it is
  ReportFormat Format{};
};

class MotionView final : public QWidget {
  Q_OBJECT

 public:
  explicit MotionView(QWidget* parent);

  /// Draws something else, swung as before. Nothing: white paper.
  void Show(std::optional<ShownMotion> shown);

  /// -1 .. 1 of the largest swing.
  void Swing(double swing);

  /// What is drawn now; nothing before anything was shown.
  const std::optional<MotionDrawing>& Drawn() const { return drawn_; }

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void DrawAnew();

  std::optional<ShownMotion> shown_;
  std::optional<MotionDrawing> drawn_;
  QtTextMeasure measure_;
  double swing_ = 0;
};
