// Records of random fields, written and read back: what was written is what is read, a field that fails leaves no byte
// behind, and nothing else is left in the record. Packed decimals have odd digits: even ones are not read back.
#include <algorithm>
#include <functional>
#include <vector>

#include "tavrone/tavrone.h"
#include "tests/FuzzInput.h"
#include "tests/Text.h"

using namespace tavrone;

namespace {

tvstringliteral const DELIMITER(",");
constexpr char QUOTE = '"';

long long numberOf(tvstring const &text) {
  return t_atol(text.data(), text.data() + text.length());
}

class RoundTrip {
 public:
  RoundTrip(uint8_t const *data, size_t size) : input_(data, size) { record_.startSequence(); }

  void run() {
    using Field = void (RoundTrip::*)();
    constexpr Field FIELDS[] = {&RoundTrip::paddedNumber, &RoundTrip::paddedText,     &RoundTrip::decimal,
                                &RoundTrip::delimited,    &RoundTrip::encoded,        &RoundTrip::delimitedNumber,
                                &RoundTrip::binaryNumber, &RoundTrip::floatingNumber, &RoundTrip::packed};
    while (input_.at < input_.bytes.size()) (this->*FIELDS[input_.below(std::size(FIELDS))])();
    record_.endSequence();
    readBack();
  }

 private:
  using In = UniversalInputRecord &;
  using Read = std::function<bool(In)>;

  // Writes a field that is to fail exactly if `fits` is false.
  template <class Write>
  void field(bool fits, Write const &write, Read const &read) {
    tvstring const before = record_.toString();
    try {
      write();
      require(fits);
      reads_.push_back(read);
    } catch (TransformException const &) {
      require(!fits && record_.toString() == before);
    }
  }

  bool flip() { return input_.below(2) == 0; }
  // Numbers of every length.
  long long number() { return input_.take<long long>() >> (input_.below(64)); }
  // Without what delimits, fills or quotes.
  tvstring text() {
    std::string const bytes = input_.takeText(input_.below(40));
    std::string kept;
    for (char c : bytes)
      if (c != ',' && c != ' ' && c != QUOTE) kept += c;
    return tvstring(kept.data(), kept.size());
  }

  void paddedNumber() {
    long long const value = number();
    int const width = static_cast<int>(input_.below(30)) - 1;
    bool const right = flip();
    char const fill = right && flip() ? '0' : ' ';
    if (value == INT64_MIN) return;
    auto const write = [&] { record_.appendASCIIField(value, width, right, fill); };
    field(static_cast<int>(std::to_string(value).size()) <= width, write,
          [=](In in) { return numberOf(UniversalInputRecord::trimSpaces(in.getString(width))) == value; });
  }
  void paddedText() {
    tvstring const value = text();
    int const width = static_cast<int>(input_.below(80));
    bool const right = flip(), terminated = flip();
    if (terminated) record_.setTerminator(',');
    auto const write = [&] { record_.appendASCIIField(value, width, right, ' '); };
    field(value.empty() || static_cast<int>(value.length()) + terminated <= width, write, [=](In in) {
      tvstring const trimmed = UniversalInputRecord::trimSpaces(in.getString(terminated && width == 0 ? 1 : width));
      return trimmed == (terminated ? value + ',' : value);
    });
    record_.clearTerminator();
  }
  // Places after the point as many as the value has, so that nothing is rounded up to one place more.
  void decimal() {
    int const places = 1 + static_cast<int>(input_.below(8));
    long long const power = UniversalRecord::LONG_POWERS_OF_10[static_cast<size_t>(places)];
    long long const units = number() % (1LL << 40);
    double const value = static_cast<double>(units) / static_cast<double>(power);
    int const width = static_cast<int>(input_.below(16));
    size_t const digits = std::to_string(std::abs(static_cast<long long>(value))).size();
    auto const write = [&] { record_.appendASCIIField(value, width, places, '\0', true, '0'); };
    field(static_cast<int>(digits) + (value < 0) <= width, write,
          [=](In in) { return numberOf(in.getString(width + places)) == units; });
  }
  void delimited() {
    tvstring const value = text();
    bool const quoted = flip();
    tvstring const written = quoted && !value.empty() ? value + ',' + value : value;
    auto const write = [&] { record_.appendDelimitedField(written, DELIMITER, quoted ? QUOTE : '\0'); };
    field(true, write, [=](In in) { return in.getDelimitedField(DELIMITER, QUOTE) == written; });
  }
  void encoded() {
    Binary const value(textOf(input_.takeText(input_.below(60))));
    bool const hex = flip();
    auto const write = [&] {
      if (hex) record_.appendDelimitedFieldHex(value, DELIMITER);
      if (!hex) record_.appendDelimitedFieldBase64(value, DELIMITER);
    };
    field(true, write, [=](In in) {
      tvstring const text = in.getDelimitedField(DELIMITER);
      return (hex ? Binary::fromHexString(text) : Binary::fromBase64String(text)) == value;
    });
  }
  void delimitedNumber() {
    long long const value = number();
    double const decimal = static_cast<double>(value) / 256;
    auto const write = [&] {
      record_.appendDelimitedField(value, DELIMITER);
      record_.appendDelimitedField(static_cast<int>(value), DELIMITER);
      record_.appendDelimitedField(decimal, ';', DELIMITER);
    };
    field(true, write, [=](In in) {
      bool const same = numberOf(in.getDelimitedField(DELIMITER)) == value &&
                        numberOf(in.getDelimitedField(DELIMITER)) == static_cast<int>(value);
      std::string text = str(in.getDelimitedField(DELIMITER));
      std::replace(text.begin(), text.end(), ';', '.');
      return same && text == str(doubleToString(decimal));
    });
  }
  void binaryNumber() {
    long long const value = number();
    int const length = 1 << input_.below(4);
    bool const isSigned = flip(), bigEndian = flip();
    long long const values = length < 8 ? 1LL << (8 * length) : 0;
    bool const fits =
        length == 8 || (isSigned ? value >= -values / 2 && value < values / 2 : value >= 0 && value < values);
    auto const write = [&] { record_.writeBinaryLong(length, value, isSigned, bigEndian); };
    field(fits, write, [=](In in) { return in.getBinaryLong(length, isSigned, bigEndian) == value; });
  }
  void floatingNumber() {
    constexpr auto bits = UniversalRecord::doubleToLongBits;
    double const value = input_.take<double>();
    bool const bigEndian = flip();
    auto const write = [&] { record_.writeBinaryDouble(value, bigEndian); };
    field(true, write, [=](In in) { return bits(in.getBinaryDouble(bigEndian)) == bits(value); });
  }
  void packed() {
    long long const value = number();
    int const digits = static_cast<int>(input_.below(12)) * 2 + 1;
    int const needed = static_cast<int>(std::to_string(value).size()) - (value < 0 ? 1 : 0);
    auto const write = [&] { record_.writePackedDecimalLong(value, digits); };
    field(digits <= 19 && needed <= digits, write, [=](In in) { return in.getPackedDecimalLong(digits) == value; });
  }

  void readBack() {
    UniversalInputRecord in;
    in.init(Binary(record_.toString()));
    in.startSequence();
    for (Read const &read : reads_) require(read(in));
    in.assertMessageCompleted();
  }

  FuzzInput input_;
  UniversalOutputRecord record_;
  std::vector<Read> reads_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  RoundTrip(data, size).run();
  return 0;
}
