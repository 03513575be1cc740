// The menu Learn and its windows: why a conclusion is what it is, and what may be an oversight of the
// drawing.
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>

#include "app/KeptPlace.h"
#include "app/ReportPlace.h"
#include "canvas/Graph.h"
#include "explanation/Explanation.h"
#include "platform/AnimationWish.h"
#include "platform/NumberFormat.h"

class CanvasWidget;
class ChecksWindow;
class QAction;
class QMenu;
class QMenuBar;
class WhyWindow;

/// The status bar while the menu is open; it also says why the first entry is not offered.
const char* LearnMenuStatusText(int step, bool hasUnknowns);

class LearnMenu final : public QObject {
  Q_OBJECT

 public:
  /// What the menu works with; all of it must outlive the menu.
  struct Partners {
    const Truss& Document;
    const CanvasBounds& Bounds;  ///< of the drawing area, pixels
    CanvasWidget& Canvas;
    const AnimationWish& Animation;
    NumberFormat Numbers;
    /// Puts a window that opens beside those of the program and `another` one, where it is shown.
    std::function<void(QWidget& window, const ReportSizes& sizes, const QWidget& another)> PlaceBeside;
    std::function<void(const char* topic)> ShowHelp;
  };

  /// Appends the menu to the bar.
  LearnMenu(const Partners& partners, QMenuBar& bar);
  ~LearnMenu() override;

  /// 1, 2 or 3; `reasons` are those of Step 3, empty without unknown forces and in other steps. The window
  /// with other reasons is closed.
  void EnterStep(int step, std::shared_ptr<ExplanationOnDemand> reasons);

  /// The truss, its names or its place on the canvas have changed: checks that are shown are made anew, as
  /// soon as there is a moment.
  void FollowDrawing();

  /// Closes both windows.
  void Close();

 Q_SIGNALS:
  /// For the status bar: what the open menu says, and that it is closed.
  void HintShown(const char* hint);
  void HintGone();

 private:
  void ShowWhy();
  void ShowChecks();
  void Check();
  void OfferHelp(QWidget& window, const char* topic);

  Partners on_;
  int step_ = 1;
  std::shared_ptr<ExplanationOnDemand> reasons_;
  bool whyIsWritten_ = false;  // the window shows these reasons
  std::unique_ptr<WhyWindow> why_;
  std::unique_ptr<ChecksWindow> checks_;
  KeptPlace whyPlace_, checksPlace_;
  QMenu* mnuLearn_;
  QAction* mnuLearnWhy_;
  QTimer recheck_;
};
