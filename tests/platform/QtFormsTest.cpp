// The toolkit's message box and file chooser behind their interfaces.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include "platform/qt/QtFileChooser.h"
#include "platform/qt/QtMessageBox.h"
#include "platform/qt/WindowInFront.h"
#include "support/ModalDialog.h"
#include "support/TemporaryDirectory.h"

namespace {

MessageAnswer Answer(const Message& message, const std::function<void(QMessageBox&)>& act) {
  WhenOpen<QMessageBox>(act);
  return QtMessageBox().Show(message);
}

TEST(QtMessageBox, ShowsTextTitleAndIcon) {
  const std::pair<MessageIcon, QMessageBox::Icon> icons[] = {
      {MessageIcon::None, QMessageBox::NoIcon},
      {MessageIcon::Information, QMessageBox::Information},
      {MessageIcon::Exclamation, QMessageBox::Warning},
      {MessageIcon::Critical, QMessageBox::Critical}};
  for (const auto& [icon, shown] : icons) {
    Answer({.Text = "Two  blanks.", .Icon = icon}, [wanted = shown](QMessageBox& box) {
      EXPECT_EQ(box.windowTitle(), QStringLiteral("Orvane"));
      EXPECT_EQ(box.text(), QStringLiteral("Two  blanks."));
      EXPECT_EQ(box.icon(), wanted);
      EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
    });
  }
}

TEST(QtMessageBox, StandsOverTheWindowThatACompanionBelongsTo) {
  QWidget window;
  QWidget companion;
  window.setGeometry(100, 100, 600, 400);
  companion.setGeometry(900, 300, 300, 200);
  ShowMessagesOver(window, companion);
  window.show();
  companion.show();
  companion.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&companion));
  Answer({.Text = "Text"}, [&](QMessageBox& box) {
    EXPECT_EQ(box.parentWidget(), &window);
    box.accept();
  });
  window.hide();
  Answer({.Text = "Text"}, [&](QMessageBox& box) {
    EXPECT_EQ(box.parentWidget(), &companion);
    box.accept();
  });
}

TEST(QtMessageBox, MarkupIsShownAsItIs) {
  Answer({.Text = "<b>a & b</b>"}, [](QMessageBox& box) {
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.text(), QStringLiteral("<b>a & b</b>"));
  });
}

TEST(QtMessageBox, AnswersOfTwoButtons) {
  const Message question{.Text = "Save?", .Buttons = MessageButtons::YesNo};
  const auto press = [](QMessageBox::StandardButton button) {
    return [button](QMessageBox& box) { QTest::mouseClick(box.button(button), Qt::LeftButton); };
  };
  EXPECT_EQ(Answer(question, press(QMessageBox::Yes)), MessageAnswer::Yes);
  EXPECT_EQ(Answer(question, press(QMessageBox::No)), MessageAnswer::No);
  EXPECT_EQ(Answer(question, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }),
            MessageAnswer::Yes);
  EXPECT_EQ(Answer(question, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
            MessageAnswer::No);
  EXPECT_EQ(Answer(question, [](QMessageBox& box) { box.close(); }), MessageAnswer::No);
}

TEST(QtMessageBox, ReturnPressesTheDefaultButton) {
  const auto pressReturn = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); };
  const Message careful{.Text = "Replace?", .Buttons = MessageButtons::YesNo, .Default = MessageAnswer::No};
  EXPECT_EQ(Answer(careful, pressReturn), MessageAnswer::No);
}

