// Links that lead out of the help.
#include "HelpViewerFixture.h"

namespace {

class OutwardLinks : public HelpViewerTest, public testing::WithParamInterface<const char*> {
 protected:
  void ClickOn(const char* address) {
    Open();
    ShowInstead(
        QStringLiteral("<a href=\"%1\">a long text to be clicked on</a>").arg(QString::fromLatin1(address)));
    ClickLink(QString::fromLatin1(address));
    EXPECT_EQ(Page(), "index.htm");
  }
};

TEST_P(OutwardLinks, AskAndOpenOnYes) {
  messages_.Answers = {MessageAnswer::Yes};
  ClickOn(GetParam());
  ASSERT_EQ(messages_.Shown.size(), 1U);
  EXPECT_EQ(messages_.Shown[0].Buttons, MessageButtons::YesNo);
  EXPECT_NE(messages_.Shown[0].Text.find(GetParam()), std::string::npos) << "the address is shown";
  EXPECT_EQ(desktop_.Opened, QList<QUrl>({QUrl(QString::fromLatin1(GetParam()))}));
}

TEST_P(OutwardLinks, OpenNothingOnNo) {
  messages_.Answers = {MessageAnswer::No};
  ClickOn(GetParam());
  EXPECT_EQ(messages_.Shown.size(), 1U);
  EXPECT_TRUE(desktop_.Opened.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Schemes, OutwardLinks,
                         testing::Values("http://example.org/a", "https://example.org/?a=1&b=2#c",
                                         "mailto:someone@example.org"));

class RefusedLinks : public OutwardLinks {};

TEST_P(RefusedLinks, OpenNothingAtAll) {
  messages_.Answers = {MessageAnswer::Yes};
  ClickOn(GetParam());
  ExpectOnlyMessage("The help does not open this address: " + std::string(GetParam()));
  EXPECT_TRUE(desktop_.Opened.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Schemes, RefusedLinks,
                         testing::Values("file:///etc/hostname", "javascript:alert(1)", "ftp://example.org/a",
                                         "data:text/html,x"));

}  // namespace
