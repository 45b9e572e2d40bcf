// Collections that sort themselves, by a compare function of the caller.
#include <iomanip>
#include <iostream>

#include "tour.h"

namespace tour {
namespace {

/// What the collections point to: they own nothing, so the words live in an array here.
struct Word : CObject {
  explicit Word(const char* t) : text(t) {}
  CString text;
};

int Alphabetically(CObject* a, CObject* b) {
  const CString& left = static_cast<Word*>(a)->text;
  const CString& right = static_cast<Word*>(b)->text;
  return left < right ? -1 : left > right;
}

int ByLength(CObject* a, CObject* b) {
  return static_cast<Word*>(a)->text.GetLength() - static_cast<Word*>(b)->text.GetLength();
}

void Print(const char* label, CZEPHSortableObArray& words) {
  std::cout << std::left << std::setw(24) << label;
  for (int i = 0; i < words.GetSize(); ++i) std::cout << ' ' << static_cast<Word*>(words[i])->text;
  std::cout << '\n';
}

void Print(const char* label, CZEPHSortableObList& words) {
  std::cout << std::left << std::setw(24) << label;
  for (POSITION at = words.GetHeadPosition(); at;)
    std::cout << ' ' << static_cast<Word*>(words.GetNext(at))->text;
  std::cout << '\n';
}

}  // namespace

void ShowCollections(const Context&) {
  Word words[] = {Word("river"), Word("delta"),   Word("ibis"),  Word("papyrus"), Word("reed"),
                  Word("silt"),  Word("harvest"), Word("flood"), Word("oasis"),   Word("barge")};
  CZEPHSortableObArray array;
  CZEPHSortableObList list;
  for (Word& word : words) {
    array.Add(&word);
    list.AddTail(&word);
  }
  Print("As they come:", list);

  array.Sort(Alphabetically);
  list.Sort(Alphabetically);
  Print("Array, alphabetically:", array);
  Print("List, alphabetically:", list);

  array.Sort(ByLength);
  list.Sort(ByLength);
  Print("Array, then by length:", array);
  Print("List, then by length:", list);
  std::cout
      << "The list's sort is stable: words of one length stay alphabetical. The array's is not.\n";

  list.Sort(list.FindIndex(3), -1, Alphabetically);
  Print("List, from the 4th on:", list);
}

}  // namespace tour
