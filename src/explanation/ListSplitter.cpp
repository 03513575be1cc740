#include "explanation/ListSplitter.h"

#include <QScrollBar>
#include <QStyle>
#include <algorithm>

namespace {

// Of the whole width.
constexpr int MostPercentForList = 40;

}  // namespace

ListSplitter::ListSplitter(QAbstractItemView& list, QWidget* parent)
    : QSplitter(Qt::Horizontal, parent), list_(list) {
  addWidget(&list);
  connect(this, &QSplitter::splitterMoved, this, [this] { isMoved_ = true; });
}

void ListSplitter::FitLines(int pixels) {
  lineWidth_ = pixels;
  Fit();
}

void ListSplitter::resizeEvent(QResizeEvent* event) {
  QSplitter::resizeEvent(event);
  Fit();
}

void ListSplitter::Fit() {
  if (isMoved_ || lineWidth_ == 0) return;
  const int beside = style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 2 * list_.frameWidth() +
                     2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
  const int wanted = std::min(lineWidth_ + beside, width() * MostPercentForList / 100);
  const int list = std::max(wanted, list_.minimumSizeHint().expandedTo(list_.minimumSize()).width());
  setSizes({list, std::max(0, width() - handleWidth() - list)});
}
