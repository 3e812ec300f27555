#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <type_traits>
#include <utility>

#include "tavrone/core/BigDecimal.h"
#include "tavrone/core/Binary.h"
#include "tavrone/core/DateTime.h"
#include "tavrone/core/DesignerTypes.h"
#include "tavrone/dataobject/AbstractDataObject.h"
#include "tavrone/dataobject/MetaInfo.h"
#include "tavrone/dataobject/TypedSection.h"

// Records declared in a line a field.
//
//   struct Leg : Record<"Leg", Field<"Symbol", tvstring>, Field<"Ratio", int>> {};
//
//   struct Order : Record<"Order",
//                         Field<"OrderID", tvstring>,
//                         Field<"Price", double>,
//                         Field<"TradeDate", DateOnly>,
//                         Section<"Legs", Leg, 1, 100>,
//                         Nested<"Owner", Party>> {};
//
//   SmartPtr<Order> const order(new Order);
//   order->set<"Price">(412.35);                           // the value and its null flag
//   double const price = order->get<"Price">();            // FieldNullException for a null field
//   order->section<"Legs">().add().set<"Symbol">("ACME");
//   for (Leg &leg : order->section<"Legs">()) leg.set<"Ratio">(2);
//   order->nested<"Owner">().set<"Name">("Smith");         // made on first use
//   order->getField(Order::index<"Price">, wrapper);       // and everything else that a DataObject does
//
// A name that the record doesn't have does not compile. In every operation an Order is what a class written by hand
// over AbstractDataObject would be; the two may stand in for each other.

namespace tavrone {

// A text as a template argument.
template <std::size_t Size>
struct FixedText {
  consteval FixedText(char const (&literal)[Size]) {
    for (std::size_t i = 0; i < Size; ++i) text[i] = literal[i];
  }
  constexpr std::string_view view() const { return {text, Size - 1}; }

  char text[Size]{};
};

// Types of fields whose values are a DateTime or an ISODateTime of which only a part counts.
struct DateOnly;
struct TimeOnly;
struct ISODate;
struct ISOTime;

// What a field of type T holds, and the type text that stands in the metadata.
template <class V, tvstringliteral const &Type>
struct FieldTypeRow {
  using Value = V;
  static constexpr tvstring const *text = &Type;
};
template <class T>
struct FieldType;
// clang-format off
template <> struct FieldType<tvstring> : FieldTypeRow<tvstring, DesignerTypes::STRING_TYPE> {};
template <> struct FieldType<int> : FieldTypeRow<int, DesignerTypes::INT_TYPE> {};
template <> struct FieldType<long long> : FieldTypeRow<long long, DesignerTypes::LONG_TYPE> {};
template <> struct FieldType<float> : FieldTypeRow<float, DesignerTypes::FLOAT_TYPE> {};
template <> struct FieldType<double> : FieldTypeRow<double, DesignerTypes::DOUBLE_TYPE> {};
template <> struct FieldType<char> : FieldTypeRow<char, DesignerTypes::CHAR_TYPE> {};
template <> struct FieldType<bool> : FieldTypeRow<bool, DesignerTypes::BOOLEAN_TYPE> {};
template <> struct FieldType<Binary> : FieldTypeRow<Binary, DesignerTypes::BINARY_TYPE> {};
template <> struct FieldType<DateTime> : FieldTypeRow<DateTime, DesignerTypes::DATE_TIME_TYPE> {};
template <> struct FieldType<DateOnly> : FieldTypeRow<DateTime, DesignerTypes::DATE_ONLY_TYPE> {};
template <> struct FieldType<TimeOnly> : FieldTypeRow<DateTime, DesignerTypes::TIME_ONLY_TYPE> {};
template <> struct FieldType<ISODateTime> : FieldTypeRow<ISODateTime, DesignerTypes::ISO_DATE_TIME_TYPE> {};
template <> struct FieldType<ISODate> : FieldTypeRow<ISODateTime, DesignerTypes::ISO_DATE_TYPE> {};
template <> struct FieldType<ISOTime> : FieldTypeRow<ISODateTime, DesignerTypes::ISO_TIME_TYPE> {};
template <> struct FieldType<BigInteger> : FieldTypeRow<BigInteger, DesignerTypes::BIG_INTEGER_TYPE> {};
template <> struct FieldType<BigDecimal> : FieldTypeRow<BigDecimal, DesignerTypes::BIG_DECIMAL_TYPE> {};
template <> struct FieldType<RawMessage> : FieldTypeRow<RawMessage, DesignerTypes::RAW_MESSAGE_TYPE> {};
// clang-format on

enum class MemberKind { NONE, FIELD, SECTION, NESTED };

// The lines of a declaration. A field of one of the types above:
template <FixedText Name, class T>
struct Field {
  using Value = typename FieldType<T>::Value;
  static constexpr MemberKind kind = MemberKind::FIELD;
  static constexpr char const *name = Name.text;
  static constexpr tvstring const *type = FieldType<T>::text;
  static constexpr int minOccurs = 0;
  static constexpr int maxOccurs = 0;
};

// A section of Elements: declared records or classes written by hand, the record's own class included, but no wider
// circle of records that hold each other. Min and Max are what assertConstraints() looks at; -1 is unbounded.
template <FixedText Name, class E, int Min = 0, int Max = -1>
struct Section {
  using Value = TypedSection<E, DataObjectSectionImpl>;
  using Element = E;
  static constexpr MemberKind kind = MemberKind::SECTION;
  static constexpr char const *name = Name.text;
  static constexpr tvstring const *type = &DesignerTypes::SECTION_TYPE;
  static constexpr int minOccurs = Min;
  static constexpr int maxOccurs = Max;
};

// A nested record, which need not be there: a section of at most one Element, of type "DataObject".
template <FixedText Name, class E>
struct Nested {
  using Value = TypedSection<E, DataObjectSingleElementSectionImpl>;
  using Element = E;
  static constexpr MemberKind kind = MemberKind::NESTED;
  static constexpr char const *name = Name.text;
  static constexpr tvstring const *type = &DesignerTypes::DATAOBJECT_TYPE;
  static constexpr int minOccurs = 0;
  static constexpr int maxOccurs = 1;
};

template <class Member>
inline constexpr bool holdsElements = Member::kind != MemberKind::FIELD;

// What declared records share: the hooks, which find a value by its kind and offset in the metadata.
class TAVRONE_API RecordBase : public AbstractDataObject {
 public:
  using AbstractDataObject::getSection;
  DataObjectSection *getSection(int index) const override;
  bool isEmpty() const override;
  // Final, since a section renders its elements from their values and asks nobody.
  tvstring toXMLStringImpl(int level) final { return AbstractDataObject::toXMLStringImpl(level); }

