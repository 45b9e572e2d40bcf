// Containers: an ordered list, a stack, and an array that sorts itself.
#include <cstdio>

#include <ZEPHDataStructureEngine/containers.h>

struct Parcel : CObject {
  explicit Parcel(int grams) : weight(grams) {}
  int weight;
};

static int ByWeight(CObject* a, CObject* b) {
  return static_cast<Parcel*>(a)->weight - static_cast<Parcel*>(b)->weight;
}

int main() {
  CZEPHLinkList<double> list;  // owns its nodes: made with new
  for (double x : {3.0, 1.0, 2.0}) list.InsertOrdered(new CZEPHLink<double>(x));
  for (CZEPHLink<double>* at = list.m_pHead; at; at = at->m_pNext) std::printf("%g ", at->m_value);
  std::puts("in the list");

  int one = 1, two = 2;
  CZEPHStack stack;  // pop everything: its destructor releases no node
  stack.Push(&one);
  stack.Push(&two);
  while (void* top = stack.Pop()) std::printf("%d ", *static_cast<int*>(top));
  std::puts("from the stack");

  Parcel heavy(900), light(20), middling(300);
  CZEPHSortableObArray parcels;  // owns none of them
  for (Parcel* parcel : {&heavy, &light, &middling}) parcels.Add(parcel);
  parcels.Sort(ByWeight);
  for (int i = 0; i < static_cast<int>(parcels.GetSize()); ++i)
    std::printf("%d ", static_cast<Parcel*>(parcels[i])->weight);
  std::puts("grams, lightest first");
  return 0;
}
