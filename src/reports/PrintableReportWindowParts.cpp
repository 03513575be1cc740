// The controls of the printable report's window, and where they stand.
#include <QAction>
#include <QCheckBox>
#include <QTextEdit>
#include <algorithm>

#include "platform/qt/FittedText.h"
#include "platform/qt/OnPress.h"
#include "platform/qt/TextInWords.h"
#include "platform/qt/TippedButton.h"
#include "reports/PrintableReportWindow.h"

namespace {

// Pixels. The document leaves 31 beside it and 62 above and below it.
constexpr int DocumentLeft = 15;
constexpr int DocumentTop = 10;
constexpr int BesideDocument = 31;
constexpr int BelowDocument = 62;
constexpr int ButtonTop = 20;     // below the document's height, from the top of the window
constexpr int HalfGap = 20;       // from the centre to Copy and to Close
constexpr int ButtonWidth = 73;   // Copy and Close
constexpr int ButtonHeight = 36;  // at most, so that a margin stays below the buttons
constexpr int ButtonGap = 8;
constexpr int CheckBoxWidth = 120;           // at most
constexpr int CheckBoxHeight = 23;           // at most, so that two have room below the document
constexpr std::size_t BoxesBesidePrint = 2;  // in one column; the others stand beside Save as
constexpr int SmallestHeight = 200;

constexpr auto CopyToolTip =
    "copies the selected text or (if nothing selected) the entire report to the clipboard";

QSize LargestOf(const std::vector<QCheckBox*>& boxes) {
  QSize largest(0, 0);
  for (const QCheckBox* box : boxes) largest = largest.expandedTo(box->sizeHint());
  return largest;
}

}  // namespace

void PrintableReportWindow::MakeTextBox() {
  RichTextBox1 = new QTextEdit(this);
  RichTextBox1->setObjectName(QStringLiteral("RichTextBox1"));
  TellPicturesInWords(*RichTextBox1);
  RichTextBox1->setAccessibleName(QStringLiteral("The report"));
  RichTextBox1->setReadOnly(true);
  RichTextBox1->setTabChangesFocus(true);
  // With a caret, from which the keyboard selects.
  RichTextBox1->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  // The letters are black, so the paper is white in every style of the desktop.
  QPalette paper = RichTextBox1->palette();
  paper.setColor(QPalette::Base, Qt::white);
  paper.setColor(QPalette::Text, Qt::black);
  RichTextBox1->setPalette(paper);
  RichTextBox1->installEventFilter(this);
}

void PrintableReportWindow::MakeButtons() {
  cmdReportPrint =
      TippedButton("cmdReportPrint", "&Print ...", "shows the pages and prints them (Ctrl+P)", this);
  cmdCopyToClipboard = TippedButton("cmdCopyToClipboard", "&Copy", CopyToolTip, this);
  cmdReportClose = TippedButton("cmdReportClose", "Close", "closes this window (Esc)", this);
  cmdReportSaveAs =
      TippedButton("cmdReportSaveAs", "&Save as ...", "saves the report in a file (Ctrl+S)", this);
  cmdReportClose->setDefault(true);
  OnPress(cmdReportPrint, this, &PrintableReportWindow::cmdReportPrint_Click);
  OnPress(cmdCopyToClipboard, this, &PrintableReportWindow::cmdCopyToClipboard_Click);
  OnPress(cmdReportClose, this, &QDialog::reject);
  OnPress(cmdReportSaveAs, this, &PrintableReportWindow::cmdReportSaveAs_Click);
}

// What the document has beyond the usual sections; nothing at first.
void PrintableReportWindow::MakeCheckBoxes() {
  for (const ReportExtraKind& kind : AllReportExtras) {
    if (kind.Caption == nullptr) continue;
    auto* box = new QCheckBox(QString::fromUtf8(kind.Caption), this);
    box->setObjectName(QStringLiteral("chkReportWith(%1)").arg(chkReportWith.size() + 1));
    box->setToolTip(QString::fromUtf8(kind.ToolTip));
    connect(box, &QCheckBox::toggled, this, &PrintableReportWindow::ChooseExtras);
    chkReportWith.push_back(box);
  }
  QWidget* last = RichTextBox1;
  const auto goOnTo = [&last](QWidget* next) {
    setTabOrder(last, next);
    last = next;
  };
  goOnTo(cmdReportPrint);
  const std::size_t numLeft = std::min(BoxesBesidePrint, chkReportWith.size());
  for (std::size_t i = 0; i < numLeft; ++i) goOnTo(chkReportWith[i]);
  for (QPushButton* button : {cmdCopyToClipboard, cmdReportClose}) goOnTo(button);
  for (std::size_t i = numLeft; i < chkReportWith.size(); ++i) goOnTo(chkReportWith[i]);
  goOnTo(cmdReportSaveAs);
}

