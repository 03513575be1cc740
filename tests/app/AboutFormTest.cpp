// The about box, the greeting at start-up, and the program's mark.
#include "app/AboutForm.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>

#include "app/Icons.h"
#include "app/InstructionFrame.h"
#include "editing/ToolPicture.h"
#include "support/ModalDialog.h"

namespace {

TEST(AboutForm, SaysWhatTheProgramIs) {
  const AboutForm about(nullptr);
  QStringList texts;
  for (const QLabel* label : about.findChildren<QLabel*>()) texts += label->text();
  const QString all = texts.join(QLatin1Char('\n'));
  for (const char* part : {"Orvane", "Version", "trusses", "MIT", "Qt", qVersion()}) {
    EXPECT_TRUE(all.contains(QString::fromUtf8(part))) << part;
  }
  EXPECT_FALSE(Child<QLabel>(about, "Picture1").pixmap(Qt::ReturnByValue).isNull());
}

TEST(AboutForm, ButtonEnterAndEscapeCloseIt) {
  AboutForm about(nullptr);
  auto& Command1 = Child<QPushButton>(about, "Command1");
  about.show();
  QTest::mouseClick(&Command1, Qt::LeftButton);
  EXPECT_FALSE(about.isVisible());
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
    about.show();
    QTest::keyClick(&about, key);
    EXPECT_FALSE(about.isVisible());
  }
}

struct InstructionFrameTest : testing::Test {
  InstructionFrameTest() {
    window.resize(566, 500);
    window.show();
  }

  QWidget window;
  InstructionFrame frame{&window};
  QSignalSpy dismissed{&frame, &InstructionFrame::Dismissed};
};

TEST_F(InstructionFrameTest, FitsOverTheCanvasOfTheStartWindow) {
  EXPECT_EQ(frame.objectName(), QStringLiteral("frInstruct1"));
  EXPECT_LE(frame.width(), 420);
  EXPECT_LE(frame.height(), 300);
  for (const QLabel* label : frame.findChildren<QLabel*>()) {
    if (label->wordWrap()) {
      EXPECT_LE(label->heightForWidth(label->width()), label->height()) << label->text().toStdString();
    }
  }
}

TEST_F(InstructionFrameTest, TheButtonSendsItAway) {
  QTest::mouseClick(&Child<QPushButton>(frame, "cmdOKInstruct1"), Qt::LeftButton);
  EXPECT_EQ(dismissed.count(), 1);
}

TEST_F(InstructionFrameTest, HasTheFocusAndTakesEnterEscapeAndSpace) {
  frame.show();
  auto& cmdOKInstruct1 = Child<QPushButton>(frame, "cmdOKInstruct1");
  EXPECT_EQ(window.focusWidget(), &cmdOKInstruct1);
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space}) {
    dismissed.clear();
    QTest::keyClick(&cmdOKInstruct1, key);
    EXPECT_EQ(dismissed.count(), 1) << key;
  }
}

QPalette Style(const QColor& button, const QColor& text) {
  QPalette palette;
  palette.setColor(QPalette::Button, button);
  palette.setColor(QPalette::ButtonText, text);
  return palette;
}

TEST(ToolPicture, EveryToolLooksDifferentRaisedAndPressed) {
  for (const QPalette& palette : {Style(Qt::white, Qt::black), Style(QColor(50, 50, 50), Qt::white)}) {
    std::vector<QImage> seen;
    for (int tool = 1; tool <= 8; ++tool) {
      for (const bool pressed : {false, true}) {
        const QImage image = ToolPicture(tool, pressed, 1, palette).toImage();
        EXPECT_EQ(image.size(), QSize(32, 32));
        for (const QImage& other : seen) EXPECT_NE(image, other) << tool << pressed;
        seen.push_back(image);
      }
    }
  }
}

TEST(ToolPicture, IsDrawnInTheTextColourOfTheStyle) {
  const auto draws = [](const QPalette& palette, const QColor& colour) {
    const QImage image = ToolPicture(1, false, 4, palette).toImage();
    for (int y = 20; y < image.height() - 20; ++y) {
      for (int x = 20; x < image.width() - 20; ++x) {
        if (image.pixelColor(x, y) == colour) return true;
      }
    }
    return false;
  };
  EXPECT_TRUE(draws(Style(Qt::white, QColor(1, 2, 3)), QColor(1, 2, 3)));
  EXPECT_TRUE(draws(Style(Qt::black, QColor(250, 251, 252)), QColor(250, 251, 252)));
}

TEST(ToolPicture, HasThePixelsOfTheScreen) {
  const QPixmap picture = ToolPicture(4, true, 1.25, QPalette());
  EXPECT_EQ(picture.size(), QSize(40, 40));
  EXPECT_EQ(picture.devicePixelRatio(), 1.25);
}

TEST(ApplicationIcon, ComesInTheSizesOfWindowSystems) {
  const QIcon icon = ApplicationIcon();
  for (const int side : {16, 32, 48, 256}) {
    EXPECT_TRUE(icon.availableSizes().contains(QSize(side, side))) << side;
  }
  EXPECT_EQ(ApplicationPicture(32, 2).size(), QSize(64, 64));
}

TEST(ApplicationIcon, IsTheMarkOnItsFieldInEverySize) {
  for (const int side : {16, 32, 256}) {
    const QImage picture = ApplicationPicture(side, 1).toImage();
    const QColor field = picture.pixelColor(side / 2, side / 8);
    EXPECT_EQ(field.name(), QStringLiteral("#1f4366")) << side;
    EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0) << "the corners are round";
    const QColor foot = picture.pixelColor(side * 6 / 32, side * 23 / 32);
    EXPECT_GT(foot.red(), foot.blue() + 40) << "the supports carry the accent";
  }
}

}  // namespace
