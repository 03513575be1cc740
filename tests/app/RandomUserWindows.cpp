// What a random user does with windows and files: sizes, double clicks, drops, disks that fail, the report
// window.
#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <array>
#include <filesystem>
#include <optional>

#include "RandomUser.h"
#include "naming/Naming.h"
#include "support/FullDisk.h"
#include "support/NumberedStrip.h"

namespace {

constexpr int NumRandomFiles = 3;

}  // namespace

void RandomUser::PutFiles() {
  const auto putNamed = [this](const std::string& name, Truss truss) {
    AutoName(truss);
    directory_.Put(name, TrussText(truss));
  };
  putNamed("random0.trs", Truss());
  putNamed("random1.trs", NumberedStrip());
  putNamed("random2.trs", LoadedTriangle());
  Truss triangle = LoadedTriangle();
  const std::string whole = TrussText(triangle);
  directory_.Put("good.trs", whole);
  directory_.Put("broken.trs", whole.substr(0, whole.size() * 2 / 3));
  directory_.Put("nonsense.trs", "These are no numbers.\n");
  directory_.Put("picture.png", "");
  std::filesystem::create_directory(directory_ / "folder.trs");
}

void RandomUser::WindowEvent(QWidget& window) {
  if (Below(3) == 0) {
    window.isMaximized() ? window.showNormal() : window.showMaximized();
  } else {
    window.resize(50 + Below(1951), 50 + Below(1951));
  }
  if (Below(2) == 0) QApplication::processEvents();
}

void RandomUser::DoubleClick() {
  QWidget* target = Canvas();
  QPoint point = SomePoint();
  if (Below(4) == 0) {
    const QList<QAbstractButton*> buttons = form_->findChildren<QAbstractButton*>();
    target = OneOf(buttons);
    if (!target->isVisible() || !target->isEnabled()) return;
    point = target->rect().center();
  }
  const QPointF local(point);
  QTest::mouseClick(target, Qt::LeftButton, Qt::NoModifier, point);
  QMouseEvent second(QEvent::MouseButtonDblClick, local, target->mapToGlobal(local), Qt::LeftButton,
                     Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(target, &second);
  QTest::mouseRelease(target, Qt::LeftButton, Qt::NoModifier, point);
}

void RandomUser::DropFiles() {
  static constexpr std::array names = {"good.trs",   "random0.trs", "random1.trs", "broken.trs",
                                       "folder.trs", "picture.png", "gone.trs",    "nonsense.trs"};
  QMimeData data;
  QList<QUrl> urls;
  for (int count = Below(5) == 0 ? 2 : 1; count > 0; --count) {
    urls.append(QUrl::fromLocalFile(QString::fromStdString(directory_ / OneOf(names))));
  }
  data.setUrls(urls);
  chooser_.Choice = RandomFile(Below(NumRandomFiles));
  messages_.Answers = {YesOrNo(), YesOrNo()};
  const QPoint point(Below(form_->width()), Below(form_->height()));
  const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
  QDragEnterEvent enter(point, offered, &data, Qt::LeftButton, Qt::NoModifier);
  enter.setAccepted(false);
  QApplication::sendEvent(form_.get(), &enter);
  if (!enter.isAccepted()) return;
  if (Below(6) == 0) {
    QDragLeaveEvent leave;
    QApplication::sendEvent(form_.get(), &leave);
    return;
  }
  QDropEvent drop(QPointF(point), offered, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(form_.get(), &drop);
  QApplication::processEvents();
}

// Saving, or a command that asks whether to save, while nothing can be saved. The truss stays as it is, and
// files that were there keep their bytes.
void RandomUser::SaveToFailingDisk() {
  static constexpr std::array commands = {"mnuFileSave", "mnuFileSaveAs", "mnuFileSaveAs", "mnuFileOpen"};
  const char* command = OneOf(commands);
  const std::array<std::string, 5> refused = {
      RandomFile(0) + "/under-a-file.trs", directory_ / "no such folder/a.trs", directory_ / "folder.trs",
      directory_ / (std::string(300, 'n') + ".trs"), "/proc/self/refused.trs"};
  const bool isFull = Below(2) == 0;
  chooser_.Choice = isFull ? RandomFile(Below(NumRandomFiles)) : OneOf(refused);
  messages_.Answers = {YesOrNo(), YesOrNo(), MessageAnswer::No};
  QAction* entry = Entry(command);
  if (!entry->isEnabled()) return;
  if (InStep1()) GiveUpDrawing();  // as a menu does

  std::vector<std::string> before;
  for (int i = 0; i < NumRandomFiles; ++i)
    before.push_back(directory_.Bytes("random" + std::to_string(i) + ".trs"));
  Truss truss = truss_;
  const std::string text = TrussText(truss);
  {
    std::optional<FullDisk> full;
    if (isFull) full.emplace(static_cast<rlim_t>(Below(static_cast<int>(text.size()))));
    entry->trigger();
  }
  for (int i = 0; i < NumRandomFiles; ++i) {
    const std::string after = directory_.Bytes("random" + std::to_string(i) + ".trs");
    if (isFull) {
      EXPECT_EQ(after, before[static_cast<std::size_t>(i)]) << "file " << i << ", " << command;
    } else {
      EXPECT_TRUE(after == before[static_cast<std::size_t>(i)] || after == text)
          << "file " << i << ", " << command;
    }
  }
  if (std::string(command) == "mnuFileOpen" && InStep1())
    return;  // opened, or emptied for a file that is none
  truss = truss_;
  EXPECT_EQ(TrussText(truss), text) << command;
}

void RandomUser::ReportWindowEvent() {
  QWidget* report = Report();
  if (!report->isVisible()) {
    static constexpr std::array buttons = {"cmdReportCounting", "cmdReportSystemEqs", "cmdReportRREF",
                                           "cmdReportSolutions"};
    auto* button = Find<QAbstractButton>(OneOf(buttons));
    if (button->isVisible()) QTest::mouseClick(button, Qt::LeftButton);
    return;
  }
  switch (Below(6)) {
    case 0:
      WindowEvent(*report);
      break;
    case 1:
      report->close();
      break;
    default:
      for (int i = Below(4); i >= 0; --i) UseShownReport(*report);
      break;
  }
}

// The windows of the menu Learn that are open: text and list as in a report, the slider and the play button.
void RandomUser::UseLearning() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    static const QStringList windowsOfLearn = {QStringLiteral("Why"), QStringLiteral("Forces"),
                                               QStringLiteral("Checks")};
    const bool isOfLearn = windowsOfLearn.contains(window->objectName());
    if (!isOfLearn || !window->isVisible()) continue;
    for (int i = Below(4); i > 0; --i) UseShownReport(*window);
    if (Below(3) == 0) WindowEvent(*window);
    if (auto* play = window->findChild<QPushButton*>(QStringLiteral("cmdPlay")))
      QTest::mouseClick(play, Qt::LeftButton);
    if (auto* drawing = window->findChild<QWidget*>(QStringLiteral("picForces"))) UseForces(*drawing);
  }
}

