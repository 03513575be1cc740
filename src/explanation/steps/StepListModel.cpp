#include "explanation/steps/StepListModel.h"

#include <QFont>
#include <QFontMetrics>

#include "explanation/ShownText.h"
#include "explanation/steps/StepsTour.h"
#include "platform/qt/QtText.h"

namespace {

// Pixels beside and above the letters.
constexpr int SideMargin = 6;
constexpr int TopMargin = 3;

}  // namespace

void StepListModel::Show(const StepsTour* tour) {
  beginResetModel();
  tour_ = tour;
  std::string longest;
  for (int i = 0; tour != nullptr && i < tour->NumOperations(); ++i) {
    std::string title = tour->Title(i);
    if (title.size() > longest.size()) longest = std::move(title);
  }
  longest_ = ShownText(longest);
  endResetModel();
}

int StepListModel::rowCount(const QModelIndex& parent) const {
  return tour_ == nullptr || parent.isValid() ? 0 : tour_->NumOperations();
}

QVariant StepListModel::data(const QModelIndex& index, int role) const {
  if (tour_ == nullptr || !index.isValid()) return {};
  switch (role) {
    case Qt::DisplayRole:
      return ShownText(tour_->Title(index.row()));
    case Qt::ToolTipRole:
      return PlainToolTip(ShownText(tour_->Title(index.row())));
    case Qt::FontRole: {
      if (!tour_->IsPivot(index.row())) return {};
      QFont bold;
      bold.setBold(true);
      return bold;
    }
    default:
      return {};
  }
}

QSize StepListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const {
  QFont bold = option.font;
  bold.setBold(true);
  const QFontMetrics letters(bold);
  return {letters.horizontalAdvance(model_.LongestTitle()) + 2 * SideMargin,
          letters.height() + 2 * TopMargin};
}
