// The window that tells the elimination, by itself: its list, its matrix with the marks, and every way
// through the steps.
#include "explanation/steps/StepsWindow.h"

#include "explanation/steps/StepMatrixModel.h"
#include "support/AccessibleTree.h"
#include "support/CutTexts.h"
#include "support/FindControl.h"
#include "support/HandTrusses.h"
#include "support/LearnWindowFixture.h"
#include "support/LoadedTriangle.h"

namespace {

// A strip of triangles with `numPanels` panels: 8 unknowns and 8 equations for two of them.
Truss StripOf(int numPanels) {
  TrussBuilder builder;
  for (int i = 0; i < numPanels; ++i) {
    const auto x = static_cast<float>(2 * i);
    builder.Member(x, 0, x + 2, 0).Member(x, 0, x + 1, 2).Member(x + 1, 2, x + 2, 0);
    if (i > 0) builder.Member(x - 1, 2, x + 1, 2);
  }
  return builder.Clamp(0, 0).Roller(static_cast<float>(2 * numPanels), 0).Force(1, 2, 0, -1000);
}

class StepsWindowTest : public LearnWindowFixture<StepsWindow> {
 protected:
  StepsWindowTest() : LearnWindowFixture({760, 620}) {}

  QListView& List() { return FindControl<QListView>(window_, "lstSteps"); }
  QTableView& Matrix() { return FindControl<QTableView>(window_, "tblMatrix"); }
  QSlider& Slider() { return FindControl<QSlider>(window_, "sldStep"); }
  QComboBox& Unknowns() { return FindControl<QComboBox>(window_, "cmbUnknown"); }
  QPushButton& Button(const char* name) { return FindControl<QPushButton>(window_, name); }
  void Click(const char* name) { QTest::mouseClick(&Button(name), Qt::LeftButton); }
  QString Text() { return FindControl<QPlainTextEdit>(window_, "txtStep").toPlainText(); }
  QString Sentence() { return Text().section(u'\n', 0, 0); }
  QString Position() { return FindControl<QLabel>(window_, "lblStep").text(); }
  QString PivotLine() { return FindControl<QLabel>(window_, "lblPivot").text(); }
  QString Operation(int row) { return List().model()->index(row, 0).data().toString(); }
  int NumOperations() { return List().model()->rowCount(); }
  const StepMatrixModel& Numbers() { return *qobject_cast<const StepMatrixModel*>(Matrix().model()); }

