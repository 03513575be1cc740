#include "platform/qt/FittedText.h"

#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QFontInfo>
#include <QFontMetrics>
#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <algorithm>
#include <cmath>

namespace {

constexpr int Air = 2;  // pixels between a caption and the border of its button, left and right

int FlagsOf(const QLabel& label) {
  return static_cast<int>(label.alignment()) | (label.wordWrap() ? Qt::TextWordWrap : 0);
}

QSize CaptionRoom(const QPushButton& button) {
  QStyleOptionButton option;
  option.initFrom(&button);
  if (button.autoDefault()) option.features |= QStyleOptionButton::AutoDefaultButton;
  const QRect room = button.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &button);
  return room.size() - QSize(2 * Air, 0);
}

bool Fits(QSize wanted, QSize room) {
  return wanted.width() <= room.width() && wanted.height() <= room.height();
}

}  // namespace

double PointsOf(const QFont& font) {
  return font.pointSizeF() > 0 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
}

QFont ScaledFont(QFont font, double factor) {
  font.setPointSizeF(PointsOf(font) * factor);
  return font;
}

QFont LargestFont(const QFont& wanted, const std::function<bool(const QFont&)>& fits, double smallest) {
  if (fits(wanted)) return wanted;
  QFont font = wanted;
  for (double points = std::ceil(2 * PointsOf(wanted)) / 2 - 0.5; points >= smallest; points -= 0.5) {
    font.setPointSizeF(points);
    if (fits(font)) return font;
  }
  return font;
}

bool TextFits(const QFont& font, const QString& text, QSize room, int flags) {
  const QRect unlimited(0, 0, room.width(), QWIDGETSIZE_MAX);
  return Fits(QFontMetrics(font).boundingRect(unlimited, flags, text).size(), room);
}

QString ShortenedText(const QFont& font, const QString& text, QSize room, int flags) {
  if (TextFits(font, text, room, flags)) return text;
  const auto shortened = [&](qsizetype length) { return text.first(length).trimmed() + QChar(0x2026); };
  qsizetype fitting = 0;
  for (qsizetype tooLong = std::min<qsizetype>(text.size(), 2000); fitting + 1 < tooLong;) {
    const qsizetype middle = (fitting + tooLong) / 2;
    (TextFits(font, shortened(middle), room, flags) ? fitting : tooLong) = middle;
  }
  return shortened(fitting);
}

void FitLabel(QLabel& label, const QFont& wanted) {
  const QSize room = label.contentsRect().size();
  label.setFont(LargestFont(
      wanted, [&](const QFont& font) { return TextFits(font, label.text(), room, FlagsOf(label)); }));
}

void FitCaptions(const QList<QPushButton*>& buttons, const QFont& wanted) {
  const QFont font = LargestFont(wanted, [&](const QFont& candidate) {
    return std::ranges::all_of(buttons, [&](const QPushButton* button) {
      return TextFits(candidate, button->text(), CaptionRoom(*button),
                      Qt::AlignCenter | Qt::TextSingleLine | Qt::TextShowMnemonic);
    });
  });
  for (QPushButton* button : buttons) button->setFont(font);
}

void FitMenu(QMenu& menu) {
  constexpr int reckonedWith = 20;
  const auto measureAgain = [&menu] {
    QEvent change(QEvent::FontChange);
    QCoreApplication::sendEvent(&menu, &change);
  };
  menu.setMinimumWidth(0);
  measureAgain();
  int rowHeight = 0;
  for (QAction* action : menu.actions())
    rowHeight = std::max(rowHeight, menu.actionGeometry(action).height());
  if (rowHeight <= reckonedWith) return;
  menu.setMinimumWidth(menu.sizeHint().width() + rowHeight - reckonedWith);
  measureAgain();
}

void ForgetSizes(QWidget& widget) {
  for (QLayout* layout : widget.findChildren<QLayout*>()) layout->invalidate();
  if (widget.layout() != nullptr) widget.layout()->invalidate();
}

void FitWidget(QWidget& widget, const QFont& wanted, QSize room,
               const std::function<void(const QFont&)>& adapt) {
  LargestFont(wanted, [&](const QFont& font) {
    widget.setFont(font);
    if (adapt) adapt(font);
    ForgetSizes(widget);
    return Fits(widget.layout()->totalSizeHint(), room);
  });
}

void KeepWholeHeight(QWidget& window) {
  QLayout& layout = *window.layout();
  layout.activate();
  const int width = std::max(window.width(), layout.totalMinimumSize().width());
  window.setMinimumHeight(layout.hasHeightForWidth() ? layout.totalMinimumHeightForWidth(width)
                                                     : layout.totalMinimumSize().height());
}
