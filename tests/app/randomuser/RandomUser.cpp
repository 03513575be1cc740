// How a run begins, and which actions there are.
#include "RandomUser.h"

#include <QDesktopServices>
#include <numeric>

namespace {

NoBrowser& TheBrowser() {
  static NoBrowser browser;
  return browser;
}

constexpr std::array WebSchemes = {"http", "https", "mailto"};

}  // namespace

RandomUser::RandomUser() {
  programDirectory_ = ORVANE_PROGRAM_DIRECTORY;  // the help is there
  for (const char* scheme : WebSchemes)
    QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), &TheBrowser(), "Open");
}

RandomUser::~RandomUser() {
  for (const char* scheme : WebSchemes) QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
}

unsigned RandomUser::Begin(unsigned usualEvents) {
  const auto setting = [](const char* name, unsigned otherwise) {
    bool isNumber = false;
    const unsigned value = qEnvironmentVariable(name).toUInt(&isNumber);
    return isNumber ? value : otherwise;
  };
  const unsigned seed = setting("ORVANE_RANDOM_SEED", 20261121);
  // What is asked for is the longest run; the others are as much shorter as they usually are.
  constexpr unsigned longest = 3000;
  const unsigned events = setting("ORVANE_RANDOM_EVENTS", longest) / (longest / usualEvents);
  std::printf("seed %u, %u events\n", seed, events);
  random_.seed(seed);
  PutFiles();
  return events;
}

void RandomUser::StartProgram() {
  form_.reset();
  truss_ = Truss();
  mouseIsDown_ = false;
  form_ = std::make_unique<MainForm>(
      MainForm::Partners{truss_, store_, eitherMessages_, eitherChooser_, numbers_, programDirectory_});
  form_->show();
  EXPECT_TRUE(QTest::qWaitForWindowExposed(form_.get()));
  ResizeInside(580, 560);
  Click("cmdOKInstruct1");
}

const std::vector<RandomUser::Action>& RandomUser::AllActions() {
  static const std::vector<Action> actions = {
      {"mouse", 460, &RandomUser::UseMouse},
      {"double click", 25, &RandomUser::DoubleClickOnDrawing},
      {"wheel", 10, &RandomUser::TurnWheel},
      {"key", 150, &RandomUser::PressKey},
      {"shortcut", 25, &RandomUser::PressShortcut},
      {"number", 30, &RandomUser::TypeNumber},
      {"button", 150, &RandomUser::PressButton},
      {"button twice", 8, &RandomUser::PressAnyButtonTwice},
      {"menu entry", 25, &RandomUser::ChooseEntry},
      {"size", 12, &RandomUser::ResizeMainForm},
      {"report", 35, &RandomUser::UseReport},
      {"help", 6, &RandomUser::UseHelp},
      {"other windows", 20, &RandomUser::UseOtherWindows},
      {"drop", 10, &RandomUser::DropFiles},
      {"failing disk", 10, &RandomUser::SaveToFailingDisk},
      {"changed file", 8, &RandomUser::ChangeAFile},
      {"another's change", 6, &RandomUser::SaveOverAnothersChange},
      {"closing", 4, &RandomUser::CloseProgram},
  };
  return actions;
}

void RandomUser::AnyEvent() {
  const std::vector<Action>& actions = AllActions();
  const int sum = std::accumulate(actions.begin(), actions.end(), 0,
                                  [](int weights, const Action& action) { return weights + action.Weight; });
  int choice = Below(sum);
  const Action* chosen = actions.data();
  while (choice >= chosen->Weight) choice -= (chosen++)->Weight;
  SCOPED_TRACE(chosen->Name);
  eitherMessages_.IsReal = OneIn(3);
  eitherChooser_.IsReal = OneIn(3);
  (this->*chosen->Do)();
  if (OneIn(50)) QApplication::processEvents();
  StartAgainIfLeft();
}

void RandomUser::GiveUpDrawing() {
  QTest::mouseClick(Canvas(), Qt::RightButton, Qt::NoModifier, Canvas()->rect().center());
  mouseIsDown_ = false;
}
