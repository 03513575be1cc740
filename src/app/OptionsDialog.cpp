#include "app/OptionsDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

#include "platform/qt/FittedText.h"
#include "platform/qt/OnPress.h"
#include "platform/qt/QtText.h"
#include "platform/qt/ScreenRoom.h"

namespace {

constexpr int LeastControlWidth = 84;
constexpr int DigitsInControl = 10;  // that are seen at once in large letters
constexpr int RowSpacing = 8;
constexpr auto GridToolTip = "Used with Snap to grid.";

// A text box whose whole text is selected when it gets the focus, so that typing replaces it.
class SettingTextBox final : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

 protected:
  void focusInEvent(QFocusEvent* event) override {
    QLineEdit::focusInEvent(event);
    // Coming back from the box's own menu or from another program is no new focus.
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason) return;
    selectAll();
    clickedInto_ = event->reason() == Qt::MouseFocusReason;
  }

  // The click that gave the focus has moved the caret and so taken the selection away.
  void mouseReleaseEvent(QMouseEvent* event) override {
    QLineEdit::mouseReleaseEvent(event);
    if (clickedInto_ && !hasSelectedText()) selectAll();
    clickedInto_ = false;
  }

 private:
  bool clickedInto_ = false;
};

// Captions carry no marked letters, so the access key is given beside the text.
void SetAccessKey(QAbstractButton& button, Qt::Key key) { button.setShortcut(Qt::ALT | key); }

QCheckBox* MakeCheckBox(const char* name, const char* text, Qt::Key accessKey) {
  auto* box = new QCheckBox(QString::fromUtf8(text));
  box->setObjectName(QString::fromUtf8(name));
  SetAccessKey(*box, accessKey);
  return box;
}

template <class Items>
QComboBox* MakeComboBox(const char* name, const Items& items) {
  auto* box = new QComboBox;
  box->setObjectName(QString::fromUtf8(name));
  for (const int item : items) box->addItem(QString::number(item));
  return box;
}

QPushButton* MakeButton(const char* name, const char* text, Qt::Key accessKey) {
  auto* button = new QPushButton(QString::fromUtf8(text));
  button->setObjectName(QString::fromUtf8(name));
  button->setAutoDefault(false);
  SetAccessKey(*button, accessKey);
  return button;
}

QGroupBox* MakeFrame(const char* title, QLayout* content) {
  auto* frame = new QGroupBox(QString::fromUtf8(title));
  frame->setLayout(content);
  return frame;
}

QGridLayout* MakeRows() {
  auto* rows = new QGridLayout;
  rows->setVerticalSpacing(RowSpacing);
  rows->setHorizontalSpacing(16);
  rows->setColumnStretch(0, 1);
  return rows;
}

QLabel* MakeLabel(const QString& text) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  return label;
}

// Lines that belong together stand close together.
QLayout* StackedLabels(const QStringList& lines, QWidget* buddy) {
  auto* stack = new QVBoxLayout;
  stack->setSpacing(0);
  for (const QString& line : lines) {
    QLabel* label = MakeLabel(line);
    if (buddy != nullptr) label->setBuddy(buddy);
    stack->addWidget(label);
  }
  return stack;
}

}  // namespace

OptionsDialog::OptionsDialog(const DocumentSettings& settings, const NumberFormat& format,
                             MessageBox& messages, QWidget* parent)
    : QDialog(parent), format_(format), messages_(messages) {
  setObjectName(QStringLiteral("OptionsDialog"));
  setWindowTitle(QStringLiteral("Settings"));
  MakeControls();
  MakeButtons();
  LayOut();
  FixTabOrder();
  ShowInput(LoadSettings(settings, format_));
  FitToScreen();
}

