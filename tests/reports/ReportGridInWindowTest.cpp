// How the table and its scroll bars fit windows that are just large enough and a pixel too small.
#include "ReportWindowFixture.h"

namespace {

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

}  // namespace
