// Ends at the fatal error that its argument names.
#include <cstring>
#include <iostream>

#include "double_array.h"

int main(int argc, char** argv) {
  const char* site = argc > 1 ? argv[1] : "";
  const auto is = [site](const char* name) { return std::strcmp(site, name) == 0; };
  CZEPHDoubleArray three(3, 1.0), four(4, 1.0), none, negative;
  negative.size = -1;
  CZEPHDoubleArray shrunk(3, 1.0);
  shrunk.size = -1;
  CZEPHDoubleArray bare;
  bare.size = 4;  // without storage
  std::cout << "before\n";
  if (is("GetEntry above")) three.GetEntry(4);
  if (is("GetEntry below")) three.GetEntry(-1);
  if (is("GetEntry without storage")) none.GetEntry(0);
  if (is("CheckBound above")) three.CheckBound(4);
  if (is("CheckBound below")) three.CheckBound(-2147483647 - 1);
  if (is("CheckBound without storage")) none.CheckBound(0);
  if (is("assignment")) four = three;
  if (is("assignment of an empty array")) three = none;
  if (is("assignment of a negative size")) three = negative;
  if (is("assignment to a negative size")) shrunk = three;
  if (is("+=")) three += four;
  if (is("-=")) three -= four;
  if (is("+")) std::cout << (three + four).size;
  if (is("-")) std::cout << (three - four).size;
  if (is("+= of none")) three += bare;
  if (is("+= to none")) bare += three;
  if (is("-= of none")) three -= bare;
  if (is("-= to none")) bare -= three;
  if (is("+ of none")) std::cout << (three + bare).size;
  if (is("none +")) std::cout << (bare + three).size;
  if (is("- of none")) std::cout << (three - bare).size;
  if (is("none -")) std::cout << (bare - three).size;
  if (is("temporary +")) std::cout << (CZEPHDoubleArray(three) + four).size;
  if (is("+ temporary")) std::cout << (three + CZEPHDoubleArray(four)).size;
  if (is("temporaries +")) std::cout << (CZEPHDoubleArray(three) + CZEPHDoubleArray(four)).size;
  if (is("temporary + none")) std::cout << (CZEPHDoubleArray(three) + bare).size;
  if (is("none + temporary")) std::cout << (bare + CZEPHDoubleArray(three)).size;
  if (is("temporary -")) std::cout << (CZEPHDoubleArray(three) - four).size;
  if (is("temporary - none")) std::cout << (CZEPHDoubleArray(three) - bare).size;
  if (is("GetEntry of a negative count")) shrunk.GetEntry(0);
  if (is("CheckBound of a negative count")) shrunk.CheckBound(0);
  if (is("ErrorMessage")) {
    char text[] = "x";
    CZEPHDoubleArray::ErrorMessage(text, std::cout);
  }
  if (is("ErrorMessage elsewhere")) {
    char text[] = "a %d\n";
    CZEPHDoubleArray::ErrorMessage(text, std::cerr);
  }
  std::cout << "after\n";
  return 0;
}
