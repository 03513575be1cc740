// The panel that lies over the canvas and shows the two equilibrium equations of the joint that was clicked.
#pragma once

#include <QFrame>
#include <QList>
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

  /// The part of the parent in which the panel lies. Until it is set, that is the whole parent.
  void SetRoom(const QRect& room);

  /// Shows the panel before everything else, as wide as its equations need, and gives the focus to its
  /// button. Enter and Esc hide it and give the focus back. Texts are in the single-byte code page.
  void ShowEquations(const std::string& jointName, const JointEquationTexts& equations);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QLineEdit* AddEquation(const QString& boxName, const QString& heading);
  int WantedWidth() const;
  void SetLetters(const QFont& font, int roomWidth);
  void SetCaption(QFont font, int width);
  void KeepInsideParent();

  QLabel* caption_;
  QList<QLabel*> headings_;
  QRect room_;
  QLineEdit* txtXEqn_ = nullptr;
  QLineEdit* txtYEqn_ = nullptr;
  QPushButton* cmdOKJointReport_;
  QPointer<QWidget> focusBefore_;
};
