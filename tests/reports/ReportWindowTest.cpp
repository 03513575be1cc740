// The report window: what its text box, heading and table show, how the table is sized, and what the keyboard
// and the clipboard get.
#include "reports/ReportWindow.h"

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
#include "support/TrussBuilder.h"

namespace {

constexpr QChar Dash(0x2013);
constexpr int SigFigs = 4;

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
Truss InLine(float fx, float fy) {
  return TrussBuilder()
      .Member(0, 0, 2, 0, "F1")
      .Member(2, 0, 4, 0, "F2")
      .Clamp(0, 0, "Ax", "Ay")
      .Clamp(4, 0, "Bx", "By")
      .Force(2, 0, fx, fy);
}

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

// How the table and its scroll bars fit windows that are just large enough and a pixel too small.
struct GridInWindow : ReportWindowTest {
  QSize natural;

  void SetUp() override {
    Show();
    window.LoadGridWithEquations(analysis, SigFigs);
    natural = eqnGrid->NaturalSize();
  }

  // Resizes the window to leave this room beside the 32 and 64 pixels that are kept free.
  void GiveRoom(int width, int height) {
    window.setMinimumSize(0, 0);
    window.resize(width + 32, height + 64);
    QCoreApplication::processEvents();
  }
};

TEST_F(GridInWindow, JustFitsWithoutScrollBars) {
  GiveRoom(natural.width(), natural.height());
  EXPECT_EQ(eqnGrid->size(), natural);
  EXPECT_FALSE(eqnGrid->horizontalScrollBar()->isVisible());
  EXPECT_FALSE(eqnGrid->verticalScrollBar()->isVisible());
  EXPECT_EQ(eqnGrid->horizontalScrollBar()->maximum(), 0);
  EXPECT_EQ(eqnGrid->verticalScrollBar()->maximum(), 0);
}

TEST_F(GridInWindow, OnePixelTooWideWithRoomBelowGrowsByTheBar) {
  GiveRoom(natural.width() - 1, natural.height() + 14);
  EXPECT_EQ(eqnGrid->size(), QSize(natural.width() - 1, natural.height() + 14));
  EXPECT_TRUE(eqnGrid->horizontalScrollBar()->isVisible());
  EXPECT_FALSE(eqnGrid->verticalScrollBar()->isVisible());
  EXPECT_EQ(eqnGrid->horizontalScrollBar()->height(), 14);
  EXPECT_EQ(eqnGrid->verticalScrollBar()->maximum(), 0);
}

TEST_F(GridInWindow, OnePixelTooHighWithRoomBesideGrowsByTheBar) {
  GiveRoom(natural.width() + 14, natural.height() - 1);
  EXPECT_EQ(eqnGrid->size(), QSize(natural.width() + 14, natural.height() - 1));
  EXPECT_FALSE(eqnGrid->horizontalScrollBar()->isVisible());
  EXPECT_TRUE(eqnGrid->verticalScrollBar()->isVisible());
  EXPECT_EQ(eqnGrid->verticalScrollBar()->width(), 14);
  EXPECT_EQ(eqnGrid->horizontalScrollBar()->maximum(), 0);
}

TEST_F(GridInWindow, WithoutRoomForOneBarHasBoth) {
  GiveRoom(natural.width() - 1, natural.height() + 13);
  EXPECT_EQ(eqnGrid->size(), QSize(natural.width() - 1, natural.height() + 13));
  EXPECT_TRUE(eqnGrid->horizontalScrollBar()->isVisible());
  EXPECT_TRUE(eqnGrid->verticalScrollBar()->isVisible());
}

TEST_F(GridInWindow, TextBoxLeavesEightPixelsOnEachSide) {
  window.ReportCounting(analysis.Counted);
  GiveRoom(500, 300);
  EXPECT_EQ(txtReport1->geometry(), QRect(8, 8, 500 + 32 - 16, 300 + 64 - 16));
}

TEST_F(GridInWindow, SurvivesATinyWindow) {
  GiveRoom(-31, -63);
  window.grab();
  EXPECT_TRUE(eqnGrid->size().isEmpty());
  GiveRoom(natural.width(), natural.height());
  EXPECT_EQ(eqnGrid->size(), natural);
}

TEST_F(GridInWindow, IsNotLaidOutWhileMinimised) {
  GiveRoom(natural.width(), natural.height());
  window.setWindowState(Qt::WindowMinimized);
  QResizeEvent tiny(QSize(10, 10), window.size());
  QCoreApplication::sendEvent(&window, &tiny);
  EXPECT_EQ(eqnGrid->size(), natural);
  window.BringUp();
  EXPECT_FALSE(window.isMinimized());
}

TEST_F(GridInWindow, ANewTableStartsAtItsFirstCell) {
  GiveRoom(120, 40);
  eqnGrid->verticalScrollBar()->setValue(30);
  eqnGrid->horizontalScrollBar()->setValue(30);
  window.LoadGridWithRREF(analysis, SigFigs);
  EXPECT_EQ(eqnGrid->verticalScrollBar()->value(), 0);
  EXPECT_EQ(eqnGrid->horizontalScrollBar()->value(), 0);
}

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

// --- what is told below the conclusion

constexpr auto NoticeText =
    "Exactly, the system is redundant.  The reduced matrix says otherwise because directions are rounded to "
    "single precision: 3.141E-6 on the right of a row without coefficients is a remnant of rounding, about "
    "1E-8 "
    "of the largest load.  Read on under Learn.";

struct NoticeInReportWindow : ReportWindowTest {
  QPlainTextEdit* notice = window.findChild<QPlainTextEdit*>(QStringLiteral("txtNotice"));

