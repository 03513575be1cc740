#include "platform/qt/TippedButton.h"

QPushButton* TippedButton(const char* name, const char* caption, const char* toolTip, QWidget* parent) {
  auto* button = new QPushButton(QString::fromUtf8(caption), parent);
  button->setObjectName(QString::fromUtf8(name));
  button->setToolTip(QString::fromUtf8(toolTip));
  button->setAutoDefault(false);
  return button;
}
