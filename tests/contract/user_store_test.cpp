#include <sys/wait.h>
#include <unistd.h>

#include "contract/machine_fixture.h"

namespace paperway {
namespace {

template <class Machine>
class UserStoreTest : public MachineTest<Machine> {
 protected:
  UserStore& store_ = this->machine_.userStore();
};
TYPED_TEST_SUITE(UserStoreTest, Machines);

TYPED_TEST(UserStoreTest, GivesBackWhatWasSaved) {
  UserStore& store = this->store_;
  EXPECT_EQ(store.get("app", "Sticker", "1 Space", " "), " ");
  const std::string values[] = {
      "3", "", " ", "two\r\nlines\n", "a\tb\\n\\", "₹ \xFF", std::string("\0x", 2)};
  for (const std::string& value : values) {
    store.save("app", "Sticker", value, value);
    store.save("app", "Sticker", "1 maxf", value);
    EXPECT_EQ(store.get("app", "Sticker", "1 maxf", "none"), value);
  }
  for (const std::string& value : values) {
    EXPECT_EQ(store.get("app", "Sticker", value, "none"), value);
  }
}

TYPED_TEST(UserStoreTest, AddressesMatchWithoutRegardToCaseAndStandApart) {
  UserStore& store = this->store_;
  store.save("app", "Sticker", "1 MaxF Ä", "5");
  EXPECT_EQ(store.get("APP", "sticker", "1 maxf ä", ""), "5");
  EXPECT_EQ(store.get("app", "Sticker", "1 MaxF", ""), "");
  EXPECT_EQ(store.get("app", "Sticker1", " MaxF Ä", ""), "");
  EXPECT_EQ(store.get("ap", "pSticker", "1 MaxF Ä", ""), "");
}

class SystemUserStore : public testing::Test {
 protected:
  TestFolder folder_;
  SystemMachine machine_{folder_.path};
  UserStore& store_ = machine_.userStore();
  std::string file_ = folder_.path / "config/paperway/store.txt";
};

TEST_F(SystemUserStore, AGarbledFileIsAnErrorAndStays) {
  store_.save("a", "b", "c", "d");
  const std::string good = readFile(file_, "test");
  EXPECT_EQ(good, "paperway store 1\na\tb\tc\td\n");
  for (const char* tail :
       {"x", "a\tb\tc\n", "a\tb\tc\td\te\n", "a\tb\tc\t\\x\n", "a\tb\tc\t\\\n"}) {
    const std::string bytes = good + tail;
    replaceFile(file_, bytes, "test");
    EXPECT_THROW(store_.get("a", "b", "c", ""), AutomationError) << bytes;
    EXPECT_THROW(store_.save("a", "b", "c", "e"), AutomationError) << bytes;
    EXPECT_EQ(readFile(file_, "test"), bytes);
  }
}

TEST_F(SystemUserStore, ProgramsThatSaveAtOnceLoseNothing) {
  constexpr int kPrograms = 4;
  constexpr int kKeys = 25;
  for (int program = 0; program < kPrograms; ++program) {
    if (fork() != 0) continue;
    for (int key = 0; key < kKeys; ++key) {
      store_.save("app", std::to_string(program), std::to_string(key), "x");
    }
    _exit(0);
  }
  for (int status = 0; wait(&status) > 0;) EXPECT_EQ(status, 0);
  for (int i = 0; i < kPrograms * kKeys; ++i) {
    EXPECT_EQ(store_.get("app", std::to_string(i / kKeys), std::to_string(i % kKeys), ""), "x");
  }
}

}  // namespace
}  // namespace paperway
