// The report window: what its text box, heading and table show.
#include <algorithm>

#include "ReportWindowFixture.h"
#include "reports/ReportTables.h"
#include "support/RandomTruss.h"

TEST_F(ReportWindowTest, StartsEmpty) {
  EXPECT_EQ(window.objectName(), QStringLiteral("Report"));
  EXPECT_EQ(window.windowTitle(), QStringLiteral("Report"));
  EXPECT_TRUE(txtReport1->toPlainText().isEmpty());
  EXPECT_TRUE(txtReport1->isReadOnly());
  EXPECT_FALSE(txtReport1->isHidden());
  EXPECT_TRUE(eqnGrid->isHidden());
  EXPECT_TRUE(label17->isHidden());
}

TEST_F(ReportWindowTest, CountingReportStandsInTheTextBox) {
  window.LoadGridWithEquations(analysis, SigFigs);
  window.ReportCounting(analysis.Counted);
  EXPECT_EQ(window.windowTitle(),
            QStringLiteral("Report - Counting the number of unknown forces and the number of determining "
                           "equations"));
  EXPECT_FALSE(txtReport1->isHidden());
  EXPECT_TRUE(eqnGrid->isHidden());
  EXPECT_TRUE(label17->isHidden());
  const QString text = txtReport1->toPlainText();
  EXPECT_TRUE(
      text.startsWith(QStringLiteral("The forces:  This truss contains 6 unknown forces:\n\n- the 3 member "
                                     "force(s), labelled F1, F2, F3, \n")));
  EXPECT_TRUE(text.contains(
      QStringLiteral("This truss contains 3 joints, labelled A, C, D.  Thus there are 6 equations.\n\n")));
  EXPECT_EQ(window.Counting().Count.substr(0, 52), "There are the same number of equations as unknowns.\r");
}

TEST_F(ReportWindowTest, CountingWithoutUnknownsIsEmptyAndKeepsTheCaption) {
  window.LoadGridWithRREF(analysis, SigFigs);
  const QString caption = window.windowTitle();
  Analyse(TrussBuilder());
  window.ReportCounting(analysis.Counted);
  EXPECT_TRUE(txtReport1->toPlainText().isEmpty());
  EXPECT_FALSE(txtReport1->isHidden());
  EXPECT_TRUE(eqnGrid->isHidden());
  EXPECT_EQ(window.windowTitle(), caption);
}

TEST_F(ReportWindowTest, TablesWithoutUnknownsHaveOnlyTheirHeaders) {
  Analyse(TrussBuilder());
  Show();
  window.LoadGridWithEquations(analysis, SigFigs);
  EXPECT_EQ(eqnGrid->model()->rowCount(), 0);
  EXPECT_EQ(eqnGrid->model()->columnCount(), 1);
  EXPECT_EQ(Corner() + ColumnName(0), QStringLiteral("EquationRHS"));
  EXPECT_EQ(window.LoadGridWithSolutions(analysis, SigFigs), Outcome::Neither);
  EXPECT_EQ(Corner() + ColumnName(0), QStringLiteral("ForceValue"));
  window.grab();
}