  void ExpectAllInSight(const QWidget* above) {
    SCOPED_TRACE(testing::Message() << window.width() << " x " << window.height() << ", "
                                    << window.font().pointSizeF() << " pt");
    EXPECT_TRUE(window.rect().contains(notice->geometry()));
    EXPECT_GE(notice->y(), above->geometry().bottom()) << "it hides nothing";
    const QFontMetrics letters(notice->font());
    EXPECT_GT(notice->viewport()->height(), letters.height()) << "a line at least";
    EXPECT_EQ(notice->verticalScrollBar()->value(), 0) << "its beginning is in sight";
    // What does not fit can be scrolled to.
    notice->moveCursor(QTextCursor::End);
    EXPECT_TRUE(notice->viewport()->rect().intersects(notice->cursorRect()));
    notice->moveCursor(QTextCursor::Start);
  }
};

TEST_F(NoticeInReportWindow, StandsBelowTheTableAndLeavesItAsItIs) {
  window.resize(760, 540);
  Show();
  window.LoadGridWithRREF(analysis, SigFigs);
  EXPECT_TRUE(notice->isHidden());
  const QRect table = eqnGrid->geometry();
  window.LoadGridWithRREF(analysis, SigFigs, NoticeText);
  EXPECT_EQ(notice->toPlainText(), QString::fromLatin1(NoticeText));
  EXPECT_EQ(eqnGrid->geometry(), table);
  ExpectAllInSight(eqnGrid);
}

TEST_F(NoticeInReportWindow, StandsBelowTheConclusionOfASystemWithoutSolution) {
  Show();
  Analyse(InLine(0, -1000));
  window.LoadGridWithSolutions(analysis, SigFigs, NoticeText);
  EXPECT_TRUE(txtReport1->toPlainText().startsWith(QStringLiteral("There is NO SOLUTION")));
  EXPECT_TRUE(txtReport1->toPlainText().endsWith(QStringLiteral("will move."))) << "its text is its own";
  ExpectAllInSight(txtReport1);
}

TEST_F(NoticeInReportWindow, StandsBelowTheLinesOfARedundantSystem) {
  Show();
  Analyse(InLine(1000, 0));
  window.LoadGridWithSolutions(analysis, SigFigs, NoticeText);
  EXPECT_TRUE(redundant->isVisible());
  EXPECT_FALSE(redundant->geometry().intersects(notice->geometry()));
  ExpectAllInSight(eqnGrid);
}

TEST_F(NoticeInReportWindow, FitsInEveryFontSizeAndOnSmallScreens) {
  Show();
  for (const QSize size : {QSize(760, 540), QSize(320, 200), QSize(480, 260), QSize(1400, 300)}) {
    window.resize(size);
    for (const float points : {8.0F, 10.0F, 14.0F, 18.0F, 24.0F}) {
      window.ChooseFontSet(points);
      window.LoadGridWithRREF(analysis, SigFigs, NoticeText);
      QCoreApplication::processEvents();
      ExpectAllInSight(eqnGrid);
      EXPECT_GT(eqnGrid->height(), 0) << "some of the table is left";
    }
  }
}

TEST_F(NoticeInReportWindow, GoesWhenAnotherReportComes) {
  window.LoadGridWithRREF(analysis, SigFigs, NoticeText);
  window.LoadGridWithEquations(analysis, SigFigs);
  EXPECT_TRUE(notice->isHidden());
  window.LoadGridWithRREF(analysis, SigFigs, NoticeText);
  window.ReportCounting(analysis.Counted);
  EXPECT_TRUE(notice->isHidden());
  EXPECT_EQ(txtReport1->height(), window.height() - 16);
  window.LoadGridWithRREF(analysis, SigFigs, NoticeText);
  window.Clear();
  EXPECT_TRUE(notice->isHidden());
  EXPECT_TRUE(notice->toPlainText().isEmpty());
}

TEST_F(NoticeInReportWindow, IsReachedSelectedAndCopiedWithTheKeyboard) {
  Show();
  window.LoadGridWithRREF(analysis, SigFigs, NoticeText);
  eqnGrid->setFocus();
  QTest::keyClick(eqnGrid, Qt::Key_Tab);
  ASSERT_EQ(QApplication::focusWidget(), notice);
  QTest::keySequence(notice, QKeySequence::SelectAll);
  QTest::keySequence(notice, QKeySequence::Copy);
  EXPECT_EQ(QApplication::clipboard()->text(), QString::fromLatin1(NoticeText));
  EXPECT_TRUE(notice->isReadOnly());
  EXPECT_FALSE(notice->accessibleName().isEmpty());
}

TEST_F(NoticeInReportWindow, IsNeverMarkup) {
  window.LoadGridWithRREF(analysis, SigFigs, "<b>AB</b> & \xD6");
  EXPECT_EQ(notice->toPlainText(), QStringLiteral("<b>AB</b> & \u00D6"));
}

}  // namespace
