// The panel that greets at start-up and tells the three steps.
#pragma once

#include <QFrame>

/// To be centred over the canvas; its size is fixed by its content. Enter and Escape press its button.
class InstructionFrame final : public QFrame {
  Q_OBJECT

 public:
  explicit InstructionFrame(QWidget* parent);

 Q_SIGNALS:
  /// The user has read it: the button cmdOKInstruct1 was pressed. The panel stays until it is hidden.
  void Dismissed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
};