void OptionsDialog::MakeControls() {
  for (const SettingsBox box : SettingsBoxes) {
    auto* text = new SettingTextBox;
    text->setObjectName(QStringLiteral("txtDim(%1)").arg(static_cast<int>(box)));
    text->setAlignment(Qt::AlignRight);
    txtDim[box] = text;
  }
  for (const SettingsBox box : {SettingsBox::GridX, SettingsBox::GridY}) {
    txtDim[box]->setToolTip(QString::fromUtf8(GridToolTip));
  }
  cmbSigFigs = MakeComboBox("cmbSigFigs", SigFigsItems);
  cmbFontSize = MakeComboBox("cmbFontSize", FontSizeItems);
  chkShowRulers = MakeCheckBox("chkShowRulers", "Show rulers", Qt::Key_R);
  chkSnapGrid = MakeCheckBox("chkSnapGrid", "Snap to grid", Qt::Key_S);
  chkShowGrid = MakeCheckBox("chkShowGrid", "Show grid", Qt::Key_G);
  chkSnapObject = MakeCheckBox("chkSnapObject", "Snap to object", Qt::Key_O);
}

void OptionsDialog::MakeButtons() {
  cmdClose = MakeButton("cmdClose", "Close", Qt::Key_C);
  cmdClose->setDefault(true);
  cmdCancel = MakeButton("cmdCancel", "Cancel", Qt::Key_A);
  cmdFactory = MakeButton("cmdFactory", "Factory settings", Qt::Key_F);
  cmdFactory->setToolTip(QStringLiteral("Set all options to factory settings"));
  OnPress(cmdClose, this, &OptionsDialog::CloseIfGood);
  OnPress(cmdCancel, this, &QDialog::reject);
  OnPress(cmdFactory, this, [this] { ShowInput(FactorySettings(format_)); });
}

void OptionsDialog::LayOut() {
  auto* frames = new QGridLayout;
  frames->setSpacing(12);
  frames->addWidget(XFrame(), 0, 0);
  frames->addWidget(YFrame(), 0, 1);
  frames->addWidget(DisplayFrame(), 1, 0);
  frames->addWidget(SwitchesFrame(), 1, 1);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdFactory);
  buttons->addStretch();
  buttons->addWidget(cmdClose);
  buttons->addWidget(cmdCancel);

  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(12, 12, 12, 12);
  rows->setSpacing(12);
  rows->addLayout(frames);
  rows->addLayout(buttons);
  rows->setSizeConstraint(QLayout::SetFixedSize);
}

void OptionsDialog::AddRow(QGridLayout& rows, const QStringList& lines, QWidget* control) {
  const int row = rows.rowCount();
  control->setAccessibleName(lines.join(QLatin1Char(' ')));
  rows.addLayout(StackedLabels(lines, control), row, 0);
  rows.addWidget(control, row, 1, Qt::AlignVCenter);
}

QWidget* OptionsDialog::XFrame() {
  QGridLayout* rows = MakeRows();
  AddRow(*rows, {QStringLiteral("Minimum x coordinate")}, txtDim[SettingsBox::MinimumX]);
  AddRow(*rows, {QStringLiteral("Maximum x coordinate")}, txtDim[SettingsBox::MaximumX]);
  AddRow(*rows, {QStringLiteral("Hatch mark spacing on rulers")}, txtDim[SettingsBox::HatchSpacing]);
  AddRow(*rows, {QStringLiteral("Grid spacing in x direction")}, txtDim[SettingsBox::GridX]);
  return MakeFrame("x coordinates", rows);
}

QWidget* OptionsDialog::YFrame() {
  QGridLayout* rows = MakeRows();
  AddRow(*rows, {QStringLiteral("Minimum y coordinate")}, txtDim[SettingsBox::MinimumY]);
  AddRow(*rows, {QStringLiteral("Grid spacing in y direction")}, txtDim[SettingsBox::GridY]);
  rows->addLayout(StackedLabels({QStringLiteral("Note:  maximum y coordinate set"),
                                 QStringLiteral("automatically to preserve aspect ratio")},
                                nullptr),
                  rows->rowCount(), 0, 1, 2);
  rows->setRowStretch(rows->rowCount(), 1);
  return MakeFrame("y coordinates", rows);
}