  // Tells which class derives from this record, so that clones are of that class too. The first word counts.
  template <class Self>
  void setClass() {
    if (cloner_ != nullptr) return;
    cloner_ = [](RecordBase const &record) -> Object * {
      auto *copy = new Self(static_cast<Self const &>(record));
      copy->template setClass<Self>();
      return copy;
    };
  }

 protected:
  using Cloner = Object *(*)(RecordBase const &);

  // One line of a declaration as data. `element` is the type of a section's elements; null for the record's own.
  struct MemberRow {
    char const *name;
    tvstring const *type;
    MemberKind kind;
    DataObjectMetaInfo *element;
    int minOccurs;
    int maxOccurs;
  };

  // Both leave nullFlags to the subclass.
  explicit RecordBase(DataObjectMetaInfo *metaInfo);
  RecordBase(RecordBase const &other);
  RecordBase &operator=(RecordBase const &) { return *this; }

  Object *getField0(int index, Object *out) const final;
  Object *getField0(int index) const final;
  void setField0(int index, Object const *value) final;

  static DataObjectMetaInfo *makeMetaInfo(char const *name, MemberRow const *rows, std::size_t count);
  // Tells the metadata where this record, and so every other of its class, keeps a value.
  void setOffset(std::size_t index, void const *value) const;
  // Null where the class is not known; copies do not take it over.
  Cloner getCloner() const { return cloner_; }

 private:
  FieldMetaInfo const *findField(int index) const;

  Cloner cloner_ = nullptr;
};

// The value of one member.
template <std::size_t Index, class Member>
struct RecordSlot {
  explicit RecordSlot(DataObject *) {}
  RecordSlot(RecordSlot const &other, DataObject *) : value(other.value) {}

  void assign(RecordSlot const &other, DataObject *) { value = other.value; }
  void clear() {}
  DataObject *createElement(tvstring const &, DataObjectSection *) const { return nullptr; }
  void const *address() const { return &value; }

  typename Member::Value value{};
};

template <std::size_t Index, class Member>
requires holdsElements<Member>
struct RecordSlot<Index, Member> {
  explicit RecordSlot(DataObject *owner)
      : value(owner, tvstringliteral(Member::name), Member::minOccurs, Member::maxOccurs) {}
  RecordSlot(RecordSlot const &other, DataObject *owner) : value(other.value, owner) {}

  void assign(RecordSlot const &other, DataObject *owner) { value.copy(other.value, owner); }
  void clear() { value.clear(); }
  DataObject *createElement(tvstring const &name, DataObjectSection *section) const {
    if (name != Member::name) return nullptr;
    // Making an element is a reading operation of the record, and yet it may use up a spare one of the section.
    if (section == &value) return const_cast<typename Member::Value &>(value).newElement();
    return Member::Value::makeElement(section);
  }
  void const *address() const { return static_cast<typename Member::Value::FormType const *>(&value); }

