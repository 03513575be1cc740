// All letters in the windows can be read, in a light and in a dark theme. Those on the drawings are looked at
// wherever a test draws.
#include "support/Contrast.h"

#include <QAbstractItemView>
#include <QGroupBox>
#include <QStyledItemDelegate>

#include "app/ReadableSelection.h"
#include "platform/qt/MixedColor.h"
#include "support/WindowEditingFixture.h"

namespace {

double ContrastOfColors(const QColor& letters, const QColor& ground) {
  const auto luminance = [](const QColor& color) {
    return Luminance(color.red(), color.green(), color.blue());
  };
  return ContrastOf(luminance(letters), luminance(ground));
}

QPalette DarkTheme() {
  QPalette dark(QColor(0x35, 0x35, 0x35));
  dark.setColor(QPalette::Base, QColor(0x1E, 0x1E, 0x1E));
  return dark;
}

// Letters through which the ground is seen are as faint as what comes out.
QColor LettersOn(const QColor& letters, const QColor& ground) {
  return MixedColor(ground, QColor(letters.rgb()), letters.alphaF());
}

// How an item is painted is for its delegate to say, which tells only those of its kind.
struct Delegate : QStyledItemDelegate {
  static QStyleOptionViewItem OptionOf(const QAbstractItemView& view, const QModelIndex& index) {
    QStyleOptionViewItem option;
    option.palette = view.palette();
    const auto* own = qobject_cast<const QStyledItemDelegate*>(view.itemDelegate());
    if (own != nullptr) (own->*(&Delegate::initStyleOption))(&option, index);
    return option;
  }
};

// Of an item that is drawn by its model's or its delegate's own colours.
void ExpectReadableItems(const QAbstractItemView& view) {
  const QAbstractItemModel* model = view.model();
  if (model == nullptr) return;
  for (int row = 0; row < std::min(model->rowCount(), 20); ++row) {
    for (int column = 0; column < std::min(model->columnCount(), 20); ++column) {
      const QModelIndex index = model->index(row, column);
      const QStyleOptionViewItem option = Delegate::OptionOf(view, index);
      const bool hasGround = option.backgroundBrush.style() != Qt::NoBrush;
      const QColor paper = hasGround ? option.backgroundBrush.color() : option.palette.color(QPalette::Base);
      const QColor letters = LettersOn(option.palette.color(QPalette::Text), paper);
      EXPECT_GE(ContrastOfColors(letters, paper), ReadableContrast)
          << view.objectName().toStdString() << ": " << option.text.toStdString();
    }
  }
}

void ExpectReadable(const QWidget& window) {
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisibleTo(&window) || !widget->isEnabled()) continue;
    const QPalette& colors = widget->palette();
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
      const QColor letters = colors.color(group, widget->foregroundRole());
      const QColor ground = colors.color(group, widget->backgroundRole());
      EXPECT_GE(ContrastOfColors(letters, ground), ReadableContrast)
          << widget->metaObject()->className() << " " << widget->objectName().toStdString();
      EXPECT_GE(ContrastOfColors(colors.color(group, QPalette::Text), colors.color(group, QPalette::Base)),
                ReadableContrast)
          << widget->metaObject()->className() << " " << widget->objectName().toStdString();
    }
    const auto* box = qobject_cast<const QLineEdit*>(widget);
    if (box != nullptr && !box->placeholderText().isEmpty()) {
      const QColor ground = colors.color(QPalette::Base);
      EXPECT_GE(ContrastOfColors(LettersOn(colors.color(QPalette::PlaceholderText), ground), ground),
                ReadableContrast)
          << widget->objectName().toStdString();
    }
    if (const auto* view = qobject_cast<const QAbstractItemView*>(widget)) ExpectReadableItems(*view);
  }
}

class Contrast : public WindowEditingFixture, public testing::WithParamInterface<bool> {
 protected:
  void SetUp() override {
    usual_ = QApplication::palette();
    if (GetParam()) QApplication::setPalette(DarkTheme());
  }
  void TearDown() override { QApplication::setPalette(usual_); }

  static void ExpectAllReadable() {
    QApplication::processEvents();
    int windows = 0;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
      if (!window->isVisible()) continue;
      ++windows;
      ExpectReadable(*window);
    }
    EXPECT_GT(windows, 0);
  }

 private:
  QPalette usual_;
};

}  // namespace

