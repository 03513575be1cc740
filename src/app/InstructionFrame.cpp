#include "app/InstructionFrame.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "app/Icons.h"
#include "platform/qt/AccessibleRole.h"
#include "platform/qt/FittedText.h"
#include "platform/qt/OnPress.h"

namespace {

constexpr int LeastWidth = 400;
constexpr int WidthInLines = 27;  // the width that reads well, in line heights
constexpr int MarkSide = 40;
constexpr auto LargerBy = "largerBy";  // a property of bold labels

struct StepLine {
  const char* Title;
  const char* Text;
};

constexpr StepLine StepLines[] = {
    {"Design the truss",
     "Choose a tool and draw members, supports and forces, or open a truss from the File menu."},
    {"Name forces and joints", "Click a label to name it, or let AutoName do it."},
    {"View the reports", "Read the equilibrium equations, their reduced form and the forces."},
};

QLabel* MakeText(const QString& text) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

// Letters larger than the rest by the factor LargerBy.
QLabel* MakeBold(const QString& text, double largerBy) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  label->setProperty(LargerBy, largerBy);
  return label;
}

QLayout* Heading(qreal devicePixelRatio) {
  auto* mark = new QLabel;
  mark->setAccessibleName(QStringLiteral("The mark of Orvane"));
  mark->setPixmap(ApplicationPicture(MarkSide, devicePixelRatio));
  auto* texts = new QVBoxLayout;
  texts->setSpacing(0);
  texts->addWidget(MakeBold(QStringLiteral("Welcome to Orvane"), 1.4));
  texts->addWidget(MakeText(QStringLiteral("From a drawn truss to its forces in three steps")));
  auto* heading = new QHBoxLayout;
  heading->setSpacing(12);
  heading->addWidget(mark);
  heading->addLayout(texts, 1);
  return heading;
}

QLayout* StepList() {
  auto* list = new QGridLayout;
  list->setHorizontalSpacing(12);
  list->setVerticalSpacing(2);
  list->setColumnMinimumWidth(0, MarkSide);
  list->setColumnStretch(1, 1);
  int row = 0;
  for (const StepLine& step : StepLines) {
    if (row > 0) list->setRowMinimumHeight(row++, 6);
    list->addWidget(MakeBold(QString::number(row / 3 + 1), 1.4), row, 0, 2, 1,
                    Qt::AlignHCenter | Qt::AlignTop);
    list->addWidget(MakeBold(QString::fromUtf8(step.Title), 1), row++, 1);
    list->addWidget(MakeText(QString::fromUtf8(step.Text)), row++, 1);
  }
  return list;
}

}  // namespace

InstructionFrame::InstructionFrame(QWidget* parent) : QFrame(parent) {
  setObjectName(QStringLiteral("frInstruct1"));
  SetAccessibleRole(*this, QAccessible::Grouping);
  setAccessibleName(QStringLiteral("Welcome to Orvane"));
  setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
  // It lies over the canvas, so it needs a ground of its own.
  setAutoFillBackground(true);

  auto* cmdOKInstruct1 = new QPushButton(QStringLiteral("OK"));
  cmdOKInstruct1->setObjectName(QStringLiteral("cmdOKInstruct1"));
  cmdOKInstruct1->setShortcut(Qt::ALT | Qt::Key_O);
  cmdOKInstruct1->setAutoDefault(true);
  OnPress(cmdOKInstruct1, this, &InstructionFrame::Dismissed);
  setFocusProxy(cmdOKInstruct1);

  rows_ = new QVBoxLayout(this);
  rows_->setContentsMargins(18, 16, 18, 14);
  rows_->setSpacing(14);
  rows_->addLayout(Heading(devicePixelRatioF()));
  rows_->addLayout(StepList());
  rows_->addWidget(cmdOKInstruct1, 0, Qt::AlignRight);
  SetLetters(font());
  setFixedSize(SizeFor(font(), QSize(LeastWidth, 0)));
}

void InstructionFrame::SetLetters(const QFont& font) {
  setFont(font);
  for (QLabel* label : findChildren<QLabel*>()) {
    const QVariant largerBy = label->property(LargerBy);
    if (!largerBy.isValid()) continue;
    QFont bold = ScaledFont(font, largerBy.toDouble());
    bold.setBold(true);
    label->setFont(bold);
  }
  ForgetSizes(*this);
}

QSize InstructionFrame::SizeFor(const QFont& font, QSize room) const {
  const int liked = std::max(LeastWidth, WidthInLines * QFontMetrics(font).height());
  const int width = std::max(rows_->totalMinimumSize().width(), std::min(liked, room.width()));
  return {width, rows_->totalHeightForWidth(width)};
}

void InstructionFrame::FitInto(QSize room, const QFont& wanted) {
  const QFont fitting = LargestFont(wanted, [&](const QFont& font) {
    SetLetters(font);
    const QSize size = SizeFor(font, room);
    return size.width() <= room.width() && size.height() <= room.height();
  });
  setFixedSize(SizeFor(fitting, room));
}

void InstructionFrame::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key != Qt::Key_Escape && key != Qt::Key_Return && key != Qt::Key_Enter) {
    QFrame::keyPressEvent(event);
    return;
  }
  Q_EMIT Dismissed();
}

void InstructionFrame::showEvent(QShowEvent* event) {
  QFrame::showEvent(event);
  if (!event->spontaneous()) setFocus(Qt::OtherFocusReason);
}
