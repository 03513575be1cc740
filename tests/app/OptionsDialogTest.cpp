// The settings dialog, driven with keys and the mouse.
#include "app/OptionsDialog.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <memory>

#include "support/FakeMessageBox.h"
#include "support/ModalDialog.h"

namespace {

struct OptionsDialogTest : testing::Test {
  OptionsDialogTest() { Open({}); }

  void Open(const DocumentSettings& settings, const NumberFormat& format = {}) {
    dialog = std::make_unique<OptionsDialog>(settings, format, messages, nullptr);
    QObject::connect(dialog.get(), &OptionsDialog::Applied, dialog.get(), [this](const SettingsInput& input) {
      EXPECT_TRUE(dialog->isVisible()) << "the truss is redrawn before the dialog closes";
      applied.push_back(input);
    });
    dialog->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
  }

  QLineEdit& Box(int index) {
    return Child<QLineEdit>(*dialog, QStringLiteral("txtDim(%1)").arg(index).toUtf8().constData());
  }
  QComboBox& Combo(const char* name) { return Child<QComboBox>(*dialog, name); }
  QCheckBox& Check(const char* name) { return Child<QCheckBox>(*dialog, name); }
  QPushButton& Button(const char* name) { return Child<QPushButton>(*dialog, name); }

  void Type(int index, const char* text) {
    QTest::mouseClick(&Box(index), Qt::LeftButton);
    Box(index).selectAll();
    QTest::keyClick(&Box(index), Qt::Key_Delete);
    QTest::keyClicks(&Box(index), QString::fromUtf8(text));
  }

  void Click(const char* button) { QTest::mouseClick(&Button(button), Qt::LeftButton); }

  /// Presses Close, which must be refused, and returns the one message that was shown.
  Message Refusal() {
    messages.Shown.clear();
    Click("cmdClose");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(applied.empty());
    EXPECT_EQ(messages.Shown.size(), 1U);
    return messages.Shown.empty() ? Message{} : messages.Shown.front();
  }