TEST(QtMessageBox, WithoutAWayOutOnlyTheTwoButtonsAnswer) {
  const Message question{.Text = "Save?", .Buttons = MessageButtons::YesNo, .HasWayOut = false};
  for (const auto button : {QMessageBox::Yes, QMessageBox::No}) {
    const MessageAnswer answer = Answer(question, [button](QMessageBox& box) {
      EXPECT_FALSE(box.windowFlags().testFlag(Qt::WindowCloseButtonHint));
      EXPECT_TRUE(box.windowFlags().testFlag(Qt::WindowTitleHint));
      QTest::keyClick(&box, Qt::Key_Escape);
      EXPECT_TRUE(box.isVisible());
      EXPECT_FALSE(box.close());
      QCloseEvent fromTheTitleBar;
      EXPECT_FALSE(QApplication::sendEvent(&box, &fromTheTitleBar) && fromTheTitleBar.isAccepted());
      EXPECT_TRUE(box.isVisible());
      QTest::mouseClick(box.button(button), Qt::LeftButton);
      EXPECT_FALSE(box.isVisible());
    });
    EXPECT_EQ(answer, button == QMessageBox::Yes ? MessageAnswer::Yes : MessageAnswer::No);
  }
}

TEST(QtMessageBox, ClosingASingleButtonBoxIsOk) {
  EXPECT_EQ(Answer({.Text = "Done"}, [](QMessageBox& box) { box.close(); }), MessageAnswer::Ok);
}

TEST(QtMessageBox, AVeryLongPathIsBrokenIntoLines) {
  Answer({.Text = "Error while saving the file " + std::string(1000, 'x')},
         [](QMessageBox& box) { EXPECT_LT(box.width(), 700); });
}

struct QtFileChooserTest : testing::Test {
  std::optional<std::string> Open(const std::function<void(QFileDialog&)>& act) {
    WhenOpen<QFileDialog>(act);
    return QtFileChooser().ChooseForOpening(Request());
  }
  std::optional<std::string> Save(const std::function<void(QFileDialog&)>& act) {
    WhenOpen<QFileDialog>(act);
    return QtFileChooser().ChooseForSaving(Request());
  }

  FileChooserRequest Request() const {
    return {.Filter = "All Files (*.*)|*.*|Truss Files (*.trs)|*.trs",
            .FilterIndex = 2,
            .InitialDirectory = directory / "."};
  }

  static void TypeName(QFileDialog& dialog, const char* name) {
    auto& box = Child<QLineEdit>(dialog, "fileNameEdit");
    box.setText(QString::fromUtf8(name));
    QTest::keyClick(&box, Qt::Key_Return);
  }

  static void ChooseAllFiles(QFileDialog& dialog) {
    auto& filters = Child<QComboBox>(dialog, "fileTypeCombo");
    filters.setFocus();
    QTest::keyClick(&filters, Qt::Key_Home);
  }

  // The kind of files that the dialog shows as chosen; the toolkit's versions differ in what they call it.
  static QString ShownFilter(const QFileDialog& dialog) {
    return Child<QComboBox>(dialog, "fileTypeCombo").currentText();
  }

  static QString PatternsInUse(const QFileDialog& dialog) {
    return dialog.findChild<QFileSystemModel*>()->nameFilters().join(QLatin1Char(' '));
  }

  TemporaryDirectory directory;
};

TEST_F(QtFileChooserTest, OpensInTheDirectoryWithTheTrussFilterPreselected) {
  Open([this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory(), QDir(QString::fromStdString(directory / "")));
    EXPECT_EQ(dialog.nameFilters().size(), 2);
    EXPECT_EQ(ShownFilter(dialog), QStringLiteral("Truss Files (*.trs)"));
    EXPECT_EQ(PatternsInUse(dialog), QStringLiteral("*.trs"));
  });
}

TEST_F(QtFileChooserTest, AllFilesMeansAlsoThoseWithoutAnExtension) {
  Open([](QFileDialog& dialog) {
    ChooseAllFiles(dialog);
    EXPECT_EQ(ShownFilter(dialog), QStringLiteral("All Files (*.*)"));
    EXPECT_EQ(PatternsInUse(dialog), QStringLiteral("*"));
  });
}

