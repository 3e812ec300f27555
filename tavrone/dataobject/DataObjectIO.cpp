#include "tavrone/dataobject/DataObjectIO.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cstring>
#include <string_view>

#include "tavrone/core/BinaryText.h"
#include "tavrone/core/ByteBuffer.h"
#include "tavrone/core/Parsing.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/TextBlock.h"
#include "tavrone/dataobject/FieldKinds.h"
#include "tavrone/dataobject/FieldWalk.h"

// Both directions work on plain pointers into the buffer and give it back its position at the end. There is one walk
// for each: Writer::Fields takes what walkFields (FieldWalk.h) finds, Reader::object asks for the next field by its id.
// A field goes one of two ways: where a declared record keeps it, by the metadata's table of kinds and offsets, or
// through the virtual accessors with a wrapper on the stack. Both end in `plain`, the code for the kind of its value.
//
// What is written makes sure of room once: a field's id and a value of bounded length, or a short text, share one look;
// only longer values look again. What is read looks before each number, and once for a text.

namespace tavrone {

namespace {

constexpr char const *SOURCE = "cpp/DataObjectIO";
constexpr int MAX_DEPTH = 500;  // of a record below the outermost one

constexpr size_t MAX_FAST = 5;              // bytes of a fast unsigned int
constexpr size_t MAX_FIXED = 7 * MAX_FAST;  // of a DateTime, the longest value of bounded length
constexpr size_t MAX_SHORT_NUMBER = 100;    // characters of a decimal number that is written in place

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

// Copies text up to its first byte from 128 up, or a few bytes less, and returns how many. What `to` has behind them,
// up to n bytes and a block, is undefined.
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
  __m128i const block = loadShort(from, n);
  storeBlock(to, block);
  return highBits(block) == 0 ? n : 0;
}

// Text of one or two words that may overlap. False, with `to` undefined, for one with bytes from 128 up.
template <class Word>
bool copyWords(char *to, char const *from, size_t n) {
  constexpr Word HIGH = static_cast<Word>(0x8080808080808080);
  Word const first = load<Word>(from);
  Word const last = load<Word>(from + n - sizeof last);
  store(to, first);
  store(to + n - sizeof last, last);
  return ((first | last) & HIGH) == 0;
}
// REQUIRES: n <= BLOCK
inline bool copyShortAscii(char *to, char const *from, size_t n) {
  if (n >= sizeof(uint64_t)) return copyWords<uint64_t>(to, from, n);
  if (n >= sizeof(uint32_t)) return copyWords<uint32_t>(to, from, n);
  if (n >= sizeof(uint16_t)) return copyWords<uint16_t>(to, from, n);
  return n == 0 || copyWords<uint8_t>(to, from, n);
}

inline bool isAscii(char const *text, size_t n) {
  if (n < BLOCK) return highBits(loadShort(text, n)) == 0;
  unsigned high = highBits(loadBlock(text + n - BLOCK));
  for (size_t at = 0; at + BLOCK <= n && high == 0; at += BLOCK) high = highBits(loadBlock(text + at));
  return high == 0;
}

inline char *putFast(char *at, unsigned value) {
  while (value >= 0x80) [[unlikely]] {
      *at++ = static_cast<char>(DataObjectIO::setHighBit(value));
      value >>= 7;
    }
  *at++ = static_cast<char>(value);
  return at;
}

inline char *putDate(char *at, DateTime const &value, bool date, bool time) {
  auto const put = [&at](int part) { at = putFast(at, static_cast<unsigned>(part)); };
  if (date) {
    put(value.getYear());
    put(value.getMonth());
    put(value.getDate());
  }
  if (time) {
    put(value.getHours());
    put(value.getMinutes());
    put(value.getSeconds());
    put(value.getMilliseconds());
  }
  return at;
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
  char *room(char *at, size_t n) {
    if (static_cast<size_t>(end_ - at) < n) [[unlikely]]
      at = grow(at, n);
    return at;
  }

  char *object(char *at, DataObject *object, int depth) {
    checkDepth(depth);
    at = walkFields(at, *object, Fields{*this, depth});
    at = room(at, 1);
    *at++ = 0;
    return at;
  }

  [[gnu::noinline]] char *string(char *at, char const *text, size_t n) {
    at = putFast(room(at, n + MAX_FAST + BLOCK), static_cast<unsigned>(n));
    size_t const ascii = copyAscii(at, text, n);
    at += ascii;
    return ascii == n ? at : wide(at, text + ascii, n - ascii);
  }
  [[gnu::always_inline]] char *string(char *at, tvstring const &text) {
    char const *data = text.data();
    size_t const n = text.length();
    at = room(at, 1 + BLOCK);
    if (n > BLOCK || !copyShortAscii(at + 1, data, n)) return string(at, data, n);
    *at = static_cast<char>(n);
    return at + 1 + n;
  }

  // By the value's class; what is no record and no section by the type text.
  char *field(char *at, Object &value, tvstring const &type) {
    if (auto *record = dynamic_cast<DataObject *>(&value)) return object(at, record, 0);
    auto *const holder = dynamic_cast<SectionObject *>(&value);
    if (holder == nullptr) return this->value(at, value, type);
    DataObjectSection *const section = holder->getSection();
    int const count = section == nullptr ? 0 : std::max(section->getElementCount(), 0);
    auto const elementAt = [section](int i) { return section->getElement(i); };
    return elements(room(at, MAX_FAST), count, elementAt, 1);
  }
  // The elements behind their count. REQUIRES: there is room for the count
  template <class ElementAt>
  char *elements(char *at, int count, ElementAt const &elementAt, int depth) {
    at = putFast(at, static_cast<unsigned>(count));
    for (int i = 0; i < count; ++i) at = object(at, elementAt(i), depth);
    return at;
  }
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
      std::memcpy(at, value ? "\4true" : "\5false", 6);
      return at + (value ? 5 : 6);
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

  [[gnu::noinline]] char *hex(char *at, Binary const &value) {
    size_t const n = value.length() * 2;
    at = putFast(room(at, n + MAX_FAST), static_cast<unsigned>(n));
    encodeHex(value.data(), value.length(), at);
    return at + n;
  }

  template <class Number>
  [[gnu::noinline]] char *number(char *at, Number const &value) {
    at = room(at, 1 + MAX_SHORT_NUMBER);
    char *const end = value.writeFixed(at + 1, at + 1 + MAX_SHORT_NUMBER);
    if (end == nullptr) return string(at, value.toString());
    *at = static_cast<char>(end - at - 1);
    return end;
  }

  // Text with bytes from 128 up.
  TAVRONE_COLD char *wide(char *at, char const *text, size_t n) {
    while (n != 0) {
      size_t const part = n < BLOCK ? n : BLOCK;
      at = room(at, n + BLOCK * MAX_FAST);
      size_t const ascii = copyAscii(at, text, part);
      at += ascii;
      for (size_t i = ascii; i < part; ++i) at = putFast(at, signExtended(text[i]));
      text += part;
      n -= part;
    }
    return at;
  }

  // What the walk over a record's fields finds.
  struct Fields {
    Writer &writer;
    int depth;

    template <FieldKind Kind, class Value>
    [[gnu::always_inline]] char *plain(KindTag<Kind> kind, char *at, int index, FieldMetaInfo const &,
                                       Value const &value) {
      return writer.plain(kind, writer.id(at, index), value);
    }
    char *section(char *at, int index, FieldMetaInfo const &, DataObjectSection *section) {
      int const count = section == nullptr ? 0 : section->getElementCount();
      return elements(at, index, count, [section](int i) { return section->getElement(i); });
    }
    // Without virtual calls.
    char *section(char *at, int index, FieldMetaInfo const &, DataObjectSectionImpl *section) {
      return elements(at, index, section->DataObjectSectionImpl::getElementCount(),
                      [section](int i) { return section->DataObjectSectionImpl::getElement(i); });
    }
    template <class ElementAt>
    [[gnu::noinline]] char *elements(char *at, int index, int count, ElementAt elementAt) {
      return count <= 0 ? at : writer.elements(writer.id(at, index), count, elementAt, depth + 1);
    }
    char *other(char *at, int index, FieldMetaInfo const &field, Object &value) {
      at = writer.id(at, index);
      if (auto *nested = dynamic_cast<DataObject *>(&value)) return writer.object(at, nested, depth + 1);
      return writer.value(at, value, field.getType());
    }
  };

  ByteBuffer &buffer_;
  int length_;
  char *end_;
};

// Reads from a buffer. `at` is the next byte; each operation takes it and returns it moved on, and the buffer's own
// position moves when all has gone well.
class Reader {
 public:
  explicit Reader(ByteBuffer &buffer) : buffer_(buffer), end_(buffer.str() + buffer.length()) {}