  // The numbers with their marks, "0.5!" the pivot, "0.5*" what changes, "0.5-" what is subtracted.
  QStringList Row(int row) {
    QStringList texts = {Numbers().headerData(row, Qt::Vertical, Qt::DisplayRole).toString()};
    for (int column = 0; column < Numbers().columnCount(); ++column) {
      const QModelIndex at = Numbers().index(row, column);
      const CellMark mark = Numbers().MarkAt(at);
      texts.append(at.data().toString() + (mark == CellMark::Pivot    ? QStringLiteral("!")
                                           : mark == CellMark::Target ? QStringLiteral("*")
                                           : mark == CellMark::Source ? QStringLiteral("-")
                                                                      : QString()));
    }
    return texts;
  }
  std::string RowText(int row) { return Row(row).join(u' ').toStdString(); }
};

TEST_F(StepsWindowTest, BeginsWithTheEquationsAndSaysWhyThereAreNoFractions) {
  Show(LoadedTriangle());
  EXPECT_EQ(Operation(0), QStringLiteral("The equations"));
  EXPECT_EQ(Operation(1), QStringLiteral("1.  Pivot: Ax in A - x"));
  EXPECT_EQ(Operation(NumOperations() - 1), QStringLiteral("%1.  Read the rows").arg(NumOperations() - 1));
  EXPECT_EQ(Position(), QStringLiteral("The beginning"));
  EXPECT_TRUE(Text().contains(QStringLiteral("decimals and not as fractions")));
  EXPECT_EQ(RowText(0), "A - x 1 0 0 -1 -0.7071 0 0");
  EXPECT_EQ(Numbers().headerData(6, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("RHS"));
  EXPECT_TRUE(List().hasFocus());
  EXPECT_FALSE(Button("cmdBack").isEnabled());
  Click("cmdNextStep");
  EXPECT_FALSE(Text().contains(QStringLiteral("fractions"))) << "it is said once";
}

TEST_F(StepsWindowTest, ChoosesAnOperationAndThenCarriesItOut) {
  Show(LoadedTriangle());
  while (!Sentence().contains(QStringLiteral(" becomes "))) Click("cmdNextStep");
  EXPECT_EQ(Sentence(), QStringLiteral("A - x becomes A - x plus B - x."));
  EXPECT_TRUE(Text().contains(QStringLiteral("\n[A - x] := [A - x] + [B - x]\n")));
  EXPECT_TRUE(Position().endsWith(QStringLiteral(", chosen")));
  EXPECT_EQ(RowText(0), "A - x 1 0 -1* 0 -0.7071 0* 0");
  EXPECT_EQ(RowText(2), "B - x 0 0 1! 0 0 0.7071- 0");
  EXPECT_EQ(RowText(1), "A - y 0 1 0 0 -0.7071 0 0");
  Click("cmdNextStep");
  EXPECT_EQ(Sentence(), QStringLiteral("A - x has become A - x plus B - x."));
  EXPECT_TRUE(Position().endsWith(QStringLiteral(", carried out")));
  EXPECT_EQ(RowText(0), "A - x 1 0 0* 0 -0.7071 0.7071* 0");
  Click("cmdBack");
  EXPECT_EQ(RowText(0), "A - x 1 0 -1* 0 -0.7071 0* 0");
}

TEST_F(StepsWindowTest, EndsWithTheReducedMatrix) {
  Show(LoadedTriangle());
  Click("cmdLast");
  EXPECT_EQ(Sentence(), QStringLiteral("The rows are read."));
  const SparseMatrix<double>& reduced = analysis_->System.EquationMatrix;
  for (int row = 1; row <= reduced.NumRows(); ++row) {
    for (int column = 1; column <= reduced.NumColumns(); ++column) {
      EXPECT_EQ(Numbers().index(row - 1, column - 1).data().toString().toStdString(),
                FormatSigFigs(reduced(row, column), {}));
    }
  }
  EXPECT_FALSE(Button("cmdNextStep").isEnabled());
  EXPECT_FALSE(Button("cmdLast").isEnabled());
  EXPECT_TRUE(Button("cmdBack").hasFocus()) << "a button that is switched off does not keep the keys";
  Click("cmdFirst");
  EXPECT_EQ(Position(), QStringLiteral("The beginning"));
}

TEST_F(StepsWindowTest, AClickInTheListGoesThereAndSoDoItsKeys) {
  Show(LoadedTriangle());
  const QModelIndex fifth = List().model()->index(5, 0);
  QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, List().visualRect(fifth).center());
  EXPECT_TRUE(Position().startsWith(QStringLiteral("Step 5 of ")));
  QTest::keyClick(&List(), Qt::Key_Down);
  EXPECT_TRUE(Position().startsWith(QStringLiteral("Step 6 of ")));
  QTest::keyClick(&List(), Qt::Key_End);
  EXPECT_EQ(Sentence(), QStringLiteral("The rows are read."));
  QTest::keyClick(&List(), Qt::Key_Home);
  EXPECT_EQ(Position(), QStringLiteral("The beginning"));
  EXPECT_EQ(Slider().value(), 0) << "the slider goes with it";
}

TEST_F(StepsWindowTest, TheSliderGoesAnywhere) {
  Show(LoadedTriangle());
  Slider().setFocus();
  QTest::keyClick(&Slider(), Qt::Key_End);
  EXPECT_EQ(Sentence(), QStringLiteral("The rows are read."));
  EXPECT_EQ(List().currentIndex().row(), NumOperations() - 1) << "the list goes with it";
  QTest::keyClick(&Slider(), Qt::Key_Home);
  for (int i = 0; i < 6; ++i) QTest::keyClick(&Slider(), Qt::Key_Right);
  EXPECT_EQ(Slider().value(), 6);
  EXPECT_TRUE(Sentence().startsWith(QStringLiteral("A - x becomes")));
}

TEST_F(StepsWindowTest, GoesToThePivotOfAnUnknownAndSaysWhatItsRowWaitsFor) {
  Show(LoadedTriangle());
  Unknowns().setFocus();
  EXPECT_EQ(Unknowns().currentText(), QStringLiteral("Ax"));
  QTest::keyClick(&Unknowns(), Qt::Key_Down);
  EXPECT_EQ(Sentence(), QStringLiteral("The pivot is the coefficient of Ay in A - y, 1."));
  EXPECT_TRUE(PivotLine().startsWith(
      QStringLiteral("Ay has its pivot in A - y (step 2).  That row still waits for AC (step ")))
      << PivotLine().toStdString();
  EXPECT_EQ(RowText(1), "A - y 0 1! 0 0 -0.7071 0 0");
  Click("cmdLast");
  EXPECT_EQ(PivotLine(),
            QStringLiteral("Ay has its pivot in A - y (step 2).  That row waits for nothing more."));
  Click("cmdFirst");
  EXPECT_TRUE(PivotLine().contains(QStringLiteral("gets its pivot in A - y (step 2).  That row then waits")));
}

TEST_F(StepsWindowTest, PlaysToTheEndAndStops) {
  Show(LoadedTriangle());
  Slider().setValue(Slider().maximum() - 2);
  auto& timer = *window_.findChild<QTimer*>(QStringLiteral("tmrPlay"));
  Click("cmdPlay");
  EXPECT_EQ(Slider().value(), Slider().maximum() - 1) << "at once";
  EXPECT_EQ(Button("cmdPlay").text(), QStringLiteral("Sto&p"));
  EXPECT_EQ(timer.interval(), StepsWindow::PlayTime);
  timer.setInterval(1);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Button("cmdPlay").text() == QStringLiteral("&Play"); }));
  EXPECT_EQ(Slider().value(), Slider().maximum());
  Click("cmdPlay");
  EXPECT_LT(Slider().value(), Slider().maximum()) << "it begins again";
  Click("cmdNextStep");
  EXPECT_EQ(Button("cmdPlay").text(), QStringLiteral("&Play")) << "who goes elsewhere stops it";
}

