#include "backends/data/odbc/odbc_attributes.h"

#include <gtest/gtest.h>

#include "support/expect_each.h"

namespace paperway {
namespace {

TEST(OdbcAttributes, MessagesShowNoPassword) {
  const auto shown = [](const char* connection) { return OdbcAttributes(connection).shown(); };
  expectEach(shown,
             Row{"shop;Pwd=s3cret", "shop;Pwd=***"},
             Row{"shop", "shop"},
             Row{"Driver={a;Pwd=b};Uid=me; PWD =x;Port=1", "Driver=***;Uid=me; PWD =***;Port=1"},
             Row{"Pwd={a;b}};c}; Uid=me", "Pwd=***; Uid=me"},
             Row{"Pwd= {a;b};x=1", "Pwd=***;x=1"},
             Row{"x=1;Pwd={a;never closed", "x=1;Pwd=***"},
             Row{"SSLPassword=a=b;", "SSLPassword=***;"},
             Row{"pqopt={password=x port=1};DSN=a", "pqopt=***;DSN=a"},
             Row{"Pwd=;x", "Pwd=***;x"});
}

TEST(OdbcAttributes, ADriverThatRepeatsAPasswordIsNotQuoted) {
  const OdbcAttributes attributes("shop;Uid=me;Pwd={a;b}}c}");
  EXPECT_EQ(attributes.text(), "DSN=shop;Uid=me;Pwd={a;b}}c}");
  EXPECT_EQ(attributes.withoutPasswords("no me, a;b}c, {a;b}}c}!"), "no me, ***, ***!");
}

}  // namespace
}  // namespace paperway