QWidget* OptionsDialog::DisplayFrame() {
  QGridLayout* rows = MakeRows();
  AddRow(*rows, {QStringLiteral("One unit on the ruler"), QStringLiteral("represents this much force")},
         txtDim[SettingsBox::ForceScale]);
  AddRow(*rows, {QStringLiteral("Number of significant"), QStringLiteral("figures to display")}, cmbSigFigs);
  AddRow(*rows, {QStringLiteral("Font size")}, cmbFontSize);
  return MakeFrame("Display options", rows);
}

QWidget* OptionsDialog::SwitchesFrame() {
  auto* rows = new QVBoxLayout;
  rows->setSpacing(RowSpacing);
  for (QCheckBox* box : {chkShowRulers, chkSnapGrid, chkShowGrid, chkSnapObject}) rows->addWidget(box);
  rows->addStretch();
  return MakeFrame("Switches", rows);
}

void OptionsDialog::FitToScreen() {
  FitWidget(*this, font(), WindowRoom(*this), [this](const QFont& font) {
    const int digits = DigitsInControl * QFontMetrics(font).horizontalAdvance(QLatin1Char('0'));
    const int width = std::max(LeastControlWidth, digits);
    for (const auto& [box, text] : txtDim) text->setFixedWidth(width);
    for (QComboBox* box : {cmbSigFigs, cmbFontSize}) box->setFixedWidth(width);
  });
}

void OptionsDialog::FixTabOrder() {
  std::vector<QWidget*> order;
  order.reserve(SettingsBoxes.size());
  for (const SettingsBox box : SettingsBoxes) order.push_back(txtDim[box]);
  order.insert(order.end(), {cmbSigFigs, cmbFontSize, chkShowRulers, chkSnapGrid, chkShowGrid, chkSnapObject,
                             cmdFactory, cmdClose, cmdCancel});
  for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

void OptionsDialog::ShowInput(const SettingsInput& input) {
  for (const auto& [box, text] : txtDim) text->setText(ToQt(input.Text(box)));
  cmbSigFigs->setCurrentIndex(static_cast<int>(input.SigFigsItem));
  cmbFontSize->setCurrentIndex(static_cast<int>(input.FontSizeItem));
  chkShowRulers->setChecked(input.ShowRulers);
  chkSnapGrid->setChecked(input.SnapGrid);
  chkShowGrid->setChecked(input.ShowGrid);
  chkSnapObject->setChecked(input.SnapObject);
}

SettingsInput OptionsDialog::Input() const {
  SettingsInput input;
  for (const auto& [box, text] : txtDim) input.Text(box) = FromQt(text->text());
  input.SigFigsItem = static_cast<std::size_t>(cmbSigFigs->currentIndex());
  input.FontSizeItem = static_cast<std::size_t>(cmbFontSize->currentIndex());
  input.ShowRulers = chkShowRulers->isChecked();
  input.SnapGrid = chkSnapGrid->isChecked();
  input.ShowGrid = chkShowGrid->isChecked();
  input.SnapObject = chkSnapObject->isChecked();
  return input;
}

void OptionsDialog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!event->spontaneous()) FocusOn(SettingsBoxes.front());
}

void OptionsDialog::FocusOn(SettingsBox box) {
  txtDim[box]->setFocus(Qt::OtherFocusReason);
  txtDim[box]->selectAll();
}

bool OptionsDialog::BadInput() {
  const std::optional<SettingsProblem> problem = BadSettings(Input(), format_);
  if (!problem) return false;
  messages_.Show({.Text = problem->Message, .Icon = MessageIcon::Critical});
  FocusOn(problem->Box);
  return true;
}

void OptionsDialog::CloseIfGood() {
  if (BadInput()) return;
  Q_EMIT Applied(Input());
  accept();
}
