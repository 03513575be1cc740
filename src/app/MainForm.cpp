// What the window's events do. How it is put together stands in MainFormParts.cpp.
#include "app/MainForm.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>
#include <QShortcut>
#include <QStatusBar>
#include <QUrl>

#include "analysis/JointEquations.h"
#include "app/AboutForm.h"
#include "app/DeferredMessages.h"
#include "app/DrawingNote.h"
#include "app/FileMenu.h"
#include "app/HelpTopics.h"
#include "app/HelpViewer.h"
#include "app/InstructionFrame.h"
#include "app/OptionsDialog.h"
#include "app/StatusPanel.h"
#include "app/Step2Findings.h"
#include "app/StepTexts.h"
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

// The only file of a drop, if there is one and it is a truss file.
QString DroppedTruss(const QMimeData* data) {
  const QList<QUrl> urls = data->urls();
  if (urls.size() != 1 || !urls.front().isLocalFile()) return {};
  const QString path = urls.front().toLocalFile();
  return path.endsWith(QStringLiteral(".trs"), Qt::CaseInsensitive) ? path : QString();
}

// A file manager may propose to move the file, and who moves deletes what was taken. Opening takes a copy,
// and a drop that allows none is refused.
bool TakesACopy(QDropEvent* event) {
  const bool allowed = event->possibleActions().testFlag(Qt::CopyAction);
  if (allowed) event->setDropAction(Qt::CopyAction);
  event->setAccepted(allowed);
  return allowed;
}

// A position on the canvas in twips; names may stand far outside it.
int InTwips(float pixels) { return static_cast<int>(OntoPaper(pixels) * TwipsPerPixel); }

}  // namespace

void MainForm::OpenAtStart(const std::string& path, bool autoName) {
  LeaveInstructions();
  lifecycle_->OpenPath(path);
  AfterFileCommand();
  if (autoName) NameAtStart();
}

void MainForm::OpenAtStart(const FileBytes& input, bool autoName) {
  LeaveInstructions();
  lifecycle_->OpenInput(input);
  AfterFileCommand();
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
  if (lifecycle_->NamesChanged()) Note(StatusNote::File, lifecycle_->FileNote());
}

// --- the three steps

void MainForm::cmdOKInstruct1_Click() {
  LeaveInstructions();
  lifecycle_->EmptyDocument();
}

void MainForm::LeaveInstructions() {
  frInstruct1_->hide();
  mnuFile_->menuAction()->setEnabled(true);
  mnuSettings_->setEnabled(true);
  for (QWidget* widget : std::initializer_list<QWidget*>{picDraw_, picToolBox_, picStep2_, picStep3_}) {
    widget->setEnabled(true);
  }
  picDraw_->setFocus();
  UpdateFileMenu();
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
  ShowReport(1);
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
  status_.EnterStep(StepText());
  NoteDrawing(true);
  UpdateFileMenu();
}

std::string MainForm::StepText() const {
  if (steps_.Current() == 2) {
    return ToUtf8(steps_.StatusText() + Step2Findings(on_.Document, NumNamesOutOfReach(), on_.Numbers)) +
           DrawingNote({.TicksAreLeftOut = TicksAreLeftOut()});
  }
  return steps_.StatusText().empty() ? Step1StatusText : ToUtf8(steps_.StatusText());
}

// In Step 2 the text of the step itself tells what was found.
void MainForm::NoteDrawing(bool jointsAreNumbered) {
  const bool isStep1 = steps_.Current() == 1;
  const bool isOutside =
      isStep1 &&
      IsTrussOutside(drawing_, on_.Document, {0, static_cast<float>(StepPanelHeight)},
                     {static_cast<float>(picDraw_->width()), static_cast<float>(picDraw_->height())});
  Note(StatusNote::Drawing, DrawingNote({.JointsAreNumbered = jointsAreNumbered,
                                         .TrussIsOutside = isOutside,
                                         .TicksAreLeftOut = isStep1 && TicksAreLeftOut()}));
}

bool MainForm::TicksAreLeftOut() const {
  return on_.Document.Settings.RulersOn && ::TicksAreLeftOut(drawing_.Mapping, on_.Document.View);
}

// Names under the panel of the step cannot be clicked either.
int MainForm::NumNamesOutOfReach() const {
  return NumLabelsOutside(drawing_, {0, static_cast<float>(StepPanelHeight)},
                          {static_cast<float>(picDraw_->width()), static_cast<float>(picDraw_->height())});
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
  const std::string typed = InputBox2("Enter a new name:", on_.Document.Name(label), left, top, this);
  Rename(on_.Document, label, typed);
  ShowNames();
}

void MainForm::ShowJointEquations(LabelIndex label) {
  const CountedJoint* joint = JointWithLabel(shownAnalysis_->Counted, label);
  if (joint == nullptr) return;
  const JointEquations equations(on_.Document, on_.Numbers);
  jointPanel_->ShowEquations(joint->Name, equations.ReportOnJoint(*joint));
}

// --- reports

