#include "tavrone/dataobject/DataObjectIO.h"

#include <emmintrin.h>

#include <bit>
#include <climits>
#include <cstring>
#include <string_view>
#include <typeinfo>

#include "tavrone/core/BinaryText.h"
#include "tavrone/core/ByteBuffer.h"
#include "tavrone/core/Parsing.h"
#include "tavrone/core/Raise.h"
#include "tavrone/dataobject/FieldAccess.h"
#include "tavrone/dataobject/FieldKinds.h"
#include "tavrone/dataobject/GenericDataObject.h"

// Both directions work on plain pointers into the buffer and give it back its position at the end. A field goes one of
// two ways: where a declared record keeps it, or through the virtual accessors with a wrapper on the stack. Both end in
// the same code for the kind of its value.

namespace tavrone {

namespace {

constexpr char const *SOURCE = "cpp/DataObjectIO";
constexpr int MAX_DEPTH = 500;  // of a record below the outermost one

constexpr size_t MAX_FAST = 5;              // bytes of a fast unsigned int
constexpr size_t MAX_FIXED = 7 * MAX_FAST;  // of a DateTime, the longest value of bounded length
constexpr size_t BLOCK = 16;                // bytes that one SSE2 instruction takes
constexpr size_t MAX_SHORT_NUMBER = 100;    // characters of a decimal number that is rendered in place
constexpr unsigned HIGH_BITS_4 = 0x80808080;

// Kinds with an encoding of their own; the others are stored as their text.
constexpr bool isCompact(FieldKind kind) {
  switch (kind) {
    case FieldKind::STRING:
    case FieldKind::INTEGER:
    case FieldKind::LONG:
    case FieldKind::FLOAT:
    case FieldKind::DOUBLE:
    case FieldKind::CHARACTER:
    case FieldKind::DATE_TIME:
    case FieldKind::DATE_ONLY:
    case FieldKind::TIME_ONLY:
      return true;
    default:
      return false;
  }
}

// The ISO types are only written.
template <FieldKind Kind>
constexpr bool IS_READ =
    HasPlainValue<Kind> &&Kind != FieldKind::ISO_DATE_TIME &&Kind != FieldKind::ISO_DATE &&Kind != FieldKind::ISO_TIME;

[[noreturn]] TAVRONE_COLD void raiseOutOfBounds(ByteBuffer &buffer) {
  buffer.getCursor(-1);
  __builtin_unreachable();
}

void checkDepth(int depth) {
  if (depth > MAX_DEPTH) raise<TransformException>("Nesting too deep", SOURCE);
}

unsigned signExtended(char c) {
  return static_cast<unsigned>(static_cast<int>(static_cast<signed char>(c)));
}

template <class Word>
Word load(char const *from) {
  Word word;
  std::memcpy(&word, from, sizeof word);
  return word;
}
template <class Word>
char *store(char *to, Word word) {
  std::memcpy(to, &word, sizeof word);
  return to + sizeof word;
}

inline uint32_t swapBytes(uint32_t word) {
  return __builtin_bswap32(word);
}
inline uint64_t swapBytes(uint64_t word) {
  return __builtin_bswap64(word);
}

inline __m128i loadBlock(char const *from) {
  return _mm_loadu_si128(reinterpret_cast<__m128i const *>(from));
}
inline void storeBlock(char *to, __m128i block) {
  _mm_storeu_si128(reinterpret_cast<__m128i *>(to), block);
}
inline unsigned highBits(__m128i block) {
  return static_cast<unsigned>(_mm_movemask_epi8(block));
}

// Copies text up to its first byte from 128 up, or a few bytes less, and returns how many. What `to` has behind them,
// up to n bytes, is undefined.
inline size_t copyAscii(char *to, char const *from, size_t n) {
  if (n >= BLOCK) {
    size_t done = 0;
    for (; done + BLOCK <= n; done += BLOCK) {
      __m128i const block = loadBlock(from + done);
      if (highBits(block) != 0) return done;
      storeBlock(to + done, block);
    }
    __m128i const last = loadBlock(from + n - BLOCK);
    if (highBits(last) != 0) return done;
    storeBlock(to + n - BLOCK, last);
    return n;
  }
  if (n >= 8) {
    uint64_t const first = load<uint64_t>(from);
    uint64_t const last = load<uint64_t>(from + n - 8);
    if (((first | last) & (uint64_t{HIGH_BITS_4} << 32 | HIGH_BITS_4)) != 0) return 0;
    store(to, first);
    store(to + n - 8, last);
    return n;
  }
  if (n >= 4) {
    uint32_t const first = load<uint32_t>(from);
    uint32_t const last = load<uint32_t>(from + n - 4);
    if (((first | last) & HIGH_BITS_4) != 0) return 0;
    store(to, first);
    store(to + n - 4, last);
    return n;
  }
  if (n == 0) return 0;
  char const first = from[0];
  char const middle = from[n / 2];
  char const last = from[n - 1];
  if (((first | middle | last) & 0x80) != 0) return 0;
  to[0] = first;
  to[n / 2] = middle;
  to[n - 1] = last;
  return n;
}

inline bool isAscii(char const *text, size_t n) {
  unsigned high = 0;
  if (n >= BLOCK) {
    for (size_t at = 0; at + BLOCK <= n && high == 0; at += BLOCK) high = highBits(loadBlock(text + at));
    return (high | highBits(loadBlock(text + n - BLOCK))) == 0;
  }
  for (size_t at = 0; at < n; ++at) high |= static_cast<unsigned char>(text[at]);
  return (high & 0x80) == 0;
}

inline char *putFast(char *at, unsigned value) {
  for (; value >= 0x80; value >>= 7) *at++ = static_cast<char>(DataObjectIO::setHighBit(value));
  *at++ = static_cast<char>(value);
  return at;
}

char *putDate(char *at, DateTime const &value, bool date, bool time) {
  if (date) {
    at = putFast(at, static_cast<unsigned>(value.getYear()));
    at = putFast(at, static_cast<unsigned>(value.getMonth()));
    at = putFast(at, static_cast<unsigned>(value.getDate()));
  }
  if (time) {
    at = putFast(at, static_cast<unsigned>(value.getHours()));
    at = putFast(at, static_cast<unsigned>(value.getMinutes()));
    at = putFast(at, static_cast<unsigned>(value.getSeconds()));
    at = putFast(at, static_cast<unsigned>(value.getMilliseconds()));
  }
  return at;
}

// The characters of a number's text at most, its terminator included.
size_t maxTextLength(MAPM const &number) {
  int const exponent = number.exponent();
  return static_cast<size_t>(number.significant_digits()) + static_cast<size_t>(exponent < 0 ? -exponent : exponent) +
         4;
}

// Appends to a buffer. `at` is where the next byte goes; each operation takes it and returns it moved on. A buffer
// whose write fails is left as long as it was.
class Writer {
 public:
  explicit Writer(ByteBuffer &buffer) : buffer_(buffer), length_(buffer.length()) { takeRoom(); }
  Writer(Writer const &) = delete;
  Writer &operator=(Writer const &) = delete;
  ~Writer() { buffer_.chop(length_); }

