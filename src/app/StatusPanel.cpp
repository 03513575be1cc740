#include "app/StatusPanel.h"

#include <QPainter>
#include <QStyle>
#include <algorithm>

#include "app/FileMenu.h"
#include "app/StepTexts.h"
#include "editing/ToolPalette.h"
#include "platform/qt/AccessibleEvents.h"
#include "platform/qt/FittedText.h"
#include "platform/qt/QtText.h"

namespace {

constexpr int SideMargin = 8;
constexpr int AirAroundStatus = 6;  // together
constexpr double SmallestStatusPoints = 8;

// The read-out keeps its font while the mouse moves, so it is chosen for more digits than most places have.
QString WideReadOut() { return QStringLiteral("(-00.00, -00.00)"); }

QStringList StandingTexts() {
  QStringList texts = {QString::fromLatin1(Step1StatusText), QString::fromLatin1(Step2StatusText),
                       QString::fromLatin1(Step3StatusText), QString::fromLatin1(FileMenuStatusText)};
  for (int tool = 1; tool <= NumTools; ++tool) texts.append(QString::fromLatin1(ToolHint(tool)));
  return texts;
}

}  // namespace

StatusPanel::StatusPanel(int number, QWidget* statusBar) : QLabel(statusBar), wraps_(number == 1) {
  setObjectName(QStringLiteral("StatusBar1(%1)").arg(number));
  setTextFormat(Qt::PlainText);
  setWordWrap(wraps_);
  setAlignment(Qt::AlignVCenter | (wraps_ ? Qt::AlignLeft : Qt::AlignRight));
  setAccessibleDescription(wraps_ ? QStringLiteral("What to do next")
                                  : QStringLiteral("Where the cursor is"));
  setContentsMargins(SideMargin, 0, SideMargin, 0);
}

int StatusPanel::Flags() const {
  return static_cast<int>(alignment()) | (wraps_ ? Qt::TextWordWrap : Qt::TextSingleLine);
}

void StatusPanel::Fit(const QFont& wanted, const QString& text) {
  const QSize room = contentsRect().size();
  setFont(LargestFont(
      wanted, [&](const QFont& font) { return TextFits(font, text, room, Flags()); }, SmallestStatusPoints));
}

QString StatusPanel::Shown() const {
  return ShortenedText(font(), text().trimmed(), contentsRect().size(), Flags());
}

void StatusPanel::ShowText(const QString& text) {
  const bool isNew = text != this->text();
  setText(text);
  if (isNew && wraps_) Announce(*this, text.trimmed());
  Fit(wraps_ ? parentWidget()->font() : font(), text.trimmed());
  if (!wraps_) return;
  setToolTip(PlainToolTip(text.trimmed()));
}

void StatusPanel::Place(int left, int width) {
  setGeometry(left, 0, width, parentWidget()->height());
  if (!wraps_) Fit(parentWidget()->font(), WideReadOut());
  ShowText(text());
}

void StatusPanel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), Flags(), palette(), isEnabled(), Shown(), foregroundRole());
}

int StatusBarHeight(const QFont& font, int firstPanelWidth, int windowHeight) {
  const QFontMetrics metrics(font);
  const auto heightOf = [&](int lines) { return (lines - 1) * metrics.lineSpacing() + metrics.height(); };
  const QSize twoLines(firstPanelWidth - 2 * SideMargin, heightOf(2));
  const QStringList texts = StandingTexts();
  const bool two = std::ranges::all_of(
      texts, [&](const QString& text) { return TextFits(font, text.trimmed(), twoLines, Qt::TextWordWrap); });
  return std::min(heightOf(two ? 2 : 3) + AirAroundStatus, windowHeight / 4);
}