// Wheel, clicks and drags on the drawing of the forces, and its keys.
void RandomUser::UseForces(QWidget& drawing) {
  const auto somewhere = [&] { return QPoint(Below(drawing.width() + 1), Below(drawing.height() + 1)); };
  const QPoint at = somewhere();
  QWheelEvent wheel(at, drawing.mapToGlobal(at), {}, {0, 120 * (Below(9) - 4)}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&drawing, &wheel);
  QTest::mousePress(&drawing, Qt::LeftButton, Qt::NoModifier, at);
  if (Below(2) == 0) {
    const QPoint to = somewhere();
    QMouseEvent move(QEvent::MouseMove, QPointF(to), drawing.mapToGlobal(QPointF(to)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&drawing, &move);
  }
  QTest::mouseRelease(&drawing, Qt::LeftButton, Qt::NoModifier, somewhere());
  static constexpr std::array keys = {Qt::Key_Plus, Qt::Key_Minus, Qt::Key_0, Qt::Key_C, Qt::Key_Left};
  QTest::keyClick(&drawing, OneOf(keys), Below(3) == 0 ? Qt::NoModifier : Qt::ControlModifier);
}

// Mouse and keys in the text or the table, with the keys that copy and close.
void RandomUser::UseShownReport(QWidget& report) {
  const QList<QAbstractScrollArea*> areas = report.findChildren<QAbstractScrollArea*>();
  QWidget* viewport = OneOf(areas)->viewport();
  if (Below(3) == 0 && viewport->isVisible()) {
    const auto somewhere = [&] {
      return QPoint(Below(viewport->width() + 1), Below(viewport->height() + 1));
    };
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, somewhere());
    QTest::mouseMove(viewport, somewhere());
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, somewhere());
    return;
  }
  struct Keys {
    Qt::Key Key;
    Qt::KeyboardModifiers Modifiers;
  };
  static const std::array keys = {
      Keys{Qt::Key_A, Qt::ControlModifier},   Keys{Qt::Key_C, Qt::ControlModifier},
      Keys{Qt::Key_Down, Qt::ShiftModifier},  Keys{Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier},
      Keys{Qt::Key_Right, Qt::ShiftModifier}, Keys{Qt::Key_PageDown, Qt::NoModifier},
      Keys{Qt::Key_C, Qt::AltModifier},       Keys{Qt::Key_E, Qt::AltModifier},
      Keys{Qt::Key_R, Qt::AltModifier},       Keys{Qt::Key_L, Qt::AltModifier},
      Keys{Qt::Key_Tab, Qt::NoModifier},      Keys{Qt::Key_Escape, Qt::NoModifier}};
  const Keys pressed = OneOf(keys);
  QTest::keyClick(report.focusWidget() != nullptr ? report.focusWidget() : &report, pressed.Key,
                  pressed.Modifiers);
}