  char *start() const { return buffer_.str() + length_; }
  void finish(char const *at) { length_ = static_cast<int>(at - buffer_.str()); }

  // Room for n more bytes.
  char *room(char *at, size_t n) { return static_cast<size_t>(end_ - at) >= n ? at : grow(at, n); }

  char *object(char *at, DataObject *object, int depth) {
    checkDepth(depth);
    DataObjectMetaInfo const &type = *object->getMetaInfo();
    if (object->hasFieldOffsets())
      at = members(at, static_cast<AbstractDataObject &>(*object), type, depth);
    else if (typeid(*object) == typeid(GenericDataObject))
      at = values(at, *object, type, depth);
    else
      at = accessed(at, *object, depth);
    at = room(at, 1);
    *at++ = 0;
    return at;
  }

  char *string(char *at, char const *text, size_t n) {
    at = putFast(room(at, n + MAX_FAST), static_cast<unsigned>(n));
    size_t const ascii = copyAscii(at, text, n);
    at += ascii;
    return ascii == n ? at : wide(at, text + ascii, n - ascii);
  }
  char *string(char *at, tvstring const &text) { return string(at, text.data(), text.length()); }

  // By the type text alone.
  char *value(char *at, Object const &object, tvstring const &type) {
    return withKind(FieldMetaInfo::kindOf(type), [&](auto kind) {
      constexpr FieldKind KIND = kind;
      if constexpr (isCompact(KIND)) {
        typename FieldOf<KIND>::Wrapper wrapper;
        wrapper.setObject(&object);
        return plain(kind, room(at, MAX_FIXED), wrapper.getValue());
      } else {
        return string(at, Parsing::runtimeObjectToString(&object, type));
      }
    });
  }

