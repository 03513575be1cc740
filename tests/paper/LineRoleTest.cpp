// What the role of a line says about the lines around it.
#include <gmock/gmock.h>

#include <vector>

#include "paper/RichText.h"

namespace {

using testing::ElementsAre;

const std::vector<LineRole> AllRoles{LineRole::Text,        LineRole::Title,    LineRole::PageTitle,
                                     LineRole::Heading,     LineRole::Joined,   LineRole::JoinedLast,
                                     LineRole::TableHeader, LineRole::TableRow, LineRole::JoinedRow};

std::vector<LineRole> RolesThat(bool (*are)(LineRole)) {
  std::vector<LineRole> roles;
  for (const LineRole role : AllRoles) {
    if (are(role)) roles.push_back(role);
  }
  return roles;
}

TEST(LineRole, HeadingsTitlesJoinedLinesAndRowsAndHeadersOfTablesStayWithTheNextLine) {
  EXPECT_THAT(RolesThat(StaysWithNext),
              ElementsAre(LineRole::Title, LineRole::PageTitle, LineRole::Heading, LineRole::Joined,
                          LineRole::TableHeader, LineRole::JoinedRow));
}

TEST(LineRole, TitlesAreHeadingsOfTheFirstLevel) {
  EXPECT_THAT(RolesThat([](LineRole role) { return HeadingLevel(role) == 1; }),
              ElementsAre(LineRole::Title, LineRole::PageTitle));
  EXPECT_THAT(RolesThat(IsHeading), ElementsAre(LineRole::Title, LineRole::PageTitle, LineRole::Heading));
}

TEST(LineRole, AHeaderIsARowButNoneOfTheBody) {
  EXPECT_THAT(RolesThat(IsRow), ElementsAre(LineRole::TableHeader, LineRole::TableRow, LineRole::JoinedRow));
  EXPECT_THAT(RolesThat(IsBodyRow), ElementsAre(LineRole::TableRow, LineRole::JoinedRow));
}

}  // namespace