TEST_F(StepsWindowTest, DoesNotPlayWhereTheDesktopAsksForLessMotion) {
  wish_.Wanted = false;
  Show(LoadedTriangle());
  EXPECT_FALSE(Button("cmdPlay").isEnabled());
  EXPECT_TRUE(Button("cmdPlay").toolTip().contains(QStringLiteral("less motion")));
  Click("cmdNextStep");
  EXPECT_TRUE(Position().startsWith(QStringLiteral("Step 1 of ")));
}

TEST_F(StepsWindowTest, TellsAScreenReaderTheOperationAndTheMarks) {
  Show(LoadedTriangle());
  const accessible::Listener listener;
  Slider().setValue(6);
  EXPECT_EQ(listener.Said, QStringList(Position() + QStringLiteral(": ") + Sentence()));
  for (QWidget* control : std::initializer_list<QWidget*>{&Button("cmdNextStep"), &Slider(), &Matrix()})
    EXPECT_LT(QAccessible::queryAccessibleInterface(control)->text(QAccessible::Description).size(), 80)
        << "what a control is for, not what has been said";
  QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&Matrix());
  ASSERT_NE(table->tableInterface(), nullptr);
  EXPECT_EQ(table->tableInterface()->cellAt(2, 2)->text(QAccessible::Name), QStringLiteral("1, decides"));
  EXPECT_EQ(table->tableInterface()->cellAt(0, 2)->text(QAccessible::Name), QStringLiteral("-1, changes"));
  EXPECT_EQ(table->tableInterface()->cellAt(0, 2)->text(QAccessible::Description),
            QStringLiteral("A - x, AB"));
}

