// Everything in every window has a name, a role and a description as plain text, and the main job can be done
// through the accessibility tree alone.
#include "support/AccessibleTree.h"

#include <QComboBox>
#include <QGraphicsView>
#include <QRegularExpression>
#include <QTableView>
#include <QTextBrowser>

#include "app/AboutForm.h"
#include "app/HelpViewer.h"
#include "app/OptionsDialog.h"
#include "reports/PrintableReportWindow.h"
#include "support/FakeMessageBox.h"
#include "support/WindowEditingFixture.h"

namespace {

using accessible::Name;
using accessible::One;

// Whether something of this role is used or read by itself, and not only holds others.
bool NeedsName(QAccessible::Role role) {
  switch (role) {
    case QAccessible::Button:
    case QAccessible::ButtonMenu:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::ComboBox:
    case QAccessible::EditableText:
    case QAccessible::SpinBox:
    case QAccessible::Slider:
    case QAccessible::List:
    case QAccessible::Tree:
    case QAccessible::Table:
    case QAccessible::ColumnHeader:
    case QAccessible::RowHeader:
    case QAccessible::ListItem:
    case QAccessible::MenuItem:
    case QAccessible::PopupMenu:
    case QAccessible::PageTab:
    case QAccessible::Grouping:
    case QAccessible::Graphic:
    case QAccessible::Canvas:
    case QAccessible::Dialog:
    case QAccessible::Window:
    case QAccessible::Link:
    case QAccessible::ProgressBar:
    case QAccessible::Grip:
    case QAccessible::Document:
    case QAccessible::AlertMessage:
    case QAccessible::NoRole:
      return true;
    default:
      return false;
  }
}

bool IsPlain(const QString& text) {
  static const QRegularExpression markup(
      QStringLiteral("</?[A-Za-z][^>]*>|&(amp|lt|gt|nbsp|quot);|&[A-Za-z]"));
  return !text.contains(markup);
}

std::string Where(QAccessibleInterface* at) {
  QStringList path;
  for (QAccessibleInterface* each = at; each != nullptr; each = each->parent()) {
    const QString object = each->object() != nullptr ? each->object()->objectName() : QString();
    path.prepend(QStringLiteral("%1[%2]%3").arg(Name(each)).arg(each->role()).arg(object));
    if (path.size() > 8) break;
  }
  return path.join(QStringLiteral(" > ")).toStdString();
}

class AccessibleTree : public WindowEditingFixture {
 protected:
  // Buttons and everything that can hold the keys must say what they are for in their name; what the user
  // works with must be reachable.
  static void ExpectNamed(QWidget& window) {
    int met = 0;
    ExpectIsWindow(window);
    accessible::Walk(accessible::Of(window), [&met](QAccessibleInterface* each) {
      ++met;
      if (each->role() == QAccessible::PopupMenu) ExpectEntriesNamed(each);
      if (qobject_cast<QGraphicsView*>(each->object()) != nullptr) {
        ASSERT_NE(each->textInterface(), nullptr) << Where(each);
        EXPECT_GT(each->textInterface()->characterCount(), 100) << Where(each);
      }
      const bool holdsKeys =
          each->state().focusable && each->role() != QAccessible::Client && each->role() != QAccessible::Cell;
      EXPECT_FALSE((NeedsName(each->role()) || holdsKeys) && Name(each).trimmed().isEmpty()) << Where(each);
      EXPECT_TRUE(IsPlain(Name(each))) << Where(each) << ": " << Name(each).toStdString();
      EXPECT_TRUE(IsPlain(each->text(QAccessible::Description)))
          << Where(each) << ": " << each->text(QAccessible::Description).toStdString();
    });
    EXPECT_GT(met, 2) << window.objectName().toStdString();
  }

  // A reader asks a window what it is as soon as it comes up.
  static void ExpectIsWindow(QWidget& window) {
    if (!window.isWindow() || window.windowType() == Qt::Popup) return;
    const QAccessible::Role role = accessible::Of(window)->role();
    EXPECT_TRUE(role == QAccessible::Window || role == QAccessible::Dialog ||
                role == QAccessible::AlertMessage)
        << window.objectName().toStdString() << " " << role;
    EXPECT_FALSE(Name(accessible::Of(window)).isEmpty()) << window.objectName().toStdString();
  }

  // Those too that are not shown now: they are children of the menu all the same.
  static void ExpectEntriesNamed(QAccessibleInterface* menu) {
    for (int i = 0; i < menu->childCount(); ++i) {
      QAccessibleInterface* entry = menu->child(i);
      EXPECT_TRUE(entry->role() == QAccessible::Separator || !Name(entry).isEmpty())
          << Where(menu) << " " << i;
    }
  }

