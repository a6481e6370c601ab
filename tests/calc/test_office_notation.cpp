// References in the office's notation, as its named ranges give them, read as A1 references.

#include <gtest/gtest.h>

#include "calc/office_notation.h"

namespace orv::calc {
namespace {

TEST(OfficeNotation, NamedRangeContentsReadAsA1References) {
  const struct {
    std::string office;
    std::optional<std::string> a1;
  } cases[] = {
      {"$Heights.$A$1:$C$13", "Heights!$A$1:$C$13"},
      {"$'My data'.$B$2", "'My data'!$B$2"},
      {"$'It''s'.$A$1:$'It''s'.$A$9", "'It''s'!$A$1:$A$9"},  // the sheet repeated after ":"
      {"$Data.$A$1:$A$3;$Data.$C$1:$C$3", "Data!$A$1:$A$3,Data!$C$1:$C$3"},
      {"$Data.$A$1~$Data.$C$1", "Data!$A$1,Data!$C$1"},
      {"Data.A1:B2", "Data!A1:B2"},
      {"0.05", std::nullopt},
      {"SUM($Data.$A$1:$A$3)", std::nullopt},
      {"$A$1", std::nullopt},  // no sheet: nothing to read it on
      {"", std::nullopt},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.office);
    EXPECT_EQ(a1FromOffice(c.office), c.a1);
  }
}

}  // namespace
}  // namespace orv::calc