TEST_F(StepsWindowTest, IsGoneThroughWithItsLettersAlone) {
  Show(LoadedTriangle());
  const auto press = [this](Qt::Key key) {
    QTest::keyClick(window_.focusWidget(), key, Qt::AltModifier);
    QTest::qWait(1);
  };
  const auto comesTo = [this](int place) {
    return QTest::qWaitFor([&] { return Slider().value() == place; });
  };
  press(Qt::Key_L);
  EXPECT_TRUE(comesTo(Slider().maximum()));
  press(Qt::Key_B);
  EXPECT_TRUE(comesTo(Slider().maximum() - 1));
  press(Qt::Key_F);
  EXPECT_TRUE(comesTo(0));
  press(Qt::Key_N);
  EXPECT_TRUE(comesTo(1));
  press(Qt::Key_G);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Unknowns().hasFocus(); }));
  QTest::keyClick(&Unknowns(), Qt::Key_End);
  EXPECT_TRUE(Sentence().startsWith(QStringLiteral("The pivot is the coefficient of BC")));
  press(Qt::Key_C);
  EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::clipboard()->text() == window_.CopiedText(); }));
}

// The slider by its groove, the list by its rows, the unknown out of its list.
TEST_F(StepsWindowTest, IsGoneThroughWithTheMouseAlone) {
  Show(LoadedTriangle());
  for (int row = 0; row < NumOperations(); ++row) {
    const QModelIndex at = List().model()->index(row, 0);
    List().scrollTo(at);
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, List().visualRect(at).center());
    EXPECT_EQ(List().currentIndex().row(), row);
    EXPECT_EQ(Position(), row == 0 ? QStringLiteral("The beginning") : Position());
    if (row > 0) {
      EXPECT_TRUE(Position().startsWith(QStringLiteral("Step %1 of ").arg(row))) << row;
    }
  }
  const int last = Slider().value();
  QTest::mouseClick(&Slider(), Qt::LeftButton, {}, QPoint(2, Slider().height() / 2));
  EXPECT_LT(Slider().value(), last);
  const int interval = QApplication::doubleClickInterval();
  QApplication::setDoubleClickInterval(1);  // within it a release would be that of the click that opened it
  QTest::mouseClick(&Unknowns(), Qt::LeftButton);
  QAbstractItemView* choices = Unknowns().view();
  ASSERT_TRUE(QTest::qWaitFor([&] { return choices->isVisible(); }));
  QTest::qWait(20);
  const QPoint fourth = choices->visualRect(choices->model()->index(3, 0)).center();
  QTest::mouseMove(choices->viewport(), fourth);
  QTest::mouseClick(choices->viewport(), Qt::LeftButton, {}, fourth);
  QApplication::setDoubleClickInterval(interval);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Unknowns().currentIndex() == 3; }));
  EXPECT_TRUE(Sentence().startsWith(QStringLiteral("The pivot is the coefficient of AB")));
}

// Who sees nothing hears each operation, and in the matrix the names of rows and columns.
TEST_F(StepsWindowTest, IsReadThroughTheAccessibilityTree) {
  Show(LoadedTriangle());
  QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&List());
  QAccessibleInterface* text =
      QAccessible::queryAccessibleInterface(&FindControl<QPlainTextEdit>(window_, "txtStep"));
  ASSERT_NE(text->textInterface(), nullptr);
  ASSERT_EQ(list->childCount(), NumOperations());
  List().setFocus();
  for (int row = 0; row < list->childCount(); ++row) {
    EXPECT_EQ(list->child(row)->text(QAccessible::Name), Operation(row));
    QTest::keyClick(&List(), row == 0 ? Qt::Key_Home : Qt::Key_Down);
    EXPECT_EQ(text->textInterface()->text(0, text->textInterface()->characterCount()), Text());
  }
  QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&Matrix());
  ASSERT_NE(table->tableInterface(), nullptr);
  EXPECT_EQ(table->tableInterface()->rowDescription(0), QStringLiteral("A - x"));
  EXPECT_EQ(table->tableInterface()->columnDescription(6), QStringLiteral("RHS"));
}

