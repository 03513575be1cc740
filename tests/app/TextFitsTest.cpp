// No text of any window is cut, whatever size the desktop's letters have.
#include <algorithm>
#include <vector>

#include "app/AboutForm.h"
#include "app/HelpViewer.h"
#include "reports/PrintableReportWindow.h"
#include "reports/ReportWindow.h"
#include "support/BuiltHelp.h"
#include "support/CutTexts.h"
#include "support/WindowEditingFixture.h"

namespace {

using testing::IsEmpty;

// Large ones are painted once: at other scales each takes seconds, and it is narrow and low ones that cut
// texts.
std::vector<QSize> InnerSizes() {
  if (qApp->devicePixelRatio() != 1) return {{566, 560}, {620, 420}};
  return {{566, 560}, {900, 700}, {620, 420}, {1340, 640}};
}

struct Letters {
  int Points;
  const char* Family;  // null for the desktop's
};

void PrintTo(const Letters& letters, std::ostream* out) {
  *out << letters.Points << " points";
  if (letters.Family != nullptr) *out << " of " << letters.Family;
}

class TextFits : public WindowEditingFixture, public testing::WithParamInterface<Letters> {
 protected:
  TextFits() : usual_(QApplication::font()) {
    QFont font = usual_;
    font.setPointSize(GetParam().Points);
    if (GetParam().Family != nullptr) font.setFamily(QString::fromLatin1(GetParam().Family));
    QApplication::setFont(font);
  }
  ~TextFits() override {
    form_.reset();
    QApplication::setFont(usual_);
  }

  void ExpectWhole(const QWidget& window, const std::string& when = {}) const {
    QApplication::processEvents();
    EXPECT_THAT(CutTexts::In(window), IsEmpty())
        << when << " in " << window.width() << " by " << window.height();
  }

  // Every status text that the tools have.
  void PointAtEveryTool() {
    for (int tool = 1; tool <= NumTools; ++tool) {
      auto* button = Find<QToolButton>(("imgTool(" + std::to_string(tool) + ")").c_str());
      QMouseEvent move(QEvent::MouseMove, QPointF(3, 3), button->mapToGlobal(QPointF(3, 3)), Qt::NoButton,
                       Qt::NoButton, Qt::NoModifier);
      QApplication::sendEvent(button, &move);
      ExpectWhole(*form_, "pointing at a tool");
    }
  }

  static void ExpectOnScreen(const QWidget& window) {
    const QSize screen = window.screen()->availableSize();
    EXPECT_LE(window.width(), screen.width());
    EXPECT_LE(window.height(), screen.height());
  }

