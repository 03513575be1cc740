// The main window: menus, the canvas, a panel for each of the three steps, the status bar. It wires the parts
// together and shows what they decide.
#pragma once

#include <QMainWindow>
#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "app/KeptPlace.h"
#include "app/StatusTexts.h"
#include "app/StepPanels.h"
#include "app/Steps.h"
#include "canvas/CanvasWidget.h"
#include "canvas/Drawing.h"
#include "document/DocumentLifecycle.h"
#include "document/RecentFiles.h"
#include "editing/CanvasTools.h"
#include "editing/ToolBox.h"
#include "editing/ToolPalette.h"
#include "explanation/Explanation.h"
#include "platform/NumberFormat.h"
#include "platform/qt/QtAnimationWish.h"
#include "platform/qt/QtClipboard.h"
#include "platform/qt/QtTextMeasure.h"
#include "reports/ReportKind.h"

class DrawingAccess;
class FileMenuView;
class HelpViewer;
class InstructionFrame;
class JointEquationsPanel;
class LearnMenu;
class ReportWindow;
class StatusPanel;
struct ReportSizes;

class MainForm final : public QMainWindow, private DocumentWindow {
  Q_OBJECT

 public:
  /// What the window works with; all of it must outlive the window.
  struct Partners {
    Truss& Document;
    SettingsStore& Store;
    MessageBox& Messages;
    FileChooser& Chooser;
    NumberFormat Numbers;
    std::string ProgramDirectory;                             ///< UTF-8, without a separator at its end
    std::optional<NumberFormat> RulerNumbers = std::nullopt;  ///< for the rulers, when they have another
  };

  explicit MainForm(const Partners& partners);
  ~MainForm() override;

  /// Opens a file at start-up, without the instruction frame; with `autoName` everything is named too.
  void OpenAtStart(const std::string& path, bool autoName);

  /// The same with what came through standard input.
  void OpenAtStart(const FileBytes& input, bool autoName);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  // DocumentWindow
  void DocumentEmptied() override;
  void ShowCaption(const std::string& caption) override;
  void Redraw() override;

  TextMeasure Measure();
  void ShowNames();

  void CreateCanvasAndPanels();
  void CreateToolPanel();
  void CreateNamePanel();
  void CreateReportPanel();
  void CreateStatusBar();
  void CreateMenus();
  void CreateFileMenu();
  void CreateLearnMenu();
  void CreateHelpMenu();
  void CreateShortcuts();
  void AddStepKey(const QKeySequence& keys, bool forward);
  void CreateReportShortcuts();
  void CloseReport();
  void PlaceOnScreen();
  QRect InnerPlace() const;
  int PanelBottom() const;
  void PlaceReport();
  void PlaceBesideReport(QWidget& window, const ReportSizes& sizes,
                         const std::vector<const QWidget*>& windows);
  void BringUpReport();
  void PlaceInstructions(QSize inner);
  void FollowLetters();
  void Layout();

  void cmdOKInstruct1_Click();
  void cmdNext1_Click();
  void cmdPrev2_Click();
  void cmdNext2_Click();
  void cmdPrev3_Click();
  void cmdAutoName_Click(int index);
  void lblRodJoint_Click(int label);
  void mnuSettings_Click();
  void mnuFilePrint_Click();
  void ShowHelp(const char* topic);
  void ShowHelpOnStep();
  void ShowHelpOnReport();
  void OfferHelpBeside(QDialog& dialog, const char* topic);
  void ShowReport(ReportKind report);
  void ShowNotice();
  std::string Notice();

  void RenameLabel(LabelIndex label);
  void ShowJointEquations(LabelIndex label);
  void ShowStep();
  std::string StepText() const;
  int NumNamesOutOfReach() const;
  bool TicksAreLeftOut() const;
  void NoteDrawing(bool jointsAreNumbered);
  void ShowStatus();
  void ShowHint(StatusHint from, const std::string& hint);
  void EndHint(StatusHint from);
  void Note(StatusNote about, const std::string& text);
  void NoteOnFile();
  void NameAtStart();
  void LeaveInstructions();
  bool InstructionsAreShown() const;

  Partners on_;
  Drawing drawing_;
  CanvasBounds bounds_;
  QtTextMeasure measure_;
  QtClipboard clipboard_;
  QtClock clock_;
  Steps steps_;
  StatusTexts status_;
  ToolPalette tools_;
  RecentFiles recent_;
  std::unique_ptr<DocumentLifecycle> lifecycle_;

  CanvasWidget* picDraw_ = nullptr;
  ToolBox* picToolBox_ = nullptr;
  std::unique_ptr<CanvasTools> tool_;  // Step 1 on the canvas
  std::unique_ptr<DrawingAccess> access_;
  QFrame* picStep2_ = nullptr;
  QFrame* picStep3_ = nullptr;
  std::array<StepNavigation, 3> navigation_;
  InstructionFrame* frInstruct1_ = nullptr;
  JointEquationsPanel* jointPanel_ = nullptr;
  std::shared_ptr<const TrussAnalysis> shownAnalysis_;  // what the report window shows
  std::shared_ptr<ExplanationOnDemand> reasons_;        // of that analysis; empty without unknown forces
  std::unique_ptr<ReportWindow> report_;
  KeptPlace reportPlace_;
  QSize printableReportSize_;  // as the user left it; invalid before
  ReportKind shownReport_ = ReportKind::Counting;
  std::unique_ptr<HelpViewer> help_;
  std::array<StatusPanel*, 2> statusPanels_{};
  std::unique_ptr<FileMenuView> fileMenu_;
  QtAnimationWish animation_;
  std::unique_ptr<LearnMenu> learn_;
  QAction* mnuSettings_ = nullptr;
  bool showingMessages_ = false;
};
