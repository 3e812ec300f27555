#pragma once

#include <type_traits>
#include <utility>

#include "tavrone/core/Wrappers.h"
#include "tavrone/dataobject/MetaInfo.h"

// Internal: from a field's kind at run time to its value's type and wrapper at compile time.

namespace tavrone {

class RawMessageObject;

template <FieldKind Kind>
using KindTag = std::integral_constant<FieldKind, Kind>;

template <class ValueType, class WrapperType>
struct PlainField {
  using Value = ValueType;
  using Wrapper = WrapperType;
};

// Left empty for kinds without such a value: sections, nested records and types outside the vocabulary.
template <FieldKind Kind>
struct FieldOf {};
template <>
struct FieldOf<FieldKind::STRING> : PlainField<tvstring, StringObject> {};
template <>
struct FieldOf<FieldKind::INTEGER> : PlainField<int, IntObject> {};
template <>
struct FieldOf<FieldKind::LONG> : PlainField<long long, LongObject> {};
template <>
struct FieldOf<FieldKind::FLOAT> : PlainField<float, FloatObject> {};
template <>
struct FieldOf<FieldKind::DOUBLE> : PlainField<double, DoubleObject> {};
template <>
struct FieldOf<FieldKind::CHARACTER> : PlainField<char, CharObject> {};
template <>
struct FieldOf<FieldKind::BOOLEAN> : PlainField<bool, BoolObject> {};
template <>
struct FieldOf<FieldKind::BINARY> : PlainField<Binary, BinaryObject> {};
template <>
struct FieldOf<FieldKind::DATE_TIME> : PlainField<DateTime, DateObject> {};
template <>
struct FieldOf<FieldKind::DATE_ONLY> : PlainField<DateTime, DateObject> {};
template <>
struct FieldOf<FieldKind::TIME_ONLY> : PlainField<DateTime, DateObject> {};
template <>
struct FieldOf<FieldKind::ISO_DATE_TIME> : PlainField<ISODateTime, ISODateObject> {};
template <>
struct FieldOf<FieldKind::ISO_DATE> : PlainField<ISODateTime, ISODateObject> {};
template <>
struct FieldOf<FieldKind::ISO_TIME> : PlainField<ISODateTime, ISODateObject> {};
template <>
struct FieldOf<FieldKind::BIG_INTEGER> : PlainField<BigInteger, BigIntegerObject> {};
template <>
struct FieldOf<FieldKind::BIG_DECIMAL> : PlainField<BigDecimal, BigDecimalObject> {};
template <>
struct FieldOf<FieldKind::RAW_MESSAGE> : PlainField<RawMessage, RawMessageObject> {};

template <FieldKind Kind>
concept HasValue = requires {
  typename FieldOf<Kind>::Value;
};
// A value with a text and a stored form of its own. A raw message shows itself through its wrapper.
template <FieldKind Kind>
concept HasPlainValue = HasValue<Kind> && Kind != FieldKind::RAW_MESSAGE;

template <FieldKind Kind>
constexpr bool IS_DATE = Kind == FieldKind::DATE_TIME || Kind == FieldKind::DATE_ONLY || Kind == FieldKind::TIME_ONLY;
// Whether the kind has a part of the calendar, and one of the clock.
template <FieldKind Kind>
constexpr bool HAS_DAY = Kind != FieldKind::TIME_ONLY;
template <FieldKind Kind>
constexpr bool HAS_TIME = Kind != FieldKind::DATE_ONLY;

// Calls with the KindTag of the kind. Inlined, so that a walk over fields is one loop.
template <class Call>
[[gnu::always_inline]] inline decltype(auto) withKind(FieldKind kind, Call &&call) {
  switch (kind) {
    case FieldKind::STRING:
      return call(KindTag<FieldKind::STRING>());
    case FieldKind::INTEGER:
      return call(KindTag<FieldKind::INTEGER>());
    case FieldKind::LONG:
      return call(KindTag<FieldKind::LONG>());
    case FieldKind::FLOAT:
      return call(KindTag<FieldKind::FLOAT>());
    case FieldKind::DOUBLE:
      return call(KindTag<FieldKind::DOUBLE>());
    case FieldKind::CHARACTER:
      return call(KindTag<FieldKind::CHARACTER>());
    case FieldKind::BOOLEAN:
      return call(KindTag<FieldKind::BOOLEAN>());
    case FieldKind::BINARY:
      return call(KindTag<FieldKind::BINARY>());
    case FieldKind::DATE_TIME:
      return call(KindTag<FieldKind::DATE_TIME>());
    case FieldKind::DATE_ONLY:
      return call(KindTag<FieldKind::DATE_ONLY>());
    case FieldKind::TIME_ONLY:
      return call(KindTag<FieldKind::TIME_ONLY>());
    case FieldKind::ISO_DATE_TIME:
      return call(KindTag<FieldKind::ISO_DATE_TIME>());
    case FieldKind::ISO_DATE:
      return call(KindTag<FieldKind::ISO_DATE>());
    case FieldKind::ISO_TIME:
      return call(KindTag<FieldKind::ISO_TIME>());
    case FieldKind::BIG_INTEGER:
      return call(KindTag<FieldKind::BIG_INTEGER>());
    case FieldKind::BIG_DECIMAL:
      return call(KindTag<FieldKind::BIG_DECIMAL>());
    case FieldKind::SECTION:
      return call(KindTag<FieldKind::SECTION>());
    case FieldKind::DATA_OBJECT:
      return call(KindTag<FieldKind::DATA_OBJECT>());
    case FieldKind::RAW_MESSAGE:
      return call(KindTag<FieldKind::RAW_MESSAGE>());
    case FieldKind::OTHER:
      return call(KindTag<FieldKind::OTHER>());
  }
  __builtin_unreachable();
}

}  // namespace tavrone
