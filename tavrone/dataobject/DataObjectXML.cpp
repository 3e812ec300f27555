#include "tavrone/dataobject/DataObjectXML.h"

#include <charconv>
#include <climits>
#include <new>

#include "tavrone/core/BinaryText.h"
#include "tavrone/core/Conversion.h"
#include "tavrone/core/Parsing.h"
#include "tavrone/core/TextBlock.h"
#include "tavrone/core/WritePatterns.h"
#include "tavrone/dataobject/DataObjectBase.h"
#include "tavrone/dataobject/DataObjectSectionImpl.h"
#include "tavrone/dataobject/FieldWalk.h"

// The XML of records and sections, as DataObjectBase and AbstractDataObjectSection show it. One text is built from
// front to back; only what a class written by hand renders for itself is made apart and copied in.

namespace tavrone {

namespace {

constexpr size_t FIRST_CAPACITY = 1024;
constexpr size_t MAX_NUMBER_TEXT = 352;  // of a double
constexpr size_t MAX_DATE_TEXT = 256;
constexpr size_t MAX_ENTITY = 8;

// The bytes that send their text through the rebuilding path, as bits.
inline unsigned needsWork(__m128i block) {
  auto const equals = [](__m128i bytes, char c) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(c)); };
  __m128i const control = _mm_cmpeq_epi8(_mm_min_epu8(block, _mm_set1_epi8(31)), block);
  __m128i const white = _mm_or_si128(_mm_or_si128(equals(block, '\r'), equals(block, '\n')), equals(block, '\t'));
  __m128i const angle = equals(_mm_or_si128(block, _mm_set1_epi8('<' ^ '>')), '<' | '>');
  __m128i const pair = equals(_mm_or_si128(block, _mm_set1_epi8('&' ^ '\'')), '&' | '\'');
  __m128i const marks = _mm_or_si128(_mm_or_si128(angle, pair), equals(block, '"'));
  return highBits(_mm_or_si128(_mm_andnot_si128(white, control), marks));
}

inline unsigned shortNeedsWork(__m128i block, size_t n) {
  return needsWork(block) & ((1U << n) - 1);
}

bool isClean(char const *text, size_t n) {
  if (n < BLOCK) return shortNeedsWork(loadShort(text, n), n) == 0;
  for (size_t at = 0; at + BLOCK <= n; at += BLOCK)
    if (needsWork(loadBlock(text + at)) != 0) return false;
  return needsWork(loadBlock(text + n - BLOCK)) == 0;
}

template <FieldKind Kind>
constexpr WritePatterns const &patternsOf() {
  if constexpr (Kind == FieldKind::DATE_ONLY) return WRITE_DATE;
  if constexpr (Kind == FieldKind::TIME_ONLY) return WRITE_TIME;
  return WRITE_DATE_TIME;
}

int deeper(int level) {
  return level == INT_MAX ? level : level + 1;
}
// The frame of a record stands one level above its fields.
int above(int level) {
  return level <= 0 ? 0 : level - 1;
}

// A text that grows. `at` is where the next byte goes; each operation takes it and returns it moved on.
class Writer {
 public:
  explicit Writer(size_t capacity) : start_(allocate(text_, capacity)), end_(start_ + capacity) {}

  char *start() const { return start_; }
  tvstring finish(char const *at) {
    text_.setBufferLength(static_cast<int>(at - start_));
    return std::move(text_);
  }

  // Room for n more bytes.
  char *room(char *at, size_t n) { return static_cast<size_t>(end_ - at) >= n ? at : grow(at, n); }

  char *tag(char *at, int level, char const *open, size_t n, tvstring const &name) {
    size_t const tabs = level > 0 ? static_cast<size_t>(level) : 0;
    at = room(at, tabs + name.length() + n + 2 + BLOCK);
    std::memset(at, '\t', tabs);
    at += tabs;
    for (size_t i = 0; i < n; ++i) *at++ = open[i];
    at = copied(at, name);
    *at++ = '>';
    return at;
  }
  char *opening(char *at, int level, tvstring const &name) { return tag(at, level, "<", 1, name); }
  // Ends its line, for which tag() leaves room.
  char *closing(char *at, int level, tvstring const &name) {
    at = tag(at, level, "</", 2, name);
    *at++ = '\n';
    return at;
  }
  char *openingLine(char *at, int level, tvstring const &name) {
    at = opening(at, level, name);
    *at++ = '\n';
    return at;
  }

