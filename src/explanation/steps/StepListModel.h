// The list of all operations of an elimination. Its texts are made when they are shown.
#pragma once

#include <QAbstractListModel>
#include <QStyledItemDelegate>

class StepsTour;

class StepListModel final : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;

  /// The tour must outlive what is shown of it; null for none.
  void Show(const StepsTour* tour);

  /// The one with the most characters.
  const QString& LongestTitle() const { return longest_; }

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  const StepsTour* tour_ = nullptr;
  QString longest_;
};

/// Gives every line of the list the size of the longest, so that none has to be measured.
class StepListDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  StepListDelegate(const StepListModel& model, QObject* parent)
      : QStyledItemDelegate(parent), model_(model) {}

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  const StepListModel& model_;
};
