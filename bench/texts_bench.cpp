// SPDX-License-Identifier: MIT
//
// Texts and streams: against the stream's own operators and printf, and against the fastest
// functions of the standard library, std::to_chars and std::from_chars with a known format.
#include <charconv>
#include <cmath>
#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include "algorithms.h"
#include "bench.h"
#include "double_array.h"
#include "raw_buffers.h"
#include "sheet.h"

namespace zeph::bench {
namespace {

Numbers Checksum(const std::string& text) {
  unsigned sum = 0;
  for (const char c : text) sum = sum * 31 + static_cast<unsigned char>(c);
  return {static_cast<double>(text.size()), static_cast<double>(sum)};
}

char* Put(char* out, const char* text) {
  while (*text) *out++ = *text++;
  return out;
}

/// A stream that is written, or read, from its start each time.
struct Tape {
  std::stringstream stream;
  std::ostream& Blank() {
    stream.seekp(0);
    return stream;
  }
  std::istream& Rewound() {
    stream.clear();
    stream.seekg(0);
    return stream;
  }
};

CZEPHDoubleArray& Array(Row& row, unsigned long long seed) {
  const auto values = RandomDoubles(row.n(), seed, -1e3, 1e3);
  return row.Keep<CZEPHDoubleArray>(static_cast<int>(row.n()), values.data());
}

void InsertByHand(std::ostream& os, const CZEPHDoubleArray& a) {
  char block[4096];
  char* out = Put(block, "Elements of the vector are: \n");
  for (const double x : a) {
    if (block + sizeof block - out < 400) {
      os.rdbuf()->sputn(block, out - block);
      out = block;
    }
    out = std::to_chars(out, block + sizeof block, x, std::chars_format::general, 6).ptr;
    *out++ = '\n';
  }
  os.rdbuf()->sputn(block, out - block);
}

bool AddStreamOutput(const char* name, int precision) {
  return Add("text", name, {1000}, [precision](Row& row) {
    auto& a = Array(row, 1);
    auto& tape = row.Keep<Tape>();
    tape.stream.precision(precision);
    row.Result([&] { return Checksum(tape.stream.str()); });
    row.Ours([&] { tape.Blank() << a; });
    row.Peer("operator<< of each", [&] {
      std::ostream& os = tape.Blank();
      os << "Elements of the vector are: \n";
      for (const double x : a) os << x << "\n";
    });
    if (precision == 6) row.Peer("std::to_chars", [&] { InsertByHand(tape.Blank(), a); });
  });
}
const bool kOutput = AddStreamOutput("array << 6 digits", 6);
const bool kFullOutput = AddStreamOutput("array << 17 digits", 17);

/// Reads the numbers after the count from a text, by hand.
void ExtractByHand(const std::string& text, std::vector<double>& out) {
  const char* at = text.data();
  const char* const end = at + text.size();
  std::size_t count = 0;
  at = std::from_chars(at, end, count).ptr;
  for (std::size_t i = 0; i < count; ++i) {
    while (*at == ' ' || *at == '\n') ++at;
    at = std::from_chars(at, end, out[i]).ptr;
  }
}

bool AddStreamInput(const char* name, int precision) {
  return Add("text", name, {1000}, [precision](Row& row) {
    auto& a = Array(row, 2);
    auto& tape = row.Keep<Tape>();
    tape.stream.precision(precision);
    tape.stream << row.n();
    for (const double x : a) tape.stream << "\n" << x;
    tape.stream << "\n";
    auto& text = row.Keep<std::string>(tape.stream.str());
    auto& out = row.Keep<std::vector<double>>(row.n());
    row.Result([&] { return out; });
    row.Ours([&] { tape.Rewound() >> a; }).Result([&] { return Values(a.data, out.size()); });
    row.Peer("operator>> of each",
             [&] {
               std::istream& is = tape.Rewound();
               std::size_t count = 0;
               is >> count;
               for (std::size_t i = 0; i < count && (is >> out[i]); ++i) {
               }
             })
        .Target(5);
    row.Peer("std::from_chars", [&] { ExtractByHand(text, out); });
  });
}
const bool kInput = AddStreamInput("array >> 6 digits", 6);
const bool kFullInput = AddStreamInput("array >> 17 digits", 17);

/// `write(text, x)` makes the text of one number; a thousand of them a call.
template <class Ours, class Printf, class ToChars>
bool AddTexts(const char* name, Ours ours, Printf printf, ToChars toChars) {
  return Add("text", name, {1000}, [=](Row& row) {
    auto& numbers = row.Keep<std::vector<double>>(RandomDoubles(row.n(), 3, -1e6, 1e6));
    auto& sum = row.Keep<std::string>();
    auto& mine = row.Keep<CString>();
    auto& theirs = row.Keep<std::string>();
    const auto add = [&sum](const char* text, std::size_t size) { sum.assign(text, size); };
    row.Result([&] { return Checksum(sum); });
    row.Ours([&, add] {
      for (const double x : numbers) ours(mine, x);
      add(mine.GetString(), static_cast<std::size_t>(mine.GetLength()));
    });
    row.Peer("snprintf", [&, add] {
      for (const double x : numbers) printf(theirs, x);
      add(theirs.data(), theirs.size());
    });
    row.Peer("std::to_chars", [&, add] {
      for (const double x : numbers) toChars(theirs, x);
      add(theirs.data(), theirs.size());
    });
  });
}

/// The split of a number as documented, the power by the runtime.
double Mantissa(double x, int& exponent) {
  const double logarithm = std::log10(std::fabs(x));
  const int e = static_cast<int>(logarithm < 0 ? std::floor(logarithm) : std::ceil(logarithm));
  exponent = e >= 3 ? e - 2 : e < 0 ? e : 0;
  return x / std::pow(10.0, exponent);
}
const bool kScientific = AddTexts(
    "MathToScientificNotation",
    [](CString& text, double x) {
      int exponent;
      double mantissa;
      text = ZEPH_MathToScientificNotation(x, exponent, mantissa, 2, 4);
    },
    [](std::string& text, double x) {
      int exponent;
      const double mantissa = Mantissa(x, exponent);
      char buffer[400];
      const int size = std::snprintf(buffer, sizeof buffer, "%.4fxE%d", mantissa, exponent);
      text.assign(buffer, static_cast<std::size_t>(size));
    },
    [](std::string& text, double x) {
      int exponent;
      const double mantissa = Mantissa(x, exponent);
      char buffer[400];
      char* out = std::to_chars(buffer, buffer + 380, mantissa, std::chars_format::fixed, 4).ptr;
      out = std::to_chars(Put(out, "xE"), buffer + 400, exponent).ptr;
      text.assign(buffer, static_cast<std::size_t>(out - buffer));
    });

const bool kFormat = AddTexts(
    "CString::Format",
    [](CString& text, double x) { text.Format("%s[%d] = %.3f", "row", static_cast<int>(x), x); },
    [](std::string& text, double x) {
      char buffer[512];
      const int size =
          std::snprintf(buffer, sizeof buffer, "%s[%d] = %.3f", "row", static_cast<int>(x), x);
      text.assign(buffer, static_cast<std::size_t>(size));
    },
    [](std::string& text, double x) {
      char buffer[512];
      char* out = std::to_chars(Put(buffer, "row["), buffer + 100, static_cast<int>(x)).ptr;
      out = std::to_chars(Put(out, "] = "), buffer + 500, x, std::chars_format::fixed, 3).ptr;
      text.assign(buffer, static_cast<std::size_t>(out - buffer));
    });

const bool kFormatInt = AddTexts(
    "CString::Format of integers",
    [](CString& text, double x) {
      text.Format("%s: %d of %d", "item", static_cast<int>(x), 1000000);
    },
    [](std::string& text, double x) {
      char buffer[512];
      const int size = std::snprintf(buffer, sizeof buffer, "%s: %d of %d", "item",
                                     static_cast<int>(x), 1000000);
      text.assign(buffer, static_cast<std::size_t>(size));
    },
    [](std::string& text, double x) {
      char buffer[512];
      char* out = std::to_chars(Put(buffer, "item: "), buffer + 100, static_cast<int>(x)).ptr;
      out = std::to_chars(Put(out, " of "), buffer + 500, 1000000).ptr;
      text.assign(buffer, static_cast<std::size_t>(out - buffer));
    });

/// Writes a listing to a file in blocks, by hand; `write(out, i)` writes one item.
template <class Write>
void ListByHand(std::FILE* f, std::size_t n, Write write) {
  char block[8192];
  char* out = block;
  for (std::size_t i = 0; i < n; ++i) {
    if (block + sizeof block - out < 512) {
      std::fwrite(block, 1, static_cast<std::size_t>(out - block), f);
      out = block;
    }
    out = write(out, i);
    if (i != 0 && i % 5 == 0) *out++ = '\n';
  }
  *out++ = '\n';
  std::fwrite(block, 1, static_cast<std::size_t>(out - block), f);
}

char* PutLabel(char* out, std::size_t i) {
  out = std::to_chars(Put(out, "series["), out + 30, i).ptr;
  return Put(out, "]=");
}

char kLabel[] = "series";

/// Lists the kept elements of `a` on the sheet that is returned.
template <class T>
Sheet& ListOurs(Row& row, std::vector<T>& a) {
  auto& sheet = row.Keep<Sheet>();
  row.Result([&sheet] { return sheet.Content(); });
  row.Ours([&sheet, &a] {
    ZEPH_ArrayDisplay(sheet.Rewound(), a.data(), static_cast<int>(a.size()), kLabel);
  });
  return sheet;
}

const bool kDoubles = Add("text", "ArrayDisplay double", {1000}, [](Row& row) {
  auto& a = row.Keep<std::vector<double>>(RandomDoubles(row.n(), 1, -1e6, 1e6));
  auto& sheet = ListOurs(row, a);
  row.Peer("std::to_chars", [&] {
    ListByHand(sheet.Rewound(), a.size(), [&](char* out, std::size_t i) {
      out = PutLabel(out, i);
      out = std::to_chars(out, out + 40, a[i], std::chars_format::scientific, 4).ptr;
      return Put(out, "   ");
    });
  });
});

const bool kInts = Add("text", "ArrayDisplay int", {1000}, [](Row& row) {
  auto& a = row.Keep<std::vector<int>>();
  for (const double x : RandomDoubles(row.n(), 2, -1e5, 1e5)) a.push_back(static_cast<int>(x));
  auto& sheet = ListOurs(row, a);
  row.Peer("std::to_chars", [&] {
    ListByHand(sheet.Rewound(), a.size(), [&](char* out, std::size_t i) {
      char* const number = PutLabel(out, i);
      out = std::to_chars(number, number + 30, a[i]).ptr;
      while (out - number < 5) *out++ = ' ';
      return Put(out, "  ");
    });
  });
});

const bool kCells = Add("text", "MatrixPrint", {30}, [](Row& row) {
  const std::size_t n = row.n();
  row.Items(n * n);
  auto& cells = row.Keep<std::vector<double>>(RandomDoubles(n * n, 3, -1e3, 1e3));
  auto& rows = row.Keep<std::vector<double*>>();
  for (std::size_t i = 0; i < n; ++i) rows.push_back(cells.data() + i * n);
  auto& sheet = row.Keep<Sheet>();
  row.Result([&] { return sheet.Content(); });
  row.Ours([&, n] {
    const int size = static_cast<int>(n);
    ZEPH_MatrixPrint(sheet.Rewound(), size, size, rows.data(), kLabel);
  });
  row.Peer("std::to_chars", [&, n] {
    std::FILE* const f = sheet.Rewound();
    char line[8192];
    char* out = Put(line, "series = \n");
    for (std::size_t i = 0; i < n; ++i) {
      for (std::size_t j = 0; j < n; ++j) {
        *out++ = '\t';
        out = std::to_chars(out, out + 40, rows[i][j], std::chars_format::fixed, 5).ptr;
      }
      *out++ = '\n';
      std::fwrite(line, 1, static_cast<std::size_t>(out - line), f);
      out = line;
    }
  });
});

}  // namespace
}  // namespace zeph::bench