  static void ExpectAllNamed() {
    QApplication::processEvents();
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->isVisible()) ExpectNamed(*window);
    }
  }

  QAccessibleInterface* Tree() const { return accessible::Of(*form_); }
  void PressButton(const char* name) const {
    accessible::Press(One(Tree(), QAccessible::Button, QString::fromUtf8(name)));
  }
};

}  // namespace

TEST_F(AccessibleTree, EverythingHasANameAtTheStart) {
  Shown();
  ExpectAllNamed();
}

TEST_F(AccessibleTree, EverythingHasANameInStep1) {
  Start();
  OpenTruss(LoadedTriangle());
  ExpectAllNamed();
  ChooseTool(Tool::NumericalValue);
  ClickAt(At(6, 2));
  ASSERT_TRUE(IsPanelOpen(Shapes()));
  ExpectAllNamed();
  ClickAt(At(10, 9));
  ExpectAllNamed();
}

TEST_F(AccessibleTree, EverythingHasANameInSteps2And3) {
  Started(700, 600);
  OpenInStep2(LoadedTriangle());
  ExpectAllNamed();
  InModalWindow([](QWidget& window) {
    ExpectNamed(window);
    window.close();
  });
  ClickLabel(JointLabel("A"));
  Click("cmdNext2");
  for (const char* report :
       {"cmdReportCounting", "cmdReportSystemEqs", "cmdReportRREF", "cmdReportSolutions"}) {
    Click(report);
    ExpectAllNamed();
  }
  ClickLabel(JointLabel("A"));
  ExpectAllNamed();
}

TEST_F(AccessibleTree, EverythingHasANameInTheWindowsOfLearn) {
  Started(700, 600);
  OpenInStep3(LoadedTriangle());
  for (QAction* entry : Find<QMenu>("mnuLearn")->actions()) {
    if (!entry->isSeparator()) entry->trigger();
    QApplication::processEvents();  // what a window makes once it is there
    ExpectAllNamed();
  }
}

TEST_F(AccessibleTree, EverythingHasANameInPrintPreviewsAndTheirPagesAreRead) {
  Started(700, 600);
  OpenInStep3(LoadedTriangle());
  const auto lookAtPages = [this](const QString& expected) {
    InModalWindow([expected](QWidget& preview) {
      ExpectNamed(preview);
      auto* pages = preview.findChild<QGraphicsView*>();
      const QAccessibleTextInterface* read = accessible::Of(*pages)->textInterface();
      ASSERT_NE(read, nullptr);
      const QString text = read->text(0, read->characterCount());
      EXPECT_TRUE(text.contains(expected)) << text.toStdString();
      EXPECT_TRUE(text.contains(QStringLiteral("[picture: "))) << text.toStdString();
      preview.close();
    });
  };
  InModalWindow([&](QWidget& window) {
    lookAtPages(QStringLiteral("The solution:"));
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("cmdReportPrint")), Qt::LeftButton);
    window.close();
  });
  Trigger("mnuFilePrint");
  Trigger("mnuLearnExercise");
  QWidget* exercise = nullptr;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == QStringLiteral("Exercise")) exercise = window;
  }
  ASSERT_NE(exercise, nullptr);
  auto* print = exercise->findChild<QPushButton*>(QStringLiteral("cmdPrint"));
  ASSERT_TRUE(QTest::qWaitFor([&] { return print->isEnabled(); }));
  lookAtPages(QStringLiteral("Variant 3"));
  QTest::mouseClick(print, Qt::LeftButton);
  EXPECT_EQ(modalWindows_, 3);
}

TEST_F(AccessibleTree, PicturesInTextsAreReadInWords) {
  programDirectory_ = ORVANE_PROGRAM_DIRECTORY;
  Started(700, 600);
  OpenInStep3(LoadedTriangle());
  InModalWindow([](QWidget& window) {
    auto* box = window.findChild<QTextEdit*>(QStringLiteral("RichTextBox1"));
    QAccessibleTextInterface* read = accessible::Of(*box)->textInterface();
    const QString text = read->text(0, read->characterCount());
    EXPECT_TRUE(text.contains(QStringLiteral("[picture: "))) << text.toStdString();
    EXPECT_FALSE(text.contains(QChar::ObjectReplacementCharacter));
    // A place behind the pictures is the same place for eyes and ears.
    const auto solutions = static_cast<int>(text.indexOf(QStringLiteral("The solution:")));
    ASSERT_GT(solutions, 0);
    read->setSelection(0, solutions, solutions + 13);
    EXPECT_EQ(box->textCursor().selectedText(), QStringLiteral("The solution:"));
    int start = 0, end = 0;
    read->selection(0, &start, &end);
    EXPECT_EQ(start, solutions);
    EXPECT_EQ(end, solutions + 13);
    window.close();
  });
  Trigger("mnuFilePrint");
  EXPECT_EQ(modalWindows_, 1);
  Trigger("mnuHelpProgram");
  QString help;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* page = window->findChild<QTextEdit*>(QStringLiteral("txtHelp"));
    if (page == nullptr) continue;
    auto* browser = qobject_cast<QTextBrowser*>(page);
    browser->setSource(QUrl(QStringLiteral("help:/program/first-truss.htm")));
    help = accessible::Of(*page)->textInterface()->text(0, 1 << 20);
  }
  EXPECT_TRUE(help.contains(QStringLiteral("[picture: The main window with the welcome sheet]")))
      << help.left(2000).toStdString();
}

