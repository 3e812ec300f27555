#include <gmock/gmock.h>

#include <limits>
#include <memory>

#include "tavrone/core/ObjectList.h"
#include "tavrone/core/SmallStringMap.h"
#include "tavrone/core/TList.h"
#include "tavrone/core/Wrappers.h"
#include "tests/Cases.h"
#include "tests/Text.h"
#include "tests/Tracked.h"

namespace tavrone {
namespace {

template <class E>
TList<E> list(std::initializer_list<E> elements) {
  TList<E> made;
  for (E const &element : elements) made.add(element);
  return made;
}

#define EXPECT_BAD_SUBSCRIPT(call) \
  EXPECT_THAT([&] { call; }, testing::ThrowsMessage<std::out_of_range>("invalid vector<T> subscript"))

TEST(TList, RendersEachElementType) {
  tvstring const texts[] = {TList<int>().toString(),
                            list<int>({1, -2}).toString(),
                            list<long long>({1LL << 40}).toString(),
                            list<float>({1.5f, 2}).toString(),
                            list<char>({'a', 'b'}).toString(),
                            list<bool>({true, false}).toString(),
                            list<tvstring>({"x", ""}).toString(),
                            list<Binary>({Binary("ab", 2)}).toString(),
                            list<DateTime>({DateTime(2024, 2, 9, 13, 5, 7, 42)}).toString()};
  std::string all;
  for (tvstring const &text : texts) all += str(text);
  EXPECT_EQ(all, "[][1, -2][1099511627776][1.5, 2.0][a, b][true, false][x, ][ab][2024-02-09T13:05:07.042]");
}

TEST(TList, EditsByIndexAndRaisesOnBadOnes) {
  auto numbers = list<int>({1, 2, 3, 2});
  numbers.add(4, numbers[0]);
  numbers.add(0, 9);
  numbers.set(1, 7);
  numbers.removeElementAt(2);
  EXPECT_EQ(str(numbers.toString()), "[9, 7, 3, 2, 1]");
  for (int bad : {-1, 5, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    EXPECT_BAD_SUBSCRIPT(numbers[bad]);
    EXPECT_BAD_SUBSCRIPT(numbers.set(bad, 0));
    EXPECT_BAD_SUBSCRIPT(numbers.removeElementAt(bad));
  }
  for (int bad : {-1, 6}) EXPECT_BAD_SUBSCRIPT(numbers.add(bad, 0));
}

TEST(TList, AddsItsOwnElements) {
  auto texts = list<tvstring>({"a", "b"});
  texts.addAll(texts);
  texts.addAll(&texts[1], 3);
  texts.addAll(&texts[1], -1);
  for (int i = 0; i < 2; ++i) texts.add(texts[0]);
  EXPECT_EQ(str(texts.toString()), "[a, b, a, b, b, a, b, a, a]");
}

TEST(TList, SearchesAndCompares) {
  auto const numbers = list<int>({5, 6, 5});
  EXPECT_EQ(words(numbers.indexOf(5), numbers.lastIndexOf(5), numbers.lastIndexOf(7)), "0 2 -1");
  EXPECT_TRUE(numbers.contains(6) && !numbers.contains(7));
  EXPECT_TRUE(numbers.intersects(list<int>({1, 6})) && !numbers.intersects(list<int>({1})));
  EXPECT_TRUE(numbers.equals(list<int>({5, 6, 5})) && !numbers.equals(list<int>({5, 6})));

  struct {
    std::initializer_list<int> a, b;
    int result;
  } const cases[] = {{{1, 2}, {1, 2, 3}, -1}, {{1, 3}, {1, 2, 9}, 1}, {{1}, {2}, -1}, {{}, {}, 0}, {{1, 2, 3}, {}, 3}};
  for (auto const &c : cases) EXPECT_EQ(list<int>(c.a).compareTo(list<int>(c.b)), c.result);
  EXPECT_EQ(list<Binary>({Binary("a", 1)}).compareTo(list<Binary>({Binary("b", 1)})), 0);

  auto const broken = list<double>({std::numeric_limits<double>::quiet_NaN()});
  EXPECT_TRUE(broken.equals(broken));
}

TEST(TList, CopiesHaveElementsOfTheirOwnInBothForms) {
  TList<int> numbers = list<int>({1});
  TList<std::vector<int>, int> wide = numbers;
  wide.add(2);
  numbers = wide;
  std::unique_ptr<Object> const clone(static_cast<Object &>(numbers).clone());
  numbers.clear();
  ASSERT_NE(dynamic_cast<TList<int> *>(clone.get()), nullptr);
  EXPECT_EQ(str(clone->toString()), "[1, 2]");
}

TEST(ArrayList, GrowsByTenAndTakesItsOwnElements) {
  ArrayList<tvstring> texts;
  texts.push_back("a");
  for (int i = 1; i < 9; ++i) texts.push_back(texts.at(0));
  EXPECT_EQ(texts.capacity(), 10);
  texts.push_back(texts.at(0));
  EXPECT_EQ(texts.capacity(), 20);
  texts.pop_back();
  EXPECT_EQ(texts.size(), 9);
  texts.ensureFree(100);
  tvstring const *const first = &texts.at(0);
  for (int i = 0; i < 100; ++i) texts.push_back("b");
  EXPECT_EQ(&texts.at(0), first);
}

struct Cloneable : ObjectRef {
  Object *clone() const override;
  tvstring toString() const override { return "counted"; }
};
using Counted = Tracked<Cloneable>;
Object *Cloneable::clone() const {
  return new Counted;
}

TEST(ObjectList, OwnsItsElementsAndClonesThem) {
  {
    ObjectList objects;
    EXPECT_BAD_SUBSCRIPT(objects.at(0));
    EXPECT_EQ(objects.getListPtr()->getRefCount(), 2);  // the list's and this pointer's
    objects.add(new Counted);
    objects.add(IntObject(5));
    objects.add(nullptr);
    EXPECT_EQ(str(objects.toString()), "[counted, 5, null]");
    EXPECT_BAD_SUBSCRIPT(objects.get(3));
    EXPECT_BAD_SUBSCRIPT(objects[-1]);
    EXPECT_EQ(objects.getValue(1).getInt(), 5);

    ObjectList shared = objects;
    objects = *&objects;
    std::unique_ptr<Object> const clone(objects.clone());
    EXPECT_EQ(Counted::alive, 2);
    shared.clear();
    EXPECT_EQ(words(Counted::alive, objects.size()), "1 0");
    EXPECT_EQ(str(clone->toString()), "[counted, 5, null]");
  }
  EXPECT_EQ(Counted::alive, 0);
}

TEST(SmallStringMap, HoldsOneReferenceOnEachValue) {
  {
    SmallStringMap map;
    auto *first = new Counted;
    for (Counted *value : {first, first}) map.put("a", value);
    map.put("b", nullptr);
    EXPECT_EQ(first->getRefCount(), 1);
    SmallStringMap const copy(map);
    map.put("a", new Counted);
    EXPECT_EQ(first->getRefCount(), 1);
    EXPECT_TRUE(copy.get("a") == first && map.get("a") != first && map.get("b") == nullptr && map.get("ab") == nullptr);
    EXPECT_EQ(Counted::alive, 2);
  }
  EXPECT_EQ(Counted::alive, 0);
}

}  // namespace
}  // namespace tavrone
