// See the header.
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

#include "platform/qt/QtText.h"
#include "reports/OutlineColor.h"

namespace {

constexpr int MinWidth = 233;      // pixels
constexpr int WidthBeside = 45;    // pixels beside the longer equation, for borders and margins
constexpr int ParentMargin = 8;    // pixels left free on each side in a narrow parent
constexpr int ContentMargin = 16;  // pixels

int TextWidth(const QWidget& box, const QString& text) {
  return std::min(box.fontMetrics().horizontalAdvance(text), QWIDGETSIZE_MAX - WidthBeside);
}

void SetEquation(QLineEdit& box, const QString& text) {
  box.setText(text);
  box.setMaximumWidth(TextWidth(box, text));
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
  setObjectName(QStringLiteral("frNewCoords(3)"));
  setCursor(Qt::ArrowCursor);
  setAttribute(Qt::WA_NoMousePropagation);  // what lies below must not be clicked through it

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(ContentMargin, 12, ContentMargin, 12);
  layout->setSpacing(4);
  caption_->setObjectName(QStringLiteral("lblCaption"));
  caption_->setTextFormat(Qt::PlainText);
  caption_->setMinimumWidth(1);  // a long name must not widen the panel
  QFont bold = caption_->font();
  bold.setBold(true);
  caption_->setFont(bold);
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
  connect(cmdOKJointReport_, &QPushButton::clicked, this, &QWidget::hide);

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

  layout()->addWidget(new QLabel(heading, this));
  layout()->addWidget(well);
  return box;
}

int JointEquationsPanel::WantedWidth(const JointEquationTexts& equations) const {
  return std::max({MinWidth, TextWidth(*txtXEqn_, ToQt(equations.X)) + WidthBeside,
                   TextWidth(*txtYEqn_, ToQt(equations.Y)) + WidthBeside});
}

void JointEquationsPanel::ShowEquations(const std::string& jointName, const JointEquationTexts& equations) {
  const QString caption = OneLineText(QStringLiteral("Equations for joint ") + ToQt(jointName));
  setAccessibleName(caption);
  SetEquation(*txtXEqn_, ToQt(equations.X));
  SetEquation(*txtYEqn_, ToQt(equations.Y));
  wantedWidth_ = WantedWidth(equations);
  KeepInsideParent();
  for (QLineEdit* box : {txtXEqn_, txtYEqn_}) box->setCursorPosition(0);

  if (isHidden()) focusBefore_ = QApplication::focusWidget();
  show();
  raise();
  cmdOKJointReport_->setFocus(Qt::OtherFocusReason);
}

void JointEquationsPanel::KeepInsideParent() {
  const QSize room = parentWidget()->size();
  resize(std::clamp(wantedWidth_, 1, std::max(1, room.width() - 2 * ParentMargin)), sizeHint().height());
  const int captionRoom = contentsRect().width() - 2 * ContentMargin;
  caption_->setText(caption_->fontMetrics().elidedText(accessibleName(), Qt::ElideRight, captionRoom));
  caption_->setToolTip(caption_->text() == accessibleName() ? QString() : PlainToolTip(accessibleName()));
  move(std::max(0, std::min(x(), room.width() - width())),
       std::max(0, std::min(y(), room.height() - height())));
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
