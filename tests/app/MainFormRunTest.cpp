// The typical run: open a truss, name it, read its reports and equations, go back, change settings, save.
#include <QAbstractItemView>
#include <QCheckBox>
#include <QHeaderView>
#include <QPlainTextEdit>

#include "support/MainFormFixture.h"

namespace {

// The triangle as it is before anything has a name: clamp, roller, three members.
Truss UnnamedTriangle() {
  return TrussBuilder()
      .Member(2, 2, 18, 2)
      .Member(2, 2, 10, 10)
      .Member(18, 2, 10, 10)
      .Clamp(2, 2)
      .Roller(18, 2)
      .Force(10, 10, 0, -2000);
}

class MainFormRun : public MainFormTest {
 protected:
  // What the File menu shows while it is open.
  struct OpenMenu {
    QString Save, SaveAs;
    bool SaveEnabled = false, SaveAsEnabled = false, PrintEnabled = false;
  };

  OpenMenu OpenFileMenu() {
    FileMenu()->popup(QPoint(0, 0));
    EXPECT_EQ(Status(),
              QStringLiteral(" Start a new truss, open or save an existing truss, or exit the program "));
    const OpenMenu seen{Caption("mnuFileSave"), Caption("mnuFileSaveAs"), Entry("mnuFileSave")->isEnabled(),
                        Entry("mnuFileSaveAs")->isEnabled(), Entry("mnuFilePrint")->isEnabled()};
    FileMenu()->hide();
    return seen;
  }

  QString ReportText() const { return Report()->findChild<QPlainTextEdit*>()->toPlainText(); }
  QAbstractItemModel* ReportCells() const {
    return Report()->findChild<QAbstractItemView*>(QStringLiteral("EqnGrid"))->model();
  }
  QString Cell(int row, int column) const { return ReportCells()->index(row, column).data().toString(); }