  typename Member::Value value;
};

template <class Indexes, class... Members>
struct RecordSlots;

template <std::size_t... I, class... Members>
struct RecordSlots<std::index_sequence<I...>, Members...> : RecordSlot<I, Members>... {
  explicit RecordSlots([[maybe_unused]] DataObject *owner) : RecordSlot<I, Members>(owner)... {}
  RecordSlots([[maybe_unused]] RecordSlots const &other, [[maybe_unused]] DataObject *owner)
      : RecordSlot<I, Members>(other, owner)... {}

  void assign([[maybe_unused]] RecordSlots const &other, [[maybe_unused]] DataObject *owner) {
    (RecordSlot<I, Members>::assign(other, owner), ...);
  }
  void clear() { (RecordSlot<I, Members>::clear(), ...); }
  DataObject *createElement([[maybe_unused]] tvstring const &name, [[maybe_unused]] DataObjectSection *section) const {
    DataObject *element = nullptr;
    static_cast<void>(((element = RecordSlot<I, Members>::createElement(name, section)) || ...));
    return element;
  }
  std::array<void const *, sizeof...(I)> addresses() const { return {RecordSlot<I, Members>::address()...}; }
};

// The position of a member, -1 for a name that none has.
template <class... Members>
consteval int memberIndex([[maybe_unused]] std::string_view name) {
  int i = 0;
  return ((name == Members::name ? true : (++i, false)) || ...) ? i : -1;
}

template <class... Members>
consteval MemberKind memberKind([[maybe_unused]] std::string_view name) {
  MemberKind kind = MemberKind::NONE;
  static_cast<void>(((name == Members::name ? (kind = Members::kind, true) : false) || ...));
  return kind;
}

template <class... Members>
consteval bool memberNamesDiffer() {
  [[maybe_unused]] int i = 0;
  return ((memberIndex<Members...>(Members::name) == i++) && ...);
}

// A record of the declared members; see the top of this file. Every field starts null. Sections and nested records are
// there, empty, from the start, and null only after setNull.
//
// clone() makes an object of the deriving class where that class is known: for the elements of sections, and for
// classes that derive from RecordOf. Else it makes a Record of this declaration, which is the same but for the class.
//
// reset() also clears the sections, which keep their elements for the next filling (TypedSection.h).
template <FixedText Name, class... Members>
class TAVRONE_API Record : public RecordBase {
  static_assert(memberNamesDiffer<Members...>(), "two members have the same name");

  static constexpr std::size_t COUNT = sizeof...(Members);
  using Slots = RecordSlots<std::make_index_sequence<COUNT>, Members...>;
  using Flags = std::array<bool, COUNT>;

  template <std::size_t I, class M>
  static M memberOf(RecordSlot<I, M> const &);
  template <FixedText F>
  using Member = decltype(memberOf<memberIndex<Members...>(F.view())>(std::declval<Slots const &>()));
  template <FixedText F>
  using Value = typename Member<F>::Value;
  template <FixedText F>
  using Parameter = std::conditional_t<std::is_arithmetic_v<Value<F>>, Value<F>, Value<F> const &>;

 public:
  // NONE for a name that no member has.
  template <FixedText F>
  static constexpr MemberKind kindOf = memberKind<Members...>(F.view());
  // The index of a member, as in the metadata.
  template <FixedText F>
  requires(kindOf<F> != MemberKind::NONE) static constexpr int index = memberIndex<Members...>(F.view());

  Record() : Record(typeMetaInfo()) {}
  // The sections' elements are cloned; parent and references are not taken over.
  Record(Record const &other)
      : Object(), ObjectRef(), RecordBase(other), slots_(other.slots_, this), flags_(other.flags_) {
    nullFlags = flags_.data();
  }
  // Takes over values, flags and clones of the sections' elements; parent and references stay.
  Record &operator=(Record const &other) {
    if (this == &other) return *this;
    SmartPtr<DataObject> const kept = keepAlive(other);  // it may be in a section of this record
    slots_.assign(other.slots_, this);
    flags_ = other.flags_;
    return *this;
  }

  // The value of a field. Raises FieldNullException with catalogue key SRT500 for a null field.
  template <FixedText F>
  requires(kindOf<F> == MemberKind::FIELD) Parameter<F> get()
  const {
    requireNotNull<F>();
    return valueOf<index<F>>(slots_);
  }
  template <FixedText F>
  requires(kindOf<F> == MemberKind::FIELD) void set(Parameter<F> value) {
    // The former message may be what keeps the new one alive, or be the same.
    if constexpr (std::is_same_v<Value<F>, RawMessage>)
      valueOf<index<F>>(slots_) = Value<F>(value);
    else
      valueOf<index<F>>(slots_) = value;
    flags_[index<F>] = true;
  }
  template <FixedText F>
  requires(kindOf<F> == MemberKind::FIELD && std::is_class_v<Value<F>>) void set(Value<F> &&value) {
    valueOf<index<F>>(slots_) = std::move(value);
    flags_[index<F>] = true;
  }

