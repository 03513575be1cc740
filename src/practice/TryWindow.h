// The window in which a student finds the forces himself: the truss, a box for each force, and what is right,
// by the solutions and by his own other numbers.
#pragma once

#include <memory>
#include <optional>

#include "explanation/LearnWindow.h"
#include "practice/TriedTruss.h"

class AnswersTable;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class TrussView;

class TryWindow final : public LearnWindow {
  Q_OBJECT

 public:
  explicit TryWindow(QWidget* parent = nullptr);

  void ShowSubject(const LearnSubject& subject) override;
  void Clear() override;

 Q_SIGNALS:
  /// A hint is about this joint of the drawing (world coordinates).
  void PlaceChosen(float x, float y);

  /// It is about none, or the window is closed.
  void PlaceLeft();

 protected:
  QWidget& FirstControl() override;
  void hideEvent(QHideEvent* event) override;

 private:
  void CreateControls();
  void LayOut();
  void ForgetVerdict(int row);
  void JudgeValues();
  void GiveHint();
  void EmptyBoxes();
  void WriteRows();
  void Say(const QString& text);
  void PointAt(int joint);

  std::unique_ptr<TriedTruss> tried_;
  std::optional<Hint> hint_;  // that is shown, up to level_
  std::size_t level_ = 0;
  QLabel* lblHow_;
  TrussView* picTruss_;
  AnswersTable* lstForces_;
  QPlainTextEdit* txtSaid_;
  QPushButton* cmdJudge_;
  QPushButton* cmdHint_;
  QPushButton* cmdEmpty_;
};