  char const *start() const { return buffer_.hasMore() ? buffer_.getCursor(0) : end_; }
  void finish(char const *at) {
    ptrdiff_t const n = at - start();
    if (n == 0) return;
    buffer_.getCursor(static_cast<int>(n) - 1);  // which never takes the last byte
    buffer_.read();
  }

  char const *object(char const *at, DataObject &object, int depth) {
    checkDepth(depth);
    if (object.hasFieldOffsets()) return stored(at, static_cast<AbstractDataObject &>(object), depth);
    DataObjectMetaInfo const &type = *object.getMetaInfo();
    for (unsigned id; (at = fast(at, id)), id != 0;) {
      int const index = static_cast<int>(id - 1);
      at = accessed(at, object, index, *type.getFieldMetaInfo(index), depth);
    }
    return at;
  }

  char const *value(char const *at, DataObject &object, int index, tvstring const &type) {
    return withKind(FieldMetaInfo::kindOf(type), [&](auto kind) { return set(kind, at, object, index, type); });
  }

  char const *fast(char const *at, unsigned &value) {
    if (end_ - at >= 2) [[likely]] {
      value = static_cast<unsigned char>(at[0]);
      if (value < 0x80) return at + 1;
      auto const second = static_cast<unsigned char>(at[1]);
      if (second < 0x80) {
        value = (value & 0x7F) | unsigned{second} << 7;
        return at + 2;
      }
    }
    LongFast const read = longFast(at);
    value = read.value;
    return read.end;
  }

