// The dialog that asks for a name: what it shows, what the keys do, and what comes back.
#include "naming/CustomInputBox.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>

#include "support/ModalDialog.h"

namespace {

using Act = std::function<void(CustomInputBox&)>;

std::string Ask(const std::string& defaultText, const Act& act, int left = 1500, int top = 1500) {
  WhenOpen<CustomInputBox>(act);
  return InputBox2("Enter a new name:", defaultText, left, top, nullptr);
}

QLineEdit& Input(const CustomInputBox& box) { return Child<QLineEdit>(box, "txtInput"); }

void TypeAndEnter(CustomInputBox& box, const QString& text) {
  QTest::keyClicks(&Input(box), text);
  QTest::keyClick(&Input(box), Qt::Key_Return);
}

TEST(CustomInputBox, ShowsPromptDefaultAndTitleInArial) {
  Ask("[ ]", [](CustomInputBox& box) {
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Orvane"));
    EXPECT_EQ(Child<QLabel>(box, "Label1").text(), QStringLiteral("Enter a new name:"));
    EXPECT_EQ(Input(box).text(), QStringLiteral("[ ]"));
    EXPECT_EQ(Child<QPushButton>(box, "cmdOK").text(), QStringLiteral("OK"));
    EXPECT_EQ(Child<QPushButton>(box, "cmdCancel").text(), QStringLiteral("Cancel"));
    for (const char* name : {"Label1", "txtInput", "cmdOK", "cmdCancel"}) {
      EXPECT_EQ(Child<QWidget>(box, name).font().family(), QStringLiteral("Arial")) << name;
    }
  });
}

TEST(CustomInputBox, TextBoxHasTheFocusWithItsWholeTextSelected) {
  Ask("Name 1", [](CustomInputBox& box) {
    EXPECT_EQ(box.focusWidget(), &Input(box));
    EXPECT_EQ(Input(box).selectedText(), QStringLiteral("Name 1"));
  });
}

TEST(CustomInputBox, TypingReplacesTheDefaultAndEnterIsOK) {
  EXPECT_EQ(Ask("[ ]", [](CustomInputBox& box) { TypeAndEnter(box, QStringLiteral(" F 12 ")); }), " F 12 ");
}

TEST(CustomInputBox, OKButtonReturnsTheText) {
  EXPECT_EQ(
      Ask("A",
          [](CustomInputBox& box) { QTest::mouseClick(&Child<QPushButton>(box, "cmdOK"), Qt::LeftButton); }),
      "A");
}

TEST(CustomInputBox, CancelButtonEscapeAndClosingReturnNothing) {
  EXPECT_EQ(Ask("A",
                [](CustomInputBox& box) {
                  QTest::mouseClick(&Child<QPushButton>(box, "cmdCancel"), Qt::LeftButton);
                }),
            "");
  EXPECT_EQ(Ask("A", [](CustomInputBox& box) { QTest::keyClick(&Input(box), Qt::Key_Escape); }), "");
  EXPECT_EQ(Ask("A", [](CustomInputBox& box) { box.close(); }), "");
}

TEST(CustomInputBox, AccessKeysPressTheButtons) {
  const auto press = [](Qt::Key key) {
    return [key](CustomInputBox& box) {
      QTest::keyClick(&box, key, Qt::AltModifier);
      EXPECT_TRUE(
          QTest::qWaitFor([&box] { return !box.isVisible(); }));  // the button is seen going down first
    };
  };
  EXPECT_EQ(Ask("A", press(Qt::Key_O)), "A");
  EXPECT_EQ(Ask("A", press(Qt::Key_C)), "");
}

TEST(CustomInputBox, EnterOnCancelButtonDoesNotMeanOK) {
  EXPECT_EQ(Ask("A",
                [](CustomInputBox& box) {
                  Child<QPushButton>(box, "cmdCancel").setFocus();
                  QTest::keyClick(&Child<QPushButton>(box, "cmdCancel"), Qt::Key_Space);
                }),
            "");
}

TEST(CustomInputBox, OKOnAnEmptyBoxReturnsNothing) {
  EXPECT_EQ(Ask("A",
                [](CustomInputBox& box) {
                  QTest::keyClick(&Input(box), Qt::Key_Delete);
                  QTest::keyClick(&Input(box), Qt::Key_Return);
                }),
            "");
}

TEST(CustomInputBox, EachCallStartsFresh) {
  Ask("first", [](CustomInputBox& box) { TypeAndEnter(box, QStringLiteral("typed")); });
  EXPECT_EQ(Ask("second", [](CustomInputBox& box) { TypeAndEnter(box, {}); }), "second");
}

TEST(CustomInputBox, VeryLongNamesGoThroughWhole) {
  const std::string name = std::string(9990, 'n') + "<b>&\"x\"</b>";
  EXPECT_EQ(Ask(name,
                [](CustomInputBox& box) {
                  EXPECT_LE(box.width(), box.screen()->availableGeometry().width());
                  TypeAndEnter(box, {});
                }),
            name);
}

TEST(CustomInputBox, EveryByteOfANameComesBackUnedited) {
  std::string name;
  for (int byte = 1; byte < 256; ++byte) name += static_cast<char>(static_cast<unsigned char>(byte));
  EXPECT_EQ(Ask(name, [](CustomInputBox& box) { TypeAndEnter(box, {}); }), name);
}

TEST(CustomInputBox, CharactersOutsideTheCodePageBecomeQuestionMarks) {
  EXPECT_EQ(Ask("A",
                [](CustomInputBox& box) {
                  TypeCharacters(Input(box), QStringLiteral("\u03B1\u00E4\u20AC"));
                  TypeAndEnter(box, {});
                }),
            "?\xE4\x80");
}

TEST(CustomInputBox, PastedLineBreaksBecomeBlanks) {
  QApplication::clipboard()->setText(QStringLiteral("one\r\ntwo\nthree"));
  EXPECT_EQ(Ask("A",
                [](CustomInputBox& box) {
                  QTest::keyClick(&Input(box), Qt::Key_V, Qt::ControlModifier);
                  TypeAndEnter(box, QStringLiteral("!"));
                }),
            "one two three!");
}

TEST(CustomInputBox, LineBreakOfAFileStaysUntilEdited) {
  EXPECT_EQ(Ask("a\nb", [](CustomInputBox& box) { TypeAndEnter(box, {}); }), "a\nb");
}

TEST(CustomInputBox, MarkupAndAmpersandsInThePromptAreShownAsTheyAre) {
  CustomInputBox box("<b>R&D</b>", "", nullptr);
  const QLabel& prompt = Child<QLabel>(box, "Label1");
  EXPECT_EQ(prompt.textFormat(), Qt::PlainText);
  EXPECT_EQ(prompt.text(), QStringLiteral("<b>R&D</b>"));
  EXPECT_EQ(prompt.buddy(), nullptr) << "a buddy would swallow the ampersand";
}

TEST(CustomInputBox, StandsWhereTheCallerAsksInTwips) {
  Ask(
      "A", [](CustomInputBox& box) { EXPECT_EQ(box.pos(), QPoint(60, 40)); }, 60 * TwipsPerPixel,
      40 * TwipsPerPixel);
}

TEST(CustomInputBox, StaysOnTheScreenWhereverTheLabelIs) {
  for (const int twips : {-300000, 300000, 480000}) {
    Ask(
        "A",
        [](CustomInputBox& box) {
          const QRect room = box.screen()->availableGeometry();
          EXPECT_TRUE(room.contains(QRect(box.pos(), box.size()))) << box.x() << " " << box.y();
        },
        twips, twips);
  }
}

}  // namespace
