// The user leaves the program, with each answer to the question about his changes, and starts it again.
#include "RandomUser.h"
#include "document/DocumentLifecycle.h"
#include "document/TrussChanged.h"
#include "platform/FileBytes.h"

// What is saved on leaving is the truss, and what is given up leaves its file as it was.
void RandomUser::CloseProgram() {
  // Leaving gives up what is being drawn; of a member that is seen here too.
  if (InStep1() && !(IsDrawingAMember() && OneIn(2))) GiveUpDrawing();
  eitherMessages_.IsReal = eitherChooser_.IsReal = false;
  const std::string file = truss_.FileName.empty() ? RandomFile(Below(3)) : truss_.FileName;
  chooser_.Choice = file;
  const bool saves = OneIn(2);
  messages_.Answers = {saves ? MessageAnswer::Yes : MessageAnswer::No, MessageAnswer::Yes,
                       MessageAnswer::Yes};
  messages_.Shown.clear();
  Truss left = truss_;
  if (IsDrawingAMember()) left.Members[left.NumMembers].Live = false;
  const std::string text = TrussText(left);
  const bool isChanged = TrussChanged(left);
  const std::string before = ReadWholeFile(file).Bytes;
  OneIn(2) ? static_cast<void>(form_->close()) : Trigger("mnuFileExit");
  EXPECT_FALSE(form_->isVisible());
  EXPECT_EQ(isChanged, !messages_.Shown.empty());
  const std::string after = ReadWholeFile(file).Bytes;
  if (!isChanged || !saves) {
    EXPECT_EQ(after, before);
  } else {
    EXPECT_TRUE(after == text || messages_.Shown.size() > 1) << file;
  }
}

void RandomUser::StartAgainIfLeft() {
  if (!form_->isVisible()) StartProgram();
}
