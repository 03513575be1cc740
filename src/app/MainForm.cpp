// What the window's events do. How it is put together stands in MainFormParts.cpp.
#include "app/MainForm.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QShortcut>

#include "analysis/JointEquations.h"
#include "app/DeferredMessages.h"
#include "app/DrawingNote.h"
#include "app/FileMenuView.h"
#include "app/HelpTopics.h"
#include "app/HelpViewer.h"
#include "app/InstructionFrame.h"
#include "app/LearnMenu.h"
#include "app/OptionsDialog.h"
#include "canvas/DoLabel.h"
#include "canvas/Paper.h"
#include "canvas/RedrawTruss.h"
#include "canvas/Rulers.h"
#include "explanation/RoundingText.h"
#include "naming/CustomInputBox.h"
#include "naming/Naming.h"
#include "platform/qt/QtText.h"
#include "reports/JointEquationsPanel.h"
#include "reports/PrintableReportWindow.h"
#include "reports/ReportWindow.h"
#include "text/CodePage.h"

namespace {

// A position on the canvas in twips; names may stand far outside it.
int InTwips(float pixels) { return static_cast<int>(OntoPaper(pixels) * TwipsPerPixel); }

}  // namespace

void MainForm::OpenAtStart(const std::string& path, bool autoName) {
  LeaveInstructions();
  lifecycle_->OpenPath(path);
  NoteOnFile();
  if (autoName) NameAtStart();
}

void MainForm::OpenAtStart(const FileBytes& input, bool autoName) {
  LeaveInstructions();
  lifecycle_->OpenInput(input);
  NoteOnFile();
  if (autoName) NameAtStart();
}

void MainForm::NameAtStart() {
  AutoName(on_.Document);
  ShowNames();
}

// --- what the document tells the window

void MainForm::DocumentEmptied() {
  frInstruct1_->hide();
  jointPanel_->hide();
  CloseReport();
  tools_.Clear();
  steps_.Restart();
  HideLabels(drawing_);
  ShowStep();
  Redraw();
}

void MainForm::ShowCaption(const std::string& caption) { setWindowTitle(QString::fromStdString(caption)); }

void MainForm::Redraw() {
  DeferredMessages messages;
  const CanvasContext context{bounds_, on_.RulerNumbers.value_or(on_.Numbers), Measure()};
  bool joined = true;
  picDraw_->PaintBacking(
      [&](Surface& surface) { joined = RedrawTruss(on_.Document, drawing_, surface, context, messages); });
  tool_->ShowState();
  learn_->FollowDrawing();
  NoteDrawing(joined);
  // A message waits for its answer in an event loop of its own, which may redraw again; that must not ask
  // twice.
  if (showingMessages_) return;
  showingMessages_ = true;
  messages.ShowOn(on_.Messages);
  showingMessages_ = false;
}

TextMeasure MainForm::Measure() {
  return [this](const TextFont& font, std::string_view text) { return measure_.Measure(font, text); };
}

// A new name moves no shape: joints keep their order, and the grid and its message stay as they are.
void MainForm::ShowNames() {
  PlaceNames(drawing_, on_.Document, Measure());
  picDraw_->ShowDrawing();
  learn_->FollowDrawing();
  if (lifecycle_->NamesChanged()) Note(StatusNote::File, lifecycle_->FileNote());
}

// --- the three steps

void MainForm::cmdOKInstruct1_Click() {
  LeaveInstructions();
  lifecycle_->EmptyDocument();
}

void MainForm::LeaveInstructions() {
  frInstruct1_->hide();
  fileMenu_->Enable();
  mnuSettings_->setEnabled(true);
  for (QWidget* widget : std::initializer_list<QWidget*>{picDraw_, picToolBox_, picStep2_, picStep3_}) {
    widget->setEnabled(true);
  }
  picDraw_->setFocus();
  fileMenu_->Update();
}

bool MainForm::InstructionsAreShown() const { return frInstruct1_->isVisibleTo(this); }

