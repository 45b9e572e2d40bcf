#include <gtest/gtest.h>

#ifdef ZEPH_HARDENED

#include <string>

#include "support/child.h"

namespace {

void ExpectStop(const std::string& site, const std::string& line) {
  const auto child = zeph::test::RunChild("zeph_containers_hardened_child", {site});
  EXPECT_NE(child.status, 0) << site;
  EXPECT_EQ(child.out, "") << site;
  EXPECT_EQ(child.err.substr(0, child.err.find_first_of("\r\n")), line) << site;
}

}  // namespace

TEST(HardenedCollections, StopAtANullCompareFunction) {
  ExpectStop("array null", "CZEPHSortableObArray::Sort: compare is null");
  ExpectStop("range null", "CZEPHSortableObArray::Sort: compare is null");
  ExpectStop("list null", "CZEPHSortableObList::Sort: compare is null");
  ExpectStop("position null", "CZEPHSortableObList::Sort: compare is null");
}

TEST(HardenedCollections, StopAtARangeOutsideTheArray) {
  ExpectStop("first", "CZEPHSortableObArray::Sort: first is -1, outside 0..5");
  ExpectStop("count", "CZEPHSortableObArray::Sort: count is 4, outside 1..3");
}

TEST(HardenedCollections, LetEveryRangeInsideTheArrayPass) {
  EXPECT_EQ(zeph::test::RunChild("zeph_containers_hardened_child", {"whole range"}).status, 0);
}

#endif  // ZEPH_HARDENED
