// SPDX-License-Identifier: MIT
//
/// @file
/// CZEPHPermutation: every ordering of a short sequence, a line each.
#ifndef ZEPH_ALGORITHMS_PERMUTATION_H
#define ZEPH_ALGORITHMS_PERMUTATION_H

#include <cstdio>

#include "../platform.h"

/// Lists every ordering of the first `n` items of a sequence, a line each.
///
/// Static operations only; objects of the class hold nothing. Orderings come in the order of the
/// swap-and-recurse method: abc, acb, bac, bca, cba, cab. Items are told apart by position, so
/// equal items give equal lines.
///
/// `s` points to the items, of which positions `k` to `n - 1` are permuted (callers pass `k` = 0)
/// and positions 0 to `n - 1` are listed. They are permuted in place and are back in their order
/// when the call ends, even by an exception. Nothing else is checked: there must be `n` items.
/// `k = n - 1` lists the sequence as it stands; `k >= n` lists nothing.
///
/// All forms return 1, or 0 (and do nothing) when `s` or the stream is null. Output errors are not
/// reported: the stream's error flag shows them. All forms compose their lines in about 68 KiB of
/// stack, for any `n` up to a few hundred, plus one frame for each item. The stream forms allocate
/// nothing; the string forms may throw when memory runs out, and whole blocks of the text are then
/// appended already. (n - k)! lines are written; 10! characters take about 80 MB.
///
///     char word[] = {'a', 'b', 'c'};
///     CZEPHPermutation::Run(word, 0, 3, stdout);  // prints "a b c \na c b \nb a c \n..."
///     CString lines;
///     CZEPHPermutation::Run(word, 0, 2, lines);   // the letters run together
///     lines.GetString();                          // "ab \nba \n"
class ZEPH_API CZEPHPermutation {
 public:
  CZEPHPermutation();
  /// Copies nothing: there is nothing to copy.
  CZEPHPermutation(const CZEPHPermutation& other);
  virtual ~CZEPHPermutation();
  /// Copies nothing.
  ///
  ///     CZEPHPermutation one, other;
  ///     other = one;  // nothing to see
  CZEPHPermutation& operator=(const CZEPHPermutation& other);

  /// Writes each ordering as its characters, a blank after every one, and a line feed.
  static int Run(char* s, int k, int n, FILE* f);

  /// Appends each ordering as its characters run together, one blank and a line feed.
  static int Run(char* s, int k, int n, CString& out);

  /// Writes each ordering as its numbers, a blank after every one, and a line feed.
  static int Run(int* s, int k, int n, FILE* f);

  /// Appends each ordering as its numbers, a blank after every one, and a line feed.
  static int Run(int* s, int k, int n, CString& out);

  /// Writes a demonstration of all four forms to `f` and returns 1; writes nothing and returns 0
  /// when `f` is null.
  ///
  /// The closing banner comes before the integer part, on purpose.
  ///
  ///     CZEPHPermutation::Test1(stdout);  // prints "\n@@@( CZEPHPermutation::Test1()..."
  static int Test1(FILE* f);
};

#endif  // ZEPH_ALGORITHMS_PERMUTATION_H