void MainForm::cmdNext1_Click() {
  tool_->Cancel();
  if (!steps_.Next1(on_.Document)) {
    Note(StatusNote::Step, ToUtf8(steps_.StatusText()));
    return;
  }
  tools_.Clear();
  Deselect(drawing_);
  ShowLabels(drawing_, on_.Document);
  Redraw();
  ShowStep();
}

void MainForm::cmdPrev2_Click() {
  if (!steps_.Prev2()) return;
  HideLabels(drawing_);
  ShowStep();
}

void MainForm::cmdNext2_Click() {
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  const bool entered = steps_.Next2(on_.Document);
  QGuiApplication::restoreOverrideCursor();
  if (!entered) return;
  shownAnalysis_ = steps_.Analysis();
  if (shownAnalysis_ && shownAnalysis_->System.NumUnknowns() > 0)
    reasons_ = std::make_shared<ExplanationOnDemand>(on_.Document, *shownAnalysis_);
  report_->ChooseFontSet(on_.Document.Settings.ReportFontSize);
  ShowStep();
  ShowReport(ReportKind::Counting);
}

void MainForm::cmdPrev3_Click() {
  if (!steps_.Prev3()) return;
  jointPanel_->hide();
  CloseReport();
  ShowStep();
}

// A report is of the truss as it was analysed, and outside Step 3 that may change.
void MainForm::CloseReport() {
  if (report_->isActiveWindow()) activateWindow();
  report_->hide();
  report_->Clear();
  reasons_.reset();
  shownAnalysis_.reset();
}

void MainForm::ShowStep() {
  const int step = steps_.Current();
  const std::array<QWidget*, 3> panels = {picToolBox_, picStep2_, picStep3_};
  for (int i = 1; i <= 3; ++i) panels[static_cast<std::size_t>(i - 1)]->setVisible(i == step);
  panels[static_cast<std::size_t>(step - 1)]->raise();
  picToolBox_->ShowPalette();
  picDraw_->SetLabelsActive(steps_.NamesAreShown());
  picDraw_->ShowDrawing();
  tool_->SetActive(step == 1 && picDraw_->isEnabled());
  learn_->EnterStep(step, step == 3 ? reasons_ : nullptr);
  status_.EnterStep(StepText());
  NoteDrawing(true);
  fileMenu_->Update();
}

// --- names and joint equations

void MainForm::cmdAutoName_Click(int index) {
  if (index == 1) {
    AutoName(on_.Document);
  } else {
    ClearNames(on_.Document);
  }
  ShowNames();
}

void MainForm::lblRodJoint_Click(int label) {
  if (steps_.Current() == 2) {
    RenameLabel(static_cast<LabelIndex>(label));
  } else if (steps_.Current() == 3) {
    ShowJointEquations(static_cast<LabelIndex>(label));
  }
}

void MainForm::RenameLabel(LabelIndex label) {
  const LabelPlace& place = drawing_.lblRodJoint[label];
  const int left = TwipsPerPixel * x() + InTwips(place.Left) + 400;
  const int top = TwipsPerPixel * y() + InTwips(place.Top) + 1200;
  const std::string typed =
      InputBox2("Enter a new name:", on_.Document.Name(label).String(), left, top, this,
                InWords(on_.Document, {ElementKind::Label, label}, on_.Numbers.DecimalSeparator));
  Rename(on_.Document, label, typed);
  ShowNames();
}

void MainForm::ShowJointEquations(LabelIndex label) {
  const CountedJoint* joint = JointWithLabel(shownAnalysis_->Counted, label);
  if (joint == nullptr) return;
  const JointEquations equations(on_.Document, on_.Numbers);
  jointPanel_->ShowEquations(joint->Name.String(), equations.ReportOnJoint(*joint));
}

// --- reports

