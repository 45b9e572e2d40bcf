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
    {"shared chain",
     [] {
       CZEPHLinkList<double> list;
       list.InsertOrdered(new CZEPHLink<double>(1.0));
       CZEPHLinkList<double> copy = list;
       list.RemoveAll();
       copy.RemoveAll();
     }},
    {"shared chain read",
     [] {
       CZEPHLinkList<double> list;
       CZEPHLink<double>* links[] = {new CZEPHLink<double>(1.0), new CZEPHLink<double>(0.0)};
       list.Sorting(links, 2);
       CZEPHLinkList<double> copy = list;
       list.RemoveAll();
       copy.GetFirstLink();
     }},
    {"shared stack",
     [] {
       int item = 0;
       CZEPHStack stack;
       stack.Push(&item);
       CZEPHStack copy = stack;
       stack.Pop();
       copy.Pop();
     }},
    {"shared stack read",
     [] {
       int item = 0;
       CZEPHPointerStack stack;
       stack.Push(&item);
       CZEPHPointerStack copy = stack;
       stack.Pop();
       copy.Peek();
     }},
    {"shared stack dies",
     [] {
       int item = 0;
       CZEPHPointerStack stack;
       stack.Push(&item);
       CZEPHPointerStack copy = stack;
     }},
    {"shared and emptied",
     [] {
       int item = 0;
       CZEPHLinkList<double> list;
       list.InsertOrdered(new CZEPHLink<double>(1.0));
       CZEPHLinkList<double> copy = list;
       copy.m_pHead = nullptr;
       CZEPHPointerStack stack;
       stack.Push(&item);
       CZEPHPointerStack other = stack;
       other.m_pTop = nullptr;
       for (int i = 0; i < 3; ++i) {  // at addresses that were released
         stack.Push(&item);
         stack.Pop();
       }
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
