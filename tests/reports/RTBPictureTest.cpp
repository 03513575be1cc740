// A picture goes into the report by way of the clipboard, which may be held by another program for a while.
#include "reports/RTBPicture.h"

#include <gmock/gmock.h>

#include "support/FakeClipboard.h"
#include "support/FakeClock.h"
#include "support/FakeMessageBox.h"
#include "support/RecordingRichText.h"
#include "support/RecordingSurface.h"

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

class ClipboardTest : public ::testing::Test {
 protected:
  bool PlacePicture(int breaksBefore, int breaksAfter) {
    return RTBPicture(picture_, ReportText{document_}, access_, breaksBefore, breaksAfter);
  }

  bool Copy() { return CopyToClipboard(forms_, access_); }

  void ExpectMessage() {
    EXPECT_THAT(messages_.Shown,
                ElementsAre(Message{.Text = "Unable to access clipboard\r\nTry again later"}));
  }

  FakeClipboard clipboard_;
  FakeClock clock_;
  FakeMessageBox messages_;
  ClipboardAccess access_{clipboard_, clock_, messages_};
  RecordingRichText document_{clipboard_};
  Picture picture_{RecordingSurface::Measure};
  RichTextForms forms_{.Rtf = "{rtf}", .Html = "<p>", .Plain = "plain"};
};

class RTBPictureTest : public ClipboardTest {
 protected:
  RTBPictureTest() { picture_.Line(0, 0, 100, 50); }
};

class CopyToClipboardTest : public ClipboardTest {};

}  // namespace

TEST_F(RTBPictureTest, IsIndentedByATabBetweenItsLineBreaks) {
  EXPECT_TRUE(PlacePicture(2, 1));
  EXPECT_EQ(document_.Text(), "\n\n\t<picture>\n");
  ASSERT_THAT(document_.Pictures, SizeIs(1));
  EXPECT_EQ(document_.Pictures[0].Frame(), picture_.Frame());
}

TEST_F(RTBPictureTest, IsPutOnAClearedClipboard) {
  EXPECT_TRUE(PlacePicture(0, 0));
  EXPECT_THAT(clipboard_.Tries, ElementsAre("clear", "picture"));
  EXPECT_THAT(clock_.Pauses, IsEmpty());
  EXPECT_THAT(messages_.Shown, IsEmpty());
}

TEST_F(RTBPictureTest, AFailingStepIsTriedAgainAfterAPause) {
  clipboard_.FailuresOfPicture = 3;
  EXPECT_TRUE(PlacePicture(2, 0));
  EXPECT_THAT(clipboard_.Tries, ElementsAre("clear", "no picture", "no picture", "no picture", "picture"));
  EXPECT_THAT(clock_.Pauses, ElementsAre(100, 100, 100));
  EXPECT_THAT(messages_.Shown, IsEmpty());
  EXPECT_EQ(document_.Text(), "\n\n\t<picture>");
}

TEST_F(RTBPictureTest, EachStepHasItsOwnRetries) {
  clipboard_.FailuresOfClear = 10;
  clipboard_.FailuresOfPicture = 10;
  EXPECT_TRUE(PlacePicture(0, 0));
  EXPECT_THAT(clock_.Pauses, SizeIs(20));
  EXPECT_THAT(document_.Pictures, SizeIs(1));
}

TEST_F(RTBPictureTest, TheTenthRetryCanStillSucceed) {
  clipboard_.FailuresOfClear = 10;
  EXPECT_TRUE(PlacePicture(0, 0));
  EXPECT_THAT(clock_.Pauses, SizeIs(10));
  EXPECT_THAT(messages_.Shown, IsEmpty());
}

TEST_F(RTBPictureTest, WhenTheTenthRetryFailsAMessageSaysSo) {
  clipboard_.FailuresOfPicture = 11;
  EXPECT_FALSE(PlacePicture(2, 1));
  EXPECT_THAT(clock_.Pauses, SizeIs(10));
  EXPECT_THAT(clock_.Pauses, Each(100));
  ExpectMessage();
}

TEST_F(RTBPictureTest, WithoutTheClipboardItsPlaceStaysEmpty) {
  clipboard_.FailuresOfClear = 1000;
  EXPECT_FALSE(PlacePicture(2, 1));
  EXPECT_EQ(document_.Text(), "\n\n\t\n");
  EXPECT_THAT(clipboard_.Tries, SizeIs(11));
  EXPECT_THAT(clipboard_.Tries, Each("no clear"));
  ExpectMessage();
}

TEST_F(RTBPictureTest, APictureThatAnotherProgramHasReplacedIsMissed) {
  RecordingRichText withoutPicture;  // pastes nothing, as if the clipboard held a text by now
  EXPECT_FALSE(RTBPicture(picture_, ReportText{withoutPicture}, access_, 1, 1));
  EXPECT_EQ(withoutPicture.Text(), "\n\t\n");
}

TEST_F(RTBPictureTest, SaysWhatItShows) {
  EXPECT_TRUE(RTBPicture(picture_, ReportText{document_}, access_, 0, 0, "a line"));
  EXPECT_THAT(document_.Descriptions, ElementsAre("a line"));
}

TEST_F(RTBPictureTest, AnEmptyPictureLeavesTheClipboardAlone) {
  picture_.Clear();
  EXPECT_TRUE(PlacePicture(1, 1));
  EXPECT_THAT(clipboard_.Tries, IsEmpty());
  EXPECT_EQ(document_.Text(), "\n\t\n");
}

TEST_F(CopyToClipboardTest, ReplacesWhatTheClipboardHolds) {
  EXPECT_TRUE(Copy());
  EXPECT_THAT(clipboard_.Tries, ElementsAre("clear", "text"));
  EXPECT_EQ(clipboard_.HeldText, forms_);
}

TEST_F(CopyToClipboardTest, TheFirstThreeTriesFail) {
  clipboard_.FailuresOfClear = 3;
  EXPECT_TRUE(Copy());
  EXPECT_THAT(clipboard_.Tries, ElementsAre("no clear", "no clear", "no clear", "clear", "text"));
  EXPECT_THAT(clock_.Pauses, ElementsAre(100, 100, 100));
  EXPECT_THAT(messages_.Shown, IsEmpty());
}

TEST_F(CopyToClipboardTest, AllTriesFail) {
  clipboard_.FailuresOfText = 1000;
  EXPECT_FALSE(Copy());
  EXPECT_THAT(clock_.Pauses, SizeIs(10));
  EXPECT_THAT(clock_.Pauses, Each(100));
  EXPECT_EQ(clipboard_.HeldText, std::nullopt);
  ExpectMessage();
}

TEST_F(CopyToClipboardTest, WithoutAClearedClipboardNothingIsPut) {
  clipboard_.FailuresOfClear = 11;
  EXPECT_FALSE(Copy());
  EXPECT_THAT(clipboard_.Tries, Each("no clear"));
  ExpectMessage();
}
