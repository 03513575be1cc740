// Where everything stands in the main window, and where the windows stand on the screen.
#include <QLayout>
#include <QMenuBar>
#include <QStatusBar>

#include "app/InstructionFrame.h"
#include "app/MainForm.h"
#include "app/ReportPlace.h"
#include "app/StatusPanel.h"
#include "platform/qt/FittedText.h"
#include "platform/qt/ScreenRoom.h"
#include "reports/JointEquationsPanel.h"
#include "reports/ReportWindow.h"

namespace {

constexpr int StartWidth = 566;  // pixels: 8490 twips
constexpr int StartHeight = 600;
constexpr int SmallestLayout = 200;   // pixels; a smaller window is left as it is
constexpr int InstructionMargin = 8;  // pixels left free around the instructions

ScreenBox BoxOf(const QRect& rect) { return {rect.left(), rect.top(), rect.width(), rect.height()}; }

}  // namespace

void MainForm::PlaceOnScreen() {
  const QRect room = FrameRoom(*this);
  const QMargins frame = FrameMargins(*this);
  const int top = room.top() + room.height() / 20;
  resize(std::min(StartWidth, room.width()),
         std::min(StartHeight, room.bottom() + 1 - top - frame.top() - frame.bottom()));
  move(room.left() + (room.width() - width()) / 2, top);
  PlaceReport();
}

QRect MainForm::InnerPlace() const {
  const QMargins frame = FrameMargins(*this);
  return {pos() + QPoint(frame.left(), frame.top()), size()};
}

int MainForm::PanelBottom() const {
  return InnerPlace().top() + menuBar()->sizeHint().height() + StepPanelHeight;
}

void MainForm::PlaceReport() {
  const QMargins frame = FrameMargins(*this);
  const ScreenBox place =
      PlaceOfReport(BoxOf(FrameRoom(*this)), BoxOf(InnerPlace().marginsAdded(frame)), PanelBottom());
  report_->resize(place.Width - frame.left() - frame.right(), place.Height - frame.top() - frame.bottom());
  report_->move(place.Left, place.Top);
  reportPlace_.Placed(*report_);
}

void MainForm::BringUpReport() {
  reportPlace_.BringUp(
      *report_, [this] { PlaceReport(); }, [this] { report_->BringUp(); });
}

void MainForm::PlaceBesideReport(QWidget& window, const ReportSizes& sizes,
                                 const std::vector<const QWidget*>& windows) {
  const QMargins frame = FrameMargins(*this);
  std::vector<ScreenBox> others;
  if (report_->isVisible()) others.push_back(BoxOf(report_->frameGeometry()));
  for (const QWidget* other : windows) {
    if (other->isVisible()) others.push_back(BoxOf(other->frameGeometry()));
  }
  const ScreenBox place = PlaceOfExplanation(BoxOf(FrameRoom(*this)), BoxOf(InnerPlace().marginsAdded(frame)),
                                             others, PanelBottom(), sizes);
  window.resize(place.Width - frame.left() - frame.right(), place.Height - frame.top() - frame.bottom());
  window.move(place.Left, place.Top);
}

void MainForm::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  Layout();
}

void MainForm::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
  // The menu bar and the status bar get the event after this.
  QMetaObject::invokeMethod(this, &MainForm::FollowLetters, Qt::QueuedConnection);
}

void MainForm::FollowLetters() {
  menuBar()->updateGeometry();
  layout()->invalidate();
  layout()->activate();
  Layout();
  layout()->activate();  // the status bar may be higher now
}

void MainForm::Layout() {
  tool_->Cancel();
  const int width = centralWidget()->width();
  const int height = centralWidget()->height() + statusBar()->height();
  if (width < SmallestLayout || height < SmallestLayout) return;

  statusBar()->setFixedHeight(StatusBarHeight(statusBar()->font(), width - 140, height));
  PlaceInstructions(QSize(width, height));
  const int canvasHeight = height - statusBar()->height();
  picDraw_->setGeometry(0, 0, width + 1, canvasHeight);
  for (QWidget* panel : std::initializer_list<QWidget*>{picToolBox_, picStep2_, picStep3_}) {
    panel->setGeometry(0, 0, width + 1, StepPanelHeight);
  }
  statusPanels_[0]->Place(0, width - 140);
  statusPanels_[1]->Place(width - 140, 120);
  FitStepButtons({picToolBox_, picStep2_, picStep3_}, font());
  for (const StepNavigation& navigation : navigation_) navigation.Layout(width, font());

  bounds_ = CanvasBounds{.PixL = 48,
                         .PixR = static_cast<float>(width - 52),
                         .PixT = 70,
                         .PixB = static_cast<float>(canvasHeight - 33)};
  on_.Document.View = DeriveView(on_.Document.Settings, bounds_);
  const QRect panelRoom(0, StepPanelHeight, width, canvasHeight - StepPanelHeight);
  tool_->SetRoom(panelRoom);
  jointPanel_->SetRoom(panelRoom);
  Redraw();
  if (steps_.Current() != 2) return;
  // Other names may lie outside the drawing now.
  status_.RenewStep(StepText());
  ShowStatus();
}

// They stand in the middle of the inner area, and end above the status bar.
void MainForm::PlaceInstructions(QSize inner) {
  const int below = std::max(InstructionMargin, statusBar()->height());
  frInstruct1_->FitInto(inner - QSize(2 * InstructionMargin, 2 * below), font());
  frInstruct1_->move((inner.width() - frInstruct1_->width()) / 2,
                     (inner.height() - frInstruct1_->height()) / 2);
}
