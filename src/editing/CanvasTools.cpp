#include "editing/CanvasTools.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include "editing/ElementPress.h"
#include "platform/qt/AccessibleEvents.h"
#include "platform/qt/QtText.h"

namespace {

Qt::CursorShape CursorOf(PointerShape pointer) {
  switch (pointer) {
    case PointerShape::Cross:
      return Qt::CrossCursor;
    case PointerShape::PointingHand:
      return Qt::PointingHandCursor;
    case PointerShape::FourWay:
      return Qt::SizeAllCursor;
    case PointerShape::Default:
      break;
  }
  return Qt::ArrowCursor;
}

MouseButton ButtonOf(const QMouseEvent& event) {
  return event.button() == Qt::LeftButton ? MouseButton::Left : MouseButton::Other;
}

}  // namespace

CanvasTools::CanvasTools(const Partners& partners)
    : on_(partners),
      valueEditor_(ValueEditor::Partners{on_.Document, on_.Picture, on_.Messages, on_.Numbers,
                                         [this] { on_.Redraw(); }}),
      mouse_(Context()),
      cursor_(mouse_, on_.Document, on_.Picture),
      memberFrame_(MemberKind, valueEditor_, &on_.Canvas),
      forceFrame_(ForceKind, valueEditor_, &on_.Canvas) {
  on_.Canvas.installEventFilter(this);
  for (ValueEditorFrame* frame : {&memberFrame_, &forceFrame_}) {
    connect(frame, &ValueEditorFrame::EditorChanged, this, [this] {
      on_.Canvas.ShowDrawing();
      ShowState();
    });
    connect(frame, &ValueEditorFrame::ValuesStored, this, [this, kind = frame->Kind()] {
      const Element changed{kind == MemberKind ? ElementKind::Member : ElementKind::Force,
                            valueEditor_.Index()};
      if (IsSomebodyListening()) Tell("now " + InWords(on_.Document, changed, on_.Numbers.DecimalSeparator));
    });
  }
}

EditingContext CanvasTools::Context() {
  return EditingContext{
      .Document = on_.Document,
      .Picture = on_.Picture,
      .Tools = on_.Tools,
      .Messages = on_.Messages,
      .ValueEditor = valueEditor_,
      .Numbers = on_.Numbers,
      .Redraw = [this] { on_.Redraw(); },
      .ShowDrawing = [this] { on_.Canvas.ShowDrawing(); },
      .PaintBacking = [this](const std::function<void(Surface&)>& paint) { on_.Canvas.PaintBacking(paint); },
      .IsOnCanvas = [this](float x, float y) { return IsInRoom(x, y); },
  };
}

bool CanvasTools::IsInRoom(float x, float y) const {
  const QRectF room = room_.isValid() ? room_ : on_.Canvas.rect();
  return double{x} >= room.left() && double{x} < room.right() && double{y} >= room.top() &&
         double{y} < room.bottom();
}

void CanvasTools::SetActive(bool active) {
  if (!active) Cancel();
  memberFrame_.ForgetPlace();
  forceFrame_.ForgetPlace();
  active_ = active;
  if (!active) {
    cursor_.Hide();
    on_.Canvas.unsetCursor();
    Q_EMIT ReadOutChanged(QString());
  }
  ShowState();
}

void CanvasTools::Cancel() {
  mouse_.Cancel();
  ShowState();
}

void CanvasTools::SelectTool(int tool) {
  mouse_.SelectTool(tool);
  on_.Canvas.ShowDrawing();
  ShowState();
}

bool CanvasTools::ChooseTool(int digit) {
  if (!active_ || !cursor_.ChooseTool(digit)) return false;
  Q_EMIT ToolChosen(digit);
  ShowAfterKey();
  Tell(std::string(ToolName(digit)) + " Tool");
  return true;
}

void CanvasTools::SetRoom(const QRect& room) {
  room_ = room;
  memberFrame_.SetRoom(room);
  forceFrame_.SetRoom(room);
}

void CanvasTools::ShowState() {
  memberFrame_.ShowEditor();
  forceFrame_.ShowEditor();
  const PixelPoint place = cursor_.Position();
  on_.Canvas.ShowKeyboardCursor(active_ && cursor_.IsVisible()
                                    ? std::optional(QPointF(double{place.X}, double{place.Y}))
                                    : std::nullopt);
  if (!active_) return;
  on_.Canvas.setCursor(CursorOf(mouse_.Pointer()));
  Q_EMIT ReadOutChanged(ToQt(mouse_.ReadOut()));
}

