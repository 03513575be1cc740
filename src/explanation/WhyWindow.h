// The window that says why the conclusion is what it is: the explanation as text, and the truss drawn with
// one of its motions or states of self-stress.
#pragma once

#include <memory>
#include <vector>

#include "explanation/Explanation.h"
#include "explanation/LearnWindow.h"
#include "explanation/MotionChoices.h"
#include "explanation/WhyText.h"
#include "platform/AnimationWish.h"

class MotionPlayer;
class MotionView;
class QComboBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QSlider;

class WhyWindow final : public LearnWindow {
  Q_OBJECT

 public:
  /// `animation` must outlive the window.
  explicit WhyWindow(const AnimationWish& animation, QWidget* parent = nullptr);

  void ShowSubject(const LearnSubject& subject) override;

  /// Shows the explanation of a truss. Both are kept as long as they are shown. `points` is the size of the
  /// text's letters.
  void ShowExplanation(std::shared_ptr<const Truss> truss, std::shared_ptr<const Explanation> explanation,
                       const ReportFormat& format, float points);

  void Clear() override;

 protected:
  QWidget& FirstControl() override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void CreateControls();
  void CreateText();
  void LayOut();
  void WriteText(const std::vector<WhyLine>& lines);
  void FitTable();
  void ShowChoice();
  void ShowParagraphOf(const MotionChoice& choice);
  void ShowControls();
  void Play();
  void FollowPlayer(double swing);
  void StopPlaying();
  const MotionChoice* Chosen() const;
  bool MayPlay() const;

  const AnimationWish& animation_;
  std::shared_ptr<const Truss> truss_;
  std::shared_ptr<const Explanation> explanation_;
  ReportFormat format_;
  std::vector<MotionChoice> choices_;
  std::vector<WhyLine> lines_;

  QLabel* lblMotion_ = nullptr;
  QComboBox* cmbMotion_ = nullptr;
  QLabel* lblSwing_ = nullptr;
  QSlider* sldSwing_ = nullptr;
  QPushButton* cmdPlay_ = nullptr;
  QLabel* lblNote_ = nullptr;
  MotionView* picMotion_ = nullptr;
  QPlainTextEdit* txtWhy_ = nullptr;
  MotionPlayer* player_ = nullptr;
};
