// How the main window is put together: canvas, step panels, status bar, menus and shortcuts.
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QShortcut>
#include <QStatusBar>

#include "app/AboutForm.h"
#include "app/DrawingAccess.h"
#include "app/FileMenuView.h"
#include "app/HelpTopics.h"
#include "app/HelpViewer.h"
#include "app/InstructionFrame.h"
#include "app/LearnMenu.h"
#include "app/MainForm.h"
#include "app/StatusPanel.h"
#include "app/TrussDrop.h"
#include "platform/qt/FittedText.h"
#include "platform/qt/OnPress.h"
#include "platform/qt/WindowInFront.h"
#include "reports/JointEquationsPanel.h"
#include "reports/ReportWindow.h"

MainForm::MainForm(const Partners& partners) : on_(partners), recent_(partners.Store) {
  setObjectName(QStringLiteral("MainForm"));
  CreateCanvasAndPanels();
  CreateStatusBar();
  lifecycle_ = std::make_unique<DocumentLifecycle>(
      DocumentLifecycle::Partners{on_.Document, bounds_, recent_, on_.Messages, on_.Chooser, *this},
      on_.ProgramDirectory);
  CreateMenus();
  report_ = std::make_unique<ReportWindow>(on_.Numbers);
  ShowMessagesOver(*this, *report_);
  CreateShortcuts();
  ShowCaption(MainWindowCaption(on_.Document.FileName));
  ShowStep();
  PlaceOnScreen();
}

// Widgets outlive what is told of them.
MainForm::~MainForm() { picDraw_->SetAccess(nullptr); }

void MainForm::CreateCanvasAndPanels() {
  auto* inner = new QWidget(this);
  setCentralWidget(inner);
  picDraw_ = new CanvasWidget(on_.Document, drawing_, inner);
  connect(picDraw_, &CanvasWidget::LabelActivated, this, &MainForm::lblRodJoint_Click);
  connect(picDraw_, &CanvasWidget::BackingLost, this, &MainForm::Redraw);
  CreateToolPanel();
  CreateNamePanel();
  CreateReportPanel();

  jointPanel_ = new JointEquationsPanel(picDraw_);
  jointPanel_->move(60, StepPanelHeight + 34);
  frInstruct1_ = new InstructionFrame(inner);
  connect(frInstruct1_, &InstructionFrame::Dismissed, this, &MainForm::cmdOKInstruct1_Click);
  for (QWidget* widget : std::initializer_list<QWidget*>{picDraw_, picToolBox_, picStep2_, picStep3_}) {
    widget->setEnabled(false);
  }
}

void MainForm::CreateToolPanel() {
  picToolBox_ = new ToolBox(tools_, centralWidget());
  picToolBox_->setAutoFillBackground(true);
  connect(picToolBox_, &ToolBox::HintShown, this,
          [this](const QString& hint) { ShowHint(StatusHint::Tool, hint.toStdString()); });
  connect(picToolBox_, &ToolBox::HintGone, this, [this] { EndHint(StatusHint::Tool); });
  connect(picToolBox_, &ToolBox::ToolSelected, this,
          [this](int tool) { status_.ChooseTool(ToolHint(tool)); });
  tool_ = std::make_unique<CanvasTools>(CanvasTools::Partners{on_.Document, drawing_, tools_, on_.Messages,
                                                              on_.Numbers, *picDraw_, [this] { Redraw(); }});
  access_ = std::make_unique<DrawingAccess>(DrawingAccess::Partners{
      on_.Document, steps_, on_.Numbers, *tool_, [this](LabelIndex label) { lblRodJoint_Click(label); }});
  picDraw_->SetAccess(access_.get());
  connect(picToolBox_, &ToolBox::ToolSelected, tool_.get(), &CanvasTools::SelectTool);
  connect(tool_.get(), &CanvasTools::ToolChosen, this, [this](int tool) {
    picToolBox_->ShowPalette();
    status_.ChooseTool(ToolHint(tool));
    ShowHint(StatusHint::Tool, tools_.HintOfChosen(tool));
  });
  connect(tool_.get(), &CanvasTools::WorkBegan, this, [this] {
    EndHint(StatusHint::Tool);
    EndHint(StatusHint::Key);
  });
  connect(picToolBox_, &ToolBox::DigitPressed, tool_.get(), &CanvasTools::ChooseTool);
  connect(tool_.get(), &CanvasTools::ReadOutChanged, this,
          [this](const QString& text) { statusPanels_[1]->ShowText(text); });
  StepNavigation& navigation = navigation_[0];
  navigation.CaptionLeft = 264;
  navigation.Caption =
      AddStepCaption(picToolBox_, QStringLiteral("Label9"), QStringLiteral("Step 1\nDesign the truss"));
  navigation.Next = AddStepButton(picToolBox_, QStringLiteral("cmdNext1"), QStringLiteral("&Next >"),
                                  QStringLiteral("Go to Step 2: name the forces and joints (Alt+Right)"));
  OnPress(navigation.Next, this, &MainForm::cmdNext1_Click);
}

