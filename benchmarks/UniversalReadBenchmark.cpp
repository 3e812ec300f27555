// Reading files of the Universal format, 10 MB each, beside the walk that one would write by hand over a
// std::string_view, with memchr, substr and std::from_chars. Limits: the delimited file 1.3 times the walk with every
// field a view, 1.2 with numbers; the fixed file 1.5 times. Packed decimals: 1 ns a digit.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <random>
#include <string>
#include <string_view>

#include "tavrone/core/Parsing.h"
#include "tavrone/core/SmartPtr.h"
#include "tavrone/universal/UniversalFieldParser.h"
#include "tavrone/universal/UniversalInputParser.h"

namespace tavrone {
namespace {

constexpr size_t FILE_SIZE = 10000000;
constexpr int COLUMNS = 10;

std::string number(std::mt19937 &random, int digits) {
  std::string text;
  for (int i = 0; i < digits; ++i) text += static_cast<char>('0' + (i == 0 ? 1 + random() % 9 : random() % 10));
  return text;
}
std::string letters(std::mt19937 &random, size_t n) {
  std::string text;
  for (size_t i = 0; i < n; ++i) text += static_cast<char>('A' + random() % 26);
  return text;
}

// Lines of a name, a quantity and so on: texts of 1 to 20 letters and numbers of 1 to 8 digits, the last two columns of
// each line with two decimals.
std::string const &delimitedFile() {
  static std::string const file = [] {
    std::mt19937 random(1);
    std::string text;
    while (text.size() < FILE_SIZE) {
      for (int column = 0; column < COLUMNS; ++column) {
        bool const isText = column % 2 == 0;
        text += isText ? letters(random, 1 + random() % 20) : number(random, 1 + static_cast<int>(random() % 8));
        if (column == 7 || column == 9) text += '.' + number(random, 2);
        text += column + 1 < COLUMNS ? ',' : '\n';
      }
    }
    return text;
  }();
  return file;
}

// Records of 94 bytes: 12 fields, 6 of them numbers.
constexpr int WIDTHS[] = {1, 2, 8, 1, 17, 10, 15, 22, 2, 1, 8, 7};
constexpr bool IS_NUMBER[] = {true, true, true, false, false, true, false, false, false, false, true, true};
constexpr int RECORD = 94;

std::string const &fixedFile() {
  static std::string const file = [] {
    std::mt19937 random(1);
    std::string text;
    while (text.size() < FILE_SIZE)
      for (size_t i = 0; i < std::size(WIDTHS); ++i)
        text += IS_NUMBER[i] ? number(random, WIDTHS[i] > 9 ? 9 : WIDTHS[i]) + std::string(WIDTHS[i] > 9, '0')
                             : letters(random, static_cast<size_t>(WIDTHS[i]));
    return text;
  }();
  return file;
}

Binary bytesOf(std::string const &text) {
  return Binary(text.data(), text.size());
}

// The times are those of the whole file; items are fields.
template <class Walk>
void measure(benchmark::State &state, std::string const &file, size_t fields, Walk const &walk) {
  for (auto _ : state) walk();
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(file.size()));
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(fields));
}

size_t lines(std::string const &file) {
  return static_cast<size_t>(std::count(file.begin(), file.end(), '\n'));
}

constinit tvstringliteral const COMMA(",");
constinit tvstringliteral const LINE_FEED("\n");

// The hand-written cursor.
struct Walker {
  std::string_view text;
  size_t at = 0;

  std::string_view next(char delimiter) {
    char const *const begin = text.data() + at;
    void const *const found = std::memchr(begin, delimiter, text.size() - at);
    size_t const length =
        found == nullptr ? text.size() - at : static_cast<size_t>(static_cast<char const *>(found) - begin);
    at += length + (found != nullptr);
    return {begin, length};
  }
  std::string_view next(int n) {
    std::string_view const field = text.substr(at, static_cast<size_t>(n));
    at += static_cast<size_t>(n);
    return field;
  }
};