TEST_F(ReportWindowTest, EquationsTable) {
  window.LoadGridWithEquations(analysis, SigFigs);
  EXPECT_EQ(window.windowTitle(), QStringLiteral("Report - The system of equations for the unknown forces"));
  EXPECT_EQ(label17->text(), QStringLiteral("The augmented matrix for the system of equations:"));
  EXPECT_TRUE(txtReport1->isHidden());
  EXPECT_FALSE(eqnGrid->isHidden());
  EXPECT_FALSE(label17->isHidden());
  ASSERT_EQ(eqnGrid->model()->rowCount(), 6);
  ASSERT_EQ(eqnGrid->model()->columnCount(), 7);
  EXPECT_EQ(Corner(), QStringLiteral("Equation"));
  QStringList columns;
  for (int column = 0; column < 7; ++column) columns.append(ColumnName(column));
  EXPECT_EQ(columns.join(QLatin1Char(' ')), QStringLiteral("Ax Ay B F1 F2 F3 RHS"));
  QStringList rows;
  for (int row = 0; row < 6; ++row) rows.append(RowName(row));
  EXPECT_EQ(rows.join(QLatin1Char('|')), QStringLiteral("A - x|A - y|C - x|C - y|D - x|D - y"));
  EXPECT_EQ(Cell(0, 0), QStringLiteral("1"));
  EXPECT_EQ(Cell(0, 1), QStringLiteral("0"));
  EXPECT_EQ(Cell(0, 3), Dash + QStringLiteral("1"));
  EXPECT_EQ(Cell(0, 4), Dash + QStringLiteral("0.7071"));
  EXPECT_EQ(Cell(3, 6), QStringLiteral("10"));
}

TEST_F(ReportWindowTest, RREFTable) {
  window.LoadGridWithRREF(analysis, SigFigs);
  EXPECT_EQ(window.windowTitle(), QStringLiteral("Report - the system of equations in RREF form"));
  EXPECT_EQ(label17->text(), QStringLiteral("The augmented matrix in RREF form:"));
  EXPECT_EQ(Corner(), QStringLiteral("Equation"));
  EXPECT_EQ(RowName(0), QString());
  for (int row = 0; row < 6; ++row) {
    for (int column = 0; column < 6; ++column) {
      EXPECT_EQ(Cell(row, column), row == column ? QStringLiteral("1") : QStringLiteral("0"));
    }
  }
}

TEST_F(ReportWindowTest, SolutionsTable) {
  EXPECT_EQ(window.LoadGridWithSolutions(analysis, SigFigs), Outcome::Neither);
  EXPECT_EQ(window.windowTitle(), QStringLiteral("Report - the forces"));
  EXPECT_EQ(label17->text(), QStringLiteral("The solutions:"));
  EXPECT_EQ(Corner(), QStringLiteral("Force"));
  EXPECT_EQ(ColumnName(0), QStringLiteral("Value"));
  ASSERT_EQ(eqnGrid->model()->rowCount(), 6);
  EXPECT_EQ(RowName(1), QStringLiteral("Ay"));
  EXPECT_EQ(Cell(1, 0), QStringLiteral("5"));
  EXPECT_EQ(RowName(3), QStringLiteral("F1"));
  EXPECT_EQ(Cell(3, 0), Dash + QStringLiteral("5"));
  EXPECT_EQ(Cell(4, 0), QStringLiteral("7.071"));
  EXPECT_TRUE(redundant->isHidden());
}

TEST_F(ReportWindowTest, NumbersFollowTheSignificantFiguresAndTheSeparator) {
  ReportWindow german(NumberFormat{","});
  german.LoadGridWithSolutions(analysis, 6);
  EXPECT_EQ(german.findChild<ReportGrid*>()->model()->index(4, 0).data().toString(),
            QStringLiteral("7,07107"));
}

TEST_F(ReportWindowTest, InconsistentSystemShowsItsConclusionInstead) {
  Analyse(InLine(0, -5));
  EXPECT_EQ(window.LoadGridWithSolutions(analysis, SigFigs), Outcome::Inconsistent);
  EXPECT_EQ(window.windowTitle(), QStringLiteral("Report - the forces"));
  EXPECT_TRUE(eqnGrid->isHidden());
  EXPECT_TRUE(redundant->isHidden());
  EXPECT_FALSE(txtReport1->isHidden());
  EXPECT_EQ(txtReport1->toPlainText(), QString::fromLatin1(InconsistentText));
}

