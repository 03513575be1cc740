#include "reports/JointEquationsPanel.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/qt/AccessibleRole.h"
#include "platform/qt/FittedText.h"
#include "platform/qt/OnPress.h"
#include "platform/qt/QtText.h"
#include "reports/OutlineColor.h"

namespace {

constexpr int MinWidth = 233;      // pixels
constexpr int WidthBeside = 45;    // pixels beside the longer equation, for borders and margins
constexpr int ParentMargin = 8;    // pixels left free on each side in a narrow parent
constexpr int ContentMargin = 16;  // pixels
constexpr int MostCaptionLines = 3;
constexpr int LongestCaption = 300;  // characters; a longer one is cut

int TextWidth(const QWidget& box, const QString& text) {
  return std::min(box.fontMetrics().horizontalAdvance(text), QWIDGETSIZE_MAX - WidthBeside);
}

// The toolkit's frames lose a side on screens with a fractional scale.
void DrawFrame(QWidget& widget, const QColor& ground) {
  QPainter painter(&widget);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(OutlineColor(widget.palette()));
  painter.setBrush(ground);
  painter.drawRoundedRect(QRectF(widget.rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
}

// The ground that an equation stands on.
class Well final : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override { DrawFrame(*this, palette().color(QPalette::Base)); }
};

}  // namespace

JointEquationsPanel::JointEquationsPanel(QWidget* parent)
    : QFrame(parent), caption_(new QLabel(this)), cmdOKJointReport_(new QPushButton(this)) {
  SetAccessibleRole(*this, QAccessible::Grouping);
  setObjectName(QStringLiteral("frNewCoords(3)"));
  setCursor(Qt::ArrowCursor);
  setAttribute(Qt::WA_NoMousePropagation);  // what lies below must not be clicked through it

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(ContentMargin, 12, ContentMargin, 12);
  layout->setSpacing(4);
  caption_->setObjectName(QStringLiteral("lblCaption"));
  caption_->setTextFormat(Qt::PlainText);
  caption_->setWordWrap(true);
  caption_->setMinimumWidth(1);  // a long name must not widen the panel
  layout->addWidget(caption_);
  layout->addSpacing(4);
  txtXEqn_ = AddEquation(QStringLiteral("txtXEqn"), QStringLiteral("forces right = forces left"));
  txtYEqn_ = AddEquation(QStringLiteral("txtYEqn"), QStringLiteral("forces up = forces down"));

  cmdOKJointReport_->setObjectName(QStringLiteral("cmdOKJointReport"));
  cmdOKJointReport_->setText(QStringLiteral("&OK"));
  cmdOKJointReport_->setToolTip(QStringLiteral("Close the equations (Enter or Esc)"));
  cmdOKJointReport_->setDefault(true);
  layout->addSpacing(6);
  layout->addWidget(cmdOKJointReport_, 0, Qt::AlignRight);
  OnPress(cmdOKJointReport_, this, &QWidget::hide);

  // The cancel button of the whole window while it is shown, wherever the focus went.
  auto* cancel = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(cancel, &QShortcut::activated, this, &QWidget::hide);
  connect(cancel, &QShortcut::activatedAmbiguously, this, &QWidget::hide);

  parent->installEventFilter(this);
  hide();
}

QLineEdit* JointEquationsPanel::AddEquation(const QString& boxName, const QString& heading) {
  auto* box = new QLineEdit(this);
  box->setObjectName(boxName);
  box->setReadOnly(true);
  box->setFrame(false);
  box->setAccessibleName(heading);
  // The toolkit keeps 2 pixels free on either side of the text and 1 for the cursor; the box is as wide as
  // its text, and the well around it has the margins.
  box->setTextMargins(-2, 0, -3, 0);
  box->setMinimumWidth(1);

  auto* well = new Well(this);
  auto* inWell = new QHBoxLayout(well);
  inWell->setContentsMargins(5, 4, 5, 4);
  inWell->setSpacing(0);
  inWell->addWidget(box, 1);
  inWell->addStretch();

  auto* label = new QLabel(heading, this);
  label->setMinimumWidth(1);
  headings_.append(label);
  layout()->addWidget(label);
  layout()->addWidget(well);
  return box;
}

int JointEquationsPanel::WantedWidth() const {
  return std::max({MinWidth, TextWidth(*txtXEqn_, txtXEqn_->text()) + WidthBeside,
                   TextWidth(*txtYEqn_, txtYEqn_->text()) + WidthBeside});
}

void JointEquationsPanel::ShowEquations(const std::string& jointName, const JointEquationTexts& equations) {
  const QString caption = OneLineText(QStringLiteral("Equations for joint ") + ToQt(jointName));
  setAccessibleName(caption);
  txtXEqn_->setText(ToQt(equations.X));
  txtYEqn_->setText(ToQt(equations.Y));
  KeepInsideParent();
  for (QLineEdit* box : {txtXEqn_, txtYEqn_}) box->setCursorPosition(0);

  if (isHidden()) focusBefore_ = QApplication::focusWidget();
  show();
  raise();
  cmdOKJointReport_->setFocus(Qt::OtherFocusReason);
}

void JointEquationsPanel::SetLetters(const QFont& font, int roomWidth) {
  setFont(font);
  for (QLineEdit* box : {txtXEqn_, txtYEqn_}) box->setMaximumWidth(TextWidth(*box, box->text()));
  // The width follows from the equations alone, so the headings are set in the letters that fit it.
  const int headingWidth = std::clamp(WantedWidth(), 1, roomWidth) - 2 * ContentMargin;
  for (QLabel* heading : headings_) {
    heading->setFont(LargestFont(font, [&](const QFont& candidate) {
      return QFontMetrics(candidate).horizontalAdvance(heading->text()) <= headingWidth;
    }));
  }
  SetCaption(font, headingWidth);
  ForgetSizes(*this);
}

void JointEquationsPanel::SetCaption(QFont font, int width) {
  font.setBold(true);
  const QString whole = accessibleName();
  const auto fits = [&](const QFont& candidate) {
    const QSize room(width, MostCaptionLines * QFontMetrics(candidate).lineSpacing());
    return TextFits(candidate, whole, room, Qt::TextWordWrap);
  };
  const QFont fitting = whole.size() <= LongestCaption ? LargestFont(font, fits) : font;
  const bool isWhole = whole.size() <= LongestCaption && fits(fitting);
  caption_->setFont(isWhole ? fitting : font);
  const QFontMetrics metrics = caption_->fontMetrics();
  caption_->setText(isWhole ? whole : metrics.elidedText(whole, Qt::ElideRight, width));
  caption_->setToolTip(isWhole ? QString() : PlainToolTip(whole));
  caption_->setAccessibleDescription(isWhole ? QString() : whole);
  caption_->setFixedHeight(
      metrics.boundingRect(QRect(0, 0, width, QWIDGETSIZE_MAX), Qt::TextWordWrap, caption_->text()).height());
}

void JointEquationsPanel::SetRoom(const QRect& room) {
  room_ = room;
  if (isVisible()) KeepInsideParent();
}

void JointEquationsPanel::KeepInsideParent() {
  const QRect area = room_.isValid() ? room_ : parentWidget()->rect();
  const QSize room = (area.size() - QSize(2 * ParentMargin, 0)).expandedTo(QSize(1, 1));
  const QFont usual = parentWidget()->font();
  const auto isNarrow = [&] { return WantedWidth() <= room.width(); };
  // In an equation that is too long even for the smallest letters one moves with the arrow keys, and they are
  // the usual ones.
  QFont smallest = usual;
  smallest.setPointSizeF(SmallestPoints);
  SetLetters(smallest, room.width());
  const bool mayBeNarrow = isNarrow();
  LargestFont(usual, [&](const QFont& font) {
    SetLetters(font, room.width());
    return (isNarrow() || !mayBeNarrow) && sizeHint().height() <= room.height();
  });
  resize(std::clamp(WantedWidth(), 1, room.width()), sizeHint().height());
  move(std::max(area.left(), std::min(x(), area.right() + 1 - width())),
       std::max(area.top(), std::min(y(), area.bottom() + 1 - height())));
}

bool JointEquationsPanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == parentWidget() && event->type() == QEvent::Resize && isVisible()) KeepInsideParent();
  return QFrame::eventFilter(watched, event);
}

void JointEquationsPanel::paintEvent(QPaintEvent* /*event*/) {
  DrawFrame(*this, palette().color(QPalette::Window));
}

void JointEquationsPanel::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Enter:
    case Qt::Key_Return:
    case Qt::Key_Escape:
      hide();
      break;
    default:
      QFrame::keyPressEvent(event);
  }
}

void JointEquationsPanel::hideEvent(QHideEvent* event) {
  QFrame::hideEvent(event);
  if (event->spontaneous()) return;  // the window was minimised
  if (focusBefore_) focusBefore_->setFocus(Qt::OtherFocusReason);
  focusBefore_.clear();
}
