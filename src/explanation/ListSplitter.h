// A list beside what is chosen in it.
#pragma once

#include <QAbstractItemView>
#include <QSplitter>

/// The list, which is the first in it, is as wide as its lines need, but leaves the larger part to what
/// stands beside it; as soon as the user has moved the edge between them, it stays as he has it.
class ListSplitter final : public QSplitter {
  Q_OBJECT

 public:
  ListSplitter(QAbstractItemView& list, QWidget* parent);

  /// `pixels` is the width of the longest line.
  void FitLines(int pixels);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Fit();

  QAbstractItemView& list_;
  int lineWidth_ = 0;
  bool isMoved_ = false;
};