TEST_F(ReportWindowTest, RedundantSystemHasThreeLinesBelowTheTable) {
  Analyse(InLine(5, 0));
  Show();
  EXPECT_EQ(window.LoadGridWithSolutions(analysis, SigFigs), Outcome::Redundant);
  ASSERT_FALSE(redundant->isHidden());
  EXPECT_EQ(redundant->text(), QStringLiteral("  The truss is in equilibrium (static) for these\n"
                                              "  particular applied forces but not for others.\n"
                                              "  Thus the truss is unstable."));
  EXPECT_EQ(redundant->y(), eqnGrid->height() + 60);
  EXPECT_GE(redundant->y(), eqnGrid->geometry().bottom());
  EXPECT_EQ(Cell(0, 0), QStringLiteral("undetermined"));
  window.LoadGridWithEquations(analysis, SigFigs);
  EXPECT_TRUE(redundant->isHidden());
}

TEST_F(ReportWindowTest, RedundantLinesStandBesideATableAsHighAsTheWindow) {
  Analyse(InLine(5, 0));
  Show();
  window.LoadGridWithSolutions(analysis, SigFigs);
  window.resize(600, 160);
  EXPECT_TRUE(window.rect().contains(redundant->geometry()));
  EXPECT_FALSE(redundant->geometry().intersects(eqnGrid->geometry()));
}

TEST_F(ReportWindowTest, ColumnsAreAsWideAsTheirTextsAndTen) {
  window.LoadGridWithEquations(analysis, SigFigs);
  EXPECT_EQ(eqnGrid->NaturalColumnWidth(0), TextWidth(QStringLiteral("Equation")) + 10);
  EXPECT_EQ(eqnGrid->NaturalColumnWidth(3), 30);  // "B", "0" and "1" are narrow
  EXPECT_EQ(eqnGrid->NaturalColumnWidth(5), TextWidth(Dash + QStringLiteral("0.7071")) + 10);
  EXPECT_EQ(eqnGrid->NaturalColumnWidth(7), TextWidth(QStringLiteral("RHS")) + 10);
  for (int column = 0; column < 7; ++column) {
    EXPECT_EQ(eqnGrid->columnWidth(column), eqnGrid->NaturalColumnWidth(column + 1)) << column;
  }
}

// Not every text is asked for when the columns are measured; none of those may be wider.
TEST_F(ReportWindowTest, NoTextOfAnyTableIsWiderThanItsColumn) {
  RandomTruss random(11);
  for (const float points : {10.0F, 12.0F, 14.0F, 16.0F}) {
    window.ChooseFontSet(points);
    for (int times = 0; times < 20; ++times) {
      Analyse(random.Next());
      for (const int figures : {1, 3, 4, 7, 15}) {
        const auto table = LoadGridWithRREF(analysis, ReportFormat{figures, NumberFormat{}});
        window.LoadGridWithRREF(analysis, figures);
        for (int column = 1; column < table->NumColumns(); ++column) {
          int widest = 30;
          for (int row = 0; row < table->NumRows(); ++row)
            widest = std::max(widest, TextWidth(OneLineText(ToQt(table->Text(row, column)))) + 10);
          ASSERT_EQ(eqnGrid->NaturalColumnWidth(column), widest)
              << times << ", " << figures << ", " << column;
        }
      }
    }
  }
}

TEST_F(ReportWindowTest, RowsAreOneAndAHalfTimesTheFontSizeAndThreeMoreForSolutions) {
  for (const float points : {10.0F, 12.0F, 14.0F, 16.0F}) {
    window.ChooseFontSet(points);
    const int height = static_cast<int>(1.5F * points);
    window.LoadGridWithEquations(analysis, SigFigs);
    EXPECT_EQ(eqnGrid->rowHeight(0), height);
    EXPECT_EQ(eqnGrid->horizontalHeader()->height(), height);
    EXPECT_EQ(eqnGrid->NaturalSize().height(), 7 * height);
    window.LoadGridWithSolutions(analysis, SigFigs);
    EXPECT_EQ(eqnGrid->rowHeight(0), height + 3);
    EXPECT_EQ(eqnGrid->NaturalSize().height(), 7 * (height + 3));
  }
}

