// The formula functions of bytes, bits, big numbers and records, beside models over std::string, long long and
// std::vector. The first byte chooses the kind; the rest are arguments.
#include <algorithm>
#include <climits>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "tavrone/tavrone.h"
#include "tests/FuzzInput.h"
#include "tests/Text.h"

namespace {

using namespace tavrone;

struct Fill : Record<"Fill", Field<"Size", int>, Field<"Price", double>, Field<"Note", tvstring>> {};
struct Part : Record<"Part", Field<"Size", int>, Section<"Fills", Fill>> {};
struct Trade : Record<"Trade", Section<"Parts", Part>> {};

// Mostly near a length, sometimes anywhere.
int takeIndex(FuzzInput &input) {
  return input.below(8) == 0 ? input.take<int>() : input.take<int8_t>() % 24;
}

std::string sub(std::string const &bytes, long long from, long long count) {
  from = std::clamp<long long>(from, 0, static_cast<long long>(bytes.size()));
  return count <= 0 ? std::string() : bytes.substr(static_cast<size_t>(from), static_cast<size_t>(count));
}

void checkBytes(FuzzInput &input) {
  using F = BinaryFunctions;
  std::string const a = input.takeText(input.below(24));
  std::string const b = input.takeText(input.below(6));
  int const i = takeIndex(input);
  int const n = takeIndex(input);
  auto const length = static_cast<long long>(a.size());
  Binary const bytes(textOf(a)), other(textOf(b));

  require(str(F::left(bytes, i)) == sub(a, 0, i));
  require(str(F::right(bytes, i)) == (i < 0 ? "" : sub(a, length - i, length)));
  require(str(F::mid(bytes, i, n)) == (i >= length ? "" : sub(a, i, n)));
  bool const isRun = i >= 0 && i < length && n >= 0;
  require(str(F::remove(bytes, i, n)) == (isRun ? sub(a, 0, i) + sub(a, 0LL + i + n, length) : a));
  require(str(F::insert(bytes, i, other)) == sub(a, 0, i) + b + sub(a, i, length));
  require(str(F::reverse(bytes)) == std::string(a.rbegin(), a.rend()));
  require(str(F::fromHex(F::toHex(bytes))) == a && str(F::fromBase64(F::toBase64(bytes))) == a);
  require(F::startsWith(bytes, other) == a.starts_with(b) && F::endsWith(bytes, other) == a.ends_with(b));
  size_t const hit = i >= length ? std::string::npos : a.find(b, static_cast<size_t>(std::max(i, 0)));
  require(a.empty() || F::indexOf(bytes, other, i) == (hit == std::string::npos ? -1 : static_cast<int>(hit)));
  require(F::bitXor(F::bitXor(bytes, other), other) ==
          F::concat(bytes, F::repeat(Binary("\0", 1), static_cast<int>(std::max(a.size(), b.size()) - a.size()))));

  int const size = takeIndex(input);
  bool const bigEndian = input.below(2) == 0;
  auto const value = input.take<long long>();
  Binary const written = F::fromLong(value, size, bigEndian);
  bool const isSize = size >= 1 && size <= 8;
  require(F::length(written) == (isSize ? size : 0));
  if (isSize) {
    int const above = 64 - 8 * size;
    long long const low = static_cast<long long>(static_cast<unsigned long long>(value) << above) >> above;
    require(F::toLong(written, 0, size, bigEndian) == low &&
            F::toInt(written, 0, size, bigEndian) == static_cast<int>(low));
  }
  F::toLong(bytes, i, size, bigEndian);

  Binary const changed = BitFunctions::set(bytes, i, bigEndian);
  require(str(bytes) == a && changed.length() == bytes.length());
  require(BitFunctions::isSet(changed, i) == (bigEndian && i >= 0 && i < 8 * length));
}

template <class T>
void checkBits(FuzzInput &input) {
  using F = BitFunctions;
  constexpr int width = sizeof(T) * CHAR_BIT;
  auto const value = input.take<T>();
  auto const other = input.take<T>();
  int const at = takeIndex(input);
  int const count = takeIndex(input);
  auto const bit = [](T of, long long i) { return i >= 0 && i < width && (of >> i & 1) != 0; };
  T const left = F::shiftLeft(value, at), right = F::shiftRight(value, at), plain = F::shiftRightUnsigned(value, at);
  T const extracted = F::extract(value, at, count);
  bool const inside = at >= 0 && at < width;
  int ones = 0;
  for (int i = 0; i < width; ++i) {
    ones += bit(value, i);
    require(bit(F::bitAnd(value, other), i) == (bit(value, i) && bit(other, i)));
    require(bit(F::bitOr(value, other), i) == (bit(value, i) || bit(other, i)));
    require(bit(F::bitXor(value, other), i) == (bit(value, i) != bit(other, i)));
    require(bit(F::bitNot(value), i) == !bit(value, i));
    require(bit(left, i) == (inside && bit(value, 0LL + i - at)));
    require(bit(plain, i) == (inside && bit(value, 0LL + i + at)));
    require(bit(right, i) == (inside && bit(value, std::min(0LL + i + at, width - 1LL))));
    require(bit(extracted, i) == (inside && i < count && bit(value, 0LL + i + at)));
    require(bit(F::set(value, at), i) == (i == at || bit(value, i)));
    require(bit(F::clear(value, at), i) == (i != at && bit(value, i)));
    require(bit(F::flip(value, at), i) == ((i == at) != bit(value, i)));
  }
  require(F::count(value) == ones && F::isSet(value, at) == bit(value, at));
}

// Numbers of few digits, so that a long long holds every result.
void checkBigNumbers(FuzzInput &input) {
  using F = BigTypeFunctions;
  long long const a = input.take<int>();
  long long const b = input.take<int>();
  BigInteger const x(a), y(b);
  require(F::add(x, y) == BigInteger(a + b) && F::subtract(x, y) == BigInteger(a - b));
  require(F::multiply(x, y) == BigInteger(a * b));
  require(F::compare(BigDecimal(x), y) == (a > b) - (a < b));
  require(F::min(x, y) == BigInteger(std::min(a, b)) && F::max(x, y) == BigInteger(std::max(a, b)));
  if (b != 0) {
    require(F::divide(x, y) == BigInteger(a / b) && F::remainder(x, y) == BigInteger(a % b));
    int const decimals = static_cast<int>(input.below(5));
    long long scale = 1;
    for (int i = 0; i < decimals; ++i) scale *= 10;
    long long const dividend = a * scale;
    long long rounded = dividend / b;
    if (2 * std::abs(dividend % b) >= std::abs(b)) rounded += (a < 0) == (b < 0) ? 1 : -1;
    require(F::multiply(F::divide(x, y, decimals), BigDecimal(scale)) == BigDecimal(rounded));
  }
  BigDecimal const tenths = F::divide(x, BigInteger(10), 1);
  require(F::floor(tenths) <= tenths && tenths < F::floor(tenths) + 1);
  require(F::ceiling(tenths) >= tenths && tenths > F::ceiling(tenths) - 1);
  try {
    int const exponent = takeIndex(input);
    F::power(tenths, exponent % 256 == 255 ? exponent : exponent % 64);  // a large one takes milliseconds
    F::toText(tenths, exponent);
    F::divide(tenths, BigDecimal(y), exponent);
    F::round(tenths, exponent);
  } catch (TransformException const &) {  // a zero divisor, an exponent past its limit
  }
}

// A trade and what it holds.
struct ModelPart {
  std::optional<int> size;
  std::vector<std::optional<double>> prices;
};

void checkRecords(FuzzInput &input) {
  using F = AggregateFunctions;
  bool const isDeclared = input.below(2) == 0;
  auto const newTrade = [isDeclared]() -> DataObject * {
    if (isDeclared) return new Trade;
    return new GenericDataObject(Trade::typeMetaInfo(), false);
  };
  SmartPtr<DataObject> const trade(newTrade()), copy(newTrade());
  DataObjectSection *parts = trade->getSection("Parts");
  std::vector<ModelPart> model(input.below(6));
  for (ModelPart &part : model) {
    DataObject *record = SectionFunctions::addElement(parts);
    if (input.below(3) != 0) part.size = static_cast<int>(input.below(4));
    if (part.size) DataObjectFunctions::setField(record, "Size", std::make_unique<IntObject>(*part.size).get());
    part.prices.resize(input.below(4));
    for (auto &price : part.prices) {
      DataObject *fill = SectionFunctions::addElement(record->getSection("Fills"));
      if (input.below(3) != 0) price = input.take<int8_t>() / 4.0;
      if (price) DataObjectFunctions::setField(fill, "Price", std::make_unique<DoubleObject>(*price).get());
    }
  }

  std::vector<double> prices;
  size_t fills = 0;
  bool all = true;
  for (ModelPart const &part : model) {
    fills += part.prices.size();
    all = all && !part.prices.empty();
    for (auto const &price : part.prices) {
      all = all && price;
      if (price) prices.push_back(*price);
    }
  }
  double sum = 0;
  for (double price : prices) sum += price;
  require(F::fieldCount(parts, "Fills.Price") == static_cast<int>(prices.size()));
  require(F::secCount(parts, "Fills") == static_cast<int>(fills));
  require(F::secSumDouble(parts, "Fills.Price") == sum);  // quarters: exact in any order
  auto const [low, high] = std::minmax_element(prices.begin(), prices.end());
  require(F::secMinDouble(parts, "Fills.Price") == (prices.empty() ? 0 : *low));
  require(F::secMaxDouble(parts, "Fills.Price") == (prices.empty() ? 0 : *high));
  require(F::fieldExistsInAll(parts, "Price", "Fills") == all && F::fieldExistsInAll(parts, "Fills.Price") == all);

  // Each part's position among the ones of its size shows in its fills, so the order of equals is seen too.
  bool const ascending = input.below(2) == 0;
  DataObjectFunctions::copyMatching(trade.get(), copy.get());
  require(DataObjectFunctions::equal(trade.get(), copy.get()));
  std::vector<DataObject *> expected;
  for (int i = 0; i < SectionFunctions::count(parts); ++i) expected.push_back(parts->getElement(i));
  auto const key = [](DataObject *part) { return DataObjectFunctions::getInt(part, "Size", -1); };
  std::stable_sort(expected.begin(), expected.end(),
                   [&](DataObject *a, DataObject *b) { return ascending ? key(a) < key(b) : key(b) < key(a); });
  SectionFunctions::sort(parts, "Size", ascending);
  for (size_t i = 0; i < expected.size(); ++i) {
    require(parts->getElement(static_cast<int>(i)) == expected[i]);
    require(expected[i]->getParentSection() == parts);
  }
  std::map<int, int> sizes;
  for (ModelPart const &part : model)
    if (part.size) ++sizes[*part.size];
  require(SectionFunctions::isUnique(parts, "Size") ==
          std::all_of(sizes.begin(), sizes.end(), [](auto const &size) { return size.second == 1; }));
  SectionFunctions::copy(copy->getSection("Parts"), parts);
  require(DataObjectFunctions::equal(trade.get(), copy.get()));

  // Any path and any index.
  tvstring const path = textOf(input.takeText(16));
  IntObject const number(7);
  try {
    DataObjectFunctions::getText(trade.get(), path);
    DataObjectFunctions::exists(trade.get(), path);
    DataObjectFunctions::getLong(trade.get(), path, 0);
    DataObjectFunctions::setField(trade.get(), path, &number);
    DataObjectFunctions::setNull(trade.get(), path);
    SectionFunctions::sort(parts, path, ascending);
    SectionFunctions::values(parts, path);
    SectionFunctions::removeElement(parts, takeIndex(input));
    F::secCount(parts, path);
    F::fieldExistsInAll(parts, "Size", path);
  } catch (Exception const &) {  // a field of another type, an unknown name
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  FuzzInput input(data, size);
  static constexpr void (*CHECKS[])(FuzzInput &) = {checkBytes, checkBits<int>, checkBits<long long>, checkBigNumbers,
                                                    checkRecords};
  CHECKS[input.below(5)](input);
  return 0;
}
