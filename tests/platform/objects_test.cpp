#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>

#include "platform.h"
#include "support/allocation.h"

TEST(Object, IsDestroyedThroughItsBaseAndNotCopyable) {
  struct Counted : CObject {
    explicit Counted(int& n) : count(n) {}
    ~Counted() override { ++count; }
    int& count;
  };
  int destroyed = 0;
  const CObject* object = new Counted(destroyed);
  delete object;
  EXPECT_EQ(destroyed, 1);
  EXPECT_FALSE(std::is_copy_constructible_v<CObArray>);
  EXPECT_FALSE(std::is_copy_assignable_v<CObList>);
}

TEST(MemoryException, TruncatesItsTextToTheBuffer) {
  const CMemoryException exception;
  char text[255];
  unsigned help = 7;
  EXPECT_EQ(exception.GetErrorMessage(text, sizeof text, &help), 1);
  EXPECT_STREQ(text, "Out of memory.");
  EXPECT_EQ(help, 0u);
  std::memset(text, '#', sizeof text);
  EXPECT_EQ(exception.GetErrorMessage(text, 4), 1);
  EXPECT_STREQ(text, "Out");
  EXPECT_EQ(text[4], '#');
  EXPECT_EQ(exception.GetErrorMessage(text, 0), 0);
  EXPECT_EQ(exception.GetErrorMessage(nullptr, 9), 0);
}

/// As much of the text as fits, and nothing after the buffer; the help context in any case.
TEST(MemoryException, FillsABufferOfAnySize) {
  const CMemoryException exception;
  const std::string whole = "Out of memory.";
  for (unsigned size = 0; size <= 20; ++size) {
    std::string text(24, '#');
    unsigned help = 7;
    EXPECT_EQ(exception.GetErrorMessage(text.data(), size, &help), size > 0 ? 1 : 0) << size;
    EXPECT_EQ(help, 0u) << size;
    std::string want = size > 0 ? whole.substr(0, size - 1) + '\0' : std::string();
    want.resize(text.size(), '#');
    EXPECT_EQ(text, want) << size;
  }
  unsigned help = 7;
  EXPECT_EQ(exception.GetErrorMessage(nullptr, 9, &help), 0);
  EXPECT_EQ(help, 0u);
}

TEST(MemoryException, DeletesItself) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  const long before = zeph::test::LiveBlocks();
  auto* exception = new CMemoryException;
  EXPECT_EQ(zeph::test::LiveBlocks(), before + 1);
  exception->Delete();
  EXPECT_EQ(zeph::test::LiveBlocks(), before);
}

TEST(MemoryException, IsCaughtByTypeAcrossTheLibraryBoundary) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  CObList list;
  bool caught = false;
  {
    zeph::test::FailAllocation failing(1, false, zeph::test::Failure::kMemoryException);
    try {
      list.AddTail(nullptr);
    } catch (CMemoryException* exception) {
      caught = true;
      exception->Delete();
    }
  }
  EXPECT_TRUE(caught);
  EXPECT_TRUE(list.IsEmpty());
}

TEST(Application, KeepsItsName) {
  const char* name = "calculator";
  EXPECT_EQ(CWinApp(name).m_pszAppName, name);
  EXPECT_EQ(CWinApp().m_pszAppName, nullptr);
}

TEST(TimeOfDay, HasTheLayoutOfTheRuntimesRecord) {
  ZEPH_TimeOfDay record{};
  EXPECT_EQ(sizeof record.time, 8u);
  EXPECT_EQ(sizeof record, 16u);
  EXPECT_EQ(offsetof(ZEPH_TimeOfDay, time), 0u);
  EXPECT_EQ(offsetof(ZEPH_TimeOfDay, millitm), 8u);
  EXPECT_EQ(offsetof(ZEPH_TimeOfDay, timezone), 10u);
  EXPECT_EQ(offsetof(ZEPH_TimeOfDay, dstflag), 12u);
  EXPECT_TRUE((std::is_same_v<decltype(record.millitm), unsigned short>));
  EXPECT_TRUE((std::is_same_v<decltype(record.timezone), short>));
  EXPECT_TRUE((std::is_same_v<decltype(record.dstflag), short>));
}
