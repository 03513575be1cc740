// The window that tells the elimination step by step: the list of all operations, the matrix with the numbers
// of one of them marked, what is said of it, and the ways to go from one to the next.
#pragma once

#include <QTimer>
#include <memory>

#include "explanation/LearnWindow.h"
#include "platform/AnimationWish.h"

class QComboBox;
class QLabel;
class QListView;
class QPlainTextEdit;
class QPushButton;
class QSlider;
class QTableView;
class ListSplitter;
class StepListModel;
class StepMatrixModel;
class StepsTour;

class StepsWindow final : public LearnWindow {
  Q_OBJECT

 public:
  /// Milliseconds from view to view while it plays.
  static constexpr int PlayTime = 1500;

  /// The wish is asked before each play and must outlive the window.
  explicit StepsWindow(const AnimationWish& animation, QWidget* parent = nullptr);
  ~StepsWindow() override;

  void ShowSubject(const LearnSubject& subject) override;
  void Clear() override;

  /// What the Copy button copies: all steps, as the text report has them.
  QString CopiedText() const;

 protected:
  QWidget& FirstControl() override;
  void changeEvent(QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void CreateList();
  void CreateMatrix();
  void CreateControls();
  void CreateChoice();
  QWidget* MakeMarkNotes();
  void LayOut();
  void SetLetters(float points);
  void ShowMarkLooks();
  void FitList();
  void FitMatrix();
  void GoTo(int place);
  void GoToPivot(int unknown);
  void ShowPlace();
  void ShowPivotLine();
  void ShowButtons();
  void PlayOrStop();
  void StopPlaying();
  bool MayPlay() const;

  const AnimationWish& animation_;
  std::unique_ptr<StepsTour> tour_;
  QTimer player_{this};
  StepListModel* operations_;
  StepMatrixModel* numbers_;
  QListView* lstSteps_;
  QTableView* tblMatrix_;
  ListSplitter* beside_;
  QWidget* marks_;
  QPlainTextEdit* txtStep_;
  QLabel* lblStep_;
  QSlider* sldStep_;
  QLabel* lblUnknown_;
  QComboBox* cmbUnknown_;
  QLabel* lblPivot_;
  QPushButton *cmdFirst_, *cmdBack_, *cmdPlay_, *cmdNext_, *cmdLast_, *cmdCopy_;
};