void MainForm::CreateNamePanel() {
  picStep2_ = new QFrame(centralWidget());
  picStep2_->setObjectName(QStringLiteral("picStep2"));
  picStep2_->setAutoFillBackground(true);
  QPushButton* autoName =
      AddPanelButton(picStep2_, QStringLiteral("cmdAutoName(1)"), QStringLiteral("&AutoName"),
                     QStringLiteral("Let the program name the forces and number the joints"), 8, 98);
  QPushButton* clearNames =
      AddPanelButton(picStep2_, QStringLiteral("cmdAutoName(2)"), QStringLiteral("&Clear Names"),
                     QStringLiteral("Clear all the names"), 110, 98);
  OnPress(autoName, this, [this] { cmdAutoName_Click(1); });
  OnPress(clearNames, this, [this] { cmdAutoName_Click(2); });
  StepNavigation& navigation = navigation_[1];
  navigation.CaptionLeft = 217;
  navigation.Caption =
      AddStepCaption(picStep2_, QStringLiteral("Label10"), QStringLiteral("Step 2\nName forces and joints"));
  navigation.Prev = AddStepButton(picStep2_, QStringLiteral("cmdPrev2"), QStringLiteral("< &Back"),
                                  QStringLiteral("Go back to Step 1: design the truss (Alt+Left)"));
  navigation.Next = AddStepButton(picStep2_, QStringLiteral("cmdNext2"), QStringLiteral("&Next >"),
                                  QStringLiteral("Go to Step 3: view the reports (Alt+Right)"));
  OnPress(navigation.Prev, this, &MainForm::cmdPrev2_Click);
  OnPress(navigation.Next, this, &MainForm::cmdNext2_Click);
}

void MainForm::CreateReportPanel() {
  picStep3_ = new QFrame(centralWidget());
  picStep3_->setObjectName(QStringLiteral("picStep3"));
  picStep3_->setAutoFillBackground(true);
  struct Button {
    ReportKind Report;
    const char* Name;
    const char* Text;
    const char* ToolTip;
  };
  static constexpr Button buttons[] = {
      {ReportKind::Counting, "cmdReportCounting", "&Counting",
       "How many unknown forces and how many equations there are"},
      {ReportKind::Equations, "cmdReportSystemEqs", "&Equations",
       "The augmented matrix of the equilibrium equations"},
      {ReportKind::RREF, "cmdReportRREF", "&RREF", "The matrix in reduced row echelon form"},
      {ReportKind::Solutions, "cmdReportSolutions", "So&lutions",
       "The values of the forces, and what they mean"},
  };
  constexpr int width = 76;
  int left = 8;
  for (const Button& button : buttons) {
    QPushButton* control =
        AddPanelButton(picStep3_, QString::fromLatin1(button.Name), QString::fromUtf8(button.Text),
                       QString::fromUtf8(button.ToolTip), left, width);
    left += width + 2;
    OnPress(control, this, [this, report = button.Report] { ShowReport(report); });
  }
  StepNavigation& navigation = navigation_[2];
  navigation.CaptionLeft = left + 1;
  navigation.Caption =
      AddStepCaption(picStep3_, QStringLiteral("Label11"), QStringLiteral("Step 3\nView reports"));
  navigation.Prev = AddStepButton(picStep3_, QStringLiteral("cmdPrev3"), QStringLiteral("< &Back"),
                                  QStringLiteral("Go back to Step 2: name the forces and joints (Alt+Left)"));
  OnPress(navigation.Prev, this, &MainForm::cmdPrev3_Click);
}

void MainForm::CreateStatusBar() {
  statusBar()->setObjectName(QStringLiteral("StatusBar1"));
  for (int i = 1; i <= 2; ++i)
    statusPanels_[static_cast<std::size_t>(i - 1)] = new StatusPanel(i, statusBar());
}

void MainForm::CreateMenus() {
  CreateFileMenu();
  mnuSettings_ = menuBar()->addAction(QStringLiteral("&Settings"), this, &MainForm::mnuSettings_Click);
  mnuSettings_->setObjectName(QStringLiteral("mnuSettings"));
  CreateLearnMenu();
  CreateHelpMenu();
  for (QMenu* menu : menuBar()->findChildren<QMenu*>(QRegularExpression(QStringLiteral("^mnu")))) {
    menu->setAccessibleName(menu->title().remove(u'&'));
    connect(menu, &QMenu::aboutToShow, menu, [menu] { FitMenu(*menu); });
  }
  mnuSettings_->setEnabled(false);
}

