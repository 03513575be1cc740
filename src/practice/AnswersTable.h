// The table in which a student writes forces: a row for each, with a box for his value and what is said of
// it.
#pragma once

#include <QTableWidget>
#include <string>
#include <vector>

class AnswersTable final : public QTableWidget {
  Q_OBJECT

 public:
  explicit AnswersTable(QWidget* parent);

  /// Writes the rows anew, with empty boxes.
  void ShowForces(const QStringList& names);

  /// Takes over what is being written in a box.
  void TakeOver();

  QString Value(int row) const;

  /// The boxes of all rows. UTF-8.
  std::vector<std::string> Written() const;

  void ShowVerdict(int row, const QString& words);

 Q_SIGNALS:
  /// The student has changed the box of this row.
  void ValueChanged(int row);

 protected:
  /// Return and Tab go on to the box below, Shift+Tab to the one above.
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

  /// Keys begin to write in the row's box wherever in the row the cursor is.
  void keyPressEvent(QKeyEvent* event) override;

  void resizeEvent(QResizeEvent* event) override;

 private:
  enum Column { Name, Box, Verdict, NumColumns };
};