TEST_P(Contrast, EverythingCanBeReadInEveryStep) {
  Shown();
  ExpectAllReadable();
  ResizeInside(700, 600);
  Click("cmdOKInstruct1");
  OpenTruss(LoadedTriangle());
  ExpectAllReadable();
  Click("cmdNext1");
  ExpectAllReadable();
  Click("cmdNext2");
  for (const char* report :
       {"cmdReportCounting", "cmdReportSystemEqs", "cmdReportRREF", "cmdReportSolutions"}) {
    Click(report);
    ExpectAllReadable();
  }
  ClickLabel(JointLabel("A"));
  for (QAction* entry : Find<QMenu>("mnuLearn")->actions()) entry->trigger();
  ExpectAllReadable();
}

TEST_P(Contrast, EverythingCanBeReadInDialogs) {
  programDirectory_ = ORVANE_PROGRAM_DIRECTORY;
  Started(700, 600);
  const auto look = [](QWidget& window) {
    ExpectReadable(window);
    window.close();
  };
  InModalWindow(look);
  Trigger("mnuSettings");
  InModalWindow(look);
  Trigger("mnuHelpAbout");
  Trigger("mnuHelpProgram");
  ExpectAllReadable();
  OpenInStep3(LoadedTriangle());
  InModalWindow(look);
  Trigger("mnuFilePrint");
  EXPECT_EQ(modalWindows_, 3);
}

// What is no letter needs less, but the mark must stand out from the button and from what is around it.
TEST_P(Contrast, TheToolThatHasTheKeysIsMarked) {
  Started(700, 600);
  constexpr double seen = 3;
  for (int tool = 1; tool <= NumTools; ++tool) {
    auto* button = Find<QToolButton>(("imgTool(" + std::to_string(tool) + ')').c_str());
    for (const bool isChosen : {false, true}) {
      if (isChosen) button->click();
      button->setFocus(Qt::TabFocusReason);
      const QImage picture = Widget("picToolBox")->grab().toImage();
      const auto at = [&](int x, int y) { return picture.pixelColor(button->pos() + QPoint(x, y)); };
      for (const int x : {8, 24}) {
        EXPECT_GE(ContrastOfColors(at(x, 0), at(x, -2)), seen) << tool << " from around it";
        EXPECT_GE(ContrastOfColors(at(x, 1), at(x, 3)), seen) << tool << " from the button";
      }
    }
  }
}

TEST_P(Contrast, WhatIsSelectedCanBeReadInEveryTheme) {
  const auto expectReadable = [](const QPalette& palette) {
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
      EXPECT_GE(ContrastOfColors(palette.color(group, QPalette::HighlightedText),
                                 palette.color(group, QPalette::Highlight)),
                ReadableContrast);
    }
  };
  const ReadableSelection readableSelection;
  Started(700, 600);
  expectReadable(form_->palette());
  // Also when the theme changes; middle grey is where letters have least room.
  for (const auto& [letters, ground] : {std::pair{QColor(Qt::white), QColor(0x30, 0x8C, 0xC6)},
                                        {QColor(Qt::black), QColor(0x20, 0x20, 0x60)},
                                        {QColor(0x77, 0x77, 0x77), QColor(0x70, 0x70, 0x70)}}) {
    QPalette theme = QApplication::palette();
    theme.setColor(QPalette::HighlightedText, letters);
    theme.setColor(QPalette::Highlight, ground);
    QApplication::setPalette(theme);
    QApplication::processEvents();
    expectReadable(QApplication::palette());
    expectReadable(Widget("picToolBox")->palette());
    EXPECT_EQ(QApplication::palette().color(QPalette::HighlightedText), letters);
  }
}

TEST(ReadableSelection, LeavesAThemeThatIsReadableAsItIs) {
  QPalette theme(QColor(0xF0, 0xF0, 0xF0));
  theme.setColor(QPalette::Highlight, QColor(0x00, 0x00, 0x80));
  theme.setColor(QPalette::HighlightedText, Qt::white);
  EXPECT_EQ(WithReadableSelection(theme), theme);
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, Contrast, testing::Bool());
