#include "explanation/forces/ForcesView.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "explanation/forces/PaintForces.h"
#include "platform/qt/QtSurface.h"
#include "platform/qt/QtText.h"

namespace {

constexpr double ZoomStep = 1.25;
constexpr double WheelStep = 120;  // of a wheel's usual step, eighths of a degree
constexpr double PanStep = 40;     // of an arrow key, pixels
constexpr float Reach = 6;         // of a click, pixels

// Of what is marked, from the edge, pixels.
constexpr double MarginOfMark = 40;

}  // namespace

ForcesView::ForcesView(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(160, 120);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setCursor(Qt::OpenHandCursor);
}

QSize ForcesView::sizeHint() const { return {560, 420}; }

void ForcesView::Show(std::shared_ptr<const ShownForces> shown) {
  shown_ = std::move(shown);
  zoom_ = 1;
  pan_ = {};
  marked_ = 0;
  DrawAnew();
}

void ForcesView::SwapHues(bool swapped) {
  huesAreSwapped_ = swapped;
  update();
}

void ForcesView::Mark(int unknown) {
  marked_ = unknown;
  update();
  if (!drawn_) return;
  const std::optional<PixelRect> place = PlaceOf(*drawn_, shown_->Forces, unknown);
  if (!place) return;
  const PixelRect room = Room();
  const auto step = [](double low, double high, double from, double to, double pan) {
    const double margin = std::min(MarginOfMark, (to - from) / 4);
    if (low + pan >= from && high + pan <= to) return 0.0;
    const double middle = (low + high) / 2 + pan;
    if (high - low > to - from) return (from + to) / 2 - middle;
    return low + pan < from ? from + margin - (low + pan) : to - margin - (high + pan);
  };
  PanBy({step(place->Left, place->Right, room.Left, room.Right, pan_.x()),
         step(place->Top, place->Bottom, room.Top, room.Bottom, pan_.y())});
}

void ForcesView::ZoomIn() { ZoomTo(zoom_ * ZoomStep, rect().center()); }
void ForcesView::ZoomOut() { ZoomTo(zoom_ / ZoomStep, rect().center()); }

void ForcesView::ShowWhole() {
  zoom_ = 1;
  pan_ = {};
  DrawAnew();
}

bool ForcesView::MayZoomIn() const { return shown_ && zoom_ < LargestZoom(shown_->Forces, Room()); }

bool ForcesView::IsOnDarkPaper() const { return palette().color(QPalette::Base).lightness() < 128; }

// The legend stands below the drawing.
PixelRect ForcesView::Room() const {
  const float bottom = std::max(1.0F, static_cast<float>(height()) - legend_.Height);
  return {0, 0, static_cast<float>(width()), bottom};
}

void ForcesView::DrawAnew() {
  drawn_.reset();
  legend_ = {};
  if (shown_) {
    const TextMeasure measure = [this](const TextFont& font, std::string_view text) {
      return measure_.Measure(font, text);
    };
    legend_ = LayOutLegend(WordForUnknown(shown_->Forces), RemarksOn(shown_->Forces),
                           static_cast<float>(width()), shown_->Points, measure);
    zoom_ = std::clamp(zoom_, 1.0, LargestZoom(shown_->Forces, Room()));
    drawn_ = DrawForces({.Document = *shown_->Document, .Forces = shown_->Forces, .Points = shown_->Points},
                        Room(), zoom_, measure);
    PanBy({});
  }
  update();
  Q_EMIT DrawnAnew();
}

// What is at a place of the widget stays there.
void ForcesView::ZoomTo(double zoom, QPointF at) {
  if (!shown_) return;
  const PixelRect room = Room();
  const double larger = std::clamp(zoom, 1.0, LargestZoom(shown_->Forces, room));
  const QPointF middle(double{room.Width()} / 2, double{room.Height()} / 2);
  pan_ = at - middle - (at - middle - pan_) * (larger / zoom_);
  zoom_ = larger;
  DrawAnew();
}

