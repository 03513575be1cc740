// The window that solves the truss as it is done by hand: the list of steps, and of one of them the picture,
// the equations and what they give.
#pragma once

#include <memory>

#include "explanation/LearnWindow.h"
#include "explanation/byjoint/HandText.h"

class HandView;
class ListSplitter;
class QLabel;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
struct SolvedByHand;

class ByJointWindow final : public LearnWindow {
  Q_OBJECT

 public:
  explicit ByJointWindow(QWidget* parent = nullptr);

  void ShowSubject(const LearnSubject& subject) override;
  void Clear() override;

  /// What the Copy button copies: all steps, as the text report has them.
  QString CopiedText() const;

 Q_SIGNALS:
  /// The step is about a place of the drawing (world coordinates): the joint, or the point of its moments.
  void PlaceChosen(float x, float y);

  /// It is about none, or the window is closed.
  void PlaceLeft();

 protected:
  QWidget& FirstControl() override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void CreateControls();
  void LayOut();
  void FitList();
  void ShowStep();
  void GoTo(int row);
  void TellPlace();

  std::shared_ptr<const SolvedByHand> solved_;
  HandReport report_;
  ListSplitter* beside_ = nullptr;
  QListWidget* lstSteps_;
  HandView* picStep_;
  QLabel* lblArrows_;
  QPlainTextEdit* txtStep_;
  QLabel* lblStep_;
  QPushButton* cmdBack_;
  QPushButton* cmdNext_;
  QPushButton* cmdCopy_;
};