  template <FixedText F>
  bool isNull() const {
    return !flags_[index<F>];
  }
  template <FixedText F>
  void setNull() {
    flags_[index<F>] = false;
  }

  // The TypedSection of a section or of a nested record. One that was made null is there again, empty; the const form
  // raises FieldNullException for it.
  template <FixedText F>
  requires(kindOf<F> == MemberKind::SECTION || kindOf<F> == MemberKind::NESTED) Value<F>
  &section() {
    Value<F> &section = valueOf<index<F>>(slots_);
    if (!flags_[index<F>]) {
      section.clear();
      flags_[index<F>] = true;
    }
    return section;
  }
  template <FixedText F>
  requires(kindOf<F> == MemberKind::SECTION || kindOf<F> == MemberKind::NESTED) Value<F>
  const &section() const {
    requireNotNull<F>();
    return valueOf<index<F>>(slots_);
  }

  // The nested record, made where there is none yet. The const form raises FieldNotFoundException there.
  template <FixedText F>
  requires(kindOf<F> == MemberKind::NESTED) typename Member<F>::Element &nested() {
    Value<F> &owner = section<F>();
    return owner.size() == 0 ? owner.add() : owner[0];
  }
  template <FixedText F>
  requires(kindOf<F> == MemberKind::NESTED) typename Member<F>::Element const &nested() const {
    return section<F>()[0];
  }

  // Shared by all records of the declaration; made while the program or library that declares it is loaded, and only
  // read from then on.
  static DataObjectMetaInfo *typeMetaInfo() {
    static DataObjectMetaInfo *const metaInfo = makeTypeMetaInfo();
    return metaInfo;
  }

  using RecordBase::isNull;
  using RecordBase::setNull;

  Object *clone() const override { return getCloner() != nullptr ? getCloner()(*this) : new Record(*this); }
  void reset() override {
    slots_.clear();
    flags_ = EMPTY_FLAGS;
  }
  DataObject *createSectionElement(tvstring const &name, DataObjectSection *section) const final {
    DataObject *element = slots_.createElement(name, section);
    return element != nullptr ? element : RecordBase::createSectionElement(name, section);
  }

 private:
  static constexpr Flags EMPTY_FLAGS{holdsElements<Members>...};

  explicit Record(DataObjectMetaInfo *type) : RecordBase(type), slots_(this), flags_(EMPTY_FLAGS) {
    nullFlags = flags_.data();
  }

  template <std::size_t I, class M>
  static typename M::Value &valueOf(RecordSlot<I, M> &slot) {
    return slot.value;
  }
  template <std::size_t I, class M>
  static typename M::Value const &valueOf(RecordSlot<I, M> const &slot) {
    return slot.value;
  }
  template <FixedText F>
  void requireNotNull() const {
    if (!flags_[index<F>]) [[unlikely]]
      throwNullValueException(index<F>);
  }

  template <class M>
  static DataObjectMetaInfo *elementMetaInfo() {
    if constexpr (!holdsElements<M>)
      return nullptr;
    else if constexpr (std::is_base_of_v<Record, typename M::Element>)
      return nullptr;
    else if constexpr (requires { M::Element::typeMetaInfo(); })
      return M::Element::typeMetaInfo();
    else
      return typename M::Element().getMetaInfo();
  }
  static DataObjectMetaInfo *makeTypeMetaInfo() {
    std::array<MemberRow, COUNT> const rows{MemberRow{Members::name, Members::type, Members::kind,
                                                      elementMetaInfo<Members>(), Members::minOccurs,
                                                      Members::maxOccurs}...};
    Record const prototype(makeMetaInfo(Name.text, rows.data(), COUNT));
    auto const addresses = prototype.slots_.addresses();
    for (std::size_t i = 0; i < COUNT; ++i) prototype.setOffset(i, addresses[i]);
    static_cast<void>(&LOADED);
    return prototype.metaInfo;
  }

  // Has the metadata made at load.
  inline static DataObjectMetaInfo *const LOADED = typeMetaInfo();

  Slots slots_;
  Flags flags_;
};

// A Record whose clones are of the class that derives from it: struct Order : RecordOf<Order, "Order", ...> {};
template <class Self, FixedText Name, class... Members>
class TAVRONE_API RecordOf : public Record<Name, Members...> {
 public:
  Object *clone() const override { return new Self(static_cast<Self const &>(*this)); }
};

}  // namespace tavrone
