// The window in which an exercise is set: its variants, and the files that it writes.
#include "practice/ExerciseWindow.h"

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include "PracticeFixture.h"
#include "canvas/Graph.h"
#include "support/CutTexts.h"
#include "support/FakeFileChooser.h"
#include "support/FakeMessageBox.h"
#include "support/FindControl.h"
#include "support/TemporaryDirectory.h"

namespace {

class ExerciseWindowTest : public testing::Test {
 protected:
  void Show(Truss truss, QSize size = {780, 640}) {
    truss.View = DeriveView(truss.Settings, CanvasBounds{});
    truss_ = std::make_shared<Truss>(std::move(truss));
    analysis_ = std::make_shared<const TrussAnalysis>(SolveTruss(*truss_));
    window_.ShowSubject({.Document = truss_,
                         .Reasons = std::make_shared<ExplanationOnDemand>(*truss_, *analysis_),
                         .Format = {},
                         .Points = 10});
    window_.resize(size);
    window_.BringUp();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
    WaitForVariants();
  }

  void WaitForVariants() {
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return Button("cmdSaveSheets").isEnabled() || !State().isEmpty(); }));
  }

  QPushButton& Button(const char* name) { return FindControl<QPushButton>(window_, name); }
  QListWidget& List() { return FindControl<QListWidget>(window_, "lstVariants"); }
  QString State() { return FindControl<QLabel>(window_, "lblState").text(); }
  void Press(const char* button) { QTest::mouseClick(&Button(button), Qt::LeftButton); }

  // As a user types: the old number goes first.
  void Type(const char* box, const char* number) {
    auto& control = FindControl<QWidget>(window_, box);
    control.setFocus();
    QTest::keyClick(&control, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&control, QString::fromLatin1(number));
  }

  TemporaryDirectory directory_;
  FakeFileChooser chooser_;
  FakeMessageBox messages_;
  ExerciseWindow window_{{.Chooser = chooser_, .Messages = messages_, .Directory = "/"}};
  std::shared_ptr<Truss> truss_;
  std::shared_ptr<const TrussAnalysis> analysis_;
};

TEST_F(ExerciseWindowTest, MakesTenVariantsAtFirst) {
  Show(RoundTriangle());
  EXPECT_EQ(List().count(), 10);
  EXPECT_EQ(List().currentRow(), 0);
  EXPECT_EQ(window_.Set().All.size(), 10U);
  EXPECT_EQ(State(), QString());
}

TEST_F(ExerciseWindowTest, MakesThemAnewWhenANumberIsTyped) {
  Show(RoundTriangle());
  const float load = window_.Set().All[0].Document.Forces[1].Fy;
  Type("txtVariants", "3");
  EXPECT_FALSE(Button("cmdSaveSheets").isEnabled()) << "what is shown is not what was asked for";
  WaitForVariants();
  EXPECT_EQ(List().count(), 3);
  EXPECT_EQ(window_.Set().All[0].Document.Forces[1].Fy, load) << "of the same seed";
  Type("txtSeed", "77");
  WaitForVariants();
  EXPECT_EQ(window_.Set().Wishes.Seed, 77U);
  Type("txtSeed", "18446744073709551615");
  WaitForVariants();
  EXPECT_EQ(window_.Set().Wishes.Seed, UINT64_MAX) << "as on the command line";
  Type("txtSeed", "18446744073709551616");
  EXPECT_TRUE(QTest::qWaitFor([this] { return State().startsWith(QStringLiteral("The seed is a number")); }));
}

TEST_F(ExerciseWindowTest, ShowsTheSheetOfTheChosenVariantWithItsSolution) {
  Show(RoundTriangle());
  auto& preview = FindControl<QPrintPreviewWidget>(window_, "picSheet");
  EXPECT_GE(preview.pageCount(), 2);
  QTest::keyClick(&List(), Qt::Key_Down);
  EXPECT_EQ(List().currentRow(), 1);
  EXPECT_GE(preview.pageCount(), 2);
}

TEST_F(ExerciseWindowTest, ShowsAnEmptyPageWhereThereIsNoVariant) {
  Show(RoundTriangle());
  const auto& preview = FindControl<QPrintPreviewWidget>(window_, "picSheet");
  ASSERT_GE(preview.pageCount(), 2);
  Show(TrussBuilder().Member(0, 0, 4, 0, "a").Clamp(0, 0, "x", "y").Force(4, 0, 0, -1));
  EXPECT_TRUE(QTest::qWaitFor([this] { return List().count() == 0; }));
  EXPECT_EQ(preview.pageCount(), 1);
}

TEST_F(ExerciseWindowTest, SavesTheSheets) {
  Show(RoundTriangle());
  chooser_.Choice = directory_ / "sheets";
  Press("cmdSaveSheets");
  EXPECT_TRUE(directory_.Bytes("sheets.pdf").starts_with("%PDF-"));
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(ExerciseWindowTest, SavesTheQuestionBank) {
  Show(RoundTriangle());
  chooser_.Choice = directory_ / "bank.xml";
  Press("cmdSaveBank");
  EXPECT_THAT(directory_.Bytes("bank.xml"), testing::HasSubstr("variant 10</text>"));
}

TEST_F(ExerciseWindowTest, SaysWhenItCannotSave) {
  Show(RoundTriangle());
  chooser_.Choice = directory_ / "no such folder/bank.xml";
  Press("cmdSaveBank");
  ASSERT_EQ(messages_.Shown.size(), 1U);
  EXPECT_THAT(messages_.Shown[0].Text, testing::StartsWith("The question bank could not be saved as "));
}

TEST_F(ExerciseWindowTest, SaysWhyATrussIsNoExercise) {
  Show(TrussBuilder().Member(0, 0, 4, 0, "a").Clamp(0, 0, "x", "y").Force(4, 0, 0, -1));
  EXPECT_EQ(State(), QStringLiteral("The solutions of this truss do not give every force."));
  EXPECT_EQ(List().count(), 0);
  EXPECT_FALSE(Button("cmdSaveSheets").isEnabled());
}

TEST_F(ExerciseWindowTest, MirrorsAndRenamesWhereItIsWished) {
  Show(RoundTriangle());
  QTest::keyClick(&FindControl<QCheckBox>(window_, "chkMirrored"), Qt::Key_Space);
  QTest::keyClick(&FindControl<QCheckBox>(window_, "chkRenamed"), Qt::Key_Space);
  WaitForVariants();
  EXPECT_TRUE(window_.Set().Wishes.Mirrors);
  EXPECT_TRUE(window_.Set().Wishes.Renames);
}

TEST_F(ExerciseWindowTest, EmptiesWhenTheTrussIsGone) {
  Show(RoundTriangle());
  window_.Clear();
  EXPECT_EQ(List().count(), 0);
  EXPECT_FALSE(Button("cmdPrint").isEnabled());
  QTest::qWait(500);
  EXPECT_EQ(List().count(), 0);
}

TEST_F(ExerciseWindowTest, CutsNoTextInItsSmallestSize) {
  Show(RoundTriangle(), {480, 420});
  EXPECT_THAT(CutTexts::In(window_), testing::IsEmpty());
}

}  // namespace
