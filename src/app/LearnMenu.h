// The menu Learn and its windows: those that work with the analysis of Step 3, and what may be an oversight
// of the drawing.
#pragma once

#include <QKeySequence>
#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "app/KeptPlace.h"
#include "app/ReportPlace.h"
#include "canvas/Graph.h"
#include "explanation/Explanation.h"
#include "platform/AnimationWish.h"
#include "platform/FileChooser.h"
#include "platform/MessageBox.h"
#include "platform/NumberFormat.h"

class CanvasWidget;
class ChecksWindow;
class LearnWindow;
class QAction;
class QMenu;
class QMenuBar;

/// The status bar while the menu is open; it also says why what needs Step 3 is not offered.
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
    FileChooser& Chooser;
    MessageBox& Messages;
    std::string Directory;  ///< UTF-8; where choosers open for a truss without a file
    /// Puts a window that opens beside those of the program and those of the menu, as far as they are shown.
    std::function<void(QWidget& window, const ReportSizes& sizes, const std::vector<const QWidget*>& ofMenu)>
        PlaceBeside;
    std::function<void(const char* topic)> ShowHelp;
  };

  /// Appends the menu to the bar.
  LearnMenu(const Partners& partners, QMenuBar& bar);
  ~LearnMenu() override;

  /// 1, 2 or 3; `reasons` are those of Step 3, empty without unknown forces and in other steps. Windows with
  /// other reasons are closed.
  void EnterStep(int step, std::shared_ptr<ExplanationOnDemand> reasons);

  /// The truss, its names or its place on the canvas have changed: checks that are shown are made anew, as
  /// soon as there is a moment.
  void FollowDrawing();

  /// Opens the menu in the main window in Step 3.
  static QKeySequence KeyInStep3();

  /// Opens the menu at a window that has no menus of its own, ready for the keys.
  void OpenAt(QWidget& window);

  /// Closes all windows.
  void Close();

 Q_SIGNALS:
  /// For the status bar: what the open menu says, and that it is closed.
  void HintShown(const char* hint);
  void HintGone();

 private:
  // An entry that needs the analysis of Step 3, with its window, which is made when it is first asked for.
  struct Entry {
    const char* Name;     // of the action
    const char* Caption;  // with its access key
    const char* ToolTip;
    const char* HelpTopic;
    ReportSizes Sizes;
    std::function<std::unique_ptr<LearnWindow>()> Make;
    std::unique_ptr<LearnWindow> Window{};
    KeptPlace Place{};
    QAction* Action = nullptr;
    bool IsWritten = false;  // the window shows these reasons
  };

  std::vector<Entry> AllEntries() const;
  /// A window that tells a place, which is lit up on the drawing.
  template <class Window>
  std::unique_ptr<LearnWindow> MakeLitUp() const;
  void AddEntry(Entry& entry);
  void Forget(Entry& entry) const;
  void Show(Entry& entry);
  std::vector<const QWidget*> OthersThan(const QWidget& window) const;
  void ShowChecks();
  void Check();
  void OfferHelp(QWidget& window, const char* topic);

  Partners on_;
  int step_ = 1;
  std::shared_ptr<ExplanationOnDemand> reasons_;
  QWidget& mainWindow_;
  std::vector<Entry> entries_;
  std::unique_ptr<ChecksWindow> checks_;
  KeptPlace checksPlace_;
  QMenu* mnuLearn_;
  QTimer recheck_;
};
