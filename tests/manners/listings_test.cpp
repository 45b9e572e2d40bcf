// Listings on streams that fail, and between changes of the locale.
#include "manners/listings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "support/locales.h"
#include "support/stream.h"

using namespace zeph::test;

namespace {

/// The state of a stream opened in that way, after the listing.
bool HasError(const char* path, const char* mode, int buffering, const Listing& listing) {
  std::FILE* const f = std::fopen(path, mode);
  EXPECT_TRUE(f) << path;
  if (!f) return false;
  EXPECT_EQ(0, std::setvbuf(f, nullptr, buffering, BUFSIZ));
  listing.write(f);
  std::fflush(f);
  const bool error = std::ferror(f) != 0;
  std::fclose(f);
  return error;
}

}  // namespace

#ifdef __linux__
TEST(Listings, LeaveTheErrorIndicatorOfAFullStreamSet) {
  for (const Listing& listing : kListings)
    for (const int buffering : {_IOFBF, _IOLBF, _IONBF}) {
      EXPECT_TRUE(HasError("/dev/full", "w", buffering, listing)) << listing.name;
      EXPECT_FALSE(HasError("/dev/null", "w", buffering, listing)) << listing.name;
    }
}
#endif

#ifndef _WIN32  // whose runtimes do not all say so
TEST(Listings, LeaveTheErrorIndicatorOfAReadOnlyStreamSet) {
  const TemporaryFile file;
  std::fclose(std::fopen(file.Path().c_str(), "w"));
  for (const Listing& listing : kListings)
    EXPECT_TRUE(HasError(file.Path().c_str(), "r", _IOFBF, listing)) << listing.name;
  EXPECT_EQ("", ReadFile(file.Path()));
}

/// An error that the stream had before is still there, and what can be written is written.
TEST(Listings, KeepAnErrorIndicatorThatWasSetBefore) {
  for (const Listing& listing : kListings) {
    const std::string text = Written([&](std::FILE* f) {
      std::fgetc(f);  // the stream is for writing
      EXPECT_NE(0, std::ferror(f));
      listing.write(f);
      EXPECT_NE(0, std::ferror(f)) << listing.name;
    });
    EXPECT_NE("", text) << listing.name;
  }
}
#endif

TEST(Listings, KeepTheirPlaceBetweenTheCallersOwnOutput) {
  for (const Listing& listing : kListings) {
    const std::string alone = Written(listing.write);
    const std::string text = Written([&](std::FILE* f) {
      std::fputs("<", f);
      listing.write(f);
      std::fputs(">", f);
    });
    EXPECT_EQ('<', text.front()) << listing.name;
    EXPECT_EQ('>', text.back()) << listing.name;
    if (listing.decimals == Decimals::kSame) {
      EXPECT_EQ("<" + alone + ">", text) << listing.name;
    }
  }
}

namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// `text` with its decimal points as the locale's; "," separates elements too, "..." begins lines.
std::string WithCommas(std::string text) {
  if (ZEPH_PortableMath) return text;
  for (std::size_t i = 1; i + 1 < text.size(); ++i)
    if (text[i] == '.' && IsDigit(text[i - 1])) text[i] = ',';
  return text;
}

bool HasDecimalComma(const std::string& text) {
  for (std::size_t i = 1; i + 1 < text.size(); ++i)
    if (text[i] == ',' && IsDigit(text[i - 1]) && IsDigit(text[i + 1])) return true;
  return false;
}

/// What is the same each time where a listing has times or random numbers.
std::string WithoutDigits(std::string text) {
  const auto varies = [](char c) { return IsDigit(c) || c == '-' || c == ' '; };
  text.erase(std::remove_if(text.begin(), text.end(), varies), text.end());
  return text;
}

}  // namespace

TEST(Listings, UseTheDecimalPointOfTheCurrentLocale) {
  for (const Listing& listing : kListings) {
    const auto text = [&listing](const std::string& written) {
      return listing.decimals == Decimals::kSame ? written : WithoutDigits(written);
    };
    const std::string written = Written(listing.write);
    const std::string plain = text(written), commas = text(WithCommas(written));
    if (!ZEPH_PortableMath) {  // no number kept the point of an earlier test's locale
      EXPECT_EQ(plain != commas, listing.decimals != Decimals::kNone) << listing.name;
    }
    for (int round = 0; round < 2; ++round) {
      {
        const ProcessLocale locale(kCommaLocales);
        if (!locale.Found()) GTEST_SKIP() << "no locale with a decimal comma is installed";
        EXPECT_EQ(commas, text(Written(listing.write))) << listing.name;
      }
      EXPECT_EQ(plain, text(Written(listing.write))) << listing.name;
    }
  }
}

TEST(Listings, ToStringsUseTheDecimalPointOfTheCurrentLocale) {
  const auto texts = [] {
    CString all, formatted, listed;
    CZEPHDoubleArray(4, listed_values).Display(all);
    ZEPH_ArrayDisplay(listed, listed_values, 16, listed_name);
    int exponent;
    double mantissa;
    const CString split = ZEPH_MathToScientificNotation(12345.678, exponent, mantissa, 2, 3);
    return std::string(all + listed + split);
  };
  const auto formatted = [] {
    CString text;
    text.Format("%.3f %e", 1.5, 0.25);
    return std::string(text);
  };
  const std::string plain = texts(), plainFormat = formatted();
  EXPECT_FALSE(HasDecimalComma(plain)) << "a number kept the point of an earlier test's locale";
  EXPECT_NE(plain.find("12.346xE3"), std::string::npos) << plain;
  std::string commas = plain;
  if (!ZEPH_PortableMath) std::replace(commas.begin(), commas.end(), '.', ',');
  for (int round = 0; round < 2; ++round) {
    {
      const ProcessLocale locale(kCommaLocales);
      if (!locale.Found()) GTEST_SKIP() << "no locale with a decimal comma is installed";
      EXPECT_EQ(commas, texts());
      EXPECT_EQ("1,500 2,500000e-01", formatted());
    }
    EXPECT_EQ(plain, texts());
    EXPECT_EQ(plainFormat, formatted());
  }
}
