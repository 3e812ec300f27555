#include "tavrone/tavrone.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <memory>
#include <set>
#include <stdexcept>
#include <tuple>
#include <typeinfo>

#include "examples/messages/GeneratedOrder.h"
#include "examples/messages/Order.h"
#include "tests/Cases.h"
#include "tests/Failure.h"
#include "tests/core/AllocationCount.h"
#include "tests/dataobject/Orders.h"

namespace tavrone {
namespace {

using examples::GeneratedLeg;
using examples::GeneratedOrder;
using examples::Leg;
using examples::Order;

constexpr int LEGS = Order::index<"Legs">;

template <class R, FixedText F>
concept Gets = requires(R const &record) {
  record.template get<F>();
};
template <class R, FixedText F>
concept Sets = requires(R &record) {
  record.template set<F>({});
};
template <class R, FixedText F>
concept HasSection = requires(R &record) {
  record.template section<F>();
};
template <class R, FixedText F>
concept HasIndex = requires {
  R::template index<F>;
};

static_assert(Gets<Order, "Price"> && Sets<Order, "Price"> && HasIndex<Order, "Price">);
static_assert(!Gets<Order, "Prise"> && !Sets<Order, "Prise"> && !HasIndex<Order, "Prise">);
static_assert(HasSection<Order, "Legs"> && !HasSection<Order, "Price"> && !Gets<Order, "Legs">);
static_assert(Order::index<"OrderID"> == 0 && LEGS == 14);

struct Party : Record<"Party", Field<"Name", tvstring>> {};
struct Everything
    : RecordOf<Everything, "Everything", Field<"Text", tvstring>, Field<"Int", int>, Field<"Long", long long>,
               Field<"Float", float>, Field<"Double", double>, Field<"Char", char>, Field<"Bool", bool>,
               Field<"Bytes", Binary>, Field<"When", DateTime>, Field<"Day", DateOnly>, Field<"Time", TimeOnly>,
               Field<"ISOWhen", ISODateTime>, Field<"ISODay", ISODate>, Field<"ISOTimeOfDay", ISOTime>,
               Field<"Whole", BigInteger>, Field<"Decimal", BigDecimal>, Field<"Raw", RawMessage>,
               Section<"Children", Everything>, Section<"Written", GeneratedLeg, 1>, Nested<"Owner", Party>> {};

// What a call gives, or how it fails: class, text, place.
std::string outcome(std::function<std::string()> const &call) {
  try {
    return call();
  } catch (Exception const &e) {
    return typeid(e).name() + (": " + str(e.getMessage())) + " at " + str(e.getTrace().getFileName()) + ':' +
           std::to_string(e.getTrace().getLine());
  } catch (std::out_of_range const &e) {
    return e.what();
  }
}

std::string show(Object const *value) {
  return value == nullptr ? "null" : str(value->getObjectType()) + ' ' + str(value->toString());
}

// Everything that can be seen of a record.
std::string show(DataObject &record) {
  std::string all =
      std::to_string(record.getRefCount()) + str(record.getRootXMLTag()) + (record.isEmpty() ? " empty" : "");
  for (int i = 0; i < record.getFieldCount(); ++i)
    all += '\n' + str(record.getQualifiedName(i)) + ' ' + str(record.getFieldType(i)) +
           (record.isNull(i) ? " null" : "") + ' ' + show(SmartPtr<Object>(record.getField(i)).get());
  return all + str(record.toXMLString());
}

std::tuple const WRAPPERS(StringObject("text"), CharObject('\xE9'), IntObject(-7), LongObject(1LL << 40),
                          DoubleObject(412.35), FloatObject(0.5F), BigDecimalObject("123456789012345678901234567890.5"),
                          BigIntegerObject("-42"), DateObject(DateTime(2004, 2, 29, 23, 59, 58, 999)),
                          ISODateObject(ISODateTime()), BoolObject(true), BinaryObject(Binary("\0\xFF", 2)),
                          RawMessageObject(new StringInputSource("payload")), SectionObject());
constexpr size_t KINDS = std::tuple_size_v<decltype(WRAPPERS)>;

SmartPtr<Object> wrapper(size_t kind) {
  auto const pick = [&](auto const &...each) { return std::array<Object const *, KINDS>{&each...}[kind]->clone(); };
  return std::apply(pick, WRAPPERS);
}

void fill(DataObject &order) {
  for (int i = 0; i < LEGS; ++i)
    for (size_t kind = 0; kind < KINDS; ++kind)
      outcome([&] { return order.setField(i, wrapper(kind).get()), std::string(); });
  for (int ratio : {1, 2, 3}) addLeg(order, ratio);
}

// The declared order in everything beside the one written out in full. Each operation starts with two new orders.
TEST(Record, DoesWhatAClassWrittenByHandDoes) {
  using Operation = std::string (*)(DataObject &, DataObject &);
  std::pair<char const *, Operation> const operations[] = {
      {"start null", [](DataObject &order, DataObject &) { return show(order); }},
      {"take every value of every type, and refuse in the same words",
       [](DataObject &order, DataObject &) {
         std::string all;
         for (int i = -1; i <= LEGS + 1; ++i)
           for (size_t kind = 0; kind < (i == LEGS ? KINDS - 1 : KINDS); ++kind) {
             all += outcome([&] { return order.setField(i, wrapper(kind).get()), std::string("set"); });
             all += show(order);
           }
         return all;
       }},
      {"give every value to every wrapper",
       [](DataObject &order, DataObject &) {
         fill(order);
         std::string all;
         for (int i = -1; i <= LEGS + 1; ++i)
           for (size_t kind = 0; kind < KINDS; ++kind) {
             SmartPtr<Object> const out = wrapper(kind);
             all += outcome([&] { return order.getField(i, *out) ? show(out.get()) : "untouched"; });
           }
         return all;
       }},
      {"resolve names and indexes",
       [](DataObject &order, DataObject &) {
         std::string all;
         for (char const *name : {"Price", "Legs", "Prise", ""}) {
           all += outcome([&] { return order.setField(name, DoubleObject(1)), show(order); });
           all += outcome([&] { return show(order.getFieldVal(name).get()); });
           all += outcome([&] { return str(order.getSection(name)->getQualifiedName()); });
           all += outcome([&] { return order.setNull(name), std::to_string(order.isNull(name)); });
           all += outcome([&] { return show(order.getFieldCheckNullVal(order.getFieldIndex(name)).get()); });
         }
         for (int i : {-1, LEGS, LEGS + 1}) all += outcome([&] { return str(order.getFieldName(i)); });
         return all;
       }},
      {"handle sections",
       [](DataObject &order, DataObject &other) {
         fill(order);
         DataObjectSection *legs = order.getSection(LEGS);
         std::string all = show(*legs->getElement(1)) + str(legs->toString());
         for (int i : {3, -1, 1}) {
           all += outcome([&] { return show(*legs->getElement(i)); });
           all += outcome([&] { return std::to_string(legs->removeElement(i)); });
         }
         other.setField(LEGS, SectionObject(*legs));
         all += show(other) + std::to_string(legs->getElement(0)->getRootDataObject() == &other);
         all += outcome([&] { return order.createSectionElement("Leg", legs), ""; });
         std::unique_ptr<DataObjectSection> const clone(legs->clone());
         all += show(*clone->getElement(0)) + std::to_string(clone->getParent() == nullptr);
         all += outcome([&] { return clone->createElement(), ""; });
         legs->clear();
         all += outcome([&] { return legs->removeLastElement(), ""; });
         return all + show(order) + show(other);
       }},
      {"lose and regain a section",
       [](DataObject &order, DataObject &) {
         fill(order);
         order.setNull(LEGS);
         std::string all = show(order) + outcome([&] { return order.getSection(LEGS)->getName(), ""; });
         order.reset();
         return all + show(order) + show(*addLeg(order, 5)) + std::to_string(order.isEmpty());
       }},
      {"store and restore",
       [](DataObject &order, DataObject &other) {
         fill(order);
         Binary const stored = DataObjectIO::serialize(&order);
         addLeg(other, 9);
         return str(stored.toHexString()) + outcome([&] { return DataObjectIO::parse(&other, stored), show(other); });
       }},
      {"clone and copy",
       [](DataObject &order, DataObject &other) {
         fill(order);
         order.setNull("Rate");
         SmartPtr<DataObject> const clone(checkedCast<DataObject>(order.clone()));
         addLeg(other, 9);
         other.setField("Rate", FloatObject(1));
         DataObjectBase::copy(&order, &other);
         DataObjectBase::copy(&order, &order);
         order.getSection(LEGS)->getElement(0)->setField("Ratio", IntObject(77));
         return show(*clone) + show(other) + show(order) + show(*clone->getSection(LEGS)->getElement(2)) +
                str(clone->toXMLString(3));
       }},
  };
  for (auto const &[name, run] : operations) {
    SmartPtr<DataObject> const generated[] = {new GeneratedOrder, new GeneratedOrder};
    SmartPtr<DataObject> const declared[] = {new Order, new Order};
    EXPECT_EQ(run(*declared[0], *declared[1]), run(*generated[0], *generated[1])) << name;
  }
}

TEST(Record, CopiesFieldsToAndFromOtherClasses) {
  SmartPtr<DataObject> const order(new Order);
  fill(*order);
  order->setNull("Rate");
  SmartPtr<DataObject> const generated(new GeneratedOrder);
  generated->setField("Rate", FloatObject(1));
  addLeg(*generated, 9);
  SmartPtr<DataObject> const generic(new GenericDataObject(Order::typeMetaInfo(), false));
  SmartPtr<DataObject> const back(new Order);
  DataObjectBase::copy(order.get(), generated.get());
  DataObjectBase::copy(generated.get(), generic.get());
  DataObjectBase::copy(generic.get(), back.get());
  EXPECT_EQ(show(*back), show(*order));
  EXPECT_NE(generated->getSection(LEGS)->getElement(0), order->getSection(LEGS)->getElement(0));
  EXPECT_EQ(str(generic->toXMLString()), str(order->toXMLString()));
}

TEST(Record, TypedAccessIsAccessByIndex) {
  SmartPtr<Order> const order(new Order);
  Failure const null = failureOf<FieldNullException>([&] { order->get<"Price">(); });
  EXPECT_EQ(null.text, "Attempt to access field 'Price' with null value");
  EXPECT_EQ(null.line, 167);
  order->set<"Price">(412.35);
  order->set<"OrderID">("A1");
  order->setField("Quantity", IntObject(5));
  EXPECT_EQ(order->getFieldVal("Price")->getDouble(), 412.35);
  EXPECT_EQ(order->get<"OrderID">(), "A1");
  EXPECT_EQ(order->get<"Quantity">(), 5);
  order->setNull<"Price">();
  EXPECT_TRUE(order->isNull<"Price">() && order->isNull("Price") && !order->isNull<"Quantity">());

  for (int ratio : {1, 2}) order->section<"Legs">().add().set<"Ratio">(ratio);
  int sum = 0;
  for (Leg const &leg : std::as_const(*order).section<"Legs">()) sum += leg.get<"Ratio">();
  for (Leg &leg : order->section<"Legs">()) leg.set<"Ratio">(sum);
  EXPECT_EQ(order->section<"Legs">()[1].get<"Ratio">(), 3);
  EXPECT_FAILURE(FieldNullException, order->section<"Legs">()[0].get<"Price">(),
                 "Attempt to access field 'Legs.Price' with null value");

  order->setNull(LEGS);
  EXPECT_THROW(std::as_const(*order).section<"Legs">(), FieldNullException);
  EXPECT_EQ(order->section<"Legs">().size(), 0);
  EXPECT_FALSE(order->isNull(LEGS));
}

TEST(Record, HoldsEveryFieldType) {
  SmartPtr<Everything> const one(new Everything);
  for (int i = 0; i < 17; ++i) {
    for (size_t kind = 0; kind < KINDS; ++kind) {
      SmartPtr<Object> const value = wrapper(kind);
      if (value->getObjectType() == one->getFieldType(i)) one->setField(i, value.get());
    }
    if (one->isNull(i)) one->setField(i, wrapper(i < 11 ? 8 : 9).get());
    EXPECT_FALSE(SmartPtr<Object>(one->getField(i)).isNull()) << i;
  }
  EXPECT_EQ(one->get<"When">(), one->get<"Day">());
  EXPECT_EQ(one->get<"Whole">(), BigInteger("-42"));
  one->nested<"Owner">().set<"Name">("Smith");
  EXPECT_EQ(one->nested<"Owner">().getQualifiedName(0), "Owner.Name");
  one->section<"Children">().add().section<"Children">().add().set<"Int">(3);
  one->section<"Written">().add().setRatio(2);

  SmartPtr<Everything> const copy(checkedCast<Everything>(one->clone()));
  EXPECT_EQ(show(*copy), show(*one));
  copy->set<"Raw">(copy->get<"Raw">());
  EXPECT_EQ(copy->get<"Raw">(), one->get<"Raw">());
  EXPECT_EQ(copy->section<"Children">()[0].section<"Children">()[0].getRootDataObject(), copy.get());
  one->reset();
  EXPECT_TRUE(one->isEmpty());
  one->nested<"Owner">().set<"Name">("Jones");
  SmartPtr<Everything> const restored(new Everything);
  DataObjectIO::parse(restored.get(), DataObjectIO::serialize(one.get()));
  EXPECT_EQ(show(*restored), show(*one));
  *one = *copy;
  EXPECT_EQ(one->nested<"Owner">().get<"Name">(), "Smith");
  EXPECT_FAILURE(FieldNotFoundException, one->section<"Owner">().add(),
                 "Cannot add more than one element to this section");

  DataObjectMetaInfo *type = Everything::typeMetaInfo();
  EXPECT_EQ(type->getFieldMetaInfo("ISODay")->getType(), "ISODate");
  EXPECT_EQ(type->getFieldMetaInfo("Owner")->getType(), "DataObject");
  auto const *written = dynamic_cast<SectionMetaInfo *>(type->getFieldMetaInfo("Written"));
  EXPECT_EQ(written->getDataObjectMetaInfo(), GeneratedLeg::metaInfoOfType());
  EXPECT_EQ(GeneratedLeg::metaInfoOfType()->getParentSection(), written);
  EXPECT_EQ(words(written->getMinOccurs(), written->getMaxOccurs()), "1 -1");
}

TEST(Record, ValuesStandWhereTheMetadataTells) {
  SmartPtr<Everything> const record(new Everything);
  record->set<"Decimal">("1.5");
  DataObjectMetaInfo const &type = *Everything::typeMetaInfo();
  EXPECT_EQ(&storedValue<BigDecimal>(*record, *type.getFieldMetaInfo("Decimal")), &record->get<"Decimal">());
  std::set<void const *> places;
  for (int i = 0; i < type.getFieldCount(); ++i)
    EXPECT_TRUE(visitStored(*record, *type.getFieldMetaInfo(i), [&](auto const &value) { places.insert(&value); }))
        << i;
  EXPECT_EQ(places.size(), 20u);
  GenericDataObject const generic(Everything::typeMetaInfo(), false);
  EXPECT_FALSE(visitStored(generic, *type.getFieldMetaInfo(0), [](auto const &) {}));
}

TEST(Record, ElementsAreOfTheDeclaredClassOrRefused) {
  SmartPtr<Order> const order(new Order);
  auto &legs = order->section<"Legs">();
  legs.add();
  SmartPtr<GeneratedOrder> const other(new GeneratedOrder);
  addLeg(*other, 1);
  DataObject *foreign = other->getLegs().getElement(0);
  EXPECT_THROW(legs.DataObjectSectionImpl::addElement(foreign, false), ClassCastException);
  EXPECT_THROW(order->setField(LEGS, SectionObject(other->getLegs())), ClassCastException);
  EXPECT_THROW(order->setField(LEGS, SectionObject()), ClassCastException);
  EXPECT_EQ(legs.size(), 1);
  EXPECT_THROW(DataObjectSection::assign(&legs, &other->getLegs()), ClassCastException);
  EXPECT_EQ(foreign->getParentSection(), &other->getLegs());

  struct Special : Leg {
    Object *clone() const override { return new Special(*this); }
  };
  SmartPtr<Special> const special(new Special);
  legs.add();
  legs.addElement(special.get(), false);
  Order const copy(*order);
  auto const &copies = copy.section<"Legs">();
  EXPECT_NE(dynamic_cast<Leg const *>(copies.getElement(0)), nullptr);
  EXPECT_NE(dynamic_cast<Special const *>(copies.getElement(1)), nullptr);
  EXPECT_EQ(copy.getRefCount(), 0);
  SmartPtr<Leg> const leg(checkedCast<Leg>(copies.getElement(0)->clone()));
  legs.addElement(leg.get(), false);
  EXPECT_EQ(legs.size(), 3);
  legs.clear();
  for (int i = 0; i < 3; ++i) EXPECT_EQ(dynamic_cast<Special *>(&legs.add()), nullptr);
}

// By assignment, and field by field.
TEST(Record, TakesTheValuesOfARecordInItsOwnSections) {
  using Take = void (*)(Everything & from, Everything & to);
  for (Take take : {Take([](Everything &from, Everything &to) { to = from; }),
                    Take([](Everything &from, Everything &to) { DataObjectBase::copy(&from, &to); })}) {
    SmartPtr<Everything> const root(new Everything);
    Everything &child = root->section<"Children">().add();
    child.section<"Children">().add().set<"Int">(3);
    child.nested<"Owner">().set<"Name">("Smith");
    tvstring const expected = child.toXMLString(0);
    take(child, *root);
    EXPECT_EQ(root->toXMLStringImpl(0), expected);
  }
}

TEST(Record, ResetKeepsElementsThatNobodyElseHolds) {
  SmartPtr<Order> const order(new Order);
  auto &legs = order->section<"Legs">();
  legs.add().set<"Ratio">(1);
  SmartPtr<Leg> const held(&legs.add());
  held->set<"Ratio">(2);
  Leg *free = &legs[0];
  order->reset();
  EXPECT_EQ(held->get<"Ratio">(), 2);
  EXPECT_EQ(held->getParentSection(), nullptr);
  SmartPtr<DataObject> const again(order->createSectionElement("Legs", &legs));
  EXPECT_EQ(again.get(), free);
  EXPECT_EQ(again->getRefCount(), 1);
  EXPECT_TRUE(free->isNull<"Ratio">());
  SmartPtr<DataObject> const fresh(legs.createElement());
  EXPECT_NE(fresh.get(), held.get());
  SmartPtr<DataObject> const elsewhere(order->createSectionElement("Legs", nullptr));
  EXPECT_EQ(elsewhere->getParentSection(), nullptr);
}

TEST(Record, RefillingAndReadingAllocateNothing) {
  SmartPtr<Order> const order(new Order);
  auto refill = [&] {
    order->reset();
    for (int i = 0; i < 3; ++i) order->section<"Legs">().add().set<"Ratio">(i);
    order->set<"Price">(1);
  };
  refill();
  refill();
  AllocationCount const refilling;
  refill();
  DoubleObject price;
  order->getField(Order::index<"Price">, price);
  order->getSection(LEGS)->getElementCount();
  EXPECT_FALSE(order->isEmpty());
  EXPECT_EQ(refilling.soFar(), 0);
  AllocationCount const wrapping;
  SmartPtr<Object> const value(order->getField(Order::index<"Price">));
  EXPECT_EQ(wrapping.soFar(), 1);
}

}  // namespace
}  // namespace tavrone
