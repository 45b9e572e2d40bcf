// Collections may hold null pointers: sorts pass them to the compare function like any other element.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "containers/sortable_support.h"
#include "oracle/object_sorts.h"

using namespace zeph::test;

namespace {

using Objects = std::vector<CObject*>;

int KeyOrNone(const CObject* object) {
  return object ? ItemOf(object).key : -1;
}
/// Null pointers first, all alike.
int NullsFirst(CObject* a, CObject* b) {
  return KeyOrNone(a) - KeyOrNone(b);
}
bool Before(CObject* a, CObject* b) {
  return NullsFirst(a, b) < 0;
}

Objects ContentOf(const CObArray& array) {
  return {array.GetData(), array.GetData() + array.GetSize()};
}
Objects ContentOf(CObList& list) {
  Objects content;
  for (POSITION at = list.GetHeadPosition(); at;) content.push_back(list.GetNext(at));
  return content;
}

/// Calls `check` with objects of which any subset of eight places is null, then with longer ones.
template <class Check>
void ForEachContent(Check check) {
  const Items few(8, 3, 1), many(60, 9, 2);
  for (unsigned nulls = 0; nulls < 256; ++nulls) {
    Objects objects = few.Pointers();
    for (unsigned i = 0; i < 8; ++i)
      if (nulls >> i & 1) objects[i] = nullptr;
    check(objects);
  }
  for (std::size_t every = 1; every < 60; ++every) {
    Objects objects = many.Pointers();
    for (std::size_t i = 0; i < 60; i += every) objects[i] = nullptr;
    check(objects);
  }
}

}  // namespace

TEST(NullElements, AreSortedInArrays) {
  ForEachContent([](const Objects& objects) {
    CZEPHSortableObArray whole, stable, range;
    for (CObject* object : objects) whole.Add(object), stable.Add(object), range.Add(object);
    Objects want = objects, ordered = objects, part = objects;
    oracle::ShellSortObjects(want, 0, static_cast<int>(want.size()), NullsFirst);
    std::stable_sort(ordered.begin(), ordered.end(), Before);
    oracle::ShellSortObjects(part, 1, 5, NullsFirst);
    whole.Sort(NullsFirst);
    stable.SortStable(NullsFirst);
    range.Sort(1, 5, NullsFirst);
    ASSERT_EQ(ContentOf(whole), want);
    ASSERT_EQ(ContentOf(stable), ordered);
    ASSERT_EQ(ContentOf(range), part);
  });
}

TEST(NullElements, AreSortedInLists) {
  ForEachContent([](const Objects& objects) {
    CZEPHSortableObList whole, stable, range, stableRange;
    for (CObList* list : {&whole, &stable, &range, &stableRange})
      for (CObject* object : objects) list->AddTail(object);
    Objects want = objects, part = objects;
    std::stable_sort(want.begin(), want.end(), Before);
    std::stable_sort(part.begin() + 2, part.begin() + 7, Before);
    whole.Sort(NullsFirst);
    stable.SortStable(NullsFirst);
    range.Sort(range.FindIndex(2), 5, NullsFirst);
    stableRange.SortStable(stableRange.FindIndex(2), 5, NullsFirst);
    ASSERT_EQ(ContentOf(whole), want);
    ASSERT_EQ(ContentOf(stable), want);
    ASSERT_EQ(ContentOf(range), part);
    ASSERT_EQ(ContentOf(stableRange), part);
  });
}