TEST_F(ReportWindowTest, LettersFitTheRowsInEveryFontSize) {
  for (const float points : {10.0F, 12.0F, 14.0F, 16.0F}) {
    window.ChooseFontSet(points);
    window.LoadGridWithEquations(analysis, SigFigs);
    const QRectF ink = QFontMetricsF(eqnGrid->font()).tightBoundingRect(QStringLiteral("Fgjpqy0123"));
    EXPECT_LE(ink.height(), eqnGrid->rowHeight(0) - 1) << points;
  }
}

TEST_F(ReportWindowTest, FontSizeReachesTextTableAndWindow) {
  window.ChooseFontSet(14);
  const int pixels = QFontInfo(window.font()).pixelSize();
  EXPECT_NEAR(pixels, 14 * 96 / 72.0, 1);
  EXPECT_EQ(QFontInfo(txtReport1->font()).pixelSize(), pixels);
  EXPECT_EQ(QFontInfo(eqnGrid->font()).pixelSize(), pixels);
}

TEST_F(ReportWindowTest, ANewFontSizeLaysTheShownTableOutAgain) {
  window.LoadGridWithSolutions(analysis, SigFigs);
  window.ChooseFontSet(16);
  EXPECT_EQ(eqnGrid->rowHeight(0), 27);
  EXPECT_EQ(eqnGrid->NaturalColumnWidth(0), TextWidth(QStringLiteral("Force")) + 10);
}

TEST_F(ReportWindowTest, NaturalSizeIsTheSumOfColumnsAndRows) {
  window.LoadGridWithEquations(analysis, SigFigs);
  int width = 0;
  for (int column = 0; column < 8; ++column) width += eqnGrid->NaturalColumnWidth(column);
  EXPECT_EQ(eqnGrid->NaturalSize(), QSize(width, 7 * 15));
}

TEST_F(ReportWindowTest, EscapeClosesFromTableAndText) {
  Show();
  window.LoadGridWithEquations(analysis, SigFigs);
  QTest::keyClick(eqnGrid, Qt::Key_Escape);
  EXPECT_FALSE(window.isVisible());
  Show();
  window.ReportCounting(analysis.Counted);
  QTest::keyClick(txtReport1, Qt::Key_Escape);
  EXPECT_FALSE(window.isVisible());
}

TEST_F(ReportWindowTest, NamesAreNeverMarkup) {
  truss.Labels[truss.Joints[1].NameLabel].Caption = "<b>x</b> & y";
  analysis = SolveTruss(truss);
  window.LoadGridWithEquations(analysis, SigFigs);
  EXPECT_EQ(RowName(0), QStringLiteral("<b>x</b> & y - x"));
  EXPECT_EQ(eqnGrid->NaturalColumnWidth(0), TextWidth(QStringLiteral("<b>x</b> & y - x")) + 10);
  EXPECT_TRUE(eqnGrid->model()
                  ->headerData(0, Qt::Vertical, Qt::ToolTipRole)
                  .toString()
                  .contains(QStringLiteral("&lt;b&gt;x&lt;/b&gt; &amp; y - x")));
  window.ReportCounting(analysis.Counted);
  EXPECT_TRUE(txtReport1->toPlainText().contains(QStringLiteral("<b>x</b> & y, ")));
}

TEST_F(ReportWindowTest, NamesWithCharactersOfTheCodePage) {
  truss.Labels[truss.Joints[1].NameLabel].Caption = "\x80\xE4";
  analysis = SolveTruss(truss);
  window.LoadGridWithEquations(analysis, SigFigs);
  EXPECT_EQ(RowName(4), QStringLiteral("\u20AC\u00E4 - x"));
}