TEST_F(StepsWindowTest, SaysWhereARemnantBecomesAPivot) {
  Show(HandHexagon(5));
  int told = 0;
  for (int row = 0; row < NumOperations(); ++row) {
    List().setCurrentIndex(List().model()->index(row, 0));
    told += Text().contains(QStringLiteral(" is a remnant of rounding")) ? 1 : 0;
  }
  EXPECT_EQ(told, 1);
  Click("cmdLast");
  EXPECT_TRUE(Text().contains(QStringLiteral("But these values do not hold: ")));
  EXPECT_TRUE(Text().contains(QStringLiteral("Read on under Learn, \"Why this conclusion\"")));
}

TEST_F(StepsWindowTest, EveryControlIsReachedWithTab) {
  Show(LoadedTriangle());
  Slider().setValue(6);
  QStringList reached;
  for (int i = 0; i < 20; ++i) {
    reached.append(window_.focusWidget()->objectName());
    QTest::keyClick(window_.focusWidget(), Qt::Key_Tab);
    if (window_.focusWidget() == &List()) break;
  }
  for (const char* name : {"lstSteps", "txtStep", "tblMatrix", "cmbUnknown", "sldStep", "cmdFirst", "cmdBack",
                           "cmdPlay", "cmdNextStep", "cmdLast", "cmdCopy"})
    EXPECT_TRUE(reached.contains(QString::fromLatin1(name))) << name;
}

TEST_F(StepsWindowTest, TheMarksCanBeToldApartInEveryPalette) {
  for (const bool dark : {false, true}) {
    QPalette palette;
    palette.setColor(QPalette::Base, dark ? QColor(0x1e, 0x1e, 0x20) : QColor(Qt::white));
    palette.setColor(QPalette::Text, dark ? QColor(0xe8, 0xe8, 0xe8) : QColor(Qt::black));
    const auto luminance = [](const QColor& colour) {
      const auto part = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
      };
      return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
    };
    std::set<std::pair<bool, bool>> letters;
    for (const CellMark mark : {CellMark::Source, CellMark::Target, CellMark::Pivot}) {
      const MarkLook look = LookOf(mark, palette);
      const double a = luminance(look.Letters) + 0.05;
      const double b = luminance(look.Ground) + 0.05;
      EXPECT_GE(std::max(a, b) / std::min(a, b), 4.5)
          << static_cast<int>(mark) << (dark ? " dark" : " light");
      letters.emplace(look.IsBold, look.IsItalic);
    }
    EXPECT_EQ(letters.size(), 2U) << "slanted for what is subtracted, bold for the others";
  }
}

TEST_F(StepsWindowTest, TellsOnlyThePivotsOfALargeTruss) {
  Show(StripOf(60));
  EXPECT_FALSE(Matrix().isVisible());
  EXPECT_TRUE(
      Text().contains(QStringLiteral("Of systems with more than 200 equations or unknowns only the pivots")));
  EXPECT_EQ(NumOperations(), analysis_->System.NumUnknowns());
  EXPECT_EQ(Position(), QStringLiteral("Pivot 1 of %1").arg(NumOperations()));
  Click("cmdNextStep");
  EXPECT_TRUE(Sentence().startsWith(QStringLiteral("2.  ")));
  Unknowns().setFocus();
  QTest::keyClick(&Unknowns(), Qt::Key_End);
  EXPECT_TRUE(PivotLine().contains(QStringLiteral(" gets its pivot in "))) << PivotLine().toStdString();
  EXPECT_TRUE(PivotLine().endsWith(QStringLiteral(", as number %1.").arg(Slider().value() + 1)));
  Click("cmdLast");
  EXPECT_EQ(List().currentIndex().row(), NumOperations() - 1);
  Show(LoadedTriangle());
  EXPECT_TRUE(Matrix().isVisible()) << "and of the next one everything again";
}

