// What the report window tells below the conclusion.
#include "ReportWindowFixture.h"

namespace {

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
  window.LoadGridWithRREF(analysis, SigFigs);
  window.ShowNotice(NoticeText);
  EXPECT_EQ(notice->toPlainText(), QString::fromLatin1(NoticeText));
  EXPECT_EQ(eqnGrid->geometry(), table);
  ExpectAllInSight(eqnGrid);
}

TEST_F(NoticeInReportWindow, StandsBelowTheConclusionOfASystemWithoutSolution) {
  Show();
  Analyse(InLine(0, -1000));
  window.LoadGridWithSolutions(analysis, SigFigs);
  window.ShowNotice(NoticeText);
  EXPECT_TRUE(txtReport1->toPlainText().startsWith(QStringLiteral("There is NO SOLUTION")));
  EXPECT_TRUE(txtReport1->toPlainText().endsWith(QStringLiteral("will move."))) << "its text is its own";
  ExpectAllInSight(txtReport1);
}

TEST_F(NoticeInReportWindow, StandsBelowTheLinesOfARedundantSystem) {
  Show();
  Analyse(InLine(1000, 0));
  window.LoadGridWithSolutions(analysis, SigFigs);
  window.ShowNotice(NoticeText);
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
      window.LoadGridWithRREF(analysis, SigFigs);
      window.ShowNotice(NoticeText);
      QCoreApplication::processEvents();
      ExpectAllInSight(eqnGrid);
      EXPECT_GT(eqnGrid->height(), 0) << "some of the table is left";
    }
  }
}

TEST_F(NoticeInReportWindow, GoesWhenAnotherReportComes) {
  window.LoadGridWithRREF(analysis, SigFigs);
  window.ShowNotice(NoticeText);
  window.LoadGridWithEquations(analysis, SigFigs);
  EXPECT_TRUE(notice->isHidden());
  window.LoadGridWithRREF(analysis, SigFigs);
  window.ShowNotice(NoticeText);
  window.ReportCounting(analysis.Counted);
  EXPECT_TRUE(notice->isHidden());
  EXPECT_EQ(txtReport1->height(), window.height() - 16);
  window.LoadGridWithRREF(analysis, SigFigs);
  window.ShowNotice(NoticeText);
  window.Clear();
  EXPECT_TRUE(notice->isHidden());
  EXPECT_TRUE(notice->toPlainText().isEmpty());
}

TEST_F(NoticeInReportWindow, IsReachedSelectedAndCopiedWithTheKeyboard) {
  Show();
  window.LoadGridWithRREF(analysis, SigFigs);
  window.ShowNotice(NoticeText);
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
  window.LoadGridWithRREF(analysis, SigFigs);
  window.ShowNotice("<b>AB</b> & \xD6");
  EXPECT_EQ(notice->toPlainText(), QStringLiteral("<b>AB</b> & \u00D6"));
}

}  // namespace