 private:
  void takeRoom() {
    // A wrapped buffer has a length, but no room.
    end_ = buffer_.str() + (buffer_.capacity() > buffer_.length() ? buffer_.capacity() : buffer_.length());
  }
  char *grow(char *at, size_t n) {
    int const used = static_cast<int>(at - buffer_.str());
    if (n > INT_MAX) raiseOutOfBounds(buffer_);
    buffer_.chop(used);
    buffer_.ensureFree(static_cast<int>(n));
    takeRoom();
    return buffer_.str() + used;
  }

  // The field's id, and room for a value of bounded length behind it.
  char *id(char *at, int index) { return putFast(room(at, MAX_FAST + MAX_FIXED), static_cast<unsigned>(index) + 1); }

  // A value of the kind. REQUIRES: there is room for a value of bounded length
  template <FieldKind Kind>
  char *plain(KindTag<Kind>, char *at, typename FieldOf<Kind>::Value const &value) {
    if constexpr (Kind == FieldKind::STRING) {
      return string(at, value);
    } else if constexpr (Kind == FieldKind::INTEGER) {
      return store(at, swapBytes(static_cast<uint32_t>(value)));
    } else if constexpr (Kind == FieldKind::LONG) {
      return store(at, swapBytes(static_cast<uint64_t>(value)));
    } else if constexpr (Kind == FieldKind::FLOAT) {
      return store(at, swapBytes(std::bit_cast<uint32_t>(value)));
    } else if constexpr (Kind == FieldKind::DOUBLE) {
      return store(at, swapBytes(std::bit_cast<uint64_t>(value)));
    } else if constexpr (Kind == FieldKind::CHARACTER) {
      return putFast(at, signExtended(value));
    } else if constexpr (Kind == FieldKind::BOOLEAN) {
      return string(at, value ? "true" : "false", value ? 4 : 5);
    } else if constexpr (Kind == FieldKind::BINARY) {
      return hex(at, value);
    } else if constexpr (IS_DATE<Kind>) {
      return putDate(at, value, HAS_DAY<Kind>, HAS_TIME<Kind>);
    } else if constexpr (Kind == FieldKind::BIG_INTEGER || Kind == FieldKind::BIG_DECIMAL) {
      return number(at, value);
    } else {
      return string(at, ISODateObject(value).toString());
    }
  }

  char *hex(char *at, Binary const &value) {
    size_t const n = value.length() * 2;
    at = putFast(room(at, n + MAX_FAST), static_cast<unsigned>(n));
    encodeHex(value.data(), value.length(), at);
    return at + n;
  }

  template <class Number>
  char *number(char *at, Number const &value) {
    size_t const most = maxTextLength(value);
    if (most > MAX_SHORT_NUMBER) return string(at, value.toString());
    at = room(at, 1 + most);
    value.toString(at + 1);
    size_t const n = std::strlen(at + 1);
    *at = static_cast<char>(n);
    return at + 1 + n;
  }

  // Text with bytes from 128 up.
  TAVRONE_COLD char *wide(char *at, char const *text, size_t n) {
    while (n != 0) {
      size_t const part = n < BLOCK ? n : BLOCK;
      at = room(at, n + part * (MAX_FAST - 1));
      size_t const ascii = copyAscii(at, text, part);
      at += ascii;
      for (size_t i = ascii; i < part; ++i) at = putFast(at, signExtended(text[i]));
      text += part;
      n -= part;
    }
    return at;
  }

  char *section(char *at, int index, DataObjectSection *section, int depth) {
    int const count = section == nullptr ? 0 : section->getElementCount();
    if (count <= 0) return at;
    at = putFast(id(at, index), static_cast<unsigned>(count));
    for (int i = 0; i < count; ++i) at = object(at, section->getElement(i), depth + 1);
    return at;
  }

  // Any value, asked in this order: a section, a record, else by its type text.
  char *any(char *at, FieldMetaInfo const &field, Object *value, int depth) {
    int const index = field.getIndex();
    if (auto *wrapped = dynamic_cast<SectionObject *>(value)) return section(at, index, wrapped->getSection(), depth);
    at = id(at, index);
    if (auto *nested = dynamic_cast<DataObject *>(value)) return object(at, nested, depth + 1);
    return this->value(at, *value, field.getType());
  }

