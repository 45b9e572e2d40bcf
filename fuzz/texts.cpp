// Strings and number texts against std::string and the runtime's printf.
#include <cstdint>

#include "algorithms.h"
#include "oracle/listing.h"
#include "oracle/permutation.h"
#include "support/bytes.h"
#include "support/require.h"

namespace {

using oracle::Printed;
using zeph::fuzz::Bytes;
using zeph::fuzz::Require;
using zeph::fuzz::RequireText;

std::string Bytewise(const CString& s) {
  return std::string(s.GetString(), static_cast<std::size_t>(s.GetLength()));
}

/// "%" flags width precision and a conversion, put together from choices.
std::string Conversion(Bytes& in, const char* conversions) {
  std::string format = "%";
  static const char kFlags[] = {'-', '+', ' ', '#', '0'};
  const std::uint8_t flags = in.Byte();
  for (unsigned k = 0; k < 5; ++k)
    if (flags >> k & 1) format += kFlags[k];
  if (in.Flag()) format += std::to_string(in.Int(1, 40));
  if (in.Flag()) format += "." + std::to_string(in.Int(0, 30));
  const std::string kinds = conversions;
  return format + kinds[in.Below(kinds.size())];
}

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
#endif
void Formats(Bytes& in, CString& s, std::string& model) {
  const bool append = in.Flag();
  std::string text;
  const auto put = [&](const std::string& format, auto value) {
    text = Printed(format.c_str(), value);
    append ? s.AppendFormat(format.c_str(), value) : s.Format(format.c_str(), value);
  };
  switch (in.Int(0, 3)) {
    case 0:
      put(Conversion(in, "feEgGa"), in.Double());
      break;
    case 1:
      put(Conversion(in, "dixXuo"), static_cast<int>(in.Word(4)));
      break;
    case 2: {
      const std::string other = in.Text(60).c_str();
      put(Conversion(in, "s"), other.c_str());
      break;
    }
    default:
      text = Printed("<%s|%s>", model.c_str(), model.c_str());  // arguments inside the string
      append ? s.AppendFormat("<%s|%s>", s.GetString(), s.GetString())
             : s.Format("<%s|%s>", s.GetString(), s.GetString());
  }
  model = append ? model + text : text;
}
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

std::size_t Clamped(int i, std::size_t size) {
  return i < 0 ? 0 : std::min(static_cast<std::size_t>(i), size);
}

void Pieces(Bytes& in, const CString& s, const std::string& model) {
  const int length = static_cast<int>(model.size());
  const int count = in.Int(-2, length + 2);
  const int first = in.Int(-2, length + 2);
  const std::size_t n = Clamped(count, model.size());
  const std::size_t at = Clamped(first, model.size());
  RequireText(Bytewise(s.Left(count)), model.substr(0, n), "Left");
  RequireText(Bytewise(s.Right(count)), model.substr(model.size() - n), "Right");
  RequireText(Bytewise(s.Mid(first)), model.substr(at), "Mid");
  RequireText(Bytewise(s.Mid(first, count)), model.substr(at, n), "Mid with a count");
  const std::string key = in.Text(3).c_str();
  const bool inside = first >= 0 && first <= length;
  const std::size_t found = inside ? model.find(key, at) : std::string::npos;
  Require(s.Find(key.c_str(), first) == (found == std::string::npos ? -1 : static_cast<int>(found)),
          "Find");
}

void Strings(Bytes& in) {
  CString s;
  std::string model;
  for (int steps = 0; steps < 30 && !in.Empty() && model.size() < 2000; ++steps) {
    switch (in.Int(0, 6)) {
      case 0: {
        const std::string text = in.Text(20);
        s = CString(std::string_view(text));
        model = text;
        break;
      }
      case 1: {
        const char c = static_cast<char>(in.Byte());
        s += c;
        model += c;
        break;
      }
      case 2:
        s += s;
        model += std::string(model);
        break;
      case 3:
        if (model.find('\0') == std::string::npos) Formats(in, s, model);
        break;
      case 4:
        if (model.find('\0') == std::string::npos) Pieces(in, s, model);
        break;
      case 5: {
        const std::string text = in.Text(20);
        s.Append(text.data(), static_cast<int>(text.size()));
        model += text;
        Require((s < CString(text)) == (model < text) && (s == CString(text)) == (model == text),
                "comparison by bytes");
        break;
      }
      default:  // from inside itself
        if (!model.empty() && model.find('\0') == std::string::npos) {
          const std::size_t at = in.Below(model.size());
          s = s.GetString() + at;
          model = std::string(model, at);
        }
    }
    RequireText(Bytewise(s), model, "the text is the model's");
  }
}

void Numbers(Bytes& in) {
  const double x = in.Double();
  CString s;
  s.Format("%f %e %12.4f %-5.4e", x, x, x, x);
  RequireText(s.GetString(), Printed("%f %e %12.4f %-5.4e", x, x, x, x), "a number's texts");
  int exponent = 0;
  double mantissa = 0;
  const CString notation = ZEPH_MathToScientificNotation(
      x, exponent, mantissa, static_cast<char>(in.Byte()), static_cast<char>(in.Byte()));
  Require(notation.GetLength() >= 0, "scientific notation is a text");
  (void)ZEPH_RoundOffToInt(x);
  (void)ZEPH_MathRoundOff(x, static_cast<int>(in.Word(4)));
}

void Orderings(Bytes& in) {
  std::string items = in.Text(5);
  const int n = static_cast<int>(items.size());
  std::string copy = items;
  CString got;
  const int k = in.Int(0, 5);
  CZEPHPermutation::Run(items.data(), k, n, got);
  std::string want;
  oracle::Permute(copy.data(), k, n, oracle::Form::kString, want);
  RequireText(Bytewise(got), want, "the permutations");
  RequireText(items, copy, "the items are back in place");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  Bytes in(data, size);
  switch (in.Int(0, 2)) {
    case 0:
      Strings(in);
      break;
    case 1:
      Numbers(in);
      break;
    default:
      Orderings(in);
  }
  return 0;
}
