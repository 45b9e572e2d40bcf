#include "support/hardened.h"

using zeph::test::ExpectPasses;
using zeph::test::ExpectStops;

namespace {

const char kChild[] = "zeph_containers_hardened_child";

}  // namespace

TEST(HardenedContainers, StopAtANullCompareFunction) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {
                          {"array null", "CZEPHSortableObArray::Sort: compare is null"},
                          {"range null", "CZEPHSortableObArray::Sort: compare is null"},
                          {"list null", "CZEPHSortableObList::Sort: compare is null"},
                          {"position null", "CZEPHSortableObList::Sort: compare is null"},
                      });
}

TEST(HardenedContainers, StopAtARangeOutsideTheArray) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {
                          {"first", "CZEPHSortableObArray::Sort: first is -1, outside 0..5"},
                          {"count", "CZEPHSortableObArray::Sort: count is 4, outside 1..3"},
                      });
}

TEST(HardenedContainers, StopAtAPositionOfAnotherList) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {
                          {"foreign position",
                           "CZEPHSortableObList::Sort: start is no position of this list"},
                      });
}

TEST(HardenedContainers, StopWhereANodeIsInTheListAlready) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild,
              {
                  {"link twice", "CZEPHLinkList::InsertOrdered: the node is in the list already"},
                  {"node twice", "CZEPHSortedLinkList::Insert: the node is in the list already"},
              });
}

TEST(HardenedContainers, StopWhereAChainThatWasSharedIsGone) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(
      kChild,
      {
          {"shared chain",
           "CZEPHLinkList::RemoveAll: the first node was released by another that shared the "
           "chain"},
          {"shared chain read",
           "CZEPHLinkList::GetFirstLink: the first node was released by another that shared the "
           "chain"},
          {"shared stack",
           "CZEPHStack::Pop: the first node was released by another that shared the chain"},
          {"shared stack read",
           "CZEPHPointerStack::Peek: the first node was released by another that shared the chain"},
          {"shared stack dies",
           "CZEPHPointerStack::~CZEPHPointerStack: the first node was released by another that "
           "shared the chain"},
      });
}

TEST(HardenedContainers, LetEverythingDocumentedPass) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectPasses(kChild, {"whole range", "no count", "own position", "null position", "null nodes",
                        "shared and emptied"});
}
