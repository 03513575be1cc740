#include "app/LearnMenu.h"

#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <algorithm>
#include <utility>

#include "app/ExplanationReport.h"
#include "app/HelpTopics.h"
#include "canvas/CanvasWidget.h"
#include "explanation/ChecksWindow.h"
#include "explanation/LearnWindow.h"
#include "explanation/WhyWindow.h"
#include "explanation/byjoint/ByJointWindow.h"
#include "explanation/forces/ForcesWindow.h"
#include "explanation/steps/StepsWindow.h"
#include "platform/qt/WindowInFront.h"
#include "practice/ExerciseWindow.h"
#include "practice/TryWindow.h"

namespace {

// Milliseconds. While a member is dragged the drawing changes with every movement of the mouse.
constexpr int RecheckDelay = 150;

constexpr const char* TitleInStep3 = "Lear&n";

}  // namespace

const char* LearnMenuStatusText(int step, bool hasUnknowns) {
  if (step != 3)
    return " What explains the results: only in Step 3, where the reports are. Check the drawing: always ";
  if (!hasUnknowns)
    return " What explains the results: only for a truss with an unknown force, and this has none ";
  return " Learn how the results come about, or check the drawing for oversights ";
}

// In the order of the menu: who adds a window adds its entry here.
std::vector<LearnMenu::Entry> LearnMenu::AllEntries() const {
  std::vector<Entry> entries;
  // Before anything that shows values.
  entries.push_back(
      {.Name = "mnuLearnTry",
       .Caption = "&Try it yourself",
       .ToolTip = "Boxes for the forces that you have found; says what is right, and gives hints",
       .HelpTopic = TryHelpTopic,
       .Sizes = TrySizes,
       .Make = [this] { return MakeLitUp<TryWindow>(); }});
  entries.push_back({.Name = "mnuLearnWhy",
                     .Caption = "&Why this conclusion",
                     .ToolTip = "The exact verdict and its reasons, with the motions of the truss",
                     .HelpTopic = WhyHelpTopic,
                     .Sizes = ExplanationSizes,
                     .Make = [this] { return std::make_unique<WhyWindow>(on_.Animation); }});
  entries.push_back({.Name = "mnuLearnForces",
                     .Caption = "&Forces on the truss",
                     .ToolTip = "The truss with compression, tension and the size of each force",
                     .HelpTopic = ForcesHelpTopic,
                     .Sizes = ForcesSizes,
                     .Make = [] { return std::make_unique<ForcesWindow>(); }});
  entries.push_back({.Name = "mnuLearnSteps",
                     .Caption = "&Elimination, step by step",
                     .ToolTip = "How the reduced matrix comes out of the equations, operation by operation",
                     .HelpTopic = StepsHelpTopic,
                     .Sizes = StepsSizes,
                     .Make = [this] { return std::make_unique<StepsWindow>(on_.Animation); }});
  entries.push_back({.Name = "mnuLearnByJoint",
                     .Caption = "&Joint by joint",
                     .ToolTip = "The forces as they are found by hand: reactions, joints, sections",
                     .HelpTopic = ByJointHelpTopic,
                     .Sizes = ByJointSizes,
                     .Make = [this] { return MakeLitUp<ByJointWindow>(); }});
  entries.push_back({.Name = "mnuLearnExercise",
                     .Caption = "E&xercise sheets",
                     .ToolTip = "For lecturers: this truss under other loads, for each student",
                     .HelpTopic = ExerciseHelpTopic,
                     .Sizes = ExerciseSizes,
                     .Make = [this] {
                       return std::make_unique<ExerciseWindow>(ExerciseWindow::Partners{
                           .Chooser = on_.Chooser, .Messages = on_.Messages, .Directory = on_.Directory});
                     }});
  return entries;
}

template <class Window>
std::unique_ptr<LearnWindow> LearnMenu::MakeLitUp() const {
  auto window = std::make_unique<Window>();
  connect(window.get(), &Window::PlaceChosen, this, [this](float x, float y) {
    on_.Canvas.PointAt(PixelPoint{x, y});
  });
  connect(window.get(), &Window::PlaceLeft, this, [this] { on_.Canvas.PointAt(std::nullopt); });
  return window;
}

LearnMenu::LearnMenu(const Partners& partners, QMenuBar& bar)
    : on_(partners),
      mainWindow_(*bar.window()),
      entries_(AllEntries()),
      checks_(std::make_unique<ChecksWindow>()),
      mnuLearn_(bar.addMenu(QString())) {
  mnuLearn_->setObjectName(QStringLiteral("mnuLearn"));
  mnuLearn_->setToolTipsVisible(true);
  for (Entry& entry : entries_) AddEntry(entry);
  QAction* check = mnuLearn_->addAction(QStringLiteral("&Check the drawing"), this, &LearnMenu::ShowChecks);
  check->setObjectName(QStringLiteral("mnuLearnCheck"));
  check->setToolTip(
      QStringLiteral("What may be an oversight: ends that nearly meet, members on one another ..."));
  connect(mnuLearn_, &QMenu::aboutToShow, this,
          [this] { Q_EMIT HintShown(LearnMenuStatusText(step_, reasons_ != nullptr)); });
  connect(mnuLearn_, &QMenu::aboutToHide, this, &LearnMenu::HintGone);

  connect(checks_.get(), &ChecksWindow::PlaceChosen, this, [this](float x, float y) {
    on_.Canvas.PointAt(PixelPoint{x, y});
  });
  connect(checks_.get(), &ChecksWindow::PlaceLeft, this, [this] { on_.Canvas.PointAt(std::nullopt); });
  recheck_.setSingleShot(true);
  recheck_.setInterval(RecheckDelay);
  connect(&recheck_, &QTimer::timeout, this, [this] {
    if (checks_->isVisible()) Check();
  });
  OfferHelp(*checks_, ChecksHelpTopic);
  ShowMessagesOver(mainWindow_, *checks_);
  EnterStep(1, {});
}