  template <class Word>
  char const *bigEndian(char const *at, Word &word) {
    if (static_cast<size_t>(end_ - at) < sizeof word) raiseOutOfBounds(buffer_);
    word = swapBytes(load<Word>(at));
    return at + sizeof word;
  }

  char const *date(char const *at, DateTime &value, bool hasDate, bool hasTime) {
    unsigned day[] = {1970, 1, 1};
    unsigned time[] = {0, 0, 0, 0};
    if (hasDate)
      for (unsigned &part : day) at = fast(at, part);
    if (hasTime)
      for (unsigned &part : time) at = fast(at, part);
    value = DateTime(static_cast<int>(day[0]), static_cast<int>(day[1]), static_cast<int>(day[2]),
                     static_cast<int>(time[0]), static_cast<int>(time[1]), static_cast<int>(time[2]),
                     static_cast<int>(time[3]));
    return at;
  }

  // Into the array that the text has, where that is unshared and large enough. Text is a tvstring or a Binary.
  template <class Text>
  char const *string(char const *at, Text &text) {
    size_t n;
    at = count(at, n);
    if (n == 0 && text.empty()) return at;
    if (n < BLOCK && end_ - at >= static_cast<ptrdiff_t>(BLOCK)) {
      __m128i const block = loadBlock(at);
      if ((highBits(block) & ((1U << n) - 1)) != 0) return wide(at, text, n);
      storeBlock(text.getBuffer(static_cast<int>(BLOCK) - 1), block);
    } else {
      if (!isAscii(at, n)) return wide(at, text, n);
      std::memcpy(text.getBuffer(static_cast<int>(n)), at, n);
    }
    text.setBufferLength(static_cast<int>(n));
    return at + n;
  }

 private:
  struct LongFast {
    char const *end;
    unsigned value;
  };
  [[gnu::noinline]] LongFast longFast(char const *at) const {
    unsigned sum = 0;
    for (int shift = 0; shift < 35; shift += 7) {
      if (at == end_) raiseOutOfBounds(buffer_);
      auto const byte = static_cast<unsigned char>(*at++);
      sum |= DataObjectIO::clearHighBitLS(byte, shift);
      if (byte < 0x80) break;
    }
    return {at, sum};
  }

