// What the window says about a drawing on entering Step 2, and what can be told by eye on it.
#include <cmath>
#include <set>

#include "app/StepTexts.h"
#include "support/MainFormFixture.h"
#include "support/TrussBuilder.h"

namespace {

const QString Step2 = QString::fromLatin1(Step2StatusText);

// Two supports at (4, 2) and two members from (4, 2) to (8, 2).
Truss Doubled() {
  return TrussBuilder().Member(4, 2, 8, 2).Member(8, 2, 4, 2).Clamp(4, 2).Roller(4, 2).Roller(8, 2);
}

const QString DoubledFindings = QStringLiteral(
    " Supports stand on one another at (4, 2).  Members lie on one another from (4, 2) to (8, 2). ");

bool IsReddish(const QColor& colour) {
  return colour.red() > 180 && colour.green() < 110 && colour.blue() < 110;
}
// Sloping lines of one pixel are smoothed into two of half their strength.
bool IsDark(const QColor& colour) {
  return colour.red() < 170 && colour.green() < 170 && colour.blue() < 170;
}

class MainFormFindingsTest : public MainFormTest {
 protected:
  // The columns, or rows, of the frame's inside on which there is a dot of the grid.
  std::set<int> DotLines(const QImage& picture, const QRect& inside, bool columns) const {
    std::set<int> found;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
      for (int x = inside.left(); x <= inside.right(); ++x) {
        if (picture.pixelColor(x, y) == Qt::black) found.insert(columns ? x : y);
      }
    }
    return found;
  }
};

}  // namespace

TEST_F(MainFormFindingsTest, ADrawingWithoutFaultHasTheTextOfTheStepOnly) {
  Started();
  OpenInStep2(LoadedTriangle());
  EXPECT_EQ(Status(), Step2);
}

TEST_F(MainFormFindingsTest, OverlapsAreSaidOnEnteringStep2FromEitherSide) {
  Started();
  OpenInStep2(Doubled());
  EXPECT_EQ(Status(), Step2 + DoubledFindings);
  Click("cmdPrev2");
  EXPECT_EQ(Status(), QString::fromLatin1(Step1StatusText));
  Click("cmdNext1");
  EXPECT_EQ(Status(), Step2 + DoubledFindings);
  Click("cmdNext2");
  EXPECT_EQ(Status(), QString::fromLatin1(Step3StatusText));
  Click("cmdPrev3");
  EXPECT_EQ(Status(), Step2 + DoubledFindings);
}

TEST_F(MainFormFindingsTest, NamesOutsideTheDrawingAreCountedUntilSettingsBringThemIn) {
  Started();
  OpenInStep2(TrussBuilder().Member(10, 2, 50, 2).Roller(10, 2));
  // The member's name at 30, the joint's at 50; the roller's and the other joint's are on the drawing.
  EXPECT_EQ(Status(), Step2 + QStringLiteral(" 2 names lie outside the drawing; Settings can widen it. "));
  InModalWindow([](QWidget& dialog) {
    dialog.findChild<QLineEdit*>(QStringLiteral("txtDim(2)"))->setText(QStringLiteral("60"));
    QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("cmdClose")), Qt::LeftButton);
  });
  Trigger("mnuSettings");
  EXPECT_EQ(modalWindows_, 1);
  EXPECT_EQ(Status(), Step2);
}

TEST_F(MainFormFindingsTest, NamesThatAWiderWindowPushesOutAreCountedAtOnce) {
  Started();
  form_->resize(600, 700);
  OpenInStep2(TrussBuilder().Member(4, 2, 4, 15).Clamp(4, 2));
  EXPECT_EQ(Status(), Step2);
  form_->resize(1400, 500);
  EXPECT_THAT(Status().toStdString(), testing::HasSubstr("outside the drawing; Settings can widen it."));
  form_->resize(600, 700);
  EXPECT_EQ(Status(), Step2);
}

TEST_F(MainFormFindingsTest, ATallTrussThatTheWindowCutsIsToldInStep1Too) {
  const auto isTold = [this] {
    return Status().contains(
        QStringLiteral("A part of the truss lies outside the drawing; Settings can widen it"));
  };
  Started();
  form_->resize(1400, 500);
  OpenTruss(TrussBuilder().Member(4, 2, 4, 15).Clamp(4, 2));
  EXPECT_TRUE(isTold()) << "after opening it";
  form_->resize(600, 700);
  EXPECT_EQ(Status(), QString::fromLatin1(Step1StatusText));
  form_->resize(1400, 500);
  EXPECT_TRUE(isTold()) << "after a change of the window's size";
  Click("cmdNext1");
  EXPECT_FALSE(isTold()) << "there the names are counted";
  Click("cmdPrev2");
  EXPECT_TRUE(isTold());
  InModalWindow([](QWidget& dialog) {
    dialog.findChild<QLineEdit*>(QStringLiteral("txtDim(2)"))->setText(QStringLiteral("80"));
    QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("cmdClose")), Qt::LeftButton);
  });
  Trigger("mnuSettings");
  EXPECT_EQ(Status(), QString::fromLatin1(Step1StatusText)) << "the remedy helps";
}

TEST_F(MainFormFindingsTest, ForcesAndSupportsOutsideAreToldLikeMembers) {
  for (const Truss& truss :
       {Truss(TrussBuilder().Member(4, 4, 8, 4).Force(4, 4, -20000, 0)),
        Truss(TrussBuilder().Member(4, 4, 8, 4).Roller(25, 4)), Truss(TrussBuilder().Member(4, 4, 8, 60))}) {
    Started();
    OpenTruss(truss);
    EXPECT_TRUE(Status().contains(QStringLiteral("lies outside the drawing"))) << Status().toStdString();
  }
}