void MainForm::ShowReport(ReportKind report) {
  if (!shownAnalysis_) return;
  const int sigFigs = on_.Document.Settings.SigFigs;
  shownReport_ = report;
  switch (report) {
    case ReportKind::Counting:
      report_->ReportCounting(shownAnalysis_->Counted);
      break;
    case ReportKind::Equations:
      report_->LoadGridWithEquations(*shownAnalysis_, sigFigs);
      break;
    case ReportKind::RREF:
      report_->LoadGridWithRREF(*shownAnalysis_, sigFigs, Notice());
      break;
    case ReportKind::Solutions:
      report_->LoadGridWithSolutions(*shownAnalysis_, sigFigs, Notice());
      break;
  }
  BringUpReport();
}

// What is to be said below the conclusion of the analysis that is shown.
std::string MainForm::Notice() {
  if (!reasons_) return {};
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  std::string notice =
      NoticeBelowConclusion(reasons_->Graph(), reasons_->Rounded(),
                            {.SigFigs = on_.Document.Settings.SigFigs, .Numbers = on_.Numbers});
  QGuiApplication::restoreOverrideCursor();
  return notice;
}

// --- menus

void MainForm::NoteOnFile() {
  Note(StatusNote::File, lifecycle_->FileNote());
  fileMenu_->Update();
}

void MainForm::mnuSettings_Click() {
  tool_->Cancel();
  if (!SettingsMayOpen(steps_.Current(), on_.Messages)) return;
  OptionsDialog dialog(on_.Document.Settings, on_.Numbers, on_.Messages, this);
  connect(&dialog, &OptionsDialog::Applied, this, [this](const SettingsInput& input) {
    if (!CloseSettings(input, on_.Numbers, bounds_, on_.Document)) Redraw();
    if (steps_.Current() != 2) return;
    status_.RenewStep(StepText());
    ShowStatus();
  });
  OfferHelpBeside(dialog, SettingsHelpTopic);
  dialog.exec();
}

void MainForm::mnuFilePrint_Click() {
  if (!shownAnalysis_ || shownAnalysis_->System.NumUnknowns() == 0) return;
  const auto analysis = shownAnalysis_;
  const auto reasons = reasons_;
  PrintableReportWindow window({.Subject = {.Document = on_.Document,
                                            .Analysis = *analysis,
                                            .Numbers = on_.Numbers,
                                            .Reasons = reasons.get()},
                                .Report = *report_,
                                .Access = {clipboard_, clock_, on_.Messages},
                                .Bitmap = [this] { return clipboard_.Bitmap(); },
                                .Chooser = on_.Chooser,
                                .Directory = on_.ProgramDirectory},
                               this);
  OfferHelpBeside(window, PrintingHelpTopic);
  if (printableReportSize_.isValid()) window.resize(printableReportSize_);
  window.exec();
  printableReportSize_ = window.size();
  if (window.HasDocument()) shownReport_ = ReportKind::Solutions;
}

void MainForm::ShowHelp(const char* topic) {
  if (!help_) help_ = std::make_unique<HelpViewer>(on_.Messages);
  help_->ShowTopic(on_.ProgramDirectory + topic);
}

// Only the main window waits for the dialog, so that help on it can be read beside it.
void MainForm::OfferHelpBeside(QDialog& dialog, const char* topic) {
  dialog.setWindowModality(Qt::WindowModal);
  auto* help = new QShortcut(QKeySequence::HelpContents, &dialog);
  connect(help, &QShortcut::activated, this, [this, topic] { ShowHelp(topic); });
}

void MainForm::ShowHelpOnReport() {
  if (!shownAnalysis_) return ShowHelpOnStep();
  const bool owesToRounding = IsConclusion(shownReport_) && !Notice().empty();
  ShowHelp(HelpTopicForReport(shownReport_, *shownAnalysis_, owesToRounding));
}

void MainForm::ShowHelpOnStep() { ShowHelp(HelpTopicForStep(steps_.Current(), InstructionsAreShown())); }

// --- window events

void MainForm::closeEvent(QCloseEvent* event) {
  tool_->Cancel();
  lifecycle_->Unload();
  report_->close();
  learn_->Close();
  if (help_) help_->close();
  event->accept();
}
