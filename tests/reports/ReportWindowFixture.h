// A report window with the analysis of a small truss.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QtTest>

#include "analysis/Analysis.h"
#include "platform/qt/QtText.h"
#include "reports/ReportGrid.h"
#include "reports/ReportWindow.h"
#include "support/TrussBuilder.h"

inline constexpr QChar Dash(0x2013);
inline constexpr int SigFigs = 4;

struct ReportWindowTest : testing::Test {
  ReportWindow window{NumberFormat{}};
  QPlainTextEdit* txtReport1 = window.findChild<QPlainTextEdit*>(QStringLiteral("txtReport1"));
  ReportGrid* eqnGrid = window.findChild<ReportGrid*>(QStringLiteral("EqnGrid"));
  QLabel* label17 = window.findChild<QLabel*>(QStringLiteral("Label17"));
  QLabel* redundant = window.findChild<QLabel*>(QStringLiteral("lblRedundant"));

  // A clamp on the left, a roller on the right, a load on the apex: 6 equations, 6 unknowns.
  Truss truss = TrussBuilder()
                    .Member(0, 0, 4, 0, "F1")
                    .Member(0, 0, 2, 2, "F2")
                    .Member(2, 2, 4, 0, "F3")
                    .Clamp(0, 0, "Ax", "Ay")
                    .Roller(4, 0, "B")
                    .Force(2, 2, 0, -10)
                    .Joint(0, 0, "A")
                    .Joint(2, 2, "C")
                    .Joint(4, 0, "D");
  TrussAnalysis analysis = SolveTruss(truss);

  void Analyse(const Truss& other) {
    window.Clear();
    truss = other;
    analysis = SolveTruss(truss);
  }

  void Show() {
    window.BringUp();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  QString Cell(int row, int column) const { return eqnGrid->model()->index(row, column).data().toString(); }
  QString ColumnName(int column) const {
    return eqnGrid->model()->headerData(column, Qt::Horizontal).toString();
  }
  QString RowName(int row) const { return eqnGrid->model()->headerData(row, Qt::Vertical).toString(); }
  QString Corner() const { return static_cast<ReportTableModel*>(eqnGrid->model())->CornerText(); }
  int TextWidth(const QString& text) const { return QFontMetrics(window.font()).horizontalAdvance(text); }

  void Select(int top, int left, int bottom, int right) {
    const QAbstractItemModel* model = eqnGrid->model();
    eqnGrid->selectionModel()->select(QItemSelection(model->index(top, left), model->index(bottom, right)),
                                      QItemSelectionModel::ClearAndSelect);
  }
};

// Two members in line between two clamps: pulled along they hold, pushed across they move.
inline Truss InLine(float fx, float fy) {
  return TrussBuilder()
      .Member(0, 0, 2, 0, "F1")
      .Member(2, 0, 4, 0, "F2")
      .Clamp(0, 0, "Ax", "Ay")
      .Clamp(4, 0, "Bx", "By")
      .Force(2, 0, fx, fy);
}