  char *raw(char *at, tvstring const &text) {
    if (text.empty()) return at;
    at = room(at, text.length());
    std::memcpy(at, text.data(), text.length());
    return at + text.length();
  }

  char *escaped(char *at, char const *text, size_t n) {
    at = room(at, n + BLOCK);
    if (n < BLOCK) {
      __m128i const block = loadShort(text, n);
      storeBlock(at, block);
      return shortNeedsWork(block, n) == 0 ? at + n : rebuilt(at, text, n, false);
    }
    for (size_t done = 0; done + BLOCK <= n; done += BLOCK) {
      __m128i const block = loadBlock(text + done);
      if (needsWork(block) != 0) return rebuilt(at + done, text + done, n - done, false);
      storeBlock(at + done, block);
    }
    size_t const last = n - BLOCK;
    __m128i const block = loadBlock(text + last);
    if (needsWork(block) != 0) return rebuilt(at + last, text + last, BLOCK, false);
    storeBlock(at + last, block);
    return at + n;
  }
  char *escaped(char *at, tvstring const &text) { return escaped(at, text.data(), text.length()); }

  TAVRONE_COLD char *rebuilt(char *at, char const *text, size_t n, bool escapeApostrophe) {
    for (char const *const end = text + n; text != end; ++text) {
      at = room(at, MAX_ENTITY);
      auto const byte = static_cast<unsigned char>(*text);
      switch (*text) {
        case '&':
          at = entity(at, "&amp;");
          break;
        case '"':
          at = entity(at, "&quot;");
          break;
        case '<':
          at = entity(at, "&lt;");
          break;
        case '>':
          at = entity(at, "&gt;");
          break;
        case '\'':
          if (escapeApostrophe)
            at = entity(at, "&apos;");
          else
            *at++ = *text;
          break;
        default:
          if (byte >= 32 || *text == '\r' || *text == '\n' || *text == '\t') {
            *at++ = *text;
          } else {
            at = entity(at, "&#");
            at = std::to_chars(at, at + 3, byte).ptr;
            *at++ = ';';
          }
      }
    }
    return at;
  }

  template <FieldKind Kind>
  char *value(KindTag<Kind>, char *at, typename FieldOf<Kind>::Value const &value) {
    if constexpr (Kind == FieldKind::STRING) {
      return escaped(at, value);
    } else if constexpr (Kind == FieldKind::INTEGER || Kind == FieldKind::LONG) {
      at = room(at, 24);
      return std::to_chars(at, at + 24, value).ptr;
    } else if constexpr (Kind == FieldKind::FLOAT || Kind == FieldKind::DOUBLE) {
      at = room(at, MAX_NUMBER_TEXT);
      doubleToString(static_cast<double>(value), at);
      return at + std::strlen(at);
    } else if constexpr (Kind == FieldKind::CHARACTER) {
      return escaped(at, &value, 1);
    } else if constexpr (Kind == FieldKind::BOOLEAN) {
      return escaped(at, boolToString(value));
    } else if constexpr (Kind == FieldKind::BINARY) {
      at = room(at, value.length() * 2);
      encodeHex(value.data(), value.length(), at);
      return at + value.length() * 2;
    } else if constexpr (Kind == FieldKind::BIG_INTEGER || Kind == FieldKind::BIG_DECIMAL) {
      at = room(at, MAX_NUMBER_TEXT);
      char *const end = value.writeFixed(at, at + MAX_NUMBER_TEXT);
      return end != nullptr ? end : raw(at, value.toString());
    } else {
      at = room(at, MAX_DATE_TEXT);
      // ISO values always show their milliseconds.
      int const milliseconds = IS_DATE<Kind> ? value.getMilliseconds() : 1;
      return at + value.asString(at, MAX_DATE_TEXT, patternsOf<Kind>().of(milliseconds));
    }
  }

  char *section(char *at, DataObjectSection &section, tvstring const &name, int level);
  // The fields, without a frame.
  char *fields(char *at, DataObject &object, int level);
  // The same, as the object's class will have them.
  char *content(char *at, DataObject &object, int level) {
    bool const isOwn = object.hasFieldOffsets() || isPlainGeneric(object);
    return isOwn ? fields(at, object, level) : raw(at, object.toXMLStringImpl(level));
  }
  char *framed(char *at, DataObject &object, tvstring const &name, int level) {
    at = openingLine(at, level, name);
    at = content(at, object, deeper(level));
    return closing(at, level, name);
  }

