#include "editing/ToolBox.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <algorithm>

#include "editing/ToolPicture.h"
#include "platform/qt/AccessibleRole.h"

namespace {

constexpr int ButtonSize = 32;
constexpr int LeftMargin = 4;
constexpr int TopMargin = 6;
constexpr int FocusWidth = 2;

// The picture covers the whole button, so that the mark of the keys goes over it; in the colour of its
// letters, which stands out from the button and from what is around it in every theme.
class ToolButton final : public QToolButton {
 public:
  using QToolButton::QToolButton;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QToolButton::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.setPen(
        QPen(palette().color(QPalette::ButtonText), FocusWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(rect().adjusted(FocusWidth / 2, FocusWidth / 2, -FocusWidth / 2, -FocusWidth / 2));
  }
};

}  // namespace

ToolBox::ToolBox(ToolPalette& palette, QWidget* parent) : QFrame(parent), palette_(palette) {
  setObjectName(QStringLiteral("picToolBox"));
  SetAccessibleRole(*this, QAccessible::Grouping);
  setAccessibleName(QStringLiteral("Tools"));
  for (int tool = 1; tool <= NumTools; ++tool) {
    auto* button = new ToolButton(this);
    buttons_[static_cast<std::size_t>(tool - 1)] = button;
    const QString name = QString::fromLatin1(ToolName(tool));
    button->setObjectName(QStringLiteral("imgTool(%1)").arg(tool));
    button->setAccessibleName(name + QStringLiteral(" Tool"));
    button->setToolTip(QStringLiteral("%1 (%2)").arg(name).arg(tool));
    button->setGeometry(LeftMargin + (tool - 1) * ButtonSize, TopMargin, ButtonSize, ButtonSize);
    button->setAutoRaise(true);
    button->setStyleSheet(QStringLiteral("QToolButton { border: none; padding: 0; }"));
    button->setIconSize(QSize(ButtonSize, ButtonSize));
    button->setFocusPolicy(Qt::TabFocus);
    button->setMouseTracking(true);
    button->installEventFilter(this);
    button->setCheckable(true);
    button->setAccessibleDescription(QString::fromLatin1(ToolHint(tool)).trimmed());
    // Whoever turns it on or off chooses it; one that is chosen stays so.
    connect(button, &QToolButton::toggled, this, [this, tool] {
      palette_.Select(tool);
      ShowPalette();
      Q_EMIT ToolSelected(tool);
      Q_EMIT HintShown(QString::fromStdString(palette_.HintOfChosen(tool)));
    });
  }
  ShowPalette();
}

void ToolBox::ShowPalette() {
  for (int tool = 1; tool <= NumTools; ++tool) {
    const bool down = palette_.IsDown(tool);
    QToolButton* button = buttons_[static_cast<std::size_t>(tool - 1)];
    button->setIcon(QIcon(ToolPicture(tool, down, devicePixelRatioF(), palette())));
    const QSignalBlocker still(button);
    button->setChecked(down);
  }
}

int ToolBox::ToolOf(const QObject* button) const {
  const auto found = std::ranges::find(buttons_, button);
  return found == buttons_.end() ? 0 : static_cast<int>(found - buttons_.begin()) + 1;
}

bool ToolBox::eventFilter(QObject* watched, QEvent* event) {
  const int tool = ToolOf(watched);
  if (tool != 0 && event->type() == QEvent::MouseMove) {
    if (const auto hint = palette_.MouseMove(tool)) Q_EMIT HintShown(QString::fromStdString(*hint));
  } else if (tool != 0 && event->type() == QEvent::Leave) {
    // Where the mouse has gone is known only when all that it enters has heard of it.
    QMetaObject::invokeMethod(this, &ToolBox::ShowHintAfterLeaving, Qt::QueuedConnection);
  }
  return QFrame::eventFilter(watched, event);
}

// A menu or a dialog that opens takes the mouse away too, and has texts of its own to show.
void ToolBox::ShowHintAfterLeaving() {
  if (!isVisible() || QApplication::activePopupWidget() || QApplication::activeModalWidget()) return;
  if (std::ranges::any_of(buttons_, &QWidget::underMouse)) return;
  palette_.MouseLeave();
  Q_EMIT HintGone();
}

void ToolBox::keyPressEvent(QKeyEvent* event) {
  const bool isCommand =
      event->modifiers().testAnyFlags(Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier);
  const int digit = event->key() - Qt::Key_0;
  if (isCommand || digit < 1 || digit > NumTools) {
    QFrame::keyPressEvent(event);
    return;
  }
  Q_EMIT DigitPressed(digit);
}

void ToolBox::changeEvent(QEvent* event) {
  QFrame::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && buttons_.back() != nullptr) ShowPalette();
}