  // A count of things that take a byte each at least.
  char const *count(char const *at, size_t &n) {
    unsigned value;
    at = fast(at, value);
    n = value;
    if (n > static_cast<size_t>(end_ - at)) raiseOutOfBounds(buffer_);
    return at;
  }

  // Text with bytes from 128 up. Looks through all of it first, so that a text that breaks off changes nothing.
  template <class Text>
  TAVRONE_COLD char const *wide(char const *at, Text &text, size_t n) {
    unsigned value;
    char const *end = at;
    for (size_t i = 0; i < n; ++i) end = fast(end, value);
    char *to = text.getBuffer(static_cast<int>(n));
    for (size_t i = 0; i < n; ++i) {
      at = fast(at, value);
      to[i] = static_cast<char>(value);
    }
    text.setBufferLength(static_cast<int>(n));
    return at;
  }

  // Text that is only looked at: in the buffer itself, or decoded into `scratch`.
  char const *text(char const *at, std::string_view &text, tvstring &scratch) {
    size_t n;
    char const *const start = count(at, n);
    if (isAscii(start, n)) {
      text = {start, n};
      return start + n;
    }
    at = string(at, scratch);
    text = {scratch.data(), scratch.length()};
    return at;
  }

  template <FieldKind Kind>
  char const *plain(KindTag<Kind>, char const *at, typename FieldOf<Kind>::Value &value) {
    if constexpr (Kind == FieldKind::STRING || Kind == FieldKind::BINARY) {
      return string(at, value);
    } else if constexpr (Kind == FieldKind::INTEGER || Kind == FieldKind::FLOAT) {
      uint32_t bits;
      at = bigEndian(at, bits);
      value = std::bit_cast<typename FieldOf<Kind>::Value>(bits);
      return at;
    } else if constexpr (Kind == FieldKind::LONG || Kind == FieldKind::DOUBLE) {
      uint64_t bits;
      at = bigEndian(at, bits);
      value = std::bit_cast<typename FieldOf<Kind>::Value>(bits);
      return at;
    } else if constexpr (Kind == FieldKind::CHARACTER) {
      unsigned extended;
      at = fast(at, extended);
      value = static_cast<char>(extended);
      return at;
    } else if constexpr (Kind == FieldKind::BOOLEAN) {
      return boolean(at, value);
    } else if constexpr (IS_DATE<Kind>) {
      return date(at, value, HAS_DAY<Kind>, HAS_TIME<Kind>);
    } else {
      return number(at, value);
    }
  }

  char const *boolean(char const *at, bool &value) {
    if (end_ - at >= 6) [[likely]] {
      bool const isTrue = std::memcmp(at, "\4true", 5) == 0;
      if (isTrue || std::memcmp(at, "\5false", 6) == 0) {
        value = isTrue;
        return at + (isTrue ? 5 : 6);
      }
    }
    return spelled(at, value);
  }
  [[gnu::noinline]] char const *spelled(char const *at, bool &value) {
    tvstring scratch;
    std::string_view read;
    at = text(at, read, scratch);
    value = read == "true" || (read != "false" && Parsing::parseBool(tvstring(read.data(), read.length())));
    return at;
  }
  char const *number(char const *at, BigDecimal &value) {
    size_t n;
    char const *const start = count(at, n);
    if (!isAscii(start, n)) [[unlikely]]
      return wideNumber(at, value);
    value.assign(start, n);
    return start + n;
  }
  TAVRONE_COLD char const *wideNumber(char const *at, BigDecimal &value) {
    tvstring text;
    at = string(at, text);
    value.assign(text.data(), text.length());
    return at;
  }
  [[gnu::noinline]] char const *number(char const *at, BigInteger &value) {
    BigDecimal decimal;
    at = number(at, decimal);
    value = BigInteger(decimal);
    return at;
  }

  char const *section(char const *at, DataObjectSection &section, size_t count, int depth) {
    section.clear();
    for (size_t i = 0; i < count; ++i) {
      SmartPtr<DataObject> const element(section.createElement());
      section.addElement(element.get());
      at = object(at, *element, depth + 1);
    }
    return at;
  }

