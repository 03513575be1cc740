// What the window's events do. How it is put together stands in MainFormParts.cpp.
#include "app/MainForm.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QShortcut>

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
#include "naming/CustomInputBox.h"
#include "naming/Naming.h"
#include "platform/qt/QtText.h"
#include "reports/JointEquationsPanel.h"
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