 private:
  QFont usual_;
};

// A truss whose names and equations are long.
Truss LongNames() {
  return TrussBuilder()
      .Member(2, 2, 18, 2, "bottom chord")
      .Member(2, 2, 10, 10, "left rafter of the roof")
      .Member(18, 2, 10, 10, "right rafter of the roof")
      .Clamp(2, 2, "abutment x", "abutment y")
      .Roller(18, 2, "bearing on the wall")
      .Force(10, 10, 0, -2000)
      .Joint(2, 2, "heel at the abutment")
      .Joint(18, 2, "heel at the wall")
      .Joint(10, 10, "ridge");
}

TEST_P(TextFits, OfTheInstructions) {
  Shown();
  ExpectWhole(*form_, "as it starts");
  for (const QSize size : InnerSizes()) {
    ResizeInside(size.width(), size.height());
    ExpectWhole(*form_);
  }
}

TEST_P(TextFits, OfTheThreeSteps) {
  for (const QSize size : InnerSizes()) {
    Started(size.width(), size.height());
    ExpectWhole(*form_, "Step 1");
    PointAtEveryTool();
    OpenTruss(LongNames());
    MoveMouse(At(12.5F, 10));
    EXPECT_EQ(Status(2), QStringLiteral(" (12.50, 10.00) "));
    ExpectWhole(*form_, "the read-out");
    Click("cmdNext1");
    ExpectWhole(*form_, "Step 2");
    Click("cmdNext2");
    ExpectWhole(*form_, "Step 3");
    for (const char* joint : {"heel at the abutment", "ridge", "heel at the wall"}) {
      ClickLabel(JointLabel(joint));
      ASSERT_TRUE(Widget("frNewCoords(3)")->isVisible());
      ExpectWhole(*form_, joint);
      Click("cmdOKJointReport");
    }
  }
}

TEST_P(TextFits, OfTheValuePanels) {
  for (const QSize size : InnerSizes()) {
    Started(size.width(), size.height());
    OpenTruss(LongNames());
    ChooseTool(Tool::NumericalValue);
    ClickAt(At(17, 2));
    ASSERT_TRUE(Widget("frNewCoords(1)")->isVisible());
    for (const char* notation : {"optAbsolute(1)", "optRectangular(1)", "optPolar(1)"}) {
      QTest::mouseClick(Find<QRadioButton>(notation), Qt::LeftButton, {}, QPoint(6, 6));
      ExpectWhole(*form_, notation);
    }
    Click("cmdNewCoordsCancel(1)");
    const ForceRec& force = truss_.Forces[1];
    ClickAt(QPointF(force.PixX2, force.PixY2 - 8).toPoint());
    ASSERT_TRUE(Widget("frNewCoords(2)")->isVisible());
    ExpectWhole(*form_, "the force");
  }
}

TEST_P(TextFits, OfTheDialogs) {
  Started();
  OpenInStep2(LongNames());
  int dialogs = 0;
  const auto look = [&](QWidget& dialog) {
    ++dialogs;
    ExpectWhole(dialog, dialog.objectName().toStdString());
    ExpectOnScreen(dialog);
    dialog.close();
  };
  for (const char* entry : {"mnuSettings", "mnuHelpAbout"}) {
    InModalWindow(look);
    Trigger(entry);
  }
  InModalWindow(look);
  ClickLabel(JointLabel("ridge"));
  EXPECT_EQ(dialogs, 3);
}

QImage Painted(QMenu& menu) {
  menu.setActiveAction(nullptr);  // wherever the mouse is
  return menu.grab().toImage();
}

// Each entry of a painted menu, but for its right part, where its key stands, and without the lines between
// the entries.
std::vector<QImage> EntriesOf(const QMenu& menu, const QImage& painted, double width) {
  std::vector<QImage> entries;
  for (QAction* entry : menu.actions()) {
    if (entry->isSeparator()) continue;
    const QRectF place = menu.actionGeometry(entry);
    const double scale = painted.devicePixelRatio();
    const QRectF pixels(place.left() * scale, place.top() * scale, width * scale, place.height() * scale);
    entries.push_back(painted.copy(pixels.toRect()));
  }
  return entries;
}

TEST_P(TextFits, OfTheMenus) {
  Started();
  for (const int step : {1, 3}) {
    if (step == 3) OpenInStep3(LongNames());
    for (const QAction* entry : form_->menuBar()->actions()) {
      QMenu* menu = entry->menu();
      // The path of the recent file is another one each time, and its letters stand on fractions of pixels.
      const bool hasPath = step == 3 && menu == Find<QMenu>("mnuFile");
      if (menu == nullptr || hasPath) continue;
      menu->popup(form_->mapToGlobal(QPoint(0, 40)));
      QApplication::processEvents();
      // What is too long is shortened in its middle; further to the right stand keys.
      const QImage shown = Painted(*menu);
      const double mostOfIt = menu->width() * 0.75;
      const std::vector<QImage> entries = EntriesOf(*menu, shown, mostOfIt);
      menu->setMinimumWidth(menu->width() + 200);
      QEvent measureAgain(QEvent::FontChange);
      QApplication::sendEvent(menu, &measureAgain);
      QApplication::processEvents();
      const QImage withMoreRoom = Painted(*menu);
      EXPECT_GT(withMoreRoom.width(), shown.width());
      EXPECT_TRUE(entries == EntriesOf(*menu, withMoreRoom, mostOfIt))
          << menu->objectName().toStdString() << " in Step " << step;
      menu->close();
    }
  }
}

TEST_P(TextFits, OfTheReportWindow) {
  Started();
  Truss redundant = LongNames();
  redundant.Members[3].Live = false;
  redundant.Forces[1].Active = false;
  OpenInStep3(redundant);
  for (const char* button :
       {"cmdReportCounting", "cmdReportSystemEqs", "cmdReportRREF", "cmdReportSolutions"}) {
    Click(button);
    ExpectOnScreen(*Report());
    for (const QSize size : {Report()->size(), QSize(700, 500), QSize(420, 240), Report()->minimumSize()}) {
      Report()->resize(size);
      ExpectWhole(*Report(), button);
    }
  }
  EXPECT_TRUE(Report()->findChild<QLabel*>(QStringLiteral("lblRedundant"))->isVisible());
  Click("cmdReportCounting");
  EXPECT_EQ(Report()->minimumSize(), QSize(320, 200)) << "what the lines needed is over with them";
}

TEST_P(TextFits, OfThePrintableReport) {
  Started();
  OpenInStep3(LongNames());
  InModalWindow([this](QWidget& window) {
    ExpectOnScreen(window);
    for (const QSize size : {window.size(), window.minimumSize()}) {
      window.resize(size);
      ExpectWhole(window);
    }
    window.close();
  });
  Trigger("mnuFilePrint");
}

TEST_P(TextFits, OfTheHelp) {
  HelpViewer help(messages_);
  ASSERT_TRUE(help.ShowTopic(ProgramDirectory() + "\\orvane.chm::index.htm"));
  ExpectOnScreen(help);
  ExpectWhole(help, "as it opens");
  QTest::keyClick(&help, Qt::Key_F, Qt::ControlModifier);
  auto* typed = help.findChild<QLineEdit*>(QStringLiteral("txtFind"));
  for (const char* word : {"truss", "no such word"}) {
    typed->setText(QString::fromLatin1(word));
    for (int times = 0; times < 30; ++times) QTest::keyClick(typed, Qt::Key_Return);
    ExpectWhole(help, word);
  }
}

INSTANTIATE_TEST_SUITE_P(LettersOfPoints, TextFits,
                         testing::Values(Letters{8, nullptr}, Letters{9, nullptr},
                                         Letters{12, "Liberation Mono"}, Letters{14, nullptr},
                                         Letters{18, nullptr}, Letters{24, "Liberation Mono"}));

// --- the status bar

class StatusBarLetters : public MainFormTest {
 protected:
  ~StatusBarLetters() override {
    form_.reset();
    QApplication::setFont(usual_);
  }

