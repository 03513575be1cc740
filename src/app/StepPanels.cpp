// See the header.
#include "app/StepPanels.h"

#include <algorithm>

namespace {

constexpr int ButtonHeight = 28;
constexpr int ButtonTop = (StepPanelHeight - ButtonHeight) / 2;
constexpr int NextButtonFromRight = 88;
constexpr int PrevButtonFromRight = 152;
constexpr int StepButtonWidth = 60;

}  // namespace

void StepNavigation::Layout(int windowWidth) const {
  int spaceEnd = windowWidth;
  if (Next != nullptr) {
    spaceEnd = windowWidth - NextButtonFromRight;
    Next->move(spaceEnd, ButtonTop);
  }
  if (Prev != nullptr) {
    spaceEnd = windowWidth - PrevButtonFromRight;
    Prev->move(spaceEnd, ButtonTop);
  }
  const int space = std::max(0, spaceEnd - CaptionLeft);
  Caption->setFixedWidth(std::min(Caption->sizeHint().width(), std::max(space - 4, 0)));
  Caption->setFixedHeight(StepPanelHeight);
  Caption->move(CaptionLeft + (space - Caption->width()) / 2, 0);
}

QPushButton* AddPanelButton(QWidget* panel, const QString& objectName, const QString& text,
                            const QString& toolTip, int left, int width) {
  auto* button = new QPushButton(text, panel);
  button->setObjectName(objectName);
  button->setToolTip(toolTip);
  button->setGeometry(left, ButtonTop, width, ButtonHeight);
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
  return caption;
}