  // A declared record: its fields where it keeps them.
  char const *stored(char const *at, AbstractDataObject &object, int depth) {
    DataObjectMetaInfo const &type = *object.AbstractDataObject::getMetaInfo();
    FieldPlace const *const places = type.getFieldPlaces().data();
    size_t const fields = type.getFieldPlaces().size();
    for (unsigned id; (at = fast(at, id)), id != 0;) {
      int const index = static_cast<int>(id - 1);
      if (id > fields) [[unlikely]]
        type.getFieldMetaInfo(index);  // which raises
      FieldPlace const place = places[index];
      at = withKind(place.kind, [&](auto kind) TAVRONE_INLINED {
        constexpr FieldKind KIND = kind;
        if constexpr (KIND == FieldKind::SECTION) {
          at = storedSection(at, storedValue<DataObjectSectionImpl>(object, place.offset), depth);
        } else if constexpr (KIND == FieldKind::DATA_OBJECT) {
          at = storedSection(at, storedValue<DataObjectSingleElementSectionImpl>(object, place.offset), depth);
        } else if constexpr (IS_READ<KIND>) {
          at = plain(kind, at, storedValue<typename FieldOf<KIND>::Value>(object, place.offset));
        } else {
          return accessed(at, object, index, *type.getFieldMetaInfo(index), depth);
        }
        object.setNotNull(index);
        return at;
      });
    }
    return at;
  }
  [[gnu::noinline]] char const *storedSection(char const *at, AbstractDataObjectSection &section, int depth) {
    size_t elements;
    at = count(at, elements);
    section.clear();
    for (size_t i = 0; i < elements; ++i) at = object(at, *section.addNewElement(), depth + 1);
    return at;
  }

  // A field that only the virtual accessors know.
  [[gnu::noinline]] char const *accessed(char const *at, DataObject &object, int index, FieldMetaInfo const &field,
                                         int depth) {
    return withKind(field.getKind(), [&](auto kind) {
      constexpr FieldKind KIND = kind;
      if constexpr (KIND == FieldKind::SECTION) {
        size_t elements;
        at = count(at, elements);
        return section(at, *object.getSection(index), elements, depth);
      } else if constexpr (KIND == FieldKind::DATA_OBJECT) {
        return nested(at, object, index, depth);
      } else {
        return set(kind, at, object, index, field.getType());
      }
    });
  }

  // Without an object to read into, nothing is read: the class has to make it. A generic record is asked for its
  // section instead, which makes one.
  char const *nested(char const *at, DataObject &object, int index, int depth) {
    SmartPtr<Object> const value(object.getField(index));
    bool const generic = dynamic_cast<GenericDataObject *>(&object) != nullptr;
    if ((value.isNull() && generic) || dynamic_cast<SectionObject *>(value.get()) != nullptr) {
      size_t elements;
      at = count(at, elements);
      return section(at, *object.getSection(index), elements, depth);
    }
    auto *record = dynamic_cast<DataObject *>(value.get());
    if (record == nullptr) return at;
    record->reset();
    at = this->object(at, *record, depth + 1);
    if (generic) object.setField(index, value.get());  // what it hands out is a clone
    return at;
  }

  template <FieldKind Kind>
  char const *set(KindTag<Kind> kind, char const *at, DataObject &object, int index, tvstring const &type) {
    if constexpr (IS_READ<Kind>) {
      typename FieldOf<Kind>::Value value{};
      at = plain(kind, at, value);
      typename FieldOf<Kind>::Wrapper const wrapper(value);
      if constexpr (isCompact(Kind))
        object.setField(index, wrapper);
      else
        object.setField(index, &wrapper);
    } else {
      tvstring text;
      at = string(at, text);
      SmartPtr<Object> const value(Parsing::toRuntimeObject(text, type));
      object.setField(index, static_cast<Object const *>(value.get()));
    }
    return at;
  }

  ByteBuffer &buffer_;
  char const *end_;
};

// One operation on a buffer: `call(worker, at)` gives where it ended.
template <class Worker, class Call>
void work(ByteBuffer &buffer, Call const &call) {
  Worker worker(buffer);
  worker.finish(call(worker, worker.start()));
}

}  // namespace

