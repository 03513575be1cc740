#include "app/StepPanels.h"

#include <algorithm>

#include "platform/qt/AccessibleRole.h"
#include "platform/qt/FittedText.h"

namespace {

constexpr int ButtonHeight = 28;  // with letters of the usual size
constexpr int HighestButton = StepPanelHeight - 4;
constexpr int AirInButton = 10;  // together, around a button's caption
constexpr int NextButtonFromRight = 88;
constexpr int PrevButtonFromRight = 152;
constexpr int StepButtonWidth = 60;
constexpr int CaptionMargin = 2;  // left and right

void CentreInPanel(QPushButton& button, int height) {
  button.setGeometry(button.x(), (StepPanelHeight - height) / 2, button.width(), height);
}

}  // namespace

void StepNavigation::Layout(int windowWidth, const QFont& wanted) const {
  int spaceEnd = windowWidth;
  if (Next != nullptr) {
    spaceEnd = windowWidth - NextButtonFromRight;
    Next->move(spaceEnd, Next->y());
  }
  if (Prev != nullptr) {
    spaceEnd = windowWidth - PrevButtonFromRight;
    Prev->move(spaceEnd, Prev->y());
  }
  const int space = std::max(0, spaceEnd - CaptionLeft);
  const QSize room(space - 2 * CaptionMargin, StepPanelHeight);
  const auto fits = [&](const QFont& font) {
    return TextFits(font, Caption->text(), room, static_cast<int>(Caption->alignment()));
  };
  const QFont font = LargestFont(wanted, fits);
  Caption->setFont(font);
  Caption->setVisible(fits(font));
  Caption->resize(std::clamp(Caption->sizeHint().width(), 0, std::max(room.width(), 0)), StepPanelHeight);
  Caption->move(CaptionLeft + (space - Caption->width()) / 2, 0);
}

QPushButton* AddPanelButton(QWidget* panel, const QString& objectName, const QString& text,
                            const QString& toolTip, int left, int width) {
  auto* button = new QPushButton(text, panel);
  button->setObjectName(objectName);
  button->setToolTip(toolTip);
  button->setGeometry(left, 0, width, ButtonHeight);
  CentreInPanel(*button, ButtonHeight);
  return button;
}

QPushButton* AddStepButton(QWidget* panel, const QString& objectName, const QString& text,
                           const QString& toolTip) {
  return AddPanelButton(panel, objectName, text, toolTip, 0, StepButtonWidth);
}

QLabel* AddStepCaption(QWidget* panel, const QString& objectName, const QString& text) {
  auto* caption = new QLabel(text, panel);
  caption->setObjectName(objectName);
  caption->setTextFormat(Qt::PlainText);
  caption->setAlignment(Qt::AlignCenter);
  // The panel is called by its caption, but for one that has a name already.
  if (panel->accessibleName().isEmpty()) {
    SetAccessibleRole(*panel, QAccessible::Grouping);
    panel->setAccessibleName(QString(text).replace(u'\n', QStringLiteral(": ")));
  }
  return caption;
}

void FitStepButtons(std::initializer_list<QWidget*> panels, const QFont& wanted) {
  QList<QPushButton*> buttons;
  for (QWidget* panel : panels) buttons += panel->findChildren<QPushButton*>();
  for (QPushButton* button : buttons) CentreInPanel(*button, HighestButton);
  FitCaptions(buttons, wanted);
  for (QPushButton* button : buttons) {
    CentreInPanel(*button,
                  std::clamp(button->fontMetrics().height() + AirInButton, ButtonHeight, HighestButton));
  }
}