// Not so far that the drawing is out of sight.
void ForcesView::PanBy(QPointF step) {
  const PixelRect room = Room();
  const double farthestX = zoom_ * double{room.Width()} / 2;
  const double farthestY = zoom_ * double{room.Height()} / 2;
  pan_ = {std::clamp(pan_.x() + step.x(), -farthestX, farthestX),
          std::clamp(pan_.y() + step.y(), -farthestY, farthestY)};
  update();
}

PixelPoint ForcesView::OnDrawing(QPointF at) const {
  return {static_cast<float>(at.x() - pan_.x()), static_cast<float>(at.y() - pan_.y())};
}

bool ForcesView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || !drawn_) return QWidget::event(event);
  const auto* help = static_cast<const QHelpEvent*>(event);
  const int unknown = UnknownAt(*drawn_, OnDrawing(help->pos()), Reach);
  if (unknown == 0) {
    QToolTip::hideText();
  } else {
    QStringList lines;
    for (const std::string& line : shown_->Forces.Unknowns[unknown].Lines) lines.append(ToQt(line));
    QToolTip::showText(help->globalPos(), PlainToolTip(lines.join(u' ')), this);
  }
  return true;
}

void ForcesView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const PaletteColours& colours = IsOnDarkPaper() ? DarkPalette : Palette;
  QtSurface(painter, QRectF(rect()), colours).Clear();
  if (!drawn_) return;
  const PixelRect room = Room();
  const ForcesLook look{.HuesAreSwapped = huesAreSwapped_, .Marked = marked_};
  {
    painter.save();
    painter.setClipRect(QRectF(0, 0, double{room.Right}, double{room.Bottom}));
    painter.translate(pan_);
    QtSurface surface(painter, QRectF(rect()), colours);
    ForcesLook seen = look;
    const PixelPoint topLeft = OnDrawing({0, 0});
    seen.Visible = {topLeft.X, topLeft.Y, topLeft.X + room.Width(), topLeft.Y + room.Height()};
    PaintForces(surface, *drawn_, seen);
    painter.restore();
  }
  QtSurface surface(painter, QRectF(rect()), colours);
  PaintLegend(surface, legend_, {0, room.Bottom}, look);
  if (!hasFocus()) return;
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void ForcesView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  DrawAnew();
}

void ForcesView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) update();
}

void ForcesView::wheelEvent(QWheelEvent* event) {
  const double steps = event->angleDelta().y() / WheelStep;
  if (steps != 0) ZoomTo(zoom_ * std::pow(ZoomStep, std::clamp(steps, -8.0, 8.0)), event->position());
  event->accept();
}

void ForcesView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  pressedAt_ = event->position();
  dragged_ = false;
}

void ForcesView::mouseMoveEvent(QMouseEvent* event) {
  if (!pressedAt_) return;
  const QPointF step = event->position() - *pressedAt_;
  if (!dragged_ && step.manhattanLength() < QApplication::startDragDistance()) return;
  if (!dragged_) setCursor(Qt::ClosedHandCursor);
  dragged_ = true;
  pressedAt_ = event->position();
  PanBy(step);
}

void ForcesView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !pressedAt_) return;
  pressedAt_.reset();
  setCursor(Qt::OpenHandCursor);
  if (!dragged_ && drawn_) Q_EMIT Clicked(UnknownAt(*drawn_, OnDrawing(event->position()), Reach));
}

// An arrow key looks at what lies on its side.
void ForcesView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
      PanBy({PanStep, 0});
      break;
    case Qt::Key_Right:
      PanBy({-PanStep, 0});
      break;
    case Qt::Key_Up:
      PanBy({0, PanStep});
      break;
    case Qt::Key_Down:
      PanBy({0, -PanStep});
      break;
    default:
      QWidget::keyPressEvent(event);
  }
}

void ForcesView::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void ForcesView::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}