Binary DataObjectIO::serialize(DataObject *object) {
  ByteBuffer out(16);
  write(object, out);
  return Binary(out.str(), static_cast<size_t>(out.length()));
}

void DataObjectIO::write(DataObject *object, ByteBuffer &out) {
  work<Writer>(out, [object](Writer &writer, char *at) { return writer.object(at, object, 0); });
}

void DataObjectIO::writeField(ByteBuffer &out, Object *value, tvstring const &type) {
  work<Writer>(out, [&](Writer &writer, char *at) { return writer.field(at, *value, type); });
}

void DataObjectIO::writeString(ByteBuffer &out, tvstring const &text) {
  work<Writer>(out, [&](Writer &writer, char *at) { return writer.string(at, text); });
}

void DataObjectIO::writeFastUnsignedInt(ByteBuffer &out, unsigned int value) {
  work<Writer>(out, [value](Writer &writer, char *at) { return putFast(writer.room(at, MAX_FAST), value); });
}

void DataObjectIO::writeIntBigEndian(ByteBuffer &out, int value) {
  uint32_t const bytes = swapBytes(static_cast<uint32_t>(value));
  work<Writer>(out, [bytes](Writer &writer, char *at) { return store(writer.room(at, sizeof bytes), bytes); });
}
void DataObjectIO::writeLongBigEndian(ByteBuffer &out, long long value) {
  uint64_t const bytes = swapBytes(static_cast<uint64_t>(value));
  work<Writer>(out, [bytes](Writer &writer, char *at) { return store(writer.room(at, sizeof bytes), bytes); });
}
void DataObjectIO::writeFloatBigEndian(ByteBuffer &out, float value) {
  writeIntBigEndian(out, ByteBuffer::floatToIntBits(value));
}
void DataObjectIO::writeDoubleBigEndian(ByteBuffer &out, double value) {
  writeLongBigEndian(out, ByteBuffer::doubleToLongBits(value));
}

void DataObjectIO::writeCompactDateTime(ByteBuffer &out, DateTime const &value, bool date, bool time) {
  work<Writer>(out, [&](Writer &writer, char *at) { return putDate(writer.room(at, MAX_FIXED), value, date, time); });
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
  work<Reader>(in, [object](Reader &reader, char const *at) { return reader.object(at, *object, 0); });
}

void DataObjectIO::readSetField(DataObject *object, int index, ByteBuffer &in, tvstring const &type) {
  work<Reader>(in, [&](Reader &reader, char const *at) { return reader.value(at, *object, index, type); });
}

tvstring DataObjectIO::readString(ByteBuffer &in) {
  tvstring text;
  work<Reader>(in, [&text](Reader &reader, char const *at) { return reader.string(at, text); });
  return text;
}

unsigned int DataObjectIO::readFastUnsignedInt(ByteBuffer &in) {
  unsigned value;
  work<Reader>(in, [&value](Reader &reader, char const *at) { return reader.fast(at, value); });
  return value;
}

int DataObjectIO::readIntBigEndian(ByteBuffer &in) {
  uint32_t bits;
  work<Reader>(in, [&bits](Reader &reader, char const *at) { return reader.bigEndian(at, bits); });
  return static_cast<int>(bits);
}
long long DataObjectIO::readLongBigEndian(ByteBuffer &in) {
  uint64_t bits;
  work<Reader>(in, [&bits](Reader &reader, char const *at) { return reader.bigEndian(at, bits); });
  return static_cast<long long>(bits);
}
float DataObjectIO::readFloatBigEndian(ByteBuffer &in) {
  return ByteBuffer::intBitsToFloat(readIntBigEndian(in));
}
double DataObjectIO::readDoubleBigEndian(ByteBuffer &in) {
  return ByteBuffer::longBitsToDouble(readLongBigEndian(in));
}

DateTime DataObjectIO::readCompactDateTime(ByteBuffer &in, bool date, bool time) {
  DateTime value;
  work<Reader>(in, [&](Reader &reader, char const *at) { return reader.date(at, value, date, time); });
  return value;
}

}  // namespace tavrone
