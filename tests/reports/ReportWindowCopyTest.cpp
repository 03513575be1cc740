// What the keyboard and the clipboard get of the report window.
#include "ReportWindowFixture.h"

TEST_F(ReportWindowTest, CopiesTheSelectedCellsWithTheNamesOfTheirRowsAndColumns) {
  Show();
  window.LoadGridWithEquations(analysis, SigFigs);
  eqnGrid->setFocus();
  Select(0, 3, 1, 5);
  QTest::keyClick(eqnGrid, Qt::Key_C, Qt::ControlModifier);
  const QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
  ASSERT_EQ(lines.size(), 3);
  EXPECT_EQ(lines[0], QStringList({QStringLiteral("Equation"), ColumnName(3), ColumnName(4), ColumnName(5)})
                          .join(QLatin1Char('\t')));
  EXPECT_EQ(lines[1], RowName(0) + QStringLiteral("\t-1\t-0.7071\t0"));
  EXPECT_EQ(lines[2], RowName(1) + QStringLiteral("\t0\t-0.7071\t0"));
}

TEST_F(ReportWindowTest, CopiedNumbersAreReadByASpreadsheet) {
  Show();
  window.LoadGridWithEquations(analysis, SigFigs);
  eqnGrid->setFocus();
  QTest::keyClick(eqnGrid, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(eqnGrid, Qt::Key_C, Qt::ControlModifier);
  const QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
  int negative = 0;
  for (const QString& line : lines.mid(1)) {
    const QStringList fields = line.split(QLatin1Char('\t'));
    ASSERT_EQ(fields.size(), eqnGrid->model()->columnCount() + 1);
    for (const QString& field : fields.mid(1)) {
      bool isNumber = false;
      negative += QLocale::c().toDouble(field, &isNumber) < 0;
      EXPECT_TRUE(isNumber) << field.toStdString();
    }
  }
  EXPECT_GT(negative, 0);
  EXPECT_TRUE(Cell(0, 3).startsWith(Dash)) << "the window keeps its en dash";
}

TEST_F(ReportWindowTest, CopiesCellsAloneToo) {
  Show();
  window.LoadGridWithSolutions(analysis, SigFigs);
  eqnGrid->setFocus();
  Select(0, 0, 1, 0);
  QTest::keyClick(eqnGrid, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("0\n5"));
  QTest::keyClick(eqnGrid, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Force\tValue\nAx\t0\nAy\t5"));
}

TEST_F(ReportWindowTest, NothingSelectedCopiesTheWholeTable) {
  Show();
  window.LoadGridWithRREF(analysis, SigFigs);
  eqnGrid->setFocus();
  QTest::keyClick(eqnGrid, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(eqnGrid, Qt::Key_C, Qt::ControlModifier);
  const QString everything = QApplication::clipboard()->text();
  EXPECT_EQ(everything.count(QLatin1Char('\n')), eqnGrid->model()->rowCount());
  QApplication::clipboard()->setText(QStringLiteral("before"));
  eqnGrid->clearSelection();
  QTest::keyClick(eqnGrid, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), everything);
}

TEST_F(ReportWindowTest, AnEmptyGridLeavesTheClipboardAlone) {
  Show();
  window.LoadGridWithRREF(analysis, SigFigs);
  window.Clear();
  QApplication::clipboard()->setText(QStringLiteral("before"));
  eqnGrid->CopyCells(true);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("before"));
}

TEST_F(ReportWindowTest, AQuotationMarkInANameEndsNoCopiedLine) {
  Show();
  truss.Labels[truss.Joints[1].NameLabel].Caption = "\"A\" at the left";
  analysis = SolveTruss(truss);
  window.LoadGridWithEquations(analysis, SigFigs);
  eqnGrid->CopyCells(true);
  EXPECT_TRUE(
      QApplication::clipboard()->text().contains(QStringLiteral("\n\"\"\"A\"\" at the left - x\"\t")));
}

TEST_F(ReportWindowTest, DraggingTheMouseSelectsARectangle) {
  Show();
  window.LoadGridWithEquations(analysis, SigFigs);
  const QPoint from = eqnGrid->visualRect(eqnGrid->model()->index(1, 1)).center();
  const QPoint to = eqnGrid->visualRect(eqnGrid->model()->index(3, 2)).center();
  QTest::mousePress(eqnGrid->viewport(), Qt::LeftButton, {}, from);
  QTest::mouseMove(eqnGrid->viewport(), (from + to) / 2);
  QTest::mouseMove(eqnGrid->viewport(), to);
  QTest::mouseRelease(eqnGrid->viewport(), Qt::LeftButton, {}, to);
  EXPECT_EQ(eqnGrid->selectionModel()->selectedIndexes().size(), 3 * 2);
}
