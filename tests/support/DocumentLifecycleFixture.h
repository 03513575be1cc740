// The commands of the File menu on real files, with a message box and a file chooser that answer by
// themselves and a window that remembers what it was told.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "document/DocumentLifecycle.h"
#include "document/TrussFile.h"
#include "support/FakeFileChooser.h"
#include "support/FakeMessageBox.h"
#include "support/MemorySettingsStore.h"
#include "support/TemporaryDirectory.h"
#include "support/TrussBuilder.h"

class RecordingWindow : public DocumentWindow {
 public:
  explicit RecordingWindow(const Truss& truss) : truss_(truss) {}
  void DocumentEmptied() override {
    ++TimesEmptied;
    EXPECT_EQ(truss_.NumMembers, 0) << "told before the document was empty";
  }
  void ShowCaption(const std::string& caption) override { Caption = caption; }
  void Redraw() override {
    ++TimesRedrawn;
    MembersDrawn = truss_.NumMembers;
  }

  std::string Caption;
  int TimesEmptied = 0;
  int TimesRedrawn = 0;
  int MembersDrawn = 0;

 private:
  const Truss& truss_;
};

inline Truss OneMember(const std::string& name = "A") { return TrussBuilder().Member(0, 0, 4, 0, name); }

inline const Message SaveChangesQuestion{.Text = "The truss has changed.  Do you want to save the changes?",
                                         .Title = "Orvane",
                                         .Buttons = MessageButtons::YesNo,
                                         .Icon = MessageIcon::Information,
                                         .HasWayOut = false};

class DocumentLifecycleTest : public testing::Test {
 protected:
  // A saved truss, opened: nothing has changed.
  void OpenSaved(const std::string& name) {
    lifecycle_.OpenPath(SavedFile(name));
    ASSERT_EQ(truss_.FileName, directory_ / name);
    ASSERT_EQ(lifecycle_.LastReadError(), std::nullopt);
    window_.TimesEmptied = window_.TimesRedrawn = 0;
  }

  // Writes a file with one member of the given name and returns its path.
  std::string SavedFile(const std::string& fileName, const std::string& memberName = "A") {
    Truss truss = OneMember(memberName);
    return directory_.Put(fileName, TrussText(truss));
  }

  // A truss of one member that was drawn and never saved.
  void DrawUntitled(const std::string& memberName = "A") { truss_ = OneMember(memberName); }

  void RenameMember(const std::string& name) {
    truss_.Labels[truss_.Members[1].NameLabel1].Caption = name;
    truss_.Labels[truss_.Members[1].NameLabel2].Caption = name;
  }

  std::string MemberName() const { return truss_.Name(truss_.Members[1].NameLabel1); }

  // The name of the one member in a file.
  std::string MemberNameIn(const std::string& fileName) const {
    Truss truss;
    EXPECT_EQ(ReadTruss(truss, bounds_, directory_ / fileName), std::nullopt);
    return truss.NumMembers == 1 ? truss.Name(truss.Members[1].NameLabel1) : "no single member";
  }

  std::vector<std::string> Recent() const {
    return {recent_.Caption(1), recent_.Caption(2), recent_.Caption(3), recent_.Caption(4)};
  }

  std::string Stored(int entry) {
    return store_.Get("Orvane", "Recent Files", "RecentFile" + std::to_string(entry));
  }

  // A path that no truss can be written to.
  std::string UnwritablePath() const { return directory_ / "no such directory/a.trs"; }

  TemporaryDirectory directory_;
  MemorySettingsStore store_;
  FakeMessageBox messages_;
  FakeFileChooser chooser_;
  Truss truss_;
  CanvasBounds bounds_{.PixL = 0, .PixR = 400, .PixT = 0, .PixB = 200};
  RecentFiles recent_{store_};
  RecordingWindow window_{truss_};
  DocumentLifecycle lifecycle_{{truss_, bounds_, recent_, messages_, chooser_, window_}, "/program"};
};