TEST_F(MainFormFindingsTest, HatchMarksThatAreTooCloseAreNotLeftOutWithoutAWord) {
  Started();
  const auto setHatchSpacing = [this](const char* spacing) {
    InModalWindow([spacing](QWidget& dialog) {
      dialog.findChild<QLineEdit*>(QStringLiteral("txtDim(3)"))->setText(QString::fromLatin1(spacing));
      QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("cmdClose")), Qt::LeftButton);
    });
    Trigger("mnuSettings");
  };
  const QString said =
      QStringLiteral(" The hatch marks are too close to be drawn; Settings can space them wider. ");
  setHatchSpacing("0.01");
  EXPECT_EQ(Status(), said);
  Click("cmdNext1");
  EXPECT_EQ(Status(), Step2 + said);
  setHatchSpacing("1");
  EXPECT_EQ(Status(), Step2);
  setHatchSpacing("0.01");
  EXPECT_EQ(Status(), Step2 + said);
  truss_.Settings.RulersOn = false;
  Click("cmdPrev2");
  EXPECT_EQ(Status(), QString::fromLatin1(Step1StatusText)) << "there are no rulers";
}

TEST_F(MainFormFindingsTest, ANameBehindThePanelIsOutsideToo) {
  Started();
  OpenInStep2(TrussBuilder().Member(4, 2, 8, 2).Roller(4, 2, "R", 6).Member(4, 17.2F, 8, 17.2F));
  EXPECT_TRUE(Status().startsWith(Step2));
  EXPECT_TRUE(Status().contains(QStringLiteral("outside the drawing"))) << Status().toStdString();
}

TEST_F(MainFormFindingsTest, AnEmptyNameCanBeClickedAndReachedByTab) {
  Started();
  OpenInStep2(TrussBuilder().Member(4, 4, 12, 4, "").Roller(12, 4, "R"));
  const LabelIndex label = truss_.Members[1].NameLabel1;
  ASSERT_EQ(truss_.Name(label), "");
  Canvas()->setFocus();
  bool reached = false;
  for (int i = 0; i < truss_.NumLabels && !reached; ++i) {
    QTest::keyClick(Canvas(), Qt::Key_Tab);
    reached = Canvas()->FocusLabel() == label;
  }
  EXPECT_TRUE(reached);
  const PixelLine& rod = Shapes().Rod[1];
  AnswerInputBox(QStringLiteral("AB"));
  QTest::mouseClick(Canvas(), Qt::LeftButton, Qt::NoModifier,
                    QPointF(double{rod.X1 + rod.X2} / 2, double{rod.Y1 + rod.Y2} / 2).toPoint());
  EXPECT_EQ(truss_.Name(label), "AB");
}

TEST_F(MainFormFindingsTest, AForceAlongAMemberIsSeenInsideIt) {
  for (const auto& [dx, dy] : {std::pair(8.0F, 0.0F), std::pair(0.0F, 6.0F), std::pair(6.0F, 5.0F)}) {
    Started();
    OpenTruss(TrussBuilder().Member(5, 5, 5 + dx, 5 + dy).Force(5, 5, 500 * dx, 500 * dy));
    for (const char* next : {"", "cmdNext1", "cmdNext2"}) {
      if (*next != 0) Click(next);
      const PixelLine& rod = Shapes().Rod[1];
      const QPointF along(double{rod.X2 - rod.X1}, double{rod.Y2 - rod.Y1});
      const QPointF aside = QPointF(-along.y(), along.x()) / std::hypot(along.x(), along.y());
      const QImage picture = Picture();
      // Between the member's own arrow and the force's head there is the force, and on both sides the member.
      for (const double part : {0.32, 0.34, 0.36, 0.38}) {
        const QPointF at = QPointF(double{rod.X1}, double{rod.Y1}) + part * along;
        bool isRed = false;
        bool isDarkLeft = false;
        bool isDarkRight = false;
        for (double offset = -4; offset <= 4; offset += 0.25) {
          const QColor colour = picture.pixelColor((at + offset * aside).toPoint());
          isRed = isRed || IsReddish(colour);
          if (IsDark(colour)) (isRed ? isDarkRight : isDarkLeft) = true;
        }
        EXPECT_TRUE(isRed && isDarkLeft && isDarkRight) << dx << " " << dy << " " << next << " at " << part;
      }
    }
  }
}

TEST_F(MainFormFindingsTest, EveryTickOfTheRulersStandsOnALineOfGridDots) {
  Started();
  for (int width = 566; width < 576; ++width) {
    ResizeInside(width, 500 + width % 7);
    const QImage picture = Picture();
    const int right = width - 52;
    const int bottom = Canvas()->height() - 33;
    const QRect inside(QPoint(48 + 8, 70 + 8), QPoint(right - 8, bottom - 8));
    const std::set<int> columns = DotLines(picture, inside, true);
    const std::set<int> rows = DotLines(picture, inside, false);
    int numTicks = 0;
    for (int x = inside.left(); x <= inside.right(); ++x) {
      if (picture.pixelColor(x, bottom - 2) != Qt::black || picture.pixelColor(x, bottom - 4) != Qt::black)
        continue;
      ++numTicks;
      EXPECT_TRUE(columns.contains(x)) << "width " << width;
    }
    EXPECT_EQ(numTicks, 9) << "at 2 .. 18";
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
      if (picture.pixelColor(50, y) != Qt::black || picture.pixelColor(52, y) != Qt::black) continue;
      EXPECT_TRUE(rows.contains(y)) << "width " << width;
    }
  }
}
