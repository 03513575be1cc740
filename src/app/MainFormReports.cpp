// What the main window does with reports: the joint equations, the report window, the printable report.
#include <QGuiApplication>
#include <QTimer>
#include <memory>

#include "analysis/JointEquations.h"
#include "app/HelpTopics.h"
#include "app/MainForm.h"
#include "explanation/RoundingText.h"
#include "reports/JointEquationsPanel.h"
#include "reports/PrintableReportWindow.h"
#include "reports/ReportWindow.h"

// A report is of the truss as it was analysed, and outside Step 3 that may change.
void MainForm::CloseReport() {
  if (report_->isActiveWindow()) activateWindow();
  report_->hide();
  report_->Clear();
  reasons_.reset();
  shownAnalysis_.reset();
}

void MainForm::ShowJointEquations(LabelIndex label) {
  const CountedJoint* joint = JointWithLabel(shownAnalysis_->Counted, label);
  if (joint == nullptr) return;
  const JointEquations equations(on_.Document, on_.Numbers);
  jointPanel_->ShowEquations(joint->Name.String(), equations.ReportOnJoint(*joint));
}

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
      report_->LoadGridWithRREF(*shownAnalysis_, sigFigs);
      break;
    case ReportKind::Solutions:
      report_->LoadGridWithSolutions(*shownAnalysis_, sigFigs);
      break;
  }
  ShowNotice();
  BringUpReport();
}

// Below a conclusion; as soon as it is known, which takes as long as the elimination.
void MainForm::ShowNotice() {
  constexpr int interval = 50;  // milliseconds
  if (!reasons_ || !IsConclusion(shownReport_)) return;
  if (reasons_->HasRounded()) return report_->ShowNotice(Notice());
  report_->ShowNotice(RoundingIsComing);
  QTimer::singleShot(interval, this, [this, asked = std::weak_ptr(reasons_)] {
    if (asked.lock() == reasons_) ShowNotice();
  });
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

void MainForm::ShowHelpOnReport() {
  if (!shownAnalysis_) return ShowHelpOnStep();
  const bool owesToRounding = IsConclusion(shownReport_) && !Notice().empty();
  ShowHelp(HelpTopicForReport(shownReport_, *shownAnalysis_, owesToRounding));
}
