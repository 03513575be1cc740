// The controls of the value editor's panel.
#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "editing/NumberBox.h"
#include "editing/ValueEditorFrame.h"
#include "platform/qt/AccessibleRole.h"
#include "platform/qt/OnPress.h"
#include "platform/qt/QtText.h"

namespace {

constexpr int OptionIndent = 12;  // pixels

QLabel* MakeLabel(const QString& text) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

ValueEditorFrame::ValueEditorFrame(EditingKind editingKind, ValueEditor& editor, QWidget* canvas)
    : QFrame(canvas), editingKind_(editingKind), editor_(editor) {
  const QString caption = editingKind == MemberKind ? QStringLiteral("new components for the big endpoint")
                                                    : QStringLiteral("new components for this force");
  setObjectName(ControlName("frNewCoords"));
  SetAccessibleRole(*this, QAccessible::Grouping);
  setAccessibleName(caption);
  // It lies over the canvas, so it needs a ground and a pointer of its own.
  setAutoFillBackground(true);
  setCursor(Qt::ArrowCursor);
  setFocusPolicy(Qt::ClickFocus);

  auto* lblCaption = MakeLabel(caption);
  lblCaption->setObjectName(ControlName("lblCaption"));
  QFont bold;
  bold.setBold(true);
  lblCaption->setFont(bold);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(10, 8, 10, 10);
  rows->setSpacing(6);
  rows->addWidget(lblCaption);
  AddOptions(rows);
  AddBoxes(rows);
  AddButtons(rows);
  hide();

  // A click on the frame itself leaves the focus on the control that has it.
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*before*/, QWidget* now) {
    if (now != nullptr && now != this && isAncestorOf(now)) setFocusProxy(now);
  });
}

QString ValueEditorFrame::ControlName(const char* name) const {
  return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(int{editingKind_});
}

QRadioButton* ValueEditorFrame::AddOption(const char* name, Notation notation, const char* toolTip) {
  static constexpr std::array<const char*, 3> texts = {"absolute", "rectangular", "polar"};
  const auto index = static_cast<std::size_t>(notation);
  auto* option = new QRadioButton(QString::fromLatin1(texts[index]));
  option->setObjectName(ControlName(name));
  option->setToolTip(QString::fromLatin1(toolTip));
  connect(option, &QRadioButton::clicked, this, [this, notation] {
    editor_.optNotation_Click(editingKind_, notation);
    ShowEditor();
    Q_EMIT EditorChanged();
  });
  options_[index] = option;
  return option;
}

void ValueEditorFrame::AddOptions(QVBoxLayout* rows) {
  auto* relative = new QHBoxLayout;
  relative->setSpacing(14);
  if (editingKind_ == MemberKind) {
    // Not stretched, so that the arrow keys find their way from its text to the one below.
    rows->addWidget(AddOption("optAbsolute", Notation::Absolute, "Position of the big endpoint"), 0,
                    Qt::AlignLeft);
    auto* lblRelative = MakeLabel(QStringLiteral("relative to other endpoint:"));
    lblRelative->setObjectName(ControlName("lblRelative"));
    rows->addWidget(lblRelative);
    relative->setContentsMargins(OptionIndent, 0, 0, 0);
    relative->addWidget(AddOption("optRectangular", Notation::Rectangular,
                                  "Horizontal and vertical distance from the other endpoint"));
    relative->addWidget(AddOption("optPolar", Notation::Polar,
                                  "Distance and direction (in degrees) from the other endpoint"));
    for (const Notation notation : {Notation::Rectangular, Notation::Polar}) {
      options_[static_cast<std::size_t>(notation)]->setAccessibleDescription(
          QStringLiteral("relative to other endpoint"));
    }
  } else {
    relative->addWidget(
        AddOption("optRectangular", Notation::Rectangular, "Horizontal and vertical component of the force"));
    relative->addWidget(
        AddOption("optPolar", Notation::Polar, "Magnitude and direction (in degrees) of the force"));
  }
  relative->addStretch();
  rows->addLayout(relative);
}

void ValueEditorFrame::AddBoxes(QVBoxLayout* rows) {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(6);
  for (int box = 1; box <= 2; ++box) {
    const auto at = static_cast<std::size_t>(box - 1);
    auto* label = MakeLabel(QString());
    label->setObjectName(ControlName(box == 1 ? "lblNewCoords1" : "lblNewCoords2"));
    auto* text = new NumberBox;
    text->setObjectName(ControlName(box == 1 ? "txtNewCoords1" : "txtNewCoords2"));
    label->setBuddy(text);
    // Whoever sets the text of the box has typed it, with keys or without.
    connect(text, &QLineEdit::textChanged, this, [this, box](const QString& typed) {
      editor_.txtNewCoords_Change(editingKind_, box, FromQt(typed));
    });
    grid->addWidget(label, box, 0);
    grid->addWidget(text, box, 1);
    lblNewCoords_[at] = label;
    txtNewCoords_[at] = text;
  }
  grid->setColumnStretch(1, 1);
  rows->addLayout(grid);
}

void ValueEditorFrame::AddButtons(QVBoxLayout* rows) {
  const auto add = [this](const char* name, const char* text, Qt::Key key, const char* toolTip) {
    auto* button = new QPushButton(QString::fromLatin1(text));
    button->setObjectName(ControlName(name));
    button->setShortcut(Qt::ALT | key);
    button->setToolTip(QString::fromLatin1(toolTip));
    button->setAutoDefault(true);
    return button;
  };
  cmdNewCoordsOK_ = add("cmdNewCoordsOK", "OK", Qt::Key_O, "Apply these values (Enter)");
  cmdNewCoordsOK_->setDefault(true);
  cmdNewCoordsCancel_ = add("cmdNewCoordsCancel", "Cancel", Qt::Key_C, "Close without a change (Esc)");
  OnPress(cmdNewCoordsOK_, this, [this] {
    editor_.cmdNewCoordsOK_Click(editingKind_);
    ShowEditor();
    Q_EMIT EditorChanged();
    if (!editor_.IsOpen(editingKind_)) Q_EMIT ValuesStored();
  });
  OnPress(cmdNewCoordsCancel_, this, [this] {
    editor_.cmdNewCoordsCancel_Click(editingKind_);
    ShowEditor();
    Q_EMIT EditorChanged();
  });
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdNewCoordsOK_);
  buttons->addWidget(cmdNewCoordsCancel_);
  rows->addSpacing(2);
  rows->addLayout(buttons);
}
