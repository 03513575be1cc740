// Files of a random user: drops, a disk that fails, files that others change, replace or take away.
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <array>
#include <filesystem>
#include <fstream>
#include <optional>

#include "RandomUser.h"
#include "document/FilePaths.h"
#include "naming/Naming.h"
#include "support/FullDisk.h"
#include "support/NumberedStrip.h"

namespace {

constexpr int NumRandomFiles = 3;

// Whole, broken, no truss, no file, and gone.
constexpr std::array OtherFiles = {"good.trs",    "broken.trs", "folder.trs",
                                   "picture.png", "gone.trs",   "nonsense.trs"};

// Nothing where there is no file.
std::string BytesOf(const std::string& path) {
  if (!std::filesystem::is_regular_file(path)) return {};
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

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

std::string RandomUser::SomeFile() {
  return OneIn(6) ? directory_ / OneOf(OtherFiles) : RandomFile(Below(NumRandomFiles));
}

void RandomUser::DropFiles() {
  QMimeData data;
  QList<QUrl> urls;
  for (int count = Below(5) == 0 ? 2 : 1; count > 0; --count) {
    const std::string path = OneIn(4) ? RandomFile(Below(2)) : directory_ / OneOf(OtherFiles);
    urls.append(QUrl::fromLocalFile(QString::fromStdString(path)));
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
  eitherMessages_.IsReal = eitherChooser_.IsReal = false;
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
  for (int i = 0; i < NumRandomFiles; ++i) before.push_back(BytesOf(RandomFile(i)));
  Truss truss = truss_;
  const std::string text = TrussText(truss);
  {
    std::optional<FullDisk> full;
    if (isFull) full.emplace(static_cast<rlim_t>(Below(static_cast<int>(text.size()))));
    entry->trigger();
  }
  for (int i = 0; i < NumRandomFiles; ++i) {
    const std::string after = BytesOf(RandomFile(i));
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

// As if another program had worked on it: the next time that it is saved here the user is asked, and what he
// does not want to be replaced stays.
void RandomUser::SaveOverAnothersChange() {
  const std::string path = truss_.FileName;
  if (path.empty() || !Entry("mnuFileSave")->isEnabled() || path.find("random") == std::string::npos) return;
  // Not one below a folder that has taken the place of a file, nor such a folder.
  if (directory_ / FileNameOf(path) != path || std::filesystem::is_directory(path)) return;
  if (InStep1()) GiveUpDrawing();
  Truss truss = truss_;
  const std::string text = TrussText(truss);
  const std::string others = text + "'another program was here\r\n" + std::to_string(Below(1000));
  directory_.Put(FileNameOf(path), others);
  eitherMessages_.IsReal = eitherChooser_.IsReal = false;
  chooser_.Choice = std::nullopt;
  const bool replaces = OneIn(2);
  messages_.Answers = {replaces ? MessageAnswer::Yes : MessageAnswer::No, MessageAnswer::Yes};
  const std::size_t numShown = messages_.Shown.size();
  Trigger("mnuFileSave");
  const std::string after = BytesOf(path);
  EXPECT_TRUE(after == others || (replaces && after == text)) << path;
  if (after == text) {
    EXPECT_GT(messages_.Shown.size(), numShown);
  }
  truss = truss_;
  EXPECT_EQ(TrussText(truss), text);
  EXPECT_EQ(truss_.FileName, path);
}

// Emptied, cut, taken away, replaced by another or by a folder; now and then all are put down anew.
void RandomUser::ChangeAFile() {
  const std::string name = FileNameOf(RandomFile(Below(NumRandomFiles)));
  const std::filesystem::path path = directory_ / name;
  switch (Below(6)) {
    case 0:
      std::filesystem::remove_all(path);
      break;
    case 1:
      std::filesystem::remove_all(path);
      directory_.Put(name, "");
      break;
    case 2:
      std::filesystem::remove_all(path);
      directory_.Put(name, directory_.Bytes("broken.trs"));
      break;
    case 3:
      std::filesystem::remove_all(path);
      std::filesystem::create_directory(path);
      break;
    case 4:
      std::filesystem::remove_all(path);
      std::filesystem::create_symlink(directory_ / "good.trs", path);
      break;
    default:
      for (int i = 0; i < NumRandomFiles; ++i) std::filesystem::remove_all(RandomFile(i));
      std::filesystem::remove_all(directory_ / "folder.trs");
      PutFiles();
  }
}