void MainForm::CreateFileMenu() {
  fileMenu_ = std::make_unique<FileMenuView>(
      FileMenuView::Partners{.Lifecycle = *lifecycle_,
                             .Recent = recent_,
                             .Document = on_.Document,
                             .Step = steps_,
                             .Instructed = [this] { return InstructionsAreShown(); },
                             .BeforeEntry = [this] { tool_->Cancel(); },
                             .Print = [this] { mnuFilePrint_Click(); }},
      *this);
  connect(fileMenu_.get(), &FileMenuView::HintShown, this,
          [this](const char* hint) { ShowHint(StatusHint::Menu, hint); });
  connect(fileMenu_.get(), &FileMenuView::HintGone, this, [this] { EndHint(StatusHint::Menu); });
  connect(fileMenu_.get(), &FileMenuView::SaveRefused, this,
          [this](const char* why) { ShowHint(StatusHint::Key, why); });
  connect(fileMenu_.get(), &FileMenuView::CommandDone, this, &MainForm::NoteOnFile);
  auto* drop = new TrussDrop(*this, [this] { return fileMenu_->IsEnabled(); });
  connect(drop, &TrussDrop::Dropped, fileMenu_.get(), &FileMenuView::OpenDropped);
}

void MainForm::CreateLearnMenu() {
  learn_ = std::make_unique<LearnMenu>(
      LearnMenu::Partners{
          .Document = on_.Document,
          .Bounds = bounds_,
          .Canvas = *picDraw_,
          .Animation = animation_,
          .Numbers = on_.Numbers,
          .Chooser = on_.Chooser,
          .Messages = on_.Messages,
          .Directory = on_.ProgramDirectory,
          .PlaceBeside =
              [this](QWidget& window, const ReportSizes& sizes, const std::vector<const QWidget*>& ofMenu) {
                PlaceBesideReport(window, sizes, ofMenu);
              },
          .ShowHelp = [this](const char* topic) { ShowHelp(topic); }},
      *menuBar());
  connect(learn_.get(), &LearnMenu::HintShown, this,
          [this](const char* hint) { ShowHint(StatusHint::Menu, hint); });
  connect(learn_.get(), &LearnMenu::HintGone, this, [this] { EndHint(StatusHint::Menu); });
}

void MainForm::CreateHelpMenu() {
  QMenu* menu = menuBar()->addMenu(QStringLiteral("&Help"));
  menu->setObjectName(QStringLiteral("mnuHelp"));
  const auto add = [this, menu](const char* name, const QString& text, auto handler) {
    QAction* action = menu->addAction(text);
    action->setObjectName(QString::fromLatin1(name));
    connect(action, &QAction::triggered, this, handler);
    return action;
  };
  add("mnuHelpProgram", QStringLiteral("Help on the &program"), [this] { ShowHelp(ProgramHelpTopic); });
  add("mnuHelpTrusses", QStringLiteral("Help on &trusses"), [this] { ShowHelp(TrussHelpTopic); });
  add("mnuHelpMath", QStringLiteral("Help on the &mathematics"), [this] { ShowHelp(MathHelpTopic); });
  add("mnuHelpStep", QStringLiteral("Help on this &step"), [this] {
    ShowHelpOnStep();
  })->setShortcut(QKeySequence::HelpContents);
  menu->addSeparator();
  add("mnuHelpAbout", QStringLiteral("&About Orvane"), [this] { AboutForm(this).exec(); });
}

void MainForm::CreateShortcuts() {
  AddStepKey(QKeySequence(Qt::ALT | Qt::Key_Right), true);
  AddStepKey(QKeySequence(Qt::ALT | Qt::Key_Left), false);
  CreateReportShortcuts();
}

// In the report window too, which is the active one once a report is shown.
void MainForm::AddStepKey(const QKeySequence& keys, bool forward) {
  for (QWidget* window : std::initializer_list<QWidget*>{this, report_.get()}) {
    auto* shortcut = new QShortcut(keys, window);
    connect(shortcut, &QShortcut::activated, this, [this, forward] {
      const StepNavigation& navigation = navigation_[static_cast<std::size_t>(steps_.Current() - 1)];
      QPushButton* button = forward ? navigation.Next : navigation.Prev;
      if (button != nullptr && button->isEnabled()) button->click();
    });
  }
}

void MainForm::CreateReportShortcuts() {
  const auto add = [this](const QKeySequence& keys, auto handler) {
    connect(new QShortcut(keys, report_.get()), &QShortcut::activated, this, handler);
  };
  fileMenu_->AddKeys(*report_);
  add(QKeySequence::HelpContents, [this] { ShowHelpOnReport(); });
  add(LearnMenu::KeyInStep3(), [this] { learn_->OpenAt(*report_); });
  // The access keys of the panel, so that a reader goes from report to report, and back, without the mouse.
  for (QPushButton* button : picStep3_->findChildren<QPushButton*>()) {
    add(QKeySequence::mnemonic(button->text()), [button] { button->click(); });
  }
}