TEST_F(ReportWindowTest, LineBreaksInNamesStayInTheirRow) {
  Show();
  truss.Labels[truss.Joints[1].NameLabel].Caption = "a\tb\r\nc";
  analysis = SolveTruss(truss);
  window.LoadGridWithEquations(analysis, SigFigs);
  EXPECT_EQ(eqnGrid->rowHeight(0), 15);
  const int row = RowName(0).startsWith(QLatin1Char('a')) ? 0 : 4;
  Select(row, 0, row, 0);
  eqnGrid->CopyCells(true);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Equation\tAx\na b  c - x\t1"));
}

TEST_F(ReportWindowTest, NamesOfTenThousandCharactersLeaveTheNumbersInSight) {
  Show();
  truss.Labels[truss.Joints[1].NameLabel].Caption = std::string(10000, 'W');
  truss.Labels[truss.Members[2].NameLabel1].Caption = std::string(10000, 'i');
  analysis = SolveTruss(truss);
  window.LoadGridWithEquations(analysis, SigFigs);
  EXPECT_EQ(eqnGrid->NaturalColumnWidth(0),
            TextWidth(QString(10000, QLatin1Char('W')) + QStringLiteral(" - x")) + 10);
  EXPECT_LE(eqnGrid->verticalHeader()->width(), eqnGrid->width() / 2);
  EXPECT_GT(eqnGrid->viewport()->width(), 100);
  window.grab();
}

TEST_F(ReportWindowTest, ClearForgetsTheSystem) {
  window.LoadGridWithSolutions(analysis, SigFigs);
  window.Clear();
  analysis = TrussAnalysis();
  Show();
  window.resize(300, 300);
  window.grab();
  EXPECT_EQ(eqnGrid->model()->rowCount(), 0);
  EXPECT_TRUE(eqnGrid->isHidden());
  EXPECT_TRUE(txtReport1->toPlainText().isEmpty());
  EXPECT_TRUE(window.Counting().Text().empty());
}

TEST_F(ReportWindowTest, EquationsKeepTheirNamesWhenTheTrussIsEmptied) {
  Show();
  window.LoadGridWithEquations(analysis, SigFigs);
  ResetAll(truss);
  truss = Truss();
  window.grab();
  EXPECT_EQ(RowName(0), QStringLiteral("A - x"));
}

TEST_F(ReportWindowTest, OpensTheReportsOfThousandsOfUnknowns) {
  TrussBuilder builder;
  for (int panel = 0; panel < 1023; ++panel) {
    const float x = static_cast<float>(2 * panel);
    builder.Member(x, 0, x + 2, 0).Member(x, 0, x + 1, 2).Member(x + 1, 2, x + 2, 0);
    if (panel > 0) builder.Member(x - 1, 2, x + 1, 2);
    builder.Force(x + 1, 2, 0, -1);
  }
  builder.Clamp(0, 0).Roller(2046, 0);
  Analyse(builder);
  ASSERT_EQ(analysis.System.NumUnknowns(), 4094);
  Show();
  window.LoadGridWithEquations(analysis, SigFigs);
  ASSERT_EQ(eqnGrid->model()->rowCount(), 4094);
  ASSERT_EQ(eqnGrid->model()->columnCount(), 4095);
  EXPECT_TRUE(eqnGrid->horizontalScrollBar()->isVisible());
  EXPECT_TRUE(eqnGrid->verticalScrollBar()->isVisible());
  eqnGrid->scrollTo(eqnGrid->model()->index(4093, 4094));
  window.grab();
  window.LoadGridWithRREF(analysis, SigFigs);
  EXPECT_EQ(window.LoadGridWithSolutions(analysis, SigFigs), Outcome::Neither);
  EXPECT_EQ(eqnGrid->model()->rowCount(), 4094);
  window.grab();
}

TEST_F(ReportWindowTest, HasNamesForAssistiveTools) {
  window.LoadGridWithEquations(analysis, SigFigs);
  EXPECT_EQ(eqnGrid->accessibleName(), label17->text());
  EXPECT_FALSE(txtReport1->accessibleName().isEmpty());
  EXPECT_FALSE(eqnGrid->toolTip().isEmpty());
}