TEST_F(AccessibleTree, EverythingHasANameInMenusAndDialogs) {
  programDirectory_ = ORVANE_PROGRAM_DIRECTORY;
  Started(700, 600);
  OpenTruss(LoadedTriangle());
  for (QMenu* menu : form_->menuBar()->findChildren<QMenu*>(QRegularExpression(QStringLiteral("^mnu")))) {
    menu->popup(form_->mapToGlobal(QPoint(0, 0)));
    ExpectNamed(*menu);
    menu->close();
  }
  const auto look = [](QWidget& window) {
    ExpectNamed(window);
    window.close();
  };
  InModalWindow(look);
  Trigger("mnuSettings");
  InModalWindow(look);
  Trigger("mnuHelpAbout");
  Trigger("mnuHelpProgram");
  ExpectAllNamed();
  Click("cmdNext1");
  Click("cmdNext2");
  InModalWindow(look);
  Trigger("mnuFilePrint");
  EXPECT_EQ(modalWindows_, 3);
}

TEST_F(AccessibleTree, ToolsAreAGroupOfCheckableButtonsWithTheirState) {
  Start();
  QAccessibleInterface* group = One(Tree(), QAccessible::Grouping, QStringLiteral("Tools"));
  for (int tool = 1; tool <= NumTools; ++tool) {
    QAccessibleInterface* button =
        accessible::Of(*Find<QToolButton>(("imgTool(" + std::to_string(tool) + ")").c_str()));
    EXPECT_EQ(button->parent(), group);
    EXPECT_EQ(Name(button), QString::fromLatin1(ToolName(tool)) + QStringLiteral(" Tool"));
    EXPECT_EQ(button->text(QAccessible::Description), QString::fromLatin1(ToolHint(tool)).trimmed());
    EXPECT_TRUE(button->state().checkable);
    EXPECT_FALSE(button->state().checked);
    accessible::Do(button, QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(button->state().checked);
    accessible::Do(button, QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(button->state().checked) << "a chosen tool stays chosen";
    int checked = 0;
    accessible::Walk(group, [&](QAccessibleInterface* each) { checked += each->state().checked ? 1 : 0; });
    EXPECT_EQ(checked, 1);
  }
}

TEST_F(AccessibleTree, TablesTellTheHeadingsOfRowsAndColumns) {
  Started(700, 600);
  OpenInStep3(LoadedTriangle());
  Click("cmdReportSystemEqs");
  auto* view = Report()->findChild<QTableView*>(QStringLiteral("EqnGrid"));
  QAccessibleInterface* table = accessible::Of(*view);
  ASSERT_NE(table->tableInterface(), nullptr);
  EXPECT_EQ(Name(table), QStringLiteral("The augmented matrix for the system of equations:"));
  EXPECT_EQ(table->tableInterface()->columnDescription(0), QStringLiteral("Ax"));
  EXPECT_EQ(table->tableInterface()->rowDescription(0), QStringLiteral("A - x"));
  QAccessibleInterface* cell = table->tableInterface()->cellAt(1, 1);
  ASSERT_NE(cell, nullptr);
  const auto columns = cell->tableCellInterface()->columnHeaderCells();
  const auto rows = cell->tableCellInterface()->rowHeaderCells();
  ASSERT_EQ(columns.size(), 1);
  ASSERT_EQ(rows.size(), 1);
  EXPECT_EQ(Name(columns.front()), QStringLiteral("Ay"));
  EXPECT_EQ(Name(rows.front()), QStringLiteral("A - y"));
  EXPECT_EQ(Name(cell), QStringLiteral("1"));
}

TEST_F(AccessibleTree, CombosAreCalledByTheirLabels) {
  Start();
  int met = 0;
  InModalWindow([&met](QWidget& window) {
    for (auto* combo : window.findChildren<QComboBox*>()) {
      ++met;
      bool hasLabel = false;
      for (const auto& [label, relation] : accessible::Of(*combo)->relations(QAccessible::Label)) {
        hasLabel = true;
        EXPECT_FALSE(Name(label).isEmpty());
      }
      EXPECT_TRUE(hasLabel) << combo->objectName().toStdString();
      EXPECT_FALSE(Name(accessible::Of(*combo)).isEmpty());
    }
    window.close();
  });
  Trigger("mnuSettings");
  EXPECT_GT(met, 1);
}

TEST_F(AccessibleTree, TheStatusTextIsToldWhenItChanges) {
  Start();
  accessible::Listener listener;
  Click("cmdNext1");
  const QString status = Status().trimmed();
  EXPECT_EQ(Name(accessible::Of(*Find<QLabel>("StatusBar1(1)"))).trimmed(), status);
  const auto told = std::ranges::count_if(listener.Events, [&](const accessible::Listener::Event& event) {
    return event.Name.trimmed() == status;
  });
  EXPECT_EQ(told, 1);
}

// A clamp, a roller, three members and a load, drawn, named and solved without mouse or keys.
TEST_F(AccessibleTree, TheTriangleIsDrawnNamedAndSolvedThroughTheTreeAlone) {
  Shown();
  ResizeInside(700, 600);
  PressButton("OK");
  const auto toolOn = [this](const char* tool) {
    QAccessibleInterface* button = nullptr;
    accessible::Walk(Tree(), [&](QAccessibleInterface* each) {
      if (Name(each) == QString::fromUtf8(tool) + QStringLiteral(" Tool")) button = each;
    });
    ASSERT_NE(button, nullptr);
    if (!button->state().checked) accessible::Do(button, QAccessibleActionInterface::toggleAction());
  };
  QAccessibleInterface* paper = One(Tree(), QAccessible::Canvas, QStringLiteral("Drawing of the truss"));
  const auto pressAt = [&](double x, double y) {
    One(paper, QAccessible::SpinBox, QStringLiteral("Cursor x"))->valueInterface()->setCurrentValue(x);
    One(paper, QAccessible::SpinBox, QStringLiteral("Cursor y"))->valueInterface()->setCurrentValue(y);
    accessible::Press(paper);
  };
  const auto pressOn = [&](const char* element) {
    accessible::Press(One(paper, QAccessible::Graphic, QString::fromUtf8(element)));
  };
  toolOn("Truss Member");
  pressAt(2, 2);
  pressAt(6, 2);
  pressOn("joint at (2, 2)");
  pressAt(4, 4);
  pressOn("joint at (6, 2)");
  pressOn("joint at (4, 4)");
  toolOn("Clamp");
  pressOn("joint at (2, 2)");
  toolOn("Roller");
  pressOn("joint at (6, 2)");
  toolOn("Force");
  pressOn("joint at (4, 4)");
  pressAt(4, 3);
  toolOn("Numerical Value");
  One(paper, QAccessible::Graphic, QStringLiteral("force at (4, 4), 0 right, 1000 down"));
  PressButton("Next >");

  PressButton("AutoName");
  InModalWindow([](QWidget& window) {
    QAccessibleInterface* dialog = accessible::Of(window);
    QAccessibleInterface* box = One(dialog, QAccessible::EditableText, QStringLiteral("Enter a new name:"));
    box->setText(QAccessible::Value, QStringLiteral("Top"));
    accessible::Press(One(dialog, QAccessible::Button, QStringLiteral("OK")));
  });
  QAccessibleInterface* apex = nullptr;
  accessible::Walk(paper, [&](QAccessibleInterface* each) {
    if (each->role() == QAccessible::Button && Name(each).endsWith(QStringLiteral("of the joint at (4, 4)")))
      apex = each;
  });
  ASSERT_NE(apex, nullptr);
  accessible::Press(apex);
  EXPECT_EQ(Name(apex), QStringLiteral("name Top of the joint at (4, 4)"));
  PressButton("Next >");
  PressButton("Solutions");

  int inTension = 0, inCompression = 0;
  accessible::Walk(paper, [&](QAccessibleInterface* each) {
    const QString force = each->text(QAccessible::Description);
    inTension += force == QStringLiteral("tension 500");
    inCompression += force == QStringLiteral("compression 707.1");
  });
  EXPECT_EQ(inTension, 1);
  EXPECT_EQ(inCompression, 2);
  QAccessibleInterface* table =
      One(accessible::Of(*Report()), QAccessible::Table, QStringLiteral("The solutions:"));
  ASSERT_EQ(table->tableInterface()->rowCount(), 6);
  QStringList values;
  for (int row = 0; row < 6; ++row) values.append(Name(table->tableInterface()->cellAt(row, 0)));
  EXPECT_EQ(values.count(QStringLiteral("707.1")), 2);
  EXPECT_EQ(values.count(QStringLiteral("500")), 2);
}