TEST_F(QtFileChooserTest, ReturnsTheChosenFile) {
  directory.Put(
      "Br\xC3\xBC"
      "cke.trs",
      "x");
  EXPECT_EQ(Open([](QFileDialog& dialog) {
              TypeName(dialog,
                       "Br\u00FC"
                       "cke.trs");
            }),
            directory /
                "Br\xC3\xBC"
                "cke.trs");
}

TEST_F(QtFileChooserTest, CancelReturnsNothing) {
  EXPECT_EQ(Open([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }), std::nullopt);
  EXPECT_EQ(Save([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }), std::nullopt);
}

TEST_F(QtFileChooserTest, ADirectoryThatIsGoneGivesWayToItsParent) {
  FileChooserRequest request = Request();
  request.InitialDirectory = directory / "gone/long/ago";
  WhenOpen<QFileDialog>([this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory(), QDir(QString::fromStdString(directory / "")));
  });
  EXPECT_EQ(QtFileChooser().ChooseForOpening(request), std::nullopt);
}

TEST_F(QtFileChooserTest, SavingAppendsTheExtensionOfTheTrussFilter) {
  EXPECT_EQ(Save([](QFileDialog& dialog) { TypeName(dialog, "bridge"); }), directory / "bridge.trs");
}

TEST_F(QtFileChooserTest, TheExtensionIsThatOfTheFilterWhateverItsDescription) {
  FileChooserRequest request = Request();
  for (const auto& [filter, saved] : {std::pair{"Trusses|*.trs", "bridge.trs"},
                                      {"Pages (not *.rtf)|*.pdf", "bridge.pdf"},
                                      {"Pages|*.pdf;*.odt", "bridge"}}) {
    request.Filter = "All Files (*.*)|*.*|" + std::string(filter);
    WhenOpen<QFileDialog>([](QFileDialog& dialog) { TypeName(dialog, "bridge"); });
    EXPECT_EQ(QtFileChooser().ChooseForSaving(request), directory / saved) << filter;
  }
}

TEST_F(QtFileChooserTest, SavingBeginsWithTheProposedName) {
  directory.Put("bridge.trs", "old");
  for (const char* name : {"truss.trs", "bridge.trs"}) {
    FileChooserRequest request = Request();
    request.ProposedName = name;
    WhenOpen<QFileDialog>([name](QFileDialog& dialog) {
      EXPECT_EQ(Child<QLineEdit>(dialog, "fileNameEdit").text(), QString::fromUtf8(name));
      QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(QtFileChooser().ChooseForSaving(request), std::nullopt);
  }
}

TEST_F(QtFileChooserTest, SavingKeepsAnExtensionThatWasTyped) {
  EXPECT_EQ(Save([](QFileDialog& dialog) { TypeName(dialog, "bridge.txt"); }), directory / "bridge.txt");
}

TEST_F(QtFileChooserTest, SavingUnderAllFilesAppendsNothing) {
  EXPECT_EQ(Save([](QFileDialog& dialog) {
              ChooseAllFiles(dialog);
              TypeName(dialog, "bridge");
            }),
            directory / "bridge");
}

TEST_F(QtFileChooserTest, AsksForTheNameWithItsExtensionBeforeAFileIsReplaced) {
  directory.Put("bridge.trs", "old");
  EXPECT_EQ(Save([](QFileDialog& dialog) {
              WhenOpen<QMessageBox>([](QMessageBox& box) {
                EXPECT_TRUE(box.text().startsWith(QStringLiteral("bridge.trs already exists.")));
                QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
              });
              TypeName(dialog, "bridge");
            }),
            directory / "bridge.trs");
}

TEST_F(QtFileChooserTest, NotReplacingReturnsToTheChooser) {
  directory.Put("bridge.trs", "old");
  EXPECT_EQ(Save([](QFileDialog& dialog) {
              WhenOpen<QMessageBox>([](QMessageBox& box) {
                WhenOpen<QFileDialog>([](QFileDialog& again) { TypeName(again, "other"); });
                QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton);
              });
              TypeName(dialog, "bridge");
            }),
            directory / "other.trs");
}

}  // namespace