void PrintableReportWindow::MakeActions() {
  const auto add = [this](QWidget* to, const char* text, QKeySequence::StandardKey keys, auto handler) {
    auto* action = new QAction(QString::fromUtf8(text), to);
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, handler);
    to->addAction(action);
  };
  add(RichTextBox1, "&Copy", QKeySequence::Copy, [this] { cmdCopyToClipboard_Click(); });
  add(RichTextBox1, "Select &All", QKeySequence::SelectAll, [this] { RichTextBox1->selectAll(); });
  RichTextBox1->setContextMenuPolicy(Qt::ActionsContextMenu);
  add(this, "Print", QKeySequence::Print, [this] { cmdReportPrint_Click(); });
  add(this, "Save as", QKeySequence::Save, [this] { cmdReportSaveAs_Click(); });
  add(this, "Close", QKeySequence::Close, [this] { reject(); });
}

// Copy and Close have a fixed width, and all four a height that leaves a margin below them.
void PrintableReportWindow::FitButtons() {
  const QList<QPushButton*> fixed = {cmdCopyToClipboard, cmdReportClose};
  for (QPushButton* button : fixed) button->resize(ButtonWidth, ButtonHeight);
  FitCaptions(fixed, font());
  for (QPushButton* button : {cmdReportPrint, cmdReportSaveAs}) button->setFont(fixed.front()->font());
  FitCheckBoxes();
}

// All in one font, in which they stand one below the other.
void PrintableReportWindow::FitCheckBoxes() {
  const QSize room(CheckBoxWidth, CheckBoxHeight);
  const QFont fitting = LargestFont(font(), [&](const QFont& font) {
    return std::ranges::all_of(chkReportWith, [&](QCheckBox* box) {
      box->setFont(font);
      const QSize needed = box->sizeHint();
      return needed.width() <= room.width() && needed.height() <= room.height();
    });
  });
  for (QCheckBox* box : chkReportWith) box->setFont(fitting);
}

void PrintableReportWindow::FixSmallestSize() {
  const int beside = std::max(cmdReportPrint->sizeHint().width(), cmdReportSaveAs->sizeHint().width());
  const int boxes = ButtonGap + LargestOf(chkReportWith).width();
  const int half = HalfGap + ButtonWidth + ButtonGap + boxes + beside + BesideDocument - DocumentLeft;
  setMinimumSize(2 * half, SmallestHeight);
}

void PrintableReportWindow::LayOut() {
  const QSize document(std::max(0, width() - BesideDocument), std::max(0, height() - BelowDocument));
  RichTextBox1->setGeometry(QRect(QPoint(DocumentLeft, DocumentTop), document));
  const int top = document.height() + ButtonTop;
  const int height = std::min(cmdReportSaveAs->sizeHint().height(), ButtonHeight);
  const int middle = width() / 2;
  const int printWidth = cmdReportPrint->sizeHint().width();
  const int saveAsWidth = cmdReportSaveAs->sizeHint().width();
  cmdReportPrint->setGeometry(DocumentLeft, top, printWidth, height);
  cmdCopyToClipboard->setGeometry(middle - HalfGap - ButtonWidth, top, ButtonWidth, height);
  cmdReportClose->setGeometry(middle + HalfGap, top, ButtonWidth, height);
  cmdReportSaveAs->setGeometry(DocumentLeft + document.width() - saveAsWidth, top, saveAsWidth, height);
  // One below the other: the first ones beside Print, the others beside Save as.
  const QSize boxSize = LargestOf(chkReportWith);
  const auto column = [&](std::size_t first, std::size_t end, int left) {
    const int boxesHeight = boxSize.height() * static_cast<int>(end - first);
    // The middle of what is left below the document, which is that of the buttons when they are as high as
    // may be.
    const int middleOfRow = (DocumentTop + document.height() + this->height()) / 2;
    QRect box(QPoint(left, middleOfRow - boxesHeight / 2), boxSize);
    for (std::size_t i = first; i < end; ++i) {
      chkReportWith[i]->setGeometry(box);
      box.translate(0, boxSize.height());
    }
  };
  const std::size_t numLeft = std::min(BoxesBesidePrint, chkReportWith.size());
  column(0, numLeft, DocumentLeft + printWidth + ButtonGap);
  column(numLeft, chkReportWith.size(), cmdReportSaveAs->x() - ButtonGap - boxSize.width());
}
