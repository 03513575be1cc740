// The window that explains, by itself: what it shows, plays and says, with a desktop that wants animation and
// one that does not.
#include "explanation/WhyWindow.h"

#include <QTextBlock>
#include <cmath>
#include <sstream>

#include "app/ExplanationReport.h"
#include "explanation/MotionPlayer.h"
#include "explanation/MotionView.h"
#include "explanation/SwungTruss.h"
#include "support/CutTexts.h"
#include "support/FakeAnimationWish.h"
#include "support/FindControl.h"
#include "support/TrussBuilder.h"

namespace {

using testing::Each;
using testing::StartsWith;

// Two clamps hold the lower bar from both ends; the other three are a parallelogram upon it.
Truss ParallelogramOnABar() {
  return TrussBuilder()
      .Member(0, 0, 4, 0, "bar")
      .Member(0, 0, 1, 2, "a")
      .Member(4, 0, 5, 2, "b")
      .Member(1, 2, 5, 2, "c")
      .Clamp(0, 0, "x1", "y1")
      .Clamp(4, 0, "x2", "y2")
      .Force(1, 2, 1000, 0)
      .Joint(1, 2, "P")
      .Joint(5, 2, "Q");
}

Truss RigidTriangle() {
  return TrussBuilder()
      .Member(0, 0, 4, 0, "AB")
      .Member(0, 0, 2, 3, "AC")
      .Member(4, 0, 2, 3, "BC")
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(4, 0, "B")
      .Force(2, 3, 0, -1000);
}

class WhyWindowTest : public testing::Test {
 protected:
  void Show(Truss given, float points = 10) {
    auto truss = std::make_shared<Truss>(std::move(given));
    const TrussAnalysis analysis = SolveTruss(*truss);
    explanation_ = std::make_shared<const Explanation>(ExplainTruss(*truss, analysis));
    window_.ShowExplanation(truss, explanation_, {}, points);
    window_.resize(600, 640);
    window_.BringUp();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
  }

  QComboBox& Choice() { return FindControl<QComboBox>(window_, "cmbMotion"); }
  QSlider& Slider() { return FindControl<QSlider>(window_, "sldSwing"); }
  QPushButton& Play() { return FindControl<QPushButton>(window_, "cmdPlay"); }
  MotionView& View() { return FindControl<MotionView>(window_, "picMotion"); }
  QPlainTextEdit& Text() { return FindControl<QPlainTextEdit>(window_, "txtWhy"); }

  // Where the picture has joint P, world coordinates.
  double XOfP() { return double{View().Drawn()->Shown.Members[2].X2}; }
  double FullX() const { return 1 + 0.25 * 2 / std::sqrt(5.0); }

