// See the header.
#include "app/InstructionFrame.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

#include "app/Icons.h"

namespace {

constexpr int FrameWidth = 400;
constexpr int MarkSide = 40;

struct StepLine {
  const char* Title;
  const char* Text;
};

constexpr StepLine Steps[] = {
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

QLabel* MakeBold(const QString& text, qreal scale) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * scale);
  font.setBold(true);
  label->setFont(font);
  return label;
}

QLayout* Heading(qreal devicePixelRatio) {
  auto* mark = new QLabel;
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
  for (const StepLine& step : Steps) {
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
  setAccessibleName(QStringLiteral("Welcome to Orvane"));
  setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
  // It lies over the canvas, so it needs a ground of its own.
  setAutoFillBackground(true);

  auto* cmdOKInstruct1 = new QPushButton(QStringLiteral("OK"));
  cmdOKInstruct1->setObjectName(QStringLiteral("cmdOKInstruct1"));
  cmdOKInstruct1->setShortcut(Qt::ALT | Qt::Key_O);
  cmdOKInstruct1->setAutoDefault(true);
  connect(cmdOKInstruct1, &QPushButton::clicked, this, &InstructionFrame::Dismissed);
  setFocusProxy(cmdOKInstruct1);

  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(18, 16, 18, 14);
  rows->setSpacing(14);
  rows->addLayout(Heading(devicePixelRatioF()));
  rows->addLayout(StepList());
  rows->addWidget(cmdOKInstruct1, 0, Qt::AlignRight);
  setFixedWidth(FrameWidth);
  setFixedHeight(rows->totalHeightForWidth(FrameWidth));
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