bool CanvasTools::eventFilter(QObject* watched, QEvent* event) {
  if (watched != &on_.Canvas || !active_) return QObject::eventFilter(watched, event);
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
      return HandleMouse(event);
    case QEvent::KeyPress:
      return HandleKey(static_cast<QKeyEvent*>(event));
    case QEvent::FocusOut:
      Cancel();
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

bool CanvasTools::HandleMouse(QEvent* event) {
  const auto& mouse = *static_cast<QMouseEvent*>(event);
  const auto x = static_cast<float>(mouse.position().x());
  const auto y = static_cast<float>(mouse.position().y());
  cursor_.FollowMouse(x, y);
  if (event->type() == QEvent::MouseMove) {
    mouse_.MouseMove(mouse.buttons().testFlag(Qt::LeftButton), x, y);
  } else if (event->type() == QEvent::MouseButtonRelease) {
    mouse_.MouseUp(ButtonOf(mouse), x, y);
  } else {
    Q_EMIT WorkBegan();
    on_.Canvas.setFocus(Qt::MouseFocusReason);
    if (event->type() == QEvent::MouseButtonDblClick) {
      mouse_.MouseDoubleClick(ButtonOf(mouse), x, y);
    } else {
      mouse_.MouseDown(ButtonOf(mouse), x, y);
    }
  }
  ShowState();
  return true;
}

bool CanvasTools::HandleArrow(QKeyEvent* event) {
  const bool onePixel = event->modifiers().testFlag(Qt::ShiftModifier);
  switch (event->key()) {
    case Qt::Key_Left:
      cursor_.Move(ArrowKey::Left, onePixel);
      return true;
    case Qt::Key_Right:
      cursor_.Move(ArrowKey::Right, onePixel);
      return true;
    case Qt::Key_Up:
      cursor_.Move(ArrowKey::Up, onePixel);
      return true;
    case Qt::Key_Down:
      cursor_.Move(ArrowKey::Down, onePixel);
      return true;
    default:
      return false;
  }
}

bool CanvasTools::HandleKey(QKeyEvent* event) {
  const bool altOrControl = event->modifiers().testAnyFlags(Qt::AltModifier | Qt::ControlModifier);
  if (altOrControl) return false;
  const int key = event->key();
  if (HandleArrow(event)) {
    ShowAfterKey();
    if (IsSomebodyListening()) Tell(CursorWords());
    return true;
  }
  if (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) {
    if (event->isAutoRepeat()) {
      Q_EMIT WorkBegan();
    } else {
      PressAtCursor();
    }
    return true;
  }
  if (key == Qt::Key_Escape) {
    const bool wasDragging = mouse_.IsDragging();
    cursor_.Escape();
    ShowAfterKey();
    if (wasDragging) Tell("cancelled");
    return true;
  }
  return key >= Qt::Key_0 && key <= Qt::Key_9 && ChooseTool(key - Qt::Key_0);
}

void CanvasTools::ShowAfterKey() {
  on_.Canvas.ShowDrawing();
  ShowState();
}

// --- without a mouse, and without seeing

std::optional<PixelPoint> CanvasTools::PlaceToPress(const Element& element) const {
  if (!active_) return std::nullopt;
  return ::PlaceToPress(on_.Document, on_.Picture, on_.Tools.Selected(), mouse_.IsDragging(), element);
}

void CanvasTools::Press(const Element& element) {
  const auto place = PlaceToPress(element);
  if (!place) return;
  cursor_.MoveTo(*place);
  PressAtCursor();
}

void CanvasTools::MoveCursorTo(const Element& element) {
  const auto place = PlaceToPress(element);
  if (!place) return;
  cursor_.MoveTo(*place);
  ShowAfterKey();
}

void CanvasTools::MoveCursor(float x, float y) {
  if (!active_) return;
  cursor_.MoveTo({on_.Picture.Mapping.XPixel(x), on_.Picture.Mapping.YPixel(y)});
  ShowAfterKey();
  if (IsSomebodyListening()) Tell(CursorWords());
}

CanvasAccess::Place CanvasTools::CursorPlace() const {
  const PixelPoint cursor = cursor_.Position();
  if (const auto point = mouse_.LocationOf(cursor)) return {point->X, point->Y};
  return {on_.Picture.Mapping.XWorld(cursor.X), on_.Picture.Mapping.YWorld(cursor.Y)};
}

void CanvasTools::PressAtCursor() {
  if (!active_) return;
  Q_EMIT WorkBegan();
  // While something is dragged, the truss is not what it was before it.
  if (IsSomebodyListening() && !mouse_.IsDragging()) beforePress_.emplace(on_.Document);
  cursor_.PressOrRelease();
  ShowAfterKey();
  if (!beforePress_) return;
  Tell(PressInWords(*beforePress_, on_.Document, on_.Picture, mouse_, on_.Tools.Selected(),
                    cursor_.Position(), on_.Numbers.DecimalSeparator));
  if (!mouse_.IsDragging()) beforePress_.reset();
}

std::string CanvasTools::CursorWords() const {
  if (!active_ || !cursor_.IsVisible()) return {};
  return CursorInWords(on_.Document, on_.Picture, mouse_, on_.Tools.Selected(), cursor_.Position(),
                       on_.Numbers.DecimalSeparator);
}

void CanvasTools::Tell(const std::string& words) { Announce(on_.Canvas, OneLineText(ToQt(words))); }