  FakeAnimationWish wish_;
  std::shared_ptr<const Explanation> explanation_;
  WhyWindow window_{wish_};
};

// A chain of loose squares: their motions and what is told of them take more than the window shows.
TEST_F(WhyWindowTest, ChoosingAMotionBringsItsTextIntoSight) {
  TrussBuilder chain = TrussBuilder().Clamp(0, 0).Clamp(4, 0).Member(0, 0, 4, 0).Member(0, 0, 4, 0);
  for (int i = 0; i < 8; ++i) {
    const auto y = static_cast<float>(3 * i);
    chain.Member(0, y, 0, y + 3).Member(4, y, 4, y + 3).Member(0, y + 3, 4, y + 3);
  }
  Show(chain);
  window_.resize(420, 420);
  ASSERT_GE(Choice().count(), 8);
  for (const int index : {4, 2, Choice().count() - 1, 0}) {
    Choice().setFocus();
    while (Choice().currentIndex() != index)
      QTest::keyClick(&Choice(), Choice().currentIndex() < index ? Qt::Key_Down : Qt::Key_Up);
    const QString title = Choice().currentText();
    const QString beginning = title.left(title.indexOf(u':')) + u'.';
    QTextBlock block = Text().document()->begin();
    while (block.isValid() && !block.text().startsWith(beginning)) block = block.next();
    ASSERT_TRUE(block.isValid()) << beginning.toStdString();
    const QRect line = Text().cursorRect(QTextCursor(block));
    EXPECT_TRUE(Text().viewport()->rect().contains(line.center())) << beginning.toStdString();
  }
}

TEST_F(WhyWindowTest, HasTheTextOfTheReport) {
  Show(ParallelogramOnABar());
  std::ostringstream report;
  WriteWhy(report, *explanation_, {});
  EXPECT_EQ(Text().toPlainText() + QLatin1Char('\n'), QString::fromStdString(report.str()));
  EXPECT_TRUE(Text().isReadOnly());
}

TEST_F(WhyWindowTest, IsCopiedAsText) {
  Show(ParallelogramOnABar());
  Text().setFocus();
  QTest::keyClick(&Text(), Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&Text(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), Text().toPlainText());
  Text().moveCursor(QTextCursor::Start);
  QTest::keyClick(&Text(), Qt::Key_End, Qt::ShiftModifier);
  QTest::keyClick(&Text(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("The exact verdict:"));
}

TEST_F(WhyWindowTest, ChoosesWhatIsDrawn) {
  Show(ParallelogramOnABar());
  ASSERT_EQ(Choice().count(), 2);
  EXPECT_EQ(Choice().itemText(0), QStringLiteral("Motion 1: P and Q move"));
  EXPECT_EQ(View().Drawn()->Arrows.size(), 2U);
  EXPECT_EQ(View().Drawn()->Moved.size(), 3U);
  Choice().setFocus();
  QTest::keyClick(&Choice(), Qt::Key_Down);
  EXPECT_EQ(Choice().currentText(), QStringLiteral("Self-stress 1: x1, x2 and bar"));
  EXPECT_EQ(View().Drawn()->Arrows.size(), 0U);
  EXPECT_EQ(View().Drawn()->Marks.size(), 3U);
  EXPECT_FALSE(Slider().isEnabled()) << "a self-stress moves nothing";
  EXPECT_FALSE(Play().isEnabled());
}

TEST_F(WhyWindowTest, SwingsByNoMoreThanATwentiethToEitherSide) {
  Show(ParallelogramOnABar());
  EXPECT_NEAR(XOfP(), FullX(), 1e-5) << "the still picture swings as far as it goes";
  Slider().setFocus();
  QTest::keyClick(&Slider(), Qt::Key_Home);
  EXPECT_NEAR(XOfP(), 2 - FullX(), 1e-5);
  for (int i = 0; i < 10; ++i) QTest::keyClick(&Slider(), Qt::Key_Right);
  EXPECT_NEAR(XOfP(), 1, 1e-5) << "in the middle the truss stands as it is";
  QTest::keyClick(&Slider(), Qt::Key_End);
  QTest::keyClick(&Slider(), Qt::Key_Right);
  EXPECT_NEAR(XOfP(), FullX(), 1e-5);
}

TEST_F(WhyWindowTest, PlaysAndStopsWithOneKeyAndSaysSo) {
  Show(ParallelogramOnABar());
  EXPECT_EQ(Play().text(), QStringLiteral("&Play"));
  auto* player = window_.findChild<MotionPlayer*>();
  QTest::keyClick(&window_, Qt::Key_P, Qt::AltModifier);
  ASSERT_TRUE(QTest::qWaitFor([player] { return player->IsPlaying(); }));
  EXPECT_EQ(Play().text(), QStringLiteral("Sto&p"));
  EXPECT_EQ(Play().accessibleDescription(), QStringLiteral("The motion is being played"));
  double least = XOfP();
  double most = XOfP();
  const int numFrames = 8;
  for (int i = 0; i < numFrames; ++i) {
    QSignalSpy frame(player, &MotionPlayer::Swung);
    ASSERT_TRUE(frame.wait(2000));
    least = std::min(least, XOfP());
    most = std::max(most, XOfP());
    EXPECT_NEAR(XOfP(), 1 + (FullX() - 1) * Slider().sliderPosition() / 100.0, 0.006 * (FullX() - 1) + 1e-5)
        << "the slider's handle goes with it";
  }
  EXPECT_LT(least, most) << "it moves";
  EXPECT_LE(most, FullX() + 1e-5);
  EXPECT_EQ(Slider().value(), 100) << "a screen reader is not told of every frame";
  QTest::keyClick(&window_, Qt::Key_P, Qt::AltModifier);
  ASSERT_TRUE(QTest::qWaitFor([player] { return !player->IsPlaying(); }));
  EXPECT_EQ(Play().text(), QStringLiteral("&Play"));
  EXPECT_EQ(Play().accessibleDescription(), QStringLiteral("The motion stands still"));
  EXPECT_NEAR(XOfP(), 1 + (FullX() - 1) * Slider().value() / 100.0, 1e-5) << "where the slider is";
  EXPECT_EQ(Slider().value(), Slider().sliderPosition());
}

TEST_F(WhyWindowTest, StopsWhenTheSliderIsMovedAnotherIsChosenOrTheWindowIsClosed) {
  Show(ParallelogramOnABar());
  auto* player = window_.findChild<MotionPlayer*>();
  const auto start = [&] {
    QTest::mouseClick(&Play(), Qt::LeftButton);
    ASSERT_TRUE(player->IsPlaying());
  };
  start();
  QTest::keyClick(&Slider(), Qt::Key_Left);
  EXPECT_FALSE(player->IsPlaying());
  Slider().setValue(100);
  start();
  QTest::keyClick(&Slider(), Qt::Key_End);
  EXPECT_FALSE(player->IsPlaying()) << "also to where it began";
  EXPECT_EQ(Slider().value(), 100);
  EXPECT_NEAR(XOfP(), FullX(), 1e-5);
  start();
  QTest::keyClick(&Choice(), Qt::Key_Down);
  EXPECT_FALSE(player->IsPlaying());
  QTest::keyClick(&Choice(), Qt::Key_Up);
  start();
  QTest::keyClick(&window_, Qt::Key_Escape);
  EXPECT_FALSE(window_.isVisible());
  EXPECT_FALSE(player->IsPlaying());
}

TEST_F(WhyWindowTest, StandsStillWithArrowsWhereTheDesktopAsksForLessMotion) {
  wish_.Wanted = false;
  Show(ParallelogramOnABar());
  EXPECT_FALSE(Play().isEnabled());
  EXPECT_TRUE(Play().toolTip().contains(QStringLiteral("less motion")));
  QTest::mouseClick(&Play(), Qt::LeftButton);
  QTest::keyClick(&window_, Qt::Key_P, Qt::AltModifier);
  EXPECT_FALSE(window_.findChild<MotionPlayer*>()->IsPlaying());
  EXPECT_EQ(View().Drawn()->Arrows.size(), 2U);
  EXPECT_NEAR(XOfP(), FullX(), 1e-5);
  Slider().setFocus();
  QTest::keyClick(&Slider(), Qt::Key_Home);
  EXPECT_NEAR(XOfP(), 2 - FullX(), 1e-5) << "what the user moves himself";
}

TEST_F(WhyWindowTest, StopsWhenTheDesktopBeginsToAskForLessMotion) {
  Show(ParallelogramOnABar());
  QTest::mouseClick(&Play(), Qt::LeftButton);
  wish_.Wanted = false;
  QEvent change(QEvent::StyleChange);
  QApplication::sendEvent(&window_, &change);
  EXPECT_FALSE(window_.findChild<MotionPlayer*>()->IsPlaying());
  EXPECT_FALSE(Play().isEnabled());
}

TEST_F(WhyWindowTest, WithoutMotionAndSelfStressTheTrussIsDrawnAsItIs) {
  Show(RigidTriangle());
  for (const char* name : {"cmbMotion", "sldSwing", "cmdPlay"})
    EXPECT_FALSE(FindControl<QWidget>(window_, name).isVisible()) << name;
  EXPECT_TRUE(View().Drawn()->Arrows.empty());
  EXPECT_EQ(View().Drawn()->Shown.Members[2].X2, 2);
  EXPECT_TRUE(View().accessibleDescription().contains(QStringLiteral("as it stands")));
  EXPECT_TRUE(Text().hasFocus());
}

TEST_F(WhyWindowTest, ShowsNothingOfTheTrussBefore) {
  Show(ParallelogramOnABar());
  Slider().setValue(-40);
  Show(RigidTriangle());
  EXPECT_EQ(Choice().count(), 0);
  EXPECT_FALSE(Text().toPlainText().contains(QStringLiteral("Motion 1")));
  Show(ParallelogramOnABar());
  EXPECT_EQ(Choice().count(), 2);
  EXPECT_EQ(Slider().value(), 100);
  window_.Clear();
  EXPECT_EQ(Text().toPlainText(), QString());
  EXPECT_EQ(Choice().count(), 0);
  EXPECT_FALSE(View().Drawn().has_value());
  EXPECT_EQ(View().accessibleDescription(), QString());
}

TEST_F(WhyWindowTest, OnlyHeadingsAreBoldHoweverOftenATextIsShown) {
  for (const Truss& truss : {ParallelogramOnABar(), RigidTriangle(), ParallelogramOnABar()}) {
    Show(truss);
    QStringList bold;
    int plain = 0;
    for (QTextBlock block = Text().document()->begin(); block.isValid(); block = block.next()) {
      if (block.text().isEmpty()) continue;
      if (block.begin().fragment().charFormat().fontWeight() < QFont::Bold) {
        ++plain;
      } else {
        bold.append(block.text());
      }
    }
    EXPECT_EQ(bold.value(0), QStringLiteral("The exact verdict:"));
    EXPECT_EQ(bold.value(1, QStringLiteral("How it can move:")), QStringLiteral("How it can move:"));
    EXPECT_GT(plain, static_cast<int>(bold.size()));
    for (const QString& heading : bold) EXPECT_TRUE(heading.endsWith(u':')) << heading.toStdString();
  }
}

TEST_F(WhyWindowTest, EveryControlIsReachedWithTabAndHasAName) {
  Show(ParallelogramOnABar());
  window_.activateWindow();
  ASSERT_TRUE(Choice().hasFocus());
  QStringList reached;
  for (int i = 0; i < 5; ++i) {
    const QWidget* at = window_.focusWidget();
    reached.append(at->objectName());
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(window_.focusWidget());
    EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << at->objectName().toStdString();
    QTest::keyClick(window_.focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(reached,
            (QStringList{QStringLiteral("cmbMotion"), QStringLiteral("sldSwing"), QStringLiteral("cmdPlay"),
                         QStringLiteral("picMotion"), QStringLiteral("txtWhy")}));
  EXPECT_TRUE(Choice().hasFocus()) << "round again";
}

TEST_F(WhyWindowTest, ThePictureIsToldInWords) {
  Show(ParallelogramOnABar());
  const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&View());
  EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Drawing of the truss"));
  EXPECT_TRUE(spoken->text(QAccessible::Description).contains(QStringLiteral("P to the right and down")));
  QTest::keyClick(&Choice(), Qt::Key_Down);
  EXPECT_TRUE(spoken->text(QAccessible::Description).contains(QStringLiteral("hang together")));
}

// The focus can be seen on the picture too, and it is white in a dark theme.
TEST_F(WhyWindowTest, ThePictureIsWhitePaperWithAFrameWhenItHasTheFocus) {
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(30, 30, 30));
  dark.setColor(QPalette::Base, QColor(20, 20, 20));
  window_.setPalette(dark);
  Show(ParallelogramOnABar());
  window_.activateWindow();
  EXPECT_EQ(View().grab().toImage().pixelColor(0, 0), QColor(Qt::white));
  View().setFocus();
  QCoreApplication::processEvents();
  ASSERT_TRUE(View().hasFocus());
  EXPECT_NE(View().grab().toImage().pixelColor(1, 1), QColor(Qt::white));
}

TEST_F(WhyWindowTest, NoTextIsCutWithLettersOfAnySize) {
  const QFont usual = QApplication::font();
  for (const int points : {8, 9, 12, 18, 24}) {
    QFont font = usual;
    font.setPointSize(points);
    QApplication::setFont(font);
    for (const auto& make : {ParallelogramOnABar, RigidTriangle}) {
      WhyWindow window(wish_);
      auto truss = std::make_shared<Truss>(make());
      const TrussAnalysis analysis = SolveTruss(*truss);
      window.ShowExplanation(truss, std::make_shared<const Explanation>(ExplainTruss(*truss, analysis)), {},
                             16);
      for (const QSize size : {QSize(600, 640), QSize(392, 498), QSize(900, 400)}) {
        window.resize(size);
        window.BringUp();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        QCoreApplication::processEvents();
        // A long choice ends with an ellipsis, and its tool tip has all of it.
        EXPECT_THAT(CutTexts::In(window), Each(StartsWith("cmbMotion: "))) << points << " points";
        EXPECT_LE(window.width(), std::max(size.width(), 500));
        EXPECT_LE(window.height(), std::max(size.height(), 560));
      }
    }
  }
  QApplication::setFont(usual);
}

// In the window's usual size the table's letters are not much smaller than those of the text.
TEST_F(WhyWindowTest, TheTableCanBeRead) {
  for (const float points : {8.0F, 10.0F, 12.0F, 16.0F, 24.0F}) {
    Show(ParallelogramOnABar(), points);
    QCoreApplication::processEvents();
    const QTextBlock row = Text().document()->findBlockByNumber(2);
    const double ofText = Text().font().pointSizeF();
    const double ofTable = row.begin().fragment().charFormat().font().pointSizeF();
    EXPECT_GE(ofTable, std::min(ofText, 11.0)) << points;
    EXPECT_EQ(row.begin().fragment().charFormat().font().stretch() % 100, 0) << points;
  }
}

TEST_F(WhyWindowTest, IsNeverSoSmallThatItsPartsCoverEachOther) {
  const QFont usual = QApplication::font();
  for (const int points : {8, 12, 24}) {
    QFont font = usual;
    font.setPointSize(points);
    QApplication::setFont(font);
    WhyWindow window(wish_);
    auto truss = std::make_shared<Truss>(ParallelogramOnABar());
    const TrussAnalysis analysis = SolveTruss(*truss);
    window.ShowExplanation(truss, std::make_shared<const Explanation>(ExplainTruss(*truss, analysis)), {},
                           10);
    window.BringUp();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    for (const QSize size : {QSize(1, 1), QSize(700, 1), QSize(1, 700)}) {
      window.resize(size);
      QCoreApplication::processEvents();
      std::vector<QRect> places;
      for (const char* name : {"cmbMotion", "sldSwing", "cmdPlay", "lblNote", "picMotion", "txtWhy"}) {
        const auto* widget = window.findChild<QWidget*>(QString::fromLatin1(name));
        places.emplace_back(widget->mapTo(&window, QPoint(0, 0)), widget->size());
        EXPECT_TRUE(window.rect().contains(places.back())) << name << ", " << points << " points";
      }
      for (std::size_t a = 0; a < places.size(); ++a) {
        for (std::size_t b = 0; b < a; ++b) EXPECT_FALSE(places[a].intersects(places[b])) << a << ", " << b;
      }
      EXPECT_THAT(CutTexts::In(window), Each(StartsWith("cmbMotion: "))) << points << " points";
    }
  }
  QApplication::setFont(usual);
}

// Columns of the table stand below each other in every width.
TEST_F(WhyWindowTest, TheTableKeepsItsLines) {
  Show(ParallelogramOnABar());
  for (const int width : {392, 600, 1000}) {
    window_.resize(width, 600);
    QCoreApplication::processEvents();
    for (int line = 1; line <= 5; ++line) {
      EXPECT_EQ(Text().document()->findBlockByNumber(line).layout()->lineCount(), 1) << width;
    }
  }
}

}  // namespace
