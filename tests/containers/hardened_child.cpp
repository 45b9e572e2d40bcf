// Breaks one precondition, or keeps it, as the argument names.
#include "containers.h"

#include "support/breach.h"

namespace {

int Equal(CObject*, CObject*) {
  return 0;
}

struct FiveObjects : CZEPHSortableObArray {
  FiveObjects() { SetSize(5); }
};

const zeph::test::Breach kBreaches[] = {
    {"array null", [] { FiveObjects().Sort(nullptr); }},
    {"range null", [] { FiveObjects().Sort(0, 0, nullptr); }},
    {"list null", [] { CZEPHSortableObList().Sort(nullptr); }},
    {"position null", [] { CZEPHSortableObList().Sort(nullptr, 1, nullptr); }},
    {"first", [] { FiveObjects().Sort(-1, 2, Equal); }},
    {"count", [] { FiveObjects().Sort(2, 4, Equal); }},
    {"foreign position",
     [] {
       CZEPHSortableObList list, other;
       list.AddTail(nullptr);
       list.Sort(other.AddTail(nullptr), 1, Equal);
     }},
    {"link twice",
     [] {
       CZEPHLinkList<double> list;
       auto* link = new CZEPHLink<double>(1.0);
       list.InsertOrdered(link);
       list.InsertOrdered(link);
     }},
    {"node twice",
     [] {
       CZEPHSortedLinkList list;
       CZEPHLinkData node(1);
       list.Insert(&node);
       list.Insert(&node);
     }},
    {"whole range", [] { FiveObjects().Sort(0, 5, Equal); }},
    {"no count", [] { FiveObjects().Sort(-1, 0, Equal); }},
    {"own position",
     [] {
       CZEPHSortableObList list;
       const POSITION at = list.AddTail(nullptr);
       list.Sort(at, 1, Equal);
     }},
    {"null position",
     [] {
       CZEPHSortableObList list;
       list.AddTail(nullptr);
       list.Sort(nullptr, 1, Equal);
     }},
    {"null nodes",
     [] {
       CZEPHLinkList<double>().InsertOrdered(nullptr);
       CZEPHSortedLinkList().Insert(nullptr);
     }},
};

}  // namespace

int main(int argc, char** argv) {
  return zeph::test::MakeBreach(argc, argv, kBreaches);
}
