// The panel that greets at start-up and tells the three steps.
#pragma once

#include <QFrame>

class QVBoxLayout;

/// To be centred over the canvas. Enter and Escape press its button.
class InstructionFrame final : public QFrame {
  Q_OBJECT

 public:
  explicit InstructionFrame(QWidget* parent);

  /// Takes the size that its texts ask for in the largest font up to `wanted` in which that is no more than
  /// `room` (pixels).
  void FitInto(QSize room, const QFont& wanted);

 Q_SIGNALS:
  /// The user has read it: the button cmdOKInstruct1 was pressed. The panel stays until it is hidden.
  void Dismissed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void SetLetters(const QFont& font);
  QSize SizeFor(const QFont& font, QSize room) const;

  QVBoxLayout* rows_;
};
