#include "platform/qt/QtAnimationWish.h"

#include <QApplication>
#include <QStyle>

bool QtAnimationWish::IsWanted() const {
  return QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
}
