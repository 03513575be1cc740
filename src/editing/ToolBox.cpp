// See the header.
#include "editing/ToolBox.h"

#include <QEvent>

#include "editing/ToolPicture.h"

namespace {

constexpr int ButtonSize = 32;
constexpr int LeftMargin = 4;
constexpr int TopMargin = 6;

}  // namespace

ToolBox::ToolBox(ToolPalette& palette, QWidget* parent) : QFrame(parent), palette_(palette) {
  setObjectName(QStringLiteral("picToolBox"));
  for (int tool = 1; tool <= NumTools; ++tool) {
    auto* button = new QToolButton(this);
    buttons_[static_cast<std::size_t>(tool - 1)] = button;
    const QString name = QString::fromLatin1(ToolName(tool));
    button->setObjectName(QStringLiteral("imgTool(%1)").arg(tool));
    button->setAccessibleName(name + QStringLiteral(" Tool"));
    button->setToolTip(QStringLiteral("%1 (%2)").arg(name).arg(tool));
    button->setGeometry(LeftMargin + (tool - 1) * ButtonSize, TopMargin, ButtonSize, ButtonSize);
    button->setAutoRaise(true);
    button->setStyleSheet(
        QStringLiteral("QToolButton { border: none; padding: 0; } "
                       "QToolButton:focus { border: 1px dotted palette(highlight); }"));
    button->setIconSize(QSize(ButtonSize, ButtonSize));
    button->setFocusPolicy(Qt::TabFocus);
    button->setMouseTracking(true);
    button->installEventFilter(this);
    connect(button, &QToolButton::clicked, this, [this, tool] {
      palette_.Select(tool);
      ShowPalette();
      Q_EMIT ToolSelected(tool);
    });
  }
  ShowPalette();
}

void ToolBox::ShowPalette() {
  for (int tool = 1; tool <= NumTools; ++tool) {
    const bool down = palette_.IsDown(tool);
    QToolButton* button = buttons_[static_cast<std::size_t>(tool - 1)];
    button->setIcon(QIcon(ToolPicture(tool, down, devicePixelRatioF(), palette())));
    button->setAccessibleDescription(down ? tr("selected") : QString());
  }
}

bool ToolBox::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseMove) {
    for (int tool = 1; tool <= NumTools; ++tool) {
      if (watched != buttons_[static_cast<std::size_t>(tool - 1)]) continue;
      if (const auto hint = palette_.MouseMove(tool)) Q_EMIT HintShown(QString::fromStdString(*hint));
    }
  } else if (event->type() == QEvent::Leave) {
    palette_.MouseLeft();
    Q_EMIT HintEnded();
  }
  return QFrame::eventFilter(watched, event);
}

void ToolBox::changeEvent(QEvent* event) {
  QFrame::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && buttons_.back() != nullptr) ShowPalette();
}