 private:
  static char *allocate(tvstring &text, size_t capacity) {
    if (capacity > INT_MAX) throw std::bad_array_new_length();
    return text.getBuffer(static_cast<int>(capacity));
  }
  char *grow(char *at, size_t n) {
    size_t const used = static_cast<size_t>(at - start_);
    size_t const capacity = std::max(used + n, 2 * static_cast<size_t>(end_ - start_));
    tvstring larger;
    char *const start = allocate(larger, capacity);
    std::memcpy(start, start_, used);
    text_ = std::move(larger);
    start_ = start;
    end_ = start + capacity;
    return start + used;
  }

  // REQUIRES: room for a block more than the text
  static char *copied(char *at, tvstring const &text) {
    size_t const n = text.length();
    if (n < BLOCK)
      storeBlock(at, loadShort(text.data(), n));
    else
      std::memcpy(at, text.data(), n);
    return at + n;
  }
  static char *entity(char *at, char const *text) {
    size_t const n = std::strlen(text);
    std::memcpy(at, text, n);
    return at + n;
  }

  tvstring text_;
  char *start_;
  char *end_;
};

// The fields of a record as lines.
struct Lines {
  Writer &writer;
  int level;

  template <FieldKind Kind, class Value>
  char *plain(KindTag<Kind> kind, char *at, int, FieldMetaInfo const &field, Value const &value) {
    at = writer.opening(at, level, field.getName());
    at = writer.value(kind, at, value);
    return writer.closing(at, 0, field.getName());
  }
  char *section(char *at, int, FieldMetaInfo const &field, DataObjectSection *section) {
    return section == nullptr ? at : writer.section(at, *section, field.getName(), level);
  }
  char *other(char *at, int, FieldMetaInfo const &field, Object &value) {
    tvstring const text = Parsing::runtimeObjectToString(&value, field.getType());
    at = writer.opening(at, level, field.getName());
    at = writer.escaped(at, text);
    return writer.closing(at, 0, field.getName());
  }
};

char *Writer::fields(char *at, DataObject &object, int level) {
  return walkFields(at, object, Lines{*this, level});
}

char *Writer::section(char *at, DataObjectSection &section, tvstring const &name, int level) {
  int const count = section.getElementCount();
  for (int i = 0; i < count; ++i) at = framed(at, *section.getElement(i), name, level);
  return at;
}

// The text that `write` appends.
template <class Write>
tvstring textOf(Write const &write) {
  Writer writer(FIRST_CAPACITY);
  return writer.finish(write(writer, writer.start()));
}

}  // namespace

bool DataObjectXML::hasNonXMLCharacters(tvstring const &text) {
  return !isClean(text.data(), text.length());
}

tvstring DataObjectXML::fixXMLCharData(tvstring const &text) {
  return replaceXMLEntities(text, false);
}

tvstring DataObjectXML::replaceXMLEntities(tvstring const &text, bool escapeApostrophe) {
  if (!hasNonXMLCharacters(text)) return text;
  Writer writer(text.length() + MAX_ENTITY);
  return writer.finish(writer.rebuilt(writer.start(), text.data(), text.length(), escapeApostrophe));
}

tvstring DataObjectBase::toXMLString() {
  return textOf([this](Writer &writer, char *at) { return writer.framed(at, *this, getRootXMLTag(), 0); });
}

tvstring DataObjectBase::toXMLString(int level) {
  // An element's frame is written by its section.
  if (getParentSection() != nullptr) return toXMLStringImpl(level);
  return textOf([this, level](Writer &writer, char *at) {
    tvstring const tag = getRootXMLTag();
    at = writer.openingLine(at, above(level), tag);
    at = writer.content(at, *this, level);
    return writer.closing(at, above(level), tag);
  });
}

tvstring DataObjectBase::toXMLStringImpl(int level) {
  return textOf([this, level](Writer &writer, char *at) { return writer.fields(at, *this, level); });
}

tvstring AbstractDataObjectSection::toXMLString() {
  return toXMLString(1);
}
tvstring AbstractDataObjectSection::toXMLString(int level) {
  return toXMLString(getName(), level);
}
tvstring AbstractDataObjectSection::toXMLString(tvstring const &name, int level) {
  return textOf([&](Writer &writer, char *at) { return writer.section(at, *this, name, level); });
}

}  // namespace tavrone