  // A declared record's fields, where it keeps them.
  char *members(char *at, AbstractDataObject &object, DataObjectMetaInfo const &type, int depth) {
    int const count = type.getFieldCount();
    for (int i = 0; i < count; ++i) {
      if (!object.isNotNull(i)) continue;
      FieldMetaInfo const &field = *type.getFieldMetaInfo(i);
      at = withKind(field.getOffset() < 0 ? FieldKind::OTHER : field.getKind(), [&](auto kind) {
        constexpr FieldKind KIND = kind;
        if constexpr (KIND == FieldKind::SECTION)
          return section(at, i, &storedValue<DataObjectSectionImpl>(object, field), depth);
        else if constexpr (KIND == FieldKind::DATA_OBJECT)
          return section(at, i, &storedValue<DataObjectSingleElementSectionImpl>(object, field), depth);
        else if constexpr (HasPlainValue<KIND>)
          return plain(kind, id(at, i), storedValue<typename FieldOf<KIND>::Value>(object, field));
        else
          return made(at, object, field, depth);
      });
    }
    return at;
  }

  // The wrappers that a generic record holds, without cloning them.
  char *values(char *at, DataObject &object, DataObjectMetaInfo const &type, int depth) {
    int const count = type.getFieldCount();
    for (int i = 0; i < count; ++i) {
      if (object.isNull(i)) continue;
      FieldMetaInfo const &field = *type.getFieldMetaInfo(i);
      Object *value = object.getFieldCheckNull(i);
      at = withKind(field.getKind(), [&](auto kind) {
        constexpr FieldKind KIND = kind;
        if constexpr (HasPlainValue<KIND>) {
          using Wrapper = typename FieldOf<KIND>::Wrapper;
          if (typeid(*value) == typeid(Wrapper))
            return plain(kind, id(at, i), static_cast<Wrapper *>(value)->getValue());
        }
        return any(at, field, value, depth);
      });
    }
    return at;
  }

  // Fields that only the virtual accessors know.
  char *accessed(char *at, DataObject &object, int depth) {
    int const count = object.getFieldCount();
    DataObjectMetaInfo const &type = *object.getMetaInfo();
    for (int i = 0; i < count; ++i) {
      if (object.isNull(i)) continue;
      FieldMetaInfo const &field = *type.getFieldMetaInfo(i);
      at = withKind(field.getKind(), [&](auto kind) {
        constexpr FieldKind KIND = kind;
        if constexpr (HasPlainValue<KIND>) {
          typename FieldOf<KIND>::Wrapper wrapper;
          return object.getField(i, wrapper) ? plain(kind, id(at, i), wrapper.getValue()) : at;
        } else if constexpr (KIND == FieldKind::SECTION) {
          SectionObject wrapper;
          if (object.getField(i, wrapper) && wrapper.getSection() != nullptr)
            return section(at, i, wrapper.getSection(), depth);
        }
        return made(at, object, field, depth);
      });
    }
    return at;
  }

  // A field through getField(i); one that counts as set but reads null is left out.
  char *made(char *at, DataObject &object, FieldMetaInfo const &field, int depth) {
    SmartPtr<Object> const value(object.getField(field.getIndex()));
    return value.isNull() ? at : any(at, field, value.get(), depth);
  }

  ByteBuffer &buffer_;
  int length_;
  char *end_;
};

// Reads from a buffer, whose position moves when all has gone well.
class Reader {
 public:
  explicit Reader(ByteBuffer &buffer)
      : buffer_(buffer), end_(buffer.str() + buffer.length()), at_(buffer.hasMore() ? buffer.getCursor(0) : end_) {}

  void finish() {
    int const start = buffer_.hasMore() ? static_cast<int>(at_ - buffer_.getCursor(0)) : 0;
    if (start == 0) return;
    buffer_.getCursor(start - 1);
    buffer_.read();
  }

  void object(DataObject *object, int depth) {
    checkDepth(depth);
    DataObjectMetaInfo const &type = *object->getMetaInfo();
    bool const stored = object->hasFieldOffsets();
    while (unsigned const id = fast()) {
      FieldMetaInfo const &field = *type.getFieldMetaInfo(static_cast<int>(id - 1));
      if (stored && field.getOffset() >= 0)
        member(*object, field, depth);
      else
        accessed(*object, field, depth);
    }
  }

