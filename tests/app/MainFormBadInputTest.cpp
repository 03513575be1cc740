// What a window has to survive: broken files, settings that cannot be drawn, tiny sizes, odd names.
#include <sys/stat.h>

#include <QHelpEvent>
#include <QToolTip>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>

#include "canvas/Grid.h"
#include "support/MainFormFixture.h"

namespace {

class MainFormBadInput : public MainFormTest {
 protected:
  void OpenPath(const std::string& path) {
    chooser_.Choice = path;
    Trigger("mnuFileOpen");
  }

  void OpenBytes(const std::string& bytes) { OpenPath(directory_.Put("bad.trs", bytes)); }

  // Names stay as they are for the first reading of the reports, and are given by AutoName for the second.
  void WalkThroughTheSteps() {
    Click("cmdNext1");
    Canvas()->grab();
    ReadReports();
    Click("cmdAutoName(1)");
    ReadReports();
    Click("cmdPrev2");
    Canvas()->grab();
  }

  void ReadReports() {
    Click("cmdNext2");
    for (const char* button : {"cmdReportSystemEqs", "cmdReportRREF", "cmdReportSolutions"}) {
      Click(button);
      Report()->grab();
    }
    Canvas()->grab();
    Click("cmdPrev3");
  }

  std::ptrdiff_t TimesTooDense() const {
    return std::ranges::count(messages_.Shown, GridTooDenseText, &Message::Text);
  }
};

Truss WithSettings(DocumentSettings settings) {
  Truss truss = LoadedTriangle();
  truss.Settings = settings;
  return truss;
}

// --- files

TEST_F(MainFormBadInput, AReadErrorStandsInTheStatusBarWithItsLine) {
  Started();
  Truss triangle = LoadedTriangle();
  std::string text = TrussText(triangle);
  text.replace(text.find("2,2,10,10"), 1, "x");
  OpenBytes(text);
  EXPECT_EQ(Status().toStdString(),
            " The file could not be read to its end: line 18: a number should stand here, not \"x\"."
            "  Save will ask for another name. ");
  EXPECT_EQ(truss_.NumSupports, 2) << "what was read stays";
  EXPECT_EQ(form_->windowTitle().toStdString(), "Orvane - " + directory_ / "bad.trs");
  EXPECT_FALSE(Entry("mnuRecentFile(1)")->isVisible());
  EXPECT_TRUE(messages_.Shown.empty());
  WalkThroughTheSteps();
}

TEST_F(MainFormBadInput, TheNextCommandTakesTheReadErrorAway) {
  Started();
  OpenBytes("nonsense");
  EXPECT_THAT(Status().toStdString(), testing::StartsWith(" The file could not be read"));
  Trigger("mnuFileNew");
  EXPECT_EQ(Status(), QStringLiteral(" Step 1: Design the truss. "));
}

TEST_F(MainFormBadInput, HintsAndMenusGiveTheReadErrorBack) {
  Started();
  OpenBytes("nonsense");
  const QString error = Status();
  auto* clamp = Find<QToolButton>("imgTool(2)");
  for (const bool chosen : {false, true}) {
    QTest::mouseMove(clamp, QPoint(10, 10));
    QMouseEvent move(QEvent::MouseMove, QPointF(11, 11), clamp->mapToGlobal(QPointF(11, 11)), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(clamp, &move);
    EXPECT_EQ(Status().toStdString(), ToolHint(2));
    if (chosen) QTest::mouseClick(clamp, Qt::LeftButton);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(clamp, &leave);
    QCoreApplication::processEvents();  // where the mouse has gone is looked at afterwards
    EXPECT_EQ(Status(), error);
  }
  FileMenu()->popup(QPoint(0, 0));
  EXPECT_NE(Status(), error);
  FileMenu()->close();
  EXPECT_EQ(Status(), error);

  Canvas()->setFocus();
  QTest::keyClick(Canvas(), Qt::Key_1);
  EXPECT_EQ(Status().toStdString(), ToolHint(1));
  QTest::mouseClick(Canvas(), Qt::LeftButton, Qt::NoModifier, QPoint(200, 200));
  EXPECT_EQ(Status(), error);

  Click("cmdNext1");
  EXPECT_NE(Status(), error);
  Click("cmdPrev2");
  EXPECT_EQ(Status(), QStringLiteral(" Step 1: Design the truss. "));
}

TEST_F(MainFormBadInput, ADirectoryCannotBeRead) {
  Started();
  const std::string directory = directory_ / "directory.trs";
  std::filesystem::create_directory(directory);
  OpenPath(directory);
  EXPECT_THAT(Status().toStdString(), testing::StartsWith(" Nothing was read from directory.trs"));
  WalkThroughTheSteps();
}

// To wait for somebody who writes into a pipe would hold the window up for ever.
TEST_F(MainFormBadInput, PipesAndDevicesAreRefusedAtOnce) {
  const std::string pipe = directory_ / "pipe.trs";
  const std::string device = directory_ / "device.trs";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::filesystem::create_symlink("/dev/zero", device);
  Started();
  for (const std::string& path : {pipe, device}) {
    OpenPath(path);
    EXPECT_THAT(Status().toStdString(), testing::HasSubstr("it is a pipe or a device, not a file")) << path;
    WalkThroughTheSteps();
  }
}

TEST_F(MainFormBadInput, AFileThatHasBecomeAPipeCountsAsChanged) {
  Started();
  OpenTruss(LoadedTriangle());
  std::filesystem::remove(truss_.FileName);
  ASSERT_EQ(mkfifo(truss_.FileName.c_str(), 0600), 0);
  messages_.Answers = {MessageAnswer::No};
  Trigger("mnuFileNew");
  ASSERT_EQ(messages_.Shown.size(), 1U);
  EXPECT_EQ(messages_.Shown[0].Text, "The truss has changed.  Do you want to save the changes?");
}

TEST_F(MainFormBadInput, AFileThatMayNotBeReadSaysSo) {
  Started();
  Truss triangle = LoadedTriangle();
  const std::string path = directory_.Put("secret.trs", TrussText(triangle));
  std::filesystem::permissions(path, std::filesystem::perms::none);
  if (std::ifstream(path).is_open()) GTEST_SKIP() << "this user may read every file";
  OpenPath(path);
  EXPECT_THAT(Status().toStdString(), testing::StartsWith(" Nothing was read from"));
}

TEST_F(MainFormBadInput, RandomBytesNeverHurt) {
  Started();
  std::mt19937 random(7);
  for (int i = 0; i < 20; ++i) {
    std::string bytes = i % 2 == 0 ? std::string() : "Orvane 5\r\n#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n";
    for (int k = 0; k < 400; ++k)
      bytes += i % 2 == 0 ? static_cast<char>(random()) : "0123456789,.-\r\n\"#"[random() % 17];
    OpenBytes(bytes);
    EXPECT_THAT(Status().toStdString(), testing::StartsWith(" The file could not be read")) << i;
    Click("cmdNext1");
    Canvas()->grab();
    Click("cmdPrev2");
  }
}

// --- settings

TEST_F(MainFormBadInput, ADenseGridIsReportedOnceARedraw) {
  Started();
  DocumentSettings dense;
  dense.GridX = 0.01F;
  OpenTruss(WithSettings(dense));
  EXPECT_EQ(TimesTooDense(), 1);
  Canvas()->grab();
  EXPECT_EQ(TimesTooDense(), 1) << "painting again is no redraw";
  Click("cmdNext1");
  EXPECT_EQ(TimesTooDense(), 2);
  ResizeInside(600, 500);
  EXPECT_EQ(TimesTooDense(), 3);
}

// A message box that lets the window be resized while it waits.
class RestlessBox : public FakeMessageBox {
 public:
  MessageAnswer Show(const Message& message) override {
    if (Meanwhile && Shown.size() < 50) Meanwhile();
    return FakeMessageBox::Show(message);
  }
  std::function<void()> Meanwhile;
};

TEST_F(MainFormBadInput, ARedrawWhileTheMessageIsOpenDoesNotAskAgain) {
  RestlessBox restless;
  form_ = std::make_unique<MainForm>(
      MainForm::Partners{truss_, store_, restless, chooser_, NumberFormat{}, "/program"});
  form_->show();
  Click("cmdOKInstruct1");
  restless.Meanwhile = [this] { ResizeInside(form_->width() + 1, 500); };
  DocumentSettings dense;
  dense.GridY = 1e-3F;
  OpenTruss(WithSettings(dense));
  EXPECT_EQ(restless.Shown.size(), 1U);
}

struct OddSettings {
  const char* Kind;
  DocumentSettings Settings;

  friend void PrintTo(const OddSettings& odd, std::ostream* out) { *out << odd.Kind; }
};

class MainFormOddSettings : public MainFormBadInput, public testing::WithParamInterface<OddSettings> {};

INSTANTIATE_TEST_SUITE_P(All, MainFormOddSettings,
                         testing::Values(OddSettings{"no range", {.XMin = 5, .XMax = 5}},
                                         OddSettings{"turned range", {.XMin = 9, .XMax = -9}},
                                         OddSettings{"no hatch spacing", {.HatchSpacing = 0.0}},
                                         OddSettings{"negative hatch spacing", {.HatchSpacing = -1.0}},
                                         OddSettings{"tiny hatch spacing", {.HatchSpacing = 1e-30}},
                                         OddSettings{"no grid in x", {.GridX = 0}},
                                         OddSettings{"no grid in y", {.GridY = 0}},
                                         OddSettings{"negative grid", {.GridX = -1, .GridY = -1}},
                                         OddSettings{"no force scale", {.ForceScale = 0}},
                                         OddSettings{"tiny force scale", {.ForceScale = -1e-30F}},
                                         OddSettings{"endless range", {.XMin = -3e38F, .XMax = 3e38F}},
                                         OddSettings{"tiny range", {.XMin = 0, .XMax = 1e-38F}},
                                         OddSettings{"far away", {.YMin = 3e38F}},
                                         OddSettings{"no figures", {.SigFigs = 0}},
                                         OddSettings{"negative figures", {.SigFigs = -30000}},
                                         OddSettings{"too many figures", {.SigFigs = 32767}}));

TEST_P(MainFormOddSettings, EverythingStillWorks) {
  Started();
  OpenTruss(WithSettings(GetParam().Settings));
  EXPECT_EQ(truss_.NumMembers, 3);
  WalkThroughTheSteps();
  ResizeInside(700, 500);
  EXPECT_TRUE(Widget("picToolBox")->isVisible());
  EXPECT_THAT(Status().toStdString(),
              testing::AnyOf(" Step 1: Design the truss. ", testing::HasSubstr("; Settings can ")));
}

// --- sizes

TEST_F(MainFormBadInput, AnyWindowSizeIsDrawn) {
  Started();
  OpenInStep2(LoadedTriangle());
  for (const QSize size : {QSize(1, 1), QSize(199, 199), QSize(200, 200), QSize(250, 250), QSize(1, 800),
                           QSize(800, 1), QSize(201, 215), QSize(100, 103), QSize(566, 500)}) {
    form_->resize(size);
    QApplication::processEvents();
    form_->grab();
    Canvas()->grab();
  }
  EXPECT_EQ(NumVisibleLabels(), 9);
  WalkThroughTheSteps();
}

TEST_F(MainFormBadInput, TheSmallestWindowsShowAnEmptyDrawingAreaWithoutHarm) {
  Started();
  OpenTruss(LoadedTriangle());
  // The drawing area is 200 - 100 wide and, with two lines of status bar, about 60 high.
  ResizeInside(200, 200);
  WalkThroughTheSteps();
}

// --- names

struct OddName {
  const char* Kind;
  std::string Text;

  friend void PrintTo(const OddName& name, std::ostream* out) { *out << name.Kind; }
};

class MainFormOddNames : public MainFormBadInput, public testing::WithParamInterface<OddName> {};

INSTANTIATE_TEST_SUITE_P(All, MainFormOddNames,
                         testing::Values(OddName{"very long", std::string(10'000, 'W')},
                                         OddName{"markup", "<h1>big</h1><img src='x'>"},
                                         OddName{"entities", "&amp; & &&"}, OddName{"quotes", "a\"b'c"},
                                         OddName{"line breaks", "first\nsecond\r\nthird"},
                                         OddName{"control characters", "\t\x01\x7f"},
                                         OddName{"high bytes", "\x80\x9f\xff"}, OddName{"blank", " "},
                                         OddName{"formats", "%1%2%n%s"}));

TEST_P(MainFormOddNames, AreDrawnAndReported) {
  Started();
  Draw(LoadedTriangle());
  for (NameLabel& label : truss_.Labels.First(truss_.NumLabels)) label.Caption = GetParam().Text;
  WalkThroughTheSteps();
  EXPECT_EQ(truss_.Name(truss_.Supports[1].NameLabel1), "A") << "AutoName has named it anew";
}

TEST_F(MainFormBadInput, ANameOfTenThousandCharactersCanBeTypedAndShortened) {
  Started();
  OpenInStep2(LoadedTriangle());
  const LabelIndex label = JointLabel("A");
  InModalWindow([](QWidget& window) {
    auto* box = window.findChild<QLineEdit*>(QStringLiteral("txtInput"));
    box->setText(QString(10'000, u'W'));
    QTest::keyClick(box, Qt::Key_Return);
  });
  ClickLabel(label);
  EXPECT_EQ(truss_.Name(label).size(), 10'000U);
  EXPECT_LT(Shapes().lblRodJoint[label].Width, 5000) << "the drawing shows its beginning";
  AnswerInputBox(QStringLiteral("A"));
  ClickLabel(label);
  EXPECT_EQ(offeredName_.size(), 10'000);
  EXPECT_EQ(truss_.Name(label), "A");
}

TEST_F(MainFormBadInput, TheToolTipOfAVeryLongNameIsShort) {
  Started();
  OpenInStep2(LoadedTriangle());
  const LabelIndex label = JointLabel("A");
  truss_.Labels[label].Caption = std::string(10'000, 'W');
  const QPoint point = PointOf(label);
  QHelpEvent event(QEvent::ToolTip, point, Canvas()->mapToGlobal(point));
  QApplication::sendEvent(Canvas(), &event);
  EXPECT_LT(QToolTip::text().size(), 500);
  QToolTip::hideText();
}

TEST_F(MainFormBadInput, LongNamesFitIntoTheJointPanel) {
  Started();
  Draw(LoadedTriangle());
  for (NameLabel& label : truss_.Labels.First(truss_.NumLabels)) label.Caption = std::string(300, 'W');
  Click("cmdNext1");
  Click("cmdNext2");
  QTest::mouseClick(Canvas(), Qt::LeftButton, Qt::NoModifier, PointOf(truss_.Joints[3].NameLabel));
  EXPECT_TRUE(Widget("frNewCoords(3)")->isVisible());
  EXPECT_TRUE(Canvas()->rect().contains(Widget("frNewCoords(3)")->geometry()));
}

}  // namespace
