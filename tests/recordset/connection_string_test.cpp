// SPDX-License-Identifier: MIT
#include "recordset/connection_string.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/ado.h"

namespace recordset {
namespace {

TEST(ConnectionString, IsReadAsTheProviderReadsIt) {
  struct Case {
    const char* text;
    const char* source;
    bool read_only;
  };
  const Case cases[] = {
      {"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\p\\a.ovs;Mode=Read|Write|Share Deny None;",
       "C:\\p\\a.ovs", false},
      {"data source = /p/a b.ovs ", "/p/a b.ovs", false},
      {"Data Source=\"/p/a;b=\"\"c\"\".ovs\" ; MODE=Read", "/p/a;b=\"c\".ovs", true},
      {"Data Source='/p/it''s.ovs';Mode=ReadWrite", "/p/it's.ovs", false},
      {"Data Source=a=b;Mode=Share Deny None|Read;User ID=Admin;Password=;", "a=b", true},
  };
  for (const Case& c : cases) {
    const ConnectionSettings settings = ParseConnectionString(c.text);
    EXPECT_EQ(settings.data_source, c.source) << c.text;
    EXPECT_EQ(settings.read_only, c.read_only) << c.text;
  }
  for (const char* bad :
       {"", "Provider=Microsoft.Jet.OLEDB.4.0", "Data Source=;Mode=Read", "/p/a.ovs",
        "Data Source=\"a", "Data Source=\"a\"b;", "Provider=SQLOLEDB;Data Source=a"}) {
    EXPECT_THROW(ParseConnectionString(bad), platform::Error) << bad;
  }
}

}  // namespace
}  // namespace recordset