  void value(DataObject *object, int index, tvstring const &type) {
    withKind(FieldMetaInfo::kindOf(type), [&](auto kind) { set(kind, *object, index, type); });
  }

  unsigned fast() {
    if (at_ == end_) raiseOutOfBounds(buffer_);
    auto const byte = static_cast<unsigned char>(*at_);
    if (byte >= 0x80) return longFast();
    ++at_;
    return byte;
  }

  template <class Word>
  Word bigEndian() {
    if (static_cast<size_t>(end_ - at_) < sizeof(Word)) raiseOutOfBounds(buffer_);
    Word const word = load<Word>(at_);
    at_ += sizeof word;
    return swapBytes(word);
  }

  DateTime date(bool hasDate, bool hasTime) {
    int day[] = {1970, 1, 1};
    int time[] = {0, 0, 0, 0};
    if (hasDate)
      for (int &part : day) part = static_cast<int>(fast());
    if (hasTime)
      for (int &part : time) part = static_cast<int>(fast());
    return DateTime(day[0], day[1], day[2], time[0], time[1], time[2], time[3]);
  }

  // Into the array that the text has, where that is unshared and large enough. Text is a tvstring or a Binary.
  template <class Text>
  void string(Text &text) {
    size_t const n = count();
    if (n == 0 && text.empty()) return;
    if (n < BLOCK && end_ - at_ >= static_cast<ptrdiff_t>(BLOCK)) {
      __m128i const block = loadBlock(at_);
      if ((highBits(block) & ((1U << n) - 1)) != 0) return wide(text, n);
      storeBlock(text.getBuffer(static_cast<int>(BLOCK) - 1), block);
    } else {
      if (!isAscii(at_, n)) return wide(text, n);
      std::memcpy(text.getBuffer(static_cast<int>(n)), at_, n);
    }
    text.setBufferLength(static_cast<int>(n));
    at_ += n;
  }

 private:
  unsigned longFast() {
    unsigned value = 0;
    char const *at = at_;
    for (int shift = 0; shift < 35; shift += 7) {
      if (at == end_) raiseOutOfBounds(buffer_);
      auto const byte = static_cast<unsigned char>(*at++);
      value |= DataObjectIO::clearHighBitLS(byte, shift);
      if (byte < 0x80) break;
    }
    at_ = at;
    return value;
  }

  // A count of things that take a byte each at least.
  size_t count() {
    char const *const start = at_;
    unsigned const n = fast();
    if (n <= static_cast<size_t>(end_ - at_)) return n;
    at_ = start;
    raiseOutOfBounds(buffer_);
  }

  // Text with bytes from 128 up. Looks through all of it first, so that a text that breaks off changes nothing.
  template <class Text>
  TAVRONE_COLD void wide(Text &text, size_t n) {
    char const *const start = at_;
    for (size_t i = 0; i < n; ++i) fast();
    at_ = start;
    char *to = text.getBuffer(static_cast<int>(n));
    for (size_t i = 0; i < n; ++i) to[i] = static_cast<char>(fast());
    text.setBufferLength(static_cast<int>(n));
  }

  // Text that is only looked at: in the buffer itself, or decoded into `scratch`.
  std::string_view text(tvstring &scratch) {
    char const *const start = at_;
    size_t const n = count();
    if (isAscii(at_, n)) {
      at_ += n;
      return {at_ - n, n};
    }
    at_ = start;
    string(scratch);
    return {scratch.data(), scratch.length()};
  }

  template <FieldKind Kind>
  void plain(KindTag<Kind>, typename FieldOf<Kind>::Value &value) {
    if constexpr (Kind == FieldKind::STRING || Kind == FieldKind::BINARY) {
      string(value);
    } else if constexpr (Kind == FieldKind::INTEGER) {
      value = static_cast<int>(bigEndian<uint32_t>());
    } else if constexpr (Kind == FieldKind::LONG) {
      value = static_cast<long long>(bigEndian<uint64_t>());
    } else if constexpr (Kind == FieldKind::FLOAT) {
      value = std::bit_cast<float>(bigEndian<uint32_t>());
    } else if constexpr (Kind == FieldKind::DOUBLE) {
      value = std::bit_cast<double>(bigEndian<uint64_t>());
    } else if constexpr (Kind == FieldKind::CHARACTER) {
      value = static_cast<char>(fast());
    } else if constexpr (Kind == FieldKind::BOOLEAN) {
      value = boolean();
    } else if constexpr (IS_DATE<Kind>) {
      value = date(HAS_DAY<Kind>, HAS_TIME<Kind>);
    } else {
      number(value);
    }
  }