  std::string Name(LabelIndex label) const { return truss_.Name(label); }
};

TEST_F(MainFormRun, FromAFileToItsForcesAndBack) {
  Started();
  OpenTruss(UnnamedTriangle());
  const std::string path = *chooser_.Choice;
  EXPECT_EQ(form_->windowTitle().toStdString(), "Orvane - " + path);
  EXPECT_EQ(Status(), QStringLiteral(" Step 1: Design the truss. "));

  Click("cmdNext1");
  const LabelIndex member = truss_.Members[1].NameLabel1;
  EXPECT_EQ(Name(member), "[ ]");
  Click("cmdAutoName(1)");
  EXPECT_EQ(Name(truss_.Supports[1].NameLabel1) + Name(truss_.Supports[1].NameLabel2), "AB");
  EXPECT_EQ(Name(truss_.Supports[2].NameLabel1), "C");
  EXPECT_EQ(Name(member) + Name(truss_.Members[2].NameLabel1) + Name(truss_.Members[3].NameLabel1), "DEF");
  for (int joint = 1; joint <= 3; ++joint)
    EXPECT_EQ(Name(truss_.Joints[joint].NameLabel), std::to_string(joint));

  Click("cmdNext2");
  EXPECT_TRUE(Report()->isVisible());
  EXPECT_THAT(
      ReportText().toStdString(),
      testing::HasSubstr("This truss contains 3 joints, labelled 1, 2, 3.  Thus there are 6 equations."));
  Click("cmdReportSystemEqs");
  EXPECT_EQ(Report()->windowTitle(),
            QStringLiteral("Report - The system of equations for the unknown forces"));
  EXPECT_EQ(ReportCells()->rowCount(), 6);
  Click("cmdReportRREF");
  EXPECT_EQ(Report()->windowTitle(), QStringLiteral("Report - the system of equations in RREF form"));
  Click("cmdReportSolutions");
  EXPECT_EQ(Report()->windowTitle(), QStringLiteral("Report - the forces"));
  // Half the load of 2000 on each support; 1000 / sin 45 in the slopes, and 1000 of tension at the foot.
  const std::vector<QString> values = {QStringLiteral("0"),    QStringLiteral("1000"),
                                       QStringLiteral("1000"), QChar(0x2013) + QStringLiteral("1000"),
                                       QStringLiteral("1414"), QStringLiteral("1414")};
  ASSERT_EQ(ReportCells()->rowCount(), 6);
  for (int row = 0; row < 6; ++row) EXPECT_EQ(Cell(row, 0), values[static_cast<std::size_t>(row)]) << row;
  Click("cmdReportCounting");
  EXPECT_THAT(ReportText().toStdString(),
              testing::StartsWith("The forces:  This truss contains 6 unknown forces:"));

  ClickLabel(JointLabel("3"));
  EXPECT_TRUE(Widget("frNewCoords(3)")->isVisible());
  EXPECT_EQ(Find<QLabel>("lblCaption")->text(), QStringLiteral("Equations for joint 3"));
  EXPECT_EQ(Find<QLineEdit>("txtXEqn")->text(), QStringLiteral("E cos(45.0) = F cos(45.0)"));
  EXPECT_EQ(Find<QLineEdit>("txtYEqn")->text(), QStringLiteral("E sin(45.0) + F sin(45.0) = 2000."));

  Click("cmdPrev3");
  EXPECT_FALSE(Widget("frNewCoords(3)")->isVisible());
  Click("cmdPrev2");
  EXPECT_EQ(NumVisibleLabels(), 0);
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(MainFormRun, TheReportWindowHoldsOnToWhatItShowsWhenTheTrussIsAnalysedAnew) {
  Started();
  OpenInStep3(LoadedTriangle());
  Click("cmdReportSolutions");
  Click("cmdPrev3");
  Report()->grab();
  Click("cmdNext2");
  Report()->grab();
  Trigger("mnuFileNew");
  EXPECT_FALSE(Report()->isVisible());
  Click("cmdNext1");
  Click("cmdNext2");
  Report()->grab();
}

TEST_F(MainFormRun, OnlyJointsHaveEquations) {
  Started();
  OpenInStep3(LoadedTriangle());
  ClickLabel(truss_.Members[1].NameLabel1);
  ClickLabel(truss_.Supports[1].NameLabel1);
  EXPECT_FALSE(Widget("frNewCoords(3)")->isVisible());
  ClickLabel(JointLabel("B"));
  EXPECT_TRUE(Widget("frNewCoords(3)")->isVisible());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_FALSE(Widget("frNewCoords(3)")->isVisible());
}

// --- saving

TEST_F(MainFormRun, TheFileMenuSaysWhereSavingIsPossible) {
  Started();
  OpenMenu menu = OpenFileMenu();
  EXPECT_EQ(menu.Save, QStringLiteral("&Save the  truss"));
  EXPECT_EQ(menu.SaveAs, QStringLiteral("Save the truss &as ... (is enabled in Step 2)"));
  EXPECT_FALSE(menu.SaveEnabled || menu.SaveAsEnabled || menu.PrintEnabled);
  EXPECT_EQ(Status(), QStringLiteral(" Step 1: Design the truss. ")) << "after the menu has closed";

  Click("cmdNext1");
  menu = OpenFileMenu();
  EXPECT_EQ(menu.SaveAs, QStringLiteral("Save the truss &as ..."));
  EXPECT_TRUE(menu.SaveAsEnabled);
  EXPECT_FALSE(menu.SaveEnabled) << "the truss is untitled";
  EXPECT_FALSE(menu.PrintEnabled);

  OpenInStep2(LoadedTriangle());
  menu = OpenFileMenu();
  EXPECT_TRUE(menu.SaveEnabled && menu.SaveAsEnabled);
  EXPECT_EQ(menu.Save, QStringLiteral("&Save the  truss"));

  Click("cmdNext2");
  menu = OpenFileMenu();
  EXPECT_TRUE(menu.SaveEnabled && menu.SaveAsEnabled && menu.PrintEnabled);
  EXPECT_EQ(menu.SaveAs, QStringLiteral("Save the truss &as ..."));
}

TEST_F(MainFormRun, SaveInStep2WritesTheNamesToTheFile) {
  Started();
  OpenInStep2(UnnamedTriangle());
  Click("cmdAutoName(1)");
  QTest::keyClick(form_.get(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_THAT(directory_.Bytes("a.trs"), testing::HasSubstr("2,2,18,2,\"D\",\"D\"\r\n"));
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(MainFormRun, SaveAsGivesTheTrussAnotherName) {
  Started();
  OpenInStep2(LoadedTriangle());
  const std::string first = *chooser_.Choice;
  chooser_.Choice = directory_ / "b.trs";
  Trigger("mnuFileSaveAs");
  EXPECT_EQ(directory_.Bytes("b.trs"), directory_.Bytes("a.trs"));
  EXPECT_EQ(form_->windowTitle().toStdString(), "Orvane - " + directory_ / "b.trs");
  EXPECT_EQ(Caption("mnuRecentFile(1)").toStdString(), directory_ / "b.trs");
  EXPECT_EQ(Caption("mnuRecentFile(2)").toStdString(), first);
  EXPECT_EQ(store_.Texts["Orvane/Recent Files/RecentFile1"], directory_ / "b.trs");
}

TEST_F(MainFormRun, SaveAsOfAnUntitledTrussEnablesSave) {
  Started();
  Click("cmdNext1");
  chooser_.Choice = directory_ / "empty.trs";
  Trigger("mnuFileSaveAs");
  EXPECT_TRUE(Entry("mnuFileSave")->isEnabled());
}

// --- settings

TEST_F(MainFormRun, SettingsChangeTheDrawingAtOnce) {
  Started(500, 500);
  ResizeInside(500, 433 + Widget("StatusBar1")->height());
  OpenTruss(LoadedTriangle());
  EXPECT_EQ(Shapes().Rod[1].X2, 408);
  InModalWindow([](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Settings"));
    auto* maximumX = window.findChild<QLineEdit*>(QStringLiteral("txtDim(2)"));
    EXPECT_EQ(maximumX->text(), QStringLiteral("20"));
    maximumX->setFocus();
    maximumX->selectAll();
    QTest::keyClicks(maximumX, QStringLiteral("40"));
    QTest::mouseClick(window.findChild<QCheckBox*>(QStringLiteral("chkShowGrid")), Qt::LeftButton,
                      Qt::NoModifier, QPoint(8, 8));
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("cmdClose")), Qt::LeftButton);
  });
  Trigger("mnuSettings");
  EXPECT_EQ(modalWindows_, 1);
  EXPECT_EQ(truss_.Settings.XMax, 40);
  EXPECT_FALSE(truss_.Settings.GridOn);
  EXPECT_FLOAT_EQ(truss_.View.YMax, 33);
  EXPECT_EQ(Shapes().Rod[1].X2, 228) << "10 pixels to the unit";
  Trigger("mnuFileNew");
  EXPECT_TRUE(messages_.Shown.empty()) << "settings are no change of the truss";
  EXPECT_EQ(truss_.Settings.XMax, 40) << "a new truss keeps the settings";
}

TEST_F(MainFormRun, BadSettingsStayInTheDialog) {
  Started();
  InModalWindow([this](QWidget& window) {
    window.findChild<QLineEdit*>(QStringLiteral("txtDim(2)"))->setText(QStringLiteral("-5"));
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("cmdClose")), Qt::LeftButton);
    EXPECT_TRUE(window.isVisible());
    ASSERT_EQ(messages_.Shown.size(), 1U);
    EXPECT_EQ(messages_.Shown[0].Text,
              "The maximum x coordinate must be bigger than the minimum x coordinate.");
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("cmdCancel")), Qt::LeftButton);
  });
  Trigger("mnuSettings");
  EXPECT_EQ(truss_.Settings.XMax, 20);
}

TEST_F(MainFormRun, SettingsDoNotOpenInStep3) {
  Started();
  OpenInStep3(LoadedTriangle());
  Trigger("mnuSettings");
  ASSERT_EQ(messages_.Shown.size(), 1U);
  EXPECT_EQ(messages_.Shown[0], Message{.Text = "You must go back to Step 2 to change the settings."});
}

TEST_F(MainFormRun, SettingsChangedInStep2KeepTheNamesOnTheDrawing) {
  Started();
  OpenInStep2(LoadedTriangle());
  InModalWindow([](QWidget& window) {
    window.findChild<QLineEdit*>(QStringLiteral("txtDim(2)"))->setText(QStringLiteral("30"));
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("cmdClose")), Qt::LeftButton);
  });
  Trigger("mnuSettings");
  EXPECT_EQ(NumVisibleLabels(), 9);
}

}  // namespace
