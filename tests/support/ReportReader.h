// Reads the tables of the report window, and joint equations, as a user would compare them.
#pragma once

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QStringList>
#include <QWidget>

/// The table that the report window shows; it has no rows while it shows a text.
inline QAbstractItemModel& ShownTable(const QWidget& report) {
  return *report.findChild<QAbstractItemView*>(QStringLiteral("EqnGrid"))->model();
}

inline QStringList Headings(const QAbstractItemModel& table, Qt::Orientation orientation) {
  QStringList headings;
  const int count = orientation == Qt::Vertical ? table.rowCount() : table.columnCount();
  for (int i = 0; i < count; ++i) headings.append(table.headerData(i, orientation).toString());
  return headings;
}

/// The names of the joints in the order of the rows of an Equations table, which are headed "A - x", "A - y",
/// "B - x" and so on. An odd heading is left as it is.
inline QStringList JointsOfRows(const QAbstractItemModel& equations) {
  QStringList joints;
  const QStringList rows = Headings(equations, Qt::Vertical);
  for (int row = 0; row + 1 < rows.size(); row += 2) {
    const QString joint = rows[row].chopped(4);
    const bool isPair =
        rows[row] == joint + QLatin1String(" - x") && rows[row + 1] == joint + QLatin1String(" - y");
    joints.append(isPair ? joint : rows[row] + QLatin1String(" / ") + rows[row + 1]);
  }
  return joints;
}

/// Heading and cells of the whole table, or the text that stands in its place: one text for each row.
inline QStringList ShownReport(const QWidget& report) {
  const QAbstractItemModel& table = ShownTable(report);
  if (table.rowCount() == 0)
    return {report.findChild<QPlainTextEdit*>(QStringLiteral("txtReport1"))->toPlainText()};
  QStringList lines{Headings(table, Qt::Horizontal).join(u'\t')};
  for (int row = 0; row < table.rowCount(); ++row) {
    QStringList cells{table.headerData(row, Qt::Vertical).toString()};
    for (int column = 0; column < table.columnCount(); ++column) {
      cells.append(table.index(row, column).data().toString());
    }
    lines.append(cells.join(u'\t'));
  }
  return lines;
}

/// The unknown forces that a joint equation names, sorted: "E cos(45.0) + By = F" has By, E and F. Names must
/// be without blanks and no numbers.
inline QStringList ForcesIn(const QString& equation) {
  QStringList forces;
  const QStringList terms = equation.split(QRegularExpression(QStringLiteral(" (\\+|=) ")));
  for (const QString& term : terms) {
    const QString name = term.section(u' ', 0, 0);
    if (!name.contains(QRegularExpression(QStringLiteral("^[0-9.]+$")))) forces.append(name);
  }
  forces.sort();
  return forces;
}

/// The unknown forces that have a coefficient in a row of an Equations table, sorted.
inline QStringList ForcesIn(const QAbstractItemModel& equations, int row) {
  QStringList forces;
  for (int column = 0; column + 1 < equations.columnCount(); ++column) {
    if (equations.index(row, column).data().toString() == QLatin1String("0")) continue;
    forces.append(equations.headerData(column, Qt::Horizontal).toString());
  }
  forces.sort();
  return forces;
}