  bool boolean() {
    tvstring scratch;
    std::string_view const read = text(scratch);
    if (read == "true") return true;
    return read != "false" && Parsing::parseBool(tvstring(read.data(), read.length()));
  }
  void number(BigDecimal &value) {
    tvstring scratch;
    std::string_view const read = text(scratch);
    value.assign(read.data(), read.length());
  }
  void number(BigInteger &value) {
    BigDecimal decimal;
    number(decimal);
    value = BigInteger(decimal);
  }

  void section(DataObjectSection *section, size_t count, int depth) {
    section->clear();
    for (size_t i = 0; i < count; ++i) {
      SmartPtr<DataObject> const element(section->createElement());
      section->addElement(element.get());
      object(element.get(), depth + 1);
    }
  }

  // A field of a declared record, where it keeps it.
  void member(DataObject &object, FieldMetaInfo const &field, int depth) {
    withKind(field.getKind(), [&](auto kind) {
      constexpr FieldKind KIND = kind;
      if constexpr (KIND == FieldKind::SECTION) {
        section(&storedValue<DataObjectSectionImpl>(object, field), count(), depth);
      } else if constexpr (KIND == FieldKind::DATA_OBJECT) {
        section(&storedValue<DataObjectSingleElementSectionImpl>(object, field), count(), depth);
      } else if constexpr (IS_READ<KIND>) {
        plain(kind, storedValue<typename FieldOf<KIND>::Value>(object, field));
      } else {
        return set(kind, object, field.getIndex(), field.getType());
      }
      setStoredNotNull(object, field.getIndex());
    });
  }

  void accessed(DataObject &object, FieldMetaInfo const &field, int depth) {
    int const index = field.getIndex();
    withKind(field.getKind(), [&](auto kind) {
      constexpr FieldKind KIND = kind;
      if constexpr (KIND == FieldKind::SECTION) {
        size_t const elements = count();
        section(sectionOf(object, index), elements, depth);
      } else if constexpr (KIND == FieldKind::DATA_OBJECT) {
        nested(object, index, depth);
      } else {
        set(kind, object, index, field.getType());
      }
    });
  }

  static DataObjectSection *sectionOf(DataObject const &object, int index) {
    SectionObject wrapper;
    bool const given = object.getField(index, wrapper) && wrapper.getSection() != nullptr;
    return given ? wrapper.getSection() : object.getSection(index);
  }

  // Without an object to read into, nothing is read: the class has to make it. A generic record is asked for its
  // section instead, which makes one.
  void nested(DataObject &object, int index, int depth) {
    SmartPtr<Object> const value(object.getField(index));
    bool const generic = dynamic_cast<GenericDataObject *>(&object) != nullptr;
    if ((value.isNull() && generic) || dynamic_cast<SectionObject *>(value.get()) != nullptr) {
      size_t const elements = count();
      return section(object.getSection(index), elements, depth);
    }
    auto *record = dynamic_cast<DataObject *>(value.get());
    if (record == nullptr) return;
    record->reset();
    this->object(record, depth + 1);
    if (generic) object.setField(index, value.get());  // what it hands out is a clone
  }

  template <FieldKind Kind>
  void set(KindTag<Kind> kind, DataObject &object, int index, tvstring const &type) {
    if constexpr (IS_READ<Kind>) {
      typename FieldOf<Kind>::Value value{};
      plain(kind, value);
      object.setField(index, typename FieldOf<Kind>::Wrapper(value));
    } else {
      tvstring text;
      string(text);
      SmartPtr<Object> const value(Parsing::toRuntimeObject(text, type));
      object.setField(index, static_cast<Object const *>(value.get()));
    }
  }