  void WithLetters(int points) {
    QFont font = usual_;
    font.setPointSize(points);
    QApplication::setFont(font);
  }

  QFont usual_ = QApplication::font();
};

TEST_F(StatusBarLetters, TheBarGrowsWithTheLettersAndTheCanvasEndsWhereItBegins) {
  int before = 0;
  for (const int points : {8, 12, 18, 24}) {
    WithLetters(points);
    Started(900, 640);
    const int height = Widget("StatusBar1")->height();
    EXPECT_GT(height, before) << points;
    EXPECT_EQ(Canvas()->height(), 640 - height);
    EXPECT_EQ(QFontInfo(Widget("StatusBar1(1)")->font()).pointSize(), points);
    before = height;
  }
}

TEST_F(StatusBarLetters, ChangeWhileTheWindowIsOpen) {
  WithLetters(9);
  Started(900, 640);
  const int height = Widget("StatusBar1")->height();
  QFont larger = usual_;
  larger.setPointSize(18);
  form_->setFont(larger);
  QApplication::processEvents();
  EXPECT_GT(Widget("StatusBar1")->height(), height);
  EXPECT_THAT(CutTexts::In(*form_), testing::IsEmpty());
}

// Many findings in a narrow window.
TEST_F(StatusBarLetters, StayReadableWhateverThereIsToSay) {
  TrussBuilder crowded;
  for (int i = 0; i < 6; ++i) {
    const auto x = static_cast<float>(2 * i);
    crowded.Member(x, 2.25F, x, 6.25F, "m").Member(x, 2.25F, x, 6.25F, "n");
    crowded.Clamp(x, 2.25F, "p", "q").Roller(x, 2.25F, "r");
  }
  for (const int points : {6, 9, 12, 18}) {
    WithLetters(points);
    Started(566, 420);
    OpenInStep2(crowded);
    auto* panel = Widget("StatusBar1(1)");
    const QString all = Status().trimmed();
    EXPECT_GE(panel->font().pointSizeF(), std::min(8, points));
    EXPECT_TRUE(panel->toolTip().contains(QStringLiteral("Members lie on one another")));
    // Whether or not all of it has room on the screen.
    EXPECT_EQ(QAccessible::queryAccessibleInterface(panel)->text(QAccessible::Name).trimmed(), all) << points;
  }
}

TEST_F(StatusBarLetters, TheReadOutKeepsItsSizeWhileTheMouseMoves) {
  WithLetters(18);
  Started(900, 640);
  MoveMouse(QPoint(60, 500));
  const QFont font = Widget("StatusBar1(2)")->font();
  for (const int x : {100, 333, 777}) {
    MoveMouse(QPoint(x, 300));
    EXPECT_EQ(Widget("StatusBar1(2)")->font(), font);
  }
}

// --- the places that are fixed stay where they are

TEST_P(TextFits, MovesNoFixedPlace) {
  Started(566, 500);
  EXPECT_EQ(Widget("cmdNext1")->x(), 478);
  EXPECT_EQ(Widget("cmdPrev2")->x(), 414);
  EXPECT_EQ(Widget("StatusBar1(1)")->width(), 426);
  EXPECT_EQ(Widget("StatusBar1(2)")->width(), 120);
  for (const char* panel : {"picToolBox", "picStep2", "picStep3"}) {
    // Above the numbers of the upper ruler, which end 70 pixels below the canvas's top.
    const double numbers = 1.25 * QFontMetricsF(QFont(QStringLiteral("Arial"), 8)).height();
    EXPECT_LE(Widget(panel)->height(), 70 - numbers) << panel;
  }
}

}  // namespace