template <class T>
T parsed(std::string_view text) {
  T value{};
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

void delimitedViews(benchmark::State &state) {
  Binary const bytes = bytesOf(delimitedFile());
  UniversalInputRecord record;
  measure(state, delimitedFile(), COLUMNS * lines(delimitedFile()), [&] {
    record.init(bytes);
    while (!record.isEmpty()) {
      for (int i = 0; i < COLUMNS - 1; ++i) benchmark::DoNotOptimize(record.getDelimitedField(COMMA));
      benchmark::DoNotOptimize(record.getDelimitedField(LINE_FEED));
    }
  });
}
void delimitedViewsByHand(benchmark::State &state) {
  measure(state, delimitedFile(), COLUMNS * lines(delimitedFile()), [&] {
    Walker walker{delimitedFile()};
    while (walker.at != walker.text.size()) {
      for (int i = 0; i < COLUMNS - 1; ++i) benchmark::DoNotOptimize(walker.next(','));
      benchmark::DoNotOptimize(walker.next('\n'));
    }
  });
}

struct Parser : UniversalInputParser {
  void parse(ExternalObject *, Binary const &, TransformContext &) override {}
  ExternalObject *parse(Binary const &, TransformContext &) override { return nullptr; }
  using UniversalInputParser::createInputRecord;
  using UniversalInputParser::getDelimitedRecord;
};
using RecordPtr = SmartPtr<UniversalInputRecord>;

// Each line as a record of its own, from the parser's store.
void readRecords(Parser &parser, Binary const &bytes) {
  RecordPtr const file(parser.createInputRecord(bytes));
  while (!file->isEmpty()) {
    RecordPtr const line(parser.getDelimitedRecord(file.get(), LINE_FEED, true, false));
    line->startSequence();
    for (int i = 0; i < COLUMNS; ++i) benchmark::DoNotOptimize(line->getDelimitedField(COMMA));
    line->endSequence();
  }
}
void delimitedRecords(benchmark::State &state) {
  Binary const bytes = bytesOf(delimitedFile());
  Parser parser;
  measure(state, delimitedFile(), COLUMNS * lines(delimitedFile()), [&] { readRecords(parser, bytes); });
}
// The same for a file of so many bytes.
void recordsBySize(benchmark::State &state) {
  size_t const size = static_cast<size_t>(state.range(0));
  std::string file;
  while (file.size() < size) file += delimitedFile();
  file.resize(file.rfind('\n', size - 1) + 1);
  Binary const bytes = bytesOf(file);
  Parser parser;
  measure(state, file, COLUMNS * lines(file), [&] { readRecords(parser, bytes); });
}
void delimitedRecordsByHand(benchmark::State &state) {
  measure(state, delimitedFile(), COLUMNS * lines(delimitedFile()), [&] {
    Walker walker{delimitedFile()};
    while (walker.at != walker.text.size()) {
      Walker line{walker.next('\n')};
      for (int i = 0; i < COLUMNS; ++i) benchmark::DoNotOptimize(line.next(','));
    }
  });
}

void delimitedNumbers(benchmark::State &state) {
  Binary const bytes = bytesOf(delimitedFile());
  UniversalInputRecord record;
  auto const read = [&](tvstring const &delimiter, bool isDecimal) {
    benchmark::DoNotOptimize(record.getDelimitedField(COMMA));
    tvstring const text = record.getDelimitedField(delimiter);
    if (isDecimal)
      benchmark::DoNotOptimize(UniversalFieldParser::parseDouble(text, '.'));
    else
      benchmark::DoNotOptimize(Parsing::parseInt(text));
  };
  measure(state, delimitedFile(), COLUMNS * lines(delimitedFile()), [&] {
    record.init(bytes);
    while (!record.isEmpty()) {
      for (int i = 0; i < 3; ++i) read(COMMA, false);
      read(COMMA, true);
      read(LINE_FEED, true);
    }
  });
}
void delimitedNumbersByHand(benchmark::State &state) {
  Walker walker{delimitedFile()};
  auto const read = [&](char delimiter, bool isDecimal) {
    benchmark::DoNotOptimize(walker.next(','));
    std::string_view const text = walker.next(delimiter);
    if (isDecimal)
      benchmark::DoNotOptimize(parsed<double>(text));
    else
      benchmark::DoNotOptimize(parsed<int>(text));
  };
  measure(state, delimitedFile(), COLUMNS * lines(delimitedFile()), [&] {
    walker.at = 0;
    while (walker.at != walker.text.size()) {
      for (int i = 0; i < 3; ++i) read(',', false);
      read(',', true);
      read('\n', true);
    }
  });
}

void fixedFields(benchmark::State &state) {
  Binary const bytes = bytesOf(fixedFile());
  UniversalInputRecord record;
  measure(state, fixedFile(), std::size(WIDTHS) * fixedFile().size() / RECORD, [&] {
    record.init(bytes);
    while (!record.isEmpty()) {
      for (size_t i = 0; i < std::size(WIDTHS); ++i) {
        record.onField();
        tvstring const text = record.getString(WIDTHS[i]);
        if (!IS_NUMBER[i])
          benchmark::DoNotOptimize(text);
        else
          benchmark::DoNotOptimize(WIDTHS[i] < 10 ? Parsing::parseInt(text) : Parsing::parseLong(text));
      }
    }
  });
}
void fixedFieldsByHand(benchmark::State &state) {
  measure(state, fixedFile(), std::size(WIDTHS) * fixedFile().size() / RECORD, [&] {
    Walker walker{fixedFile()};
    while (walker.at != walker.text.size()) {
      for (size_t i = 0; i < std::size(WIDTHS); ++i) {
        std::string_view const text = walker.next(WIDTHS[i]);
        if (!IS_NUMBER[i])
          benchmark::DoNotOptimize(text);
        else
          benchmark::DoNotOptimize(WIDTHS[i] < 10 ? parsed<int>(text) : parsed<long long>(text));
      }
    }
  });
}

// Items are digits, a constant as in generated code.
template <int Digits>
void packed(benchmark::State &state) {
  constexpr size_t width = (Digits + 2) / 2;
  constexpr size_t COUNT = 1000;
  std::mt19937 random(1);
  std::string bytes;
  for (size_t i = 0; i < COUNT; ++i) {
    for (size_t at = 0; at + 1 < width; ++at) bytes += static_cast<char>(random() % 10 * 16 + random() % 10);
    bytes += static_cast<char>(random() % 10 * 16 + 0xC);
  }
  Binary const message = bytesOf(bytes);
  UniversalInputRecord record;
  for (auto _ : state) {
    record.init(message);
    while (!record.isEmpty()) {
      if constexpr (Digits < 10)
        benchmark::DoNotOptimize(record.getPackedDecimalInt(Digits));
      else
        benchmark::DoNotOptimize(record.getPackedDecimalLong(Digits));
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(COUNT) * Digits);
}

BENCHMARK(delimitedViews)->Unit(benchmark::kMillisecond);
BENCHMARK(delimitedViewsByHand)->Unit(benchmark::kMillisecond);
BENCHMARK(delimitedRecords)->Unit(benchmark::kMillisecond);
BENCHMARK(delimitedRecordsByHand)->Unit(benchmark::kMillisecond);
BENCHMARK(delimitedNumbers)->Unit(benchmark::kMillisecond);
BENCHMARK(delimitedNumbersByHand)->Unit(benchmark::kMillisecond);
BENCHMARK(fixedFields)->Unit(benchmark::kMillisecond);
BENCHMARK(fixedFieldsByHand)->Unit(benchmark::kMillisecond);
BENCHMARK(recordsBySize)->RangeMultiplier(10)->Range(1000, 100000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(packed<5>);
BENCHMARK(packed<9>);
BENCHMARK(packed<15>);
BENCHMARK(packed<18>);

}  // namespace
}  // namespace tavrone

BENCHMARK_MAIN();
