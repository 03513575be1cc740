// The panel that lies over the canvas and shows the two equilibrium equations of the joint that was clicked.
#pragma once

#include <QFrame>
#include <QPointer>
#include <string>

#include "analysis/JointEquations.h"

class QLabel;
class QLineEdit;
class QPushButton;

/// A child of the canvas area; it stays hidden until it has equations to show, and keeps inside its parent.
/// Its owner moves it.
class JointEquationsPanel final : public QFrame {
  Q_OBJECT

 public:
  explicit JointEquationsPanel(QWidget* parent);

  /// Shows the panel before everything else, as wide as its equations need, and gives the focus to its
  /// button. Enter and Esc hide it and give the focus back. Texts are in the single-byte code page.
  void ShowEquations(const std::string& jointName, const JointEquationTexts& equations);

  /// Pixels that a panel with these equations asks for; the parent may leave it less.
  int WantedWidth(const JointEquationTexts& equations) const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QLineEdit* AddEquation(const QString& boxName, const QString& heading);
  void KeepInsideParent();

  QLabel* caption_;
  QLineEdit* txtXEqn_ = nullptr;
  QLineEdit* txtYEqn_ = nullptr;
  QPushButton* cmdOKJointReport_;
  QPointer<QWidget> focusBefore_;
  int wantedWidth_ = 0;  // pixels
};