  ByteBuffer &buffer_;
  char const *end_;
  char const *at_;
};

// One operation on a buffer.
template <class Call>
void append(ByteBuffer &out, Call const &call) {
  Writer writer(out);
  writer.finish(call(writer, writer.start()));
}
template <class Call>
auto take(ByteBuffer &in, Call const &call) {
  Reader reader(in);
  if constexpr (std::is_void_v<decltype(call(reader))>) {
    call(reader);
    reader.finish();
  } else {
    auto value = call(reader);
    reader.finish();
    return value;
  }
}

}  // namespace

Binary DataObjectIO::serialize(DataObject *object) {
  ByteBuffer out(16);
  write(object, out);
  return Binary(out.str(), static_cast<size_t>(out.length()));
}

void DataObjectIO::write(DataObject *object, ByteBuffer &out) {
  append(out, [object](Writer &writer, char *at) { return writer.object(at, object, 0); });
}

void DataObjectIO::writeField(ByteBuffer &out, Object *value, tvstring const &type) {
  append(out, [&](Writer &writer, char *at) { return writer.value(at, *value, type); });
}

void DataObjectIO::writeString(ByteBuffer &out, tvstring const &text) {
  append(out, [&](Writer &writer, char *at) { return writer.string(at, text); });
}

void DataObjectIO::writeFastUnsignedInt(ByteBuffer &out, unsigned int value) {
  append(out, [value](Writer &writer, char *at) { return putFast(writer.room(at, MAX_FAST), value); });
}

void DataObjectIO::writeIntBigEndian(ByteBuffer &out, int value) {
  uint32_t const bytes = swapBytes(static_cast<uint32_t>(value));
  append(out, [bytes](Writer &writer, char *at) { return store(writer.room(at, sizeof bytes), bytes); });
}
void DataObjectIO::writeLongBigEndian(ByteBuffer &out, long long value) {
  uint64_t const bytes = swapBytes(static_cast<uint64_t>(value));
  append(out, [bytes](Writer &writer, char *at) { return store(writer.room(at, sizeof bytes), bytes); });
}
void DataObjectIO::writeFloatBigEndian(ByteBuffer &out, float value) {
  writeIntBigEndian(out, ByteBuffer::floatToIntBits(value));
}
void DataObjectIO::writeDoubleBigEndian(ByteBuffer &out, double value) {
  writeLongBigEndian(out, ByteBuffer::doubleToLongBits(value));
}

void DataObjectIO::writeCompactDateTime(ByteBuffer &out, DateTime const &value, bool date, bool time) {
  append(out, [&](Writer &writer, char *at) { return putDate(writer.room(at, MAX_FIXED), value, date, time); });
}

void DataObjectIO::parse(DataObject *object, char const *bytes, int length) {
  ByteBuffer in(bytes, length);
  read(object, in);
  if (in.hasMore()) raise<TransformException>("Unexpected characters at the end of serialzied message", SOURCE);
}

void DataObjectIO::parse(DataObject *object, Binary const &bytes) {
  Binary const held(bytes);  // it may be a field of the object
  if (held.length() > INT_MAX) raise<TransformException>("Out of bounds", SOURCE);
  parse(object, held.data(), static_cast<int>(held.length()));
}

void DataObjectIO::read(DataObject *object, ByteBuffer &in) {
  take(in, [object](Reader &reader) { reader.object(object, 0); });
}

void DataObjectIO::readSetField(DataObject *object, int index, ByteBuffer &in, tvstring const &type) {
  take(in, [&](Reader &reader) { reader.value(object, index, type); });
}

tvstring DataObjectIO::readString(ByteBuffer &in) {
  return take(in, [](Reader &reader) {
    tvstring text;
    reader.string(text);
    return text;
  });
}

unsigned int DataObjectIO::readFastUnsignedInt(ByteBuffer &in) {
  return take(in, [](Reader &reader) { return reader.fast(); });
}

int DataObjectIO::readIntBigEndian(ByteBuffer &in) {
  return static_cast<int>(take(in, [](Reader &reader) { return reader.bigEndian<uint32_t>(); }));
}
long long DataObjectIO::readLongBigEndian(ByteBuffer &in) {
  return static_cast<long long>(take(in, [](Reader &reader) { return reader.bigEndian<uint64_t>(); }));
}
float DataObjectIO::readFloatBigEndian(ByteBuffer &in) {
  return ByteBuffer::intBitsToFloat(readIntBigEndian(in));
}
double DataObjectIO::readDoubleBigEndian(ByteBuffer &in) {
  return ByteBuffer::longBitsToDouble(readLongBigEndian(in));
}

DateTime DataObjectIO::readCompactDateTime(ByteBuffer &in, bool date, bool time) {
  return take(in, [=](Reader &reader) { return reader.date(date, time); });
}

}  // namespace tavrone