  FakeMessageBox messages;
  std::unique_ptr<OptionsDialog> dialog;
  std::vector<SettingsInput> applied;
};

Message Critical(const char* text) { return {.Text = text, .Icon = MessageIcon::Critical}; }

const Message NotNumbers = Critical("Invalid input.  The setting must be numbers.");
const Message BadMaximum = Critical("The maximum x coordinate must be bigger than the minimum x coordinate.");
const Message BadHatches = Critical("The hatch mark spacing must be a positive number.");

TEST_F(OptionsDialogTest, TextsOfFramesLabelsAndButtons) {
  EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Settings"));
  QStringList frames;
  for (const QGroupBox* frame : dialog->findChildren<QGroupBox*>()) frames += frame->title();
  for (const char* title : {"x coordinates", "y coordinates", "Display options"}) {
    EXPECT_TRUE(frames.contains(QString::fromUtf8(title))) << title;
  }
  EXPECT_EQ(frames.size(), 4);

  QStringList labels;
  for (const QLabel* label : dialog->findChildren<QLabel*>()) labels += label->text();
  for (const char* text :
       {"Minimum x coordinate", "Maximum x coordinate", "Hatch mark spacing on rulers",
        "Grid spacing in x direction", "Minimum y coordinate", "Grid spacing in y direction",
        "Note:  maximum y coordinate set", "automatically to preserve aspect ratio", "One unit on the ruler",
        "represents this much force", "Number of significant", "figures to display", "Font size"}) {
    EXPECT_TRUE(labels.contains(QString::fromUtf8(text))) << text;
  }
  EXPECT_EQ(Check("chkShowRulers").text(), QStringLiteral("Show rulers"));
  EXPECT_EQ(Check("chkSnapGrid").text(), QStringLiteral("Snap to grid"));
  EXPECT_EQ(Check("chkShowGrid").text(), QStringLiteral("Show grid"));
  EXPECT_EQ(Check("chkSnapObject").text(), QStringLiteral("Snap to object"));
  EXPECT_EQ(Button("cmdFactory").text(), QStringLiteral("Factory settings"));
}

TEST_F(OptionsDialogTest, ToolTips) {
  EXPECT_EQ(Box(4).toolTip(), QStringLiteral("Used with Snap to grid."));
  EXPECT_EQ(Box(8).toolTip(), QStringLiteral("Used with Snap to grid."));
  EXPECT_EQ(Button("cmdFactory").toolTip(), QStringLiteral("Set all options to factory settings"));
}

TEST_F(OptionsDialogTest, EveryControlHasANameForScreenReaders) {
  EXPECT_EQ(Box(9).accessibleName(), QStringLiteral("One unit on the ruler represents this much force"));
  for (const int index : {1, 2, 3, 4, 5, 8, 9}) EXPECT_FALSE(Box(index).accessibleName().isEmpty()) << index;
  EXPECT_EQ(Combo("cmbSigFigs").accessibleName(), QStringLiteral("Number of significant figures to display"));
  EXPECT_EQ(Combo("cmbFontSize").accessibleName(), QStringLiteral("Font size"));
}

TEST_F(OptionsDialogTest, OpensWithTheSettingsOfTheDocument) {
  DocumentSettings settings;
  settings.XMin = -1.5F;
  settings.XMax = 1e6F;
  settings.HatchSpacing = 0.25F;
  settings.YMin = -3;
  settings.SigFigs = 7;
  settings.ReportFontSize = 14;
  settings.GridOn = false;
  settings.SnapObject = false;
  Open(settings);
  EXPECT_EQ(Box(1).text(), QStringLiteral("-1.5"));
  EXPECT_EQ(Box(2).text(), QStringLiteral("1000000"));
  EXPECT_EQ(Box(3).text(), QStringLiteral("0.25"));
  EXPECT_EQ(Box(4).text(), QStringLiteral("0.5"));
  EXPECT_EQ(Box(5).text(), QStringLiteral("-3"));
  EXPECT_EQ(Box(8).text(), QStringLiteral("0.5"));
  EXPECT_EQ(Box(9).text(), QStringLiteral("1000"));
  EXPECT_EQ(Combo("cmbSigFigs").currentText(), QStringLiteral("7"));
  EXPECT_EQ(Combo("cmbFontSize").currentText(), QStringLiteral("14"));
  EXPECT_TRUE(Check("chkShowRulers").isChecked());
  EXPECT_TRUE(Check("chkSnapGrid").isChecked());
  EXPECT_FALSE(Check("chkShowGrid").isChecked());
  EXPECT_FALSE(Check("chkSnapObject").isChecked());
}

TEST_F(OptionsDialogTest, ItemsOfTheCombinedBoxes) {
  QStringList figures, sizes;
  for (int i = 0; i < Combo("cmbSigFigs").count(); ++i) figures += Combo("cmbSigFigs").itemText(i);
  for (int i = 0; i < Combo("cmbFontSize").count(); ++i) sizes += Combo("cmbFontSize").itemText(i);
  EXPECT_EQ(figures.join(QLatin1Char(' ')), QStringLiteral("3 4 5 6 7"));
  EXPECT_EQ(sizes.join(QLatin1Char(' ')), QStringLiteral("10 12 14 16"));
}

TEST_F(OptionsDialogTest, FocusIsOnTheFirstBoxWithItsTextSelected) {
  EXPECT_EQ(dialog->focusWidget(), &Box(1));
  EXPECT_EQ(Box(1).selectedText(), QStringLiteral("0"));
}

TEST_F(OptionsDialogTest, TabWalksThroughAllControlsInReadingOrder) {
  for (const char* name : {"txtDim(2)", "txtDim(3)", "txtDim(4)", "txtDim(5)", "txtDim(8)", "txtDim(9)",
                           "cmbSigFigs", "cmbFontSize", "chkShowRulers", "chkSnapGrid", "chkShowGrid",
                           "chkSnapObject", "cmdFactory", "cmdClose", "cmdCancel", "txtDim(1)"}) {
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(dialog->focusWidget()->objectName(), QString::fromUtf8(name));
    if (const auto* box = qobject_cast<QLineEdit*>(dialog->focusWidget())) {
      EXPECT_EQ(box->selectedText(), box->text()) << name;
    }
  }
}

TEST_F(OptionsDialogTest, AClickThatGivesTheFocusSelectsTheWholeTextAndTheNextSetsTheCaret) {
  QTest::mouseClick(&Box(9), Qt::LeftButton);
  EXPECT_EQ(Box(9).selectedText(), QStringLiteral("1000"));
  QTest::mouseClick(&Box(9), Qt::LeftButton, {}, Box(9).rect().center() + QPoint(1, 0),
                    QApplication::doubleClickInterval() + 1);
  EXPECT_FALSE(Box(9).hasSelectedText());
}

TEST_F(OptionsDialogTest, CloseAppliesWhatTheControlsHold) {
  Type(1, "-2");
  Type(2, "30.5");
  Type(3, "5");
  Type(4, "1");
  Type(5, "-7");
  Type(8, "0.25");
  Type(9, "2e3");
  QTest::keyClick(&Combo("cmbSigFigs"), Qt::Key_End);
  QTest::keyClick(&Combo("cmbFontSize"), Qt::Key_Down);
  for (const char* name : {"chkShowRulers", "chkSnapGrid", "chkShowGrid", "chkSnapObject"}) {
    QTest::mouseClick(&Check(name), Qt::LeftButton, {}, QPoint(8, Check(name).height() / 2));
  }
  Click("cmdClose");
  EXPECT_FALSE(dialog->isVisible());
  ASSERT_EQ(applied.size(), 1U);

  Truss truss;
  EXPECT_FALSE(CloseSettings(applied.front(), {}, {}, truss));
  const DocumentSettings expected{.SnapObject = false,
                                  .SnapGrid = false,
                                  .GridOn = false,
                                  .RulersOn = false,
                                  .XMin = -2,
                                  .XMax = 30.5F,
                                  .HatchSpacing = 5.0F,
                                  .GridX = 1,
                                  .YMin = -7,
                                  .GridY = 0.25F,
                                  .ForceScale = 2000,
                                  .SigFigs = 7,
                                  .ReportFontSize = 12};
  EXPECT_EQ(truss.Settings, expected);
  EXPECT_TRUE(messages.Shown.empty());
}

TEST_F(OptionsDialogTest, EnterIsCloseAndEscapeIsCancel) {
  QTest::keyClick(&Box(1), Qt::Key_Return);
  EXPECT_EQ(dialog->result(), QDialog::Accepted);
  EXPECT_EQ(applied.size(), 1U);
  applied.clear();
  Open({});
  QTest::keyClick(&Box(1), Qt::Key_Escape);
  EXPECT_EQ(dialog->result(), QDialog::Rejected);
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_TRUE(applied.empty());
}

TEST_F(OptionsDialogTest, CancelDiscardsEvenBadInputWithoutAMessage) {
  Type(3, "nonsense");
  Click("cmdCancel");
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_TRUE(applied.empty());
  EXPECT_TRUE(messages.Shown.empty());
}

TEST_F(OptionsDialogTest, AccessKeys) {
  // A button is seen going down before it acts.
  const auto press = [this](Qt::Key key, const std::function<bool()>& acted) {
    QTest::keyClick(dialog.get(), key, Qt::AltModifier);
    return QTest::qWaitFor(acted);
  };
  EXPECT_TRUE(press(Qt::Key_R, [this] { return !Check("chkShowRulers").isChecked(); }));
  EXPECT_TRUE(press(Qt::Key_S, [this] { return !Check("chkSnapGrid").isChecked(); }));
  EXPECT_TRUE(press(Qt::Key_G, [this] { return !Check("chkShowGrid").isChecked(); }));
  EXPECT_TRUE(press(Qt::Key_O, [this] { return !Check("chkSnapObject").isChecked(); }));
  EXPECT_TRUE(press(Qt::Key_F, [this] { return Check("chkShowGrid").isChecked(); }));
  EXPECT_TRUE(press(Qt::Key_C, [this] { return applied.size() == 1; }));
  Open({});
  EXPECT_TRUE(press(Qt::Key_A, [this] { return !dialog->isVisible(); }));
  EXPECT_EQ(applied.size(), 1U);
}

TEST_F(OptionsDialogTest, MaximumEqualToMinimumIsRefused) {
  Type(2, "0");
  EXPECT_EQ(Refusal(), BadMaximum);
  EXPECT_EQ(dialog->focusWidget(), &Box(2));
  EXPECT_EQ(Box(2).selectedText(), QStringLiteral("0"));
}

TEST_F(OptionsDialogTest, BlankBoxIsRefused) {
  Type(8, "  ");
  EXPECT_EQ(Refusal(), NotNumbers);
  EXPECT_EQ(dialog->focusWidget(), &Box(8));
}

TEST_F(OptionsDialogTest, OfTwoProblemsOnlyTheFirstIsReported) {
  Type(1, "5");
  Type(2, "1");
  Type(3, "-1");
  EXPECT_EQ(Refusal(), BadMaximum);
  Type(2, "10");
  Type(8, "0");
  EXPECT_EQ(Refusal(), BadHatches);
  EXPECT_EQ(dialog->focusWidget(), &Box(3));
}

TEST_F(OptionsDialogTest, EveryMessageInTheOrderOfTheChecks) {
  struct Step {
    int Box;
    const char* Good;
    const char* Text;
  };
  Type(1, "x");
  for (const int index : {2, 3, 4, 8, 9}) Type(index, "-1");
  for (const Step& step :
       {Step{1, "0", "Invalid input.  The setting must be numbers."},
        Step{2, "20", "The maximum x coordinate must be bigger than the minimum x coordinate."},
        Step{3, "2", "The hatch mark spacing must be a positive number."},
        Step{4, "1", "The grid spacing in the x direction must be a positive number."},
        Step{8, "1", "The grid spacing in the y direction must be a positive number."},
        Step{9, "1", "One unit on the ruler must represent a positive force."}}) {
    EXPECT_EQ(Refusal(), Critical(step.Text));
    EXPECT_EQ(dialog->focusWidget(), &Box(step.Box));
    Type(step.Box, step.Good);
  }
  Click("cmdClose");
  EXPECT_EQ(applied.size(), 1U);
}

TEST_F(OptionsDialogTest, NegativeMinimumYIsAccepted) {
  Type(5, "-100");
  Click("cmdClose");
  ASSERT_EQ(applied.size(), 1U);
  EXPECT_EQ(applied.front().Text(SettingsBox::MinimumY), "-100");
}

TEST_F(OptionsDialogTest, FactorySettingsFillTheControls) {
  DocumentSettings settings;
  settings.XMax = 99;
  settings.ReportFontSize = 16;
  settings.SnapGrid = false;
  Open(settings);
  Click("cmdFactory");
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(dialog->Input(), FactorySettings({}));
  EXPECT_EQ(Box(2).text(), QStringLiteral("20"));
  EXPECT_EQ(Combo("cmbFontSize").currentText(), QStringLiteral("10"));
  EXPECT_TRUE(Check("chkSnapGrid").isChecked());
}

TEST_F(OptionsDialogTest, FactorySettingsThenCancelChangesNothing) {
  Click("cmdFactory");
  EXPECT_TRUE(applied.empty());
  Click("cmdCancel");
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_TRUE(applied.empty());
}

TEST_F(OptionsDialogTest, NumbersFollowTheDecimalSeparatorOfTheLocale) {
  Open({}, {.DecimalSeparator = ","});
  EXPECT_EQ(Box(4).text(), QStringLiteral("0,5"));
  Type(4, "0,75");
  Click("cmdClose");
  EXPECT_EQ(applied.size(), 1U);
  applied.clear();
  Open({}, {.DecimalSeparator = ","});
  Type(2, "1.500");
  EXPECT_EQ(Refusal(), NotNumbers);
}

TEST_F(OptionsDialogTest, CharactersBeyondTheCodePageAreNoNumbers) {
  Type(1, "");
  TypeCharacters(Box(1), QStringLiteral("\u0661"));
  ASSERT_EQ(Box(1).text().size(), 1);
  EXPECT_EQ(Refusal(), NotNumbers);
}

}  // namespace