TEST_F(StepsWindowTest, CopiesAllStepsAsText) {
  Show(LoadedTriangle());
  Click("cmdCopy");
  const QString copied = QApplication::clipboard()->text();
  EXPECT_EQ(copied, window_.CopiedText());
  EXPECT_TRUE(copied.contains(QStringLiteral("\n\n1.  The pivot is the coefficient of Ax in A - x, 1.\n")));
  EXPECT_TRUE(copied.contains(QStringLiteral("The rows are read.\n    A row whose only coefficient")));
}

TEST_F(StepsWindowTest, EmptiesWhenTheTrussIsGone) {
  Show(LoadedTriangle());
  Click("cmdPlay");
  window_.Clear();
  EXPECT_EQ(NumOperations(), 0);
  EXPECT_EQ(Numbers().rowCount(), 0);
  EXPECT_EQ(Text(), QString());
  EXPECT_EQ(Unknowns().count(), 0);
  for (const char* name : {"cmdFirst", "cmdBack", "cmdPlay", "cmdNextStep", "cmdLast", "cmdCopy"})
    EXPECT_FALSE(Button(name).isEnabled()) << name;
  EXPECT_EQ(window_.CopiedText(), QString());
}

TEST_F(StepsWindowTest, CutsNoTextInLargeLettersAndSmallWindows) {
  for (const float points : {9.0F, 18.0F}) {
    Show(LoadedTriangle(), points, {460, 340});
    for (int place = 0; place <= Slider().maximum(); ++place) {
      Slider().setValue(place);
      EXPECT_THAT(CutTexts::In(window_), testing::IsEmpty());
    }
    const QFontMetrics letters(Matrix().font());
    for (int column = 0; column < Numbers().columnCount(); ++column)
      EXPECT_GT(Matrix().columnWidth(column), letters.horizontalAdvance(QStringLiteral("-0.7071")));
  }
}

TEST_F(StepsWindowTest, TheListIsAsWideAsItsLinesButLeavesTheLargerPartToTheMatrix) {
  for (const float points : {9.0F, 18.0F}) {
    Show(LoadedTriangle(), points, {1100, 700});
    QFont bold = List().font();
    bold.setBold(true);
    int widest = 0;
    for (int row = 0; row < NumOperations(); ++row)
      widest = std::max(widest, QFontMetrics(bold).horizontalAdvance(Operation(row)));
    EXPECT_TRUE(List().viewport()->width() >= widest || List().width() >= 1100 * 2 / 5 - 20) << points;
    EXPECT_LT(List().width(), window_.width() / 2);
  }
}

TEST_F(StepsWindowTest, AllValuesOfTheLastStepCanBeScrolledTo) {
  Show(StripOf(12), 10, {700, 520});
  Click("cmdLast");
  auto& box = FindControl<QPlainTextEdit>(window_, "txtStep");
  for (int k = 1; k <= Unknowns().count(); ++k)
    EXPECT_TRUE(Text().contains(Unknowns().itemText(k - 1) + QStringLiteral(" = "))) << k;
  box.setFocus();
  QTest::keyClick(&box, Qt::Key_End, Qt::ControlModifier);
  EXPECT_TRUE(box.viewport()->rect().contains(box.cursorRect().center()));
}

TEST_F(StepsWindowTest, TheLastStepShowsTheColumnInWhichTheValuesAreRead) {
  Show(LoadedTriangle(), 10, {460, 420});
  Click("cmdLast");
  const QRect rhs = Matrix().visualRect(Numbers().index(0, Numbers().columnCount() - 1));
  EXPECT_TRUE(Matrix().viewport()->rect().intersects(rhs));
}

// By a screen reader, which presses a button for a moment.
TEST_F(StepsWindowTest, APressThatEndsWhenTheTrussIsGoneDoesNothing) {
  for (const char* name : {"cmdNextStep", "cmdLast", "cmdFirst", "cmdPlay", "cmdCopy"}) {
    Show(StripOf(2));
    Button(name).animateClick();
    window_.Clear();
    QTest::qWait(150);
    EXPECT_EQ(NumOperations(), 0) << name;
  }
}

}  // namespace