LearnMenu::~LearnMenu() = default;

void LearnMenu::AddEntry(Entry& entry) {
  entry.Action =
      mnuLearn_->addAction(QString::fromLatin1(entry.Caption), this, [this, &entry] { Show(entry); });
  entry.Action->setObjectName(QString::fromLatin1(entry.Name));
}

void LearnMenu::EnterStep(int step, std::shared_ptr<ExplanationOnDemand> reasons) {
  step_ = step;
  if (reasons != reasons_) {
    reasons_ = std::move(reasons);
    for (Entry& entry : entries_) Forget(entry);
  }
  // Its letter must be that of no button of the step: Step 3 has Solutions, the others Next.
  mnuLearn_->setTitle(QString::fromLatin1(step == 3 ? TitleInStep3 : "&Learn"));
  const bool explains = step == 3 && reasons_ != nullptr;
  const QString hint = QString::fromLatin1(LearnMenuStatusText(step, reasons_ != nullptr)).trimmed();
  for (const Entry& entry : entries_) {
    entry.Action->setEnabled(explains);
    entry.Action->setToolTip(explains ? QString::fromLatin1(entry.ToolTip) : hint);
  }
  FollowDrawing();
}

// Closes the window and empties it.
void LearnMenu::Forget(Entry& entry) const {
  entry.IsWritten = false;
  if (!entry.Window) return;
  if (entry.Window->isActiveWindow()) mainWindow_.activateWindow();
  entry.Window->hide();
  entry.Window->Clear();
}

void LearnMenu::FollowDrawing() {
  if (checks_->isVisible()) recheck_.start();
}

QKeySequence LearnMenu::KeyInStep3() { return QKeySequence::mnemonic(QString::fromLatin1(TitleInStep3)); }

void LearnMenu::OpenAt(QWidget& window) {
  const QList<QAction*> actions = mnuLearn_->actions();
  mnuLearn_->popup(window.mapToGlobal(QPoint()));
  const auto first = std::ranges::find_if(actions, &QAction::isEnabled);
  if (first != actions.end()) mnuLearn_->setActiveAction(*first);
}

void LearnMenu::Close() {
  for (const Entry& entry : entries_) {
    if (entry.Window) entry.Window->close();
  }
  checks_->close();
}

void LearnMenu::Show(Entry& entry) {
  if (!reasons_) return;
  if (!entry.Window) {
    entry.Window = entry.Make();
    OfferHelp(*entry.Window, entry.HelpTopic);
    ShowMessagesOver(mainWindow_, *entry.Window);
  }
  if (!entry.IsWritten) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    entry.Window->ShowSubject({.Document = std::make_shared<const Truss>(on_.Document),
                               .Reasons = reasons_,
                               .Format = {on_.Document.Settings.SigFigs, on_.Numbers},
                               .Points = on_.Document.Settings.ReportFontSize});
    QGuiApplication::restoreOverrideCursor();
    entry.IsWritten = true;
  }
  LearnWindow& window = *entry.Window;
  entry.Place.BringUp(
      window, [&] { on_.PlaceBeside(window, entry.Sizes, OthersThan(window)); }, [&] { window.BringUp(); });
}

std::vector<const QWidget*> LearnMenu::OthersThan(const QWidget& window) const {
  std::vector<const QWidget*> others;
  for (const Entry& entry : entries_) {
    if (entry.Window && entry.Window.get() != &window) others.push_back(entry.Window.get());
  }
  if (checks_.get() != &window) others.push_back(checks_.get());
  return others;
}

void LearnMenu::ShowChecks() {
  Check();
  checksPlace_.BringUp(
      *checks_, [this] { on_.PlaceBeside(*checks_, ChecksSizes, OthersThan(*checks_)); },
      [this] { checks_->BringUp(); });
}

void LearnMenu::Check() {
  const DrawnWhere where =
      DrawnOn(on_.Bounds, on_.Canvas.Shown().Mapping, static_cast<float>(on_.Canvas.width()),
              static_cast<float>(on_.Canvas.height()));
  checks_->ShowChecks(CheckDrawing(on_.Document, where, {on_.Document.Settings.SigFigs, on_.Numbers}),
                      on_.Document.Settings.ReportFontSize);
}

void LearnMenu::OfferHelp(QWidget& window, const char* topic) {
  auto* help = new QShortcut(QKeySequence::HelpContents, &window);
  connect(help, &QShortcut::activated, this, [this, topic] { on_.ShowHelp(topic); });
}
