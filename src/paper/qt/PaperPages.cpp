#include "paper/qt/PaperPages.h"

#include <QFontMetricsF>
#include <algorithm>
#include <utility>

#include "paper/Page.h"
#include "paper/qt/AppendedText.h"

namespace {

// Points.
constexpr double FooterLetters = 8;
constexpr double FooterHeight = 20;  // the white above its rule, the rule, the text
constexpr double FooterRule = 8;     // from the end of the text to the rule
constexpr double RuleThickness = 0.5;

constexpr QColor FooterGrey(96, 96, 96);

QFont FooterFont() {
  QFont font(FamilyName(FontFamily::Proportional));
  font.setPointSizeF(FooterLetters);
  return font;
}

}  // namespace

void SetPageMargins(QPagedPaintDevice& device) {
  device.setPageMargins(QMarginsF(PageMargin, PageMargin, PageMargin, PageMargin), QPageLayout::Millimeter);
}

PaperPages::PaperPages(QPagedPaintDevice& device, QPainter& painter, QString footer, NextPage next)
    : device_(device),
      painter_(painter),
      next_(std::move(next)),
      footer_(std::move(footer)),
      dpiX_(device.logicalDpiX()),
      dpiY_(device.logicalDpiY()),
      textWidth_(device.width()),
      textHeight_(std::max(0.0, device.height() - FromPointsDown(FooterHeight))),
      paperWidth_(FromPointsAcross(device.pageLayout().fullRect(QPageLayout::Point).width() -
                                   device.pageLayout().paintRect(QPageLayout::Point).left())) {}

bool PaperPages::Fits(double height) const {
  constexpr double halfADot = 0.5;
  return used_ + height <= textHeight_ + halfADot;
}

double PaperPages::Take(double height) {
  if (!Fits(height) && !AtTop()) Break();
  const double top = used_;
  used_ += height;
  return top;
}

void PaperPages::Skip(double height) { used_ = std::min(used_ + height, textHeight_); }

void PaperPages::Break() {
  used_ = 0;
  if (refused_) return;
  PaintFooter();
  refused_ = !(next_ ? next_() : device_.newPage());
  if (!refused_) ++number_;
}

void PaperPages::SetPart(const QString& part) { part_ = part; }

void PaperPages::Finish() {
  if (!refused_) PaintFooter();
}

void PaperPages::PaintFooter() {
  painter_.save();
  painter_.setFont(FooterFont());
  painter_.setPen(FooterGrey);
  const QFontMetricsF metrics(FooterFont(), &device_);
  const double rule = textHeight_ + FromPointsDown(FooterRule);
  painter_.fillRect(QRectF(0, rule, textWidth_, FromPointsDown(RuleThickness)), FooterGrey);

  const double baseline = textHeight_ + FromPointsDown(FooterHeight) - metrics.descent();
  const QString title = part_.isEmpty() ? footer_ : footer_ + QStringLiteral(": ") + part_;
  const QString page = QStringLiteral("Page %1").arg(number_);
  const double pageLeft = textWidth_ - metrics.horizontalAdvance(page);
  const double titleRoom = std::max(0.0, pageLeft - FromPointsAcross(FooterLetters * 2));
  painter_.drawText(QPointF(0, baseline), metrics.elidedText(title, Qt::ElideMiddle, titleRoom));
  painter_.drawText(QPointF(pageLeft, baseline), page);
  painter_.restore();
}