void MainForm::ShowReport(int report) {
  if (!shownAnalysis_) return;
  const int sigFigs = on_.Document.Settings.SigFigs;
  shownReport_ = report;
  switch (report) {
    case 1:
      report_->ReportCounting(shownAnalysis_->Counted);
      break;
    case 2:
      report_->LoadGridWithEquations(*shownAnalysis_, sigFigs);
      break;
    case 3:
      report_->LoadGridWithRREF(*shownAnalysis_, sigFigs, Notice());
      break;
    default:
      report_->LoadGridWithSolutions(*shownAnalysis_, sigFigs, Notice());
      break;
  }
  BringUpReport();
}

// What is to be said below the conclusion of the analysis that is shown.
std::string MainForm::Notice() {
  if (!reasons_) return {};
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  const std::string notice =
      NoticeBelowConclusion(reasons_->Graph(), reasons_->Rounded(),
                            {.SigFigs = on_.Document.Settings.SigFigs, .Numbers = on_.Numbers});
  QGuiApplication::restoreOverrideCursor();
  return notice;
}

// --- menus

void MainForm::mnuFile_Click() {
  UpdateFileMenu();
  ShowHint(StatusHint::Menu, FileMenuStatusText);
}

void MainForm::UpdateFileMenu() {
  const FileMenu state = FileMenuState(steps_.Current(), on_.Document.FileName);
  const bool started = !InstructionsAreShown();
  mnuFileSaveAs_->setText(QString::fromLatin1(state.SaveAs.Caption.c_str()));
  mnuFileSaveAs_->setEnabled(started && state.SaveAs.Enabled);
  mnuFileSave_->setText(QString::fromLatin1(state.Save.Caption.c_str()));
  mnuFileSave_->setEnabled(started && state.Save.Enabled);
  // Two with the same key would cancel each other out.
  saveKey_->setEnabled(!mnuFileSave_->isEnabled());
  mnuFilePrint_->setEnabled(started && state.PrintEnabled);
  for (int entry = 0; entry <= RecentFiles::Count; ++entry) {
    QAction* action = mnuRecentFile_[static_cast<std::size_t>(entry)];
    action->setVisible(recent_.IsShown(entry));
    if (entry == 0) continue;
    // An ampersand in a path is no access key.
    action->setText(QString::fromStdString(recent_.Caption(entry)).replace(u'&', QStringLiteral("&&")));
  }
}

void MainForm::AfterFileCommand() {
  Note(StatusNote::File, lifecycle_->FileNote());
  UpdateFileMenu();
}

void MainForm::mnuFileSave_Click() {
  lifecycle_->SaveFile();
  AfterFileCommand();
}

void MainForm::mnuFileSaveAs_Click() {
  lifecycle_->SaveFileAs();
  AfterFileCommand();
}

void MainForm::SaveByKey() {
  const bool instructed = InstructionsAreShown();
  switch (SaveKeyCommand(steps_.Current(), on_.Document.FileName, instructed)) {
    case SaveKey::Save:
      mnuFileSave_->trigger();
      break;
    case SaveKey::SaveAs:
      mnuFileSaveAs_->trigger();
      break;
    case SaveKey::Refused:
      ShowHint(StatusHint::Key, SaveRefusedText(instructed));
      break;
  }
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
  if (window.HasDocument()) shownReport_ = 4;
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
  const bool isConclusion = shownReport_ >= 3;
  ShowHelp(HelpTopicForReport(shownReport_, *shownAnalysis_, isConclusion && !Notice().empty()));
}

void MainForm::ShowHelpOnStep() { ShowHelp(HelpTopicForStep(steps_.Current(), InstructionsAreShown())); }

// --- the status bar

void MainForm::ShowStatus() {
  const QString text = QString::fromStdString(status_.Shown());
  // Every redraw comes here, and choosing the font that fits takes time.
  if (text == statusPanels_[0]->text()) return;
  statusPanels_[0]->ShowText(text);
}

void MainForm::ShowHint(StatusHint from, const std::string& hint) {
  status_.ShowHint(from, hint);
  ShowStatus();
}

void MainForm::EndHint(StatusHint from) {
  status_.EndHint(from);
  ShowStatus();
}

void MainForm::Note(StatusNote about, const std::string& text) {
  status_.Note(about, text);
  ShowStatus();
}

// --- window events

void MainForm::closeEvent(QCloseEvent* event) {
  tool_->Cancel();
  lifecycle_->Unload();
  report_->close();
  if (help_) help_->close();
  event->accept();
}

void MainForm::dragEnterEvent(QDragEnterEvent* event) {
  if (mnuFile_->menuAction()->isEnabled() && !DroppedTruss(event->mimeData()).isEmpty()) TakesACopy(event);
}

// Keys held down change what is proposed while the file is on its way.
void MainForm::dragMoveEvent(QDragMoveEvent* event) { TakesACopy(event); }

void MainForm::dropEvent(QDropEvent* event) {
  const QString path = DroppedTruss(event->mimeData());
  if (path.isEmpty() || !TakesACopy(event)) return;
  // The program that the file comes from waits until this event is done; a question must not hold it up.
  const auto open = [this, path] {
    tool_->Cancel();
    lifecycle_->OpenPath(path.toStdString());
    AfterFileCommand();
  };
  QMetaObject::invokeMethod(this, open, Qt::QueuedConnection);
}
