// See the header.
#include "app/LearnMenu.h"

#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <utility>

#include "app/ExplanationReport.h"
#include "app/HelpTopics.h"
#include "canvas/CanvasWidget.h"
#include "explanation/ChecksWindow.h"
#include "explanation/WhyWindow.h"
#include "platform/qt/WindowInFront.h"

namespace {

// Milliseconds. While a member is dragged the drawing changes with every movement of the mouse.
constexpr int RecheckDelay = 150;

}  // namespace

const char* LearnMenuStatusText(int step, bool hasUnknowns) {
  if (step != 3)
    return " Why this conclusion: only in Step 3, where the reports are. Check the drawing: always ";
  if (!hasUnknowns) return " Why this conclusion: only for a truss with an unknown force, and this has none ";
  return " Learn why the conclusion is what it is, or check the drawing for oversights ";
}

LearnMenu::LearnMenu(const Partners& partners, QMenuBar& bar)
    : on_(partners),
      why_(std::make_unique<WhyWindow>(on_.Animation)),
      checks_(std::make_unique<ChecksWindow>()),
      mnuLearn_(bar.addMenu(QString())),
      mnuLearnWhy_(nullptr) {
  mnuLearn_->setObjectName(QStringLiteral("mnuLearn"));
  mnuLearn_->setToolTipsVisible(true);
  mnuLearnWhy_ = mnuLearn_->addAction(QStringLiteral("&Why this conclusion"), this, &LearnMenu::ShowWhy);
  mnuLearnWhy_->setObjectName(QStringLiteral("mnuLearnWhy"));
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
  OfferHelp(*why_, WhyHelpTopic);
  OfferHelp(*checks_, ChecksHelpTopic);
  for (QWidget* window : std::initializer_list<QWidget*>{why_.get(), checks_.get()})
    ShowMessagesOver(*bar.window(), *window);
  EnterStep(1, {});
}

LearnMenu::~LearnMenu() = default;

void LearnMenu::EnterStep(int step, std::shared_ptr<ExplanationOnDemand> reasons) {
  step_ = step;
  if (reasons != reasons_) {
    reasons_ = std::move(reasons);
    whyIsWritten_ = false;
    if (why_->isActiveWindow()) on_.Canvas.window()->activateWindow();
    why_->hide();
    why_->Clear();
  }
  // Its letter must be that of no button of the step: Step 3 has Solutions, the others Next.
  mnuLearn_->setTitle(step == 3 ? QStringLiteral("Lear&n") : QStringLiteral("&Learn"));
  mnuLearnWhy_->setEnabled(step == 3 && reasons_ != nullptr);
  const QString hint = QString::fromLatin1(LearnMenuStatusText(step, reasons_ != nullptr)).trimmed();
  mnuLearnWhy_->setStatusTip(hint);
  mnuLearnWhy_->setToolTip(
      mnuLearnWhy_->isEnabled()
          ? QStringLiteral("The exact verdict and its reasons, with the motions of the truss")
          : hint);
  FollowDrawing();
}

void LearnMenu::FollowDrawing() {
  if (checks_->isVisible()) recheck_.start();
}

void LearnMenu::Close() {
  why_->close();
  checks_->close();
}

void LearnMenu::ShowWhy() {
  if (!reasons_) return;
  if (!whyIsWritten_) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    why_->ShowExplanation(std::make_shared<const Truss>(on_.Document),
                          std::shared_ptr<const Explanation>(reasons_, &reasons_->Whole()),
                          {on_.Document.Settings.SigFigs, on_.Numbers}, on_.Document.Settings.ReportFontSize);
    QGuiApplication::restoreOverrideCursor();
    whyIsWritten_ = true;
  }
  whyPlace_.BringUp(
      *why_, [this] { on_.PlaceBeside(*why_, ExplanationSizes, *checks_); }, [this] { why_->BringUp(); });
}

void LearnMenu::ShowChecks() {
  Check();
  checksPlace_.BringUp(
      *checks_, [this] { on_.PlaceBeside(*checks_, ChecksSizes, *why_); }, [this] { checks_->BringUp(); });
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
