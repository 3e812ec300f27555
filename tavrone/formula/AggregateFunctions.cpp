#include "tavrone/formula/AggregateFunctions.h"

#include <algorithm>
#include <array>
#include <climits>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "tavrone/core/Raise.h"
#include "tavrone/dataobject/SectionHelper.h"
#include "tavrone/formula/FieldReaders.h"
#include "tavrone/formula/TextFunctions.h"

// Every answer is put together from three steps. A Path leads to the collections at its end (walk). There one of the
// simple workers goes over the elements (findField) and has a reader look at each one's field: a declared record shows
// it where it stands, any other hands out a wrapper.

namespace tavrone {

namespace {

constexpr char const *SOURCE = "cpp/formula/AggregateFunctions";

bool isEmpty(DataObjectCollection const *collection) {
  return collection == nullptr || collection->getElementCount() == 0;
}

bool hasElements(DataObject &element, int index) {
  return !isEmpty(nestedSection(element, index));
}

template <class Call>
double orZero(DataObjectCollection const *collection, Call const &call) {
  if (isEmpty(collection)) return 0.0;  // often so, and dear as a failure
  try {
    return call();
  } catch (LocalInitializationException const &) {
    return 0.0;
  }
}

template <class Better>
void takeBetter(std::optional<double> &best, double number) {
  if (!best || Better()(number, *best)) best = number;
}

}  // namespace

// One name of a path. Knows its index in the collection that it was last asked for.
class AggregateFunctions::Step {
 public:
  enum UnknownName { FAILS, IS_PASSED_OVER };

  void setName(tvstring const &name, UnknownName unknown) {
    name_ = name;
    unknown_ = unknown;
  }

  // By the first element. -1 without one, and for an unknown name that is to be passed over.
  int indexIn(Collection collection) {
    if (isEmpty(collection)) return -1;
    // Declared records of one type have the index in common.
    DataObjectMetaInfo const *const type = declaredType(*collection->getElement(0));
    if (type == nullptr || type != type_) {
      index_ = lookUp(collection);
      type_ = type;
    }
    return index_;
  }

  // Goes over the elements; true as soon as test(element, index) is.
  template <class Test>
  bool findElement(Collection collection, Test const &test) {
    int const index = indexIn(collection);
    if (index < 0) return false;
    int const count = collection->getElementCount();
    for (int i = 0; i < count; ++i)
      if (test(*collection->getElement(i), index)) return true;
    return false;
  }
  // Goes over the field; true as soon as the reader says yes.
  template <class Reader>
  bool findField(Collection collection, Reader reader) {
    return visitField(collection, reader, [](bool passes, int) { return passes; });
  }
  template <class Reader>
  bool areAllFields(Collection collection, Reader reader) {
    return !visitField(collection, reader, [](bool passes, int) { return !passes; });
  }
  template <class Reader>
  int countFields(Collection collection, Reader reader) {
    int count = 0;
    visitField(collection, reader, [&](bool passes, int) {
      count += passes;
      return false;
    });
    return count;
  }
  // Calls visit(number) for each field that is a number, read as the asked type.
  template <class Number, class Visit>
  void eachNumber(Collection collection, Visit const &visit) {
    AnyNumber<Number> reader{};
    visitField(collection, reader, [&](bool isNumber, int) {
      if (isNumber) visit(reader.number);
      return false;
    });
  }
  template <class Better>
  int bestInt(Collection collection, int start) {
    eachNumber<int>(collection, [&](int number) { start = std::min(start, number, Better()); });
    return start;
  }
  template <class Better>
  std::optional<double> bestDouble(Collection collection) {
    std::optional<double> best;
    eachNumber<double>(collection, [&](double number) { takeBetter<Better>(best, number); });
    return best;
  }

 private:
  template <class Reader, class Visit>
  bool visitField(Collection collection, Reader &reader, Visit const &visit) {
    int const index = indexIn(collection);
    return index >= 0 && tavrone::findField(*collection, index, reader, visit);
  }
  int lookUp(Collection collection) const {
    if (unknown_ == FAILS) return SectionHelper::getFieldIndex(collection, name_);
    try {
      return SectionHelper::getFieldIndex(collection, name_);
    } catch (FieldNotFoundException const &) {
      return -1;
    }
  }

  tvstring name_;
  UnknownName unknown_ = FAILS;
  DataObjectMetaInfo const *type_ = nullptr;
  int index_ = -1;
};

// A name cut at its dots: sections, and last what is asked for in their elements. Short ones allocate nothing.
class AggregateFunctions::Path {
 public:
  explicit Path(Text name, Step::UnknownName unknown = Step::FAILS) {
    makeRoom(dotsIn(name) + 1);
    add(name, unknown, false);
  }
  // The sections of `path` in front of the name.
  Path(Text name, Text path) {
    tvstring const sections = TextFunctions::trim(path);
    makeRoom(dotsIn(sections) + dotsIn(name) + 2);
    if (!sections.empty()) add(sections, Step::FAILS, true);
    add(name, Step::FAILS, false);
  }
  Path(Path const &) = delete;
  Path &operator=(Path const &) = delete;

  // Calls visit(part, step) with each collection at the path's end, and its last step; true as soon as that is.
  template <class Visit>
  bool walk(Collection collection, Visit const &visit) {
    return walk(collection, steps_.first(used_), SKIP_EMPTY, visit);
  }
  // The same, but true also for a null or empty nested section on the way.
  template <class Visit>
  bool walkOrFindEmpty(Collection collection, Visit const &visit) {
    return walk(collection, steps_.first(used_), FIND_EMPTY, visit);
  }
  // What the worker answers for the parts, added up.
  template <class Total, class Worker>
  Total addUp(Collection collection, Worker const &worker) {
    Total total = 0;
    walk(collection, [&](Collection part, Step &last) {
      total += worker(part, last);
      return false;
    });
    return total;
  }
  template <class Better, class Worker>
  int bestInt(Collection collection, int start, Worker const &worker) {
    walk(collection, [&](Collection part, Step &last) {
      start = std::min(start, worker(part, last), Better());
      return false;
    });
    return start;
  }
  // Parts without a number are passed over; raises LocalInitializationException with the text if all are such.
  template <class Better, class Worker>
  double bestDouble(Collection collection, char const *otherwise, Worker const &worker) {
    std::optional<double> best;
    walk(collection, [&](Collection part, Step &last) {
      std::optional<double> const number = worker(part, last);
      if (number) takeBetter<Better>(best, *number);
      return false;
    });
    if (!best) raise<LocalInitializationException>(tvstringliteral(otherwise), SOURCE);
    return *best;
  }

 private:
  enum EmptySections { SKIP_EMPTY, FIND_EMPTY };

  static size_t dotsIn(Text name) {
    return static_cast<size_t>(std::count(name.data(), name.data() + name.length(), '.'));
  }
  void makeRoom(size_t count) {
    if (count > near_.size()) far_.resize(count);
    steps_ = count > near_.size() ? std::span<Step>(far_) : std::span<Step>(near_);
  }
  // In a list of sections blanks behind a dot don't count, and nothing follows a dot at the end.
  void add(tvstring rest, Step::UnknownName unknown, bool areSections) {
    for (size_t dot = rest.find('.'); dot != tvstring::npos; dot = rest.find('.')) {
      steps_[used_++].setName(rest.substr(0, dot), unknown);
      rest = rest.substr(dot + 1);
      if (!areSections) continue;
      rest = TextFunctions::trimLeft(rest);
      if (rest.empty()) return;
    }
    steps_[used_++].setName(rest, unknown);
  }

  template <class Visit>
  static bool walk(Collection collection, std::span<Step> steps, EmptySections empty, Visit const &visit) {
    if (steps.size() == 1) return visit(collection, steps[0]);
    return steps[0].findElement(collection, [&](DataObject &element, int index) {
      DataObjectSection *nested = nestedSection(element, index);
      return isEmpty(nested) ? empty == FIND_EMPTY : walk(nested, steps.subspan(1), empty, visit);
    });
  }

  std::array<Step, 4> near_;
  std::vector<Step> far_;
  std::span<Step> steps_;
  size_t used_ = 0;
};

// One level.

int AggregateFunctions::simpleFieldCount(Collection collection, Step &field) {
  return field.countFields(collection, AnyValue());
}
int AggregateFunctions::simpleFieldValueCount(Collection collection, Step &field, Text value) {
  return field.countFields(collection, EqualText{value});
}
bool AggregateFunctions::simpleCheckFieldExistence(Collection collection, Step &field) {
  return field.findField(collection, AnyValue());
}
bool AggregateFunctions::simpleCheckFieldExistenceInAll(Collection collection, Step &field) {
  return field.areAllFields(collection, AnyValue());
}
bool AggregateFunctions::simpleCheckFieldValueExistence(Collection collection, Step &field, Text value) {
  return field.findField(collection, EqualText{value});
}
bool AggregateFunctions::simpleCheckFieldValueExistenceInAll(Collection collection, Step &field, Text value) {
  return field.areAllFields(collection, EqualText{value});
}
bool AggregateFunctions::simpleCheckSecExistence(Collection collection, Step &section) {
  return section.findElement(collection, hasElements);
}
bool AggregateFunctions::simpleCheckSecExistenceInAll(Collection collection, Step &section) {
  return !section.findElement(collection, std::not_fn(hasElements));
}

int AggregateFunctions::simpleSecCount(Collection collection, Step &section) {
  long long count = 0;
  section.findElement(collection, [&](DataObject &element, int index) {
    count += secCount(nestedSection(element, index));
    return false;
  });
  return convertNumber<int>(count);
}
double AggregateFunctions::simpleSecSumDouble(Collection collection, Step &field) {
  double sum = 0;
  field.eachNumber<double>(collection, [&](double number) { sum += number; });
  return sum;
}

int AggregateFunctions::simpleSecMin0(Collection collection, Step &field) {
  return field.bestInt<std::less<>>(collection, INT_MAX);
}
int AggregateFunctions::simpleSecMax0(Collection collection, Step &field) {
  return field.bestInt<std::greater<>>(collection, INT_MIN);
}
std::optional<double> AggregateFunctions::simpleSecMinDouble0(Collection collection, Step &field) {
  return field.bestDouble<std::less<>>(collection);
}
std::optional<double> AggregateFunctions::simpleSecMaxDouble0(Collection collection, Step &field) {
  return field.bestDouble<std::greater<>>(collection);
}

// Along a path.

bool AggregateFunctions::checkFieldExistence(Collection collection, Path path) {
  return path.walk(collection, simpleCheckFieldExistence);
}
bool AggregateFunctions::checkFieldExistenceInAll(Collection collection, Path path) {
  return !path.walkOrFindEmpty(collection, std::not_fn(simpleCheckFieldExistenceInAll));
}
bool AggregateFunctions::checkFieldValueExistence(Collection collection, Path path, Text value) {
  return path.walk(collection,
                   [&](Collection part, Step &field) { return simpleCheckFieldValueExistence(part, field, value); });
}
bool AggregateFunctions::checkFieldValueExistenceInAll(Collection collection, Path path, Text value) {
  return !path.walkOrFindEmpty(collection, [&](Collection part, Step &field) {
    return !simpleCheckFieldValueExistenceInAll(part, field, value);
  });
}
bool AggregateFunctions::checkSecExistence(Collection collection, Path path) {
  return path.walk(collection, simpleCheckSecExistence);
}
bool AggregateFunctions::checkSecExistenceInAll(Collection collection, Path path) {
  return !path.walkOrFindEmpty(collection, std::not_fn(simpleCheckSecExistenceInAll));
}

int AggregateFunctions::secMin0(Collection collection, Path path) {
  return path.bestInt<std::less<>>(collection, INT_MAX, simpleSecMin0);
}
int AggregateFunctions::secMax0(Collection collection, Path path) {
  return path.bestInt<std::greater<>>(collection, INT_MIN, simpleSecMax0);
}
double AggregateFunctions::secMinDouble0(Collection collection, Path path) {
  return path.bestDouble<std::less<>>(collection, "Min value is not initialized.", simpleSecMinDouble0);
}
double AggregateFunctions::secMaxDouble0(Collection collection, Path path) {
  return path.bestDouble<std::greater<>>(collection, "Max value is not initialized.", simpleSecMaxDouble0);
}

// What formulas call.

int AggregateFunctions::fieldCount(Collection collection, Text name) {
  return convertNumber<int>(Path(name).addUp<long long>(collection, simpleFieldCount));
}
int AggregateFunctions::fieldValueCount(Collection collection, Text name, Text value) {
  return convertNumber<int>(Path(name).addUp<long long>(
      collection, [&](Collection part, Step &field) { return simpleFieldValueCount(part, field, value); }));
}
bool AggregateFunctions::fieldExistsInOne(Collection collection, Text name) {
  return fieldCount(collection, name) == 1;
}
bool AggregateFunctions::fieldExistsInAtMostOne(Collection collection, Text name) {
  return fieldCount(collection, name) < 2;
}
bool AggregateFunctions::fieldExistsInAtLeastOne(Collection collection, Text name) {
  return checkFieldExistence(collection, Path(name));
}
bool AggregateFunctions::fieldValueExistsInAtLeastOne(Collection collection, Text name, Text value) {
  return checkFieldValueExistence(collection, Path(name), value);
}

bool AggregateFunctions::fieldExistsInAll(Collection collection, Text name) {
  return checkFieldExistenceInAll(collection, Path(name));
}
bool AggregateFunctions::fieldExistsInAll(Collection collection, Text name, Text path) {
  return checkFieldExistenceInAll(collection, Path(name, path));
}
bool AggregateFunctions::fieldValueExistsInAll(Collection collection, Text name, Text value) {
  return checkFieldValueExistenceInAll(collection, Path(name), value);
}

int AggregateFunctions::secCount(Collection collection) {
  return collection == nullptr ? 0 : collection->getElementCount();
}
int AggregateFunctions::secCount(Collection collection, Text name) {
  return convertNumber<int>(Path(name, Step::IS_PASSED_OVER).addUp<long long>(collection, simpleSecCount));
}
bool AggregateFunctions::secExistsInOne(Collection collection, Text name) {
  return secCount(collection, name) == 1;
}
bool AggregateFunctions::secExistsInAtMostOne(Collection collection, Text name) {
  return secCount(collection, name) < 2;
}
bool AggregateFunctions::secExistsInAtLeastOne(Collection collection, Text name) {
  return checkSecExistence(collection, Path(name, Step::IS_PASSED_OVER));
}
bool AggregateFunctions::secExistsInAll(Collection collection, Text name) {
  return checkSecExistenceInAll(collection, Path(name));
}
bool AggregateFunctions::secExistsInAll(Collection collection, Text name, Text path) {
  return checkSecExistenceInAll(collection, Path(name, path));
}

double AggregateFunctions::secSumDouble(Collection collection, Text name) {
  return Path(name).addUp<double>(collection, simpleSecSumDouble);
}
int AggregateFunctions::secSum(Collection collection, Text name) {
  return convertNumber<int>(secSumDouble(collection, name));
}
double AggregateFunctions::secAvg(Collection collection, Text name) {
  double const sum = secSumDouble(collection, name);
  return sum == 0.0 ? 0.0 : sum / fieldCount(collection, name);
}

int AggregateFunctions::secMin(Collection collection, Text name) {
  int const least = secMin0(collection, Path(name));
  return least == INT_MAX ? 0 : least;
}
int AggregateFunctions::secMax(Collection collection, Text name) {
  int const greatest = secMax0(collection, Path(name));
  return greatest == INT_MIN ? 0 : greatest;
}
double AggregateFunctions::secMinDouble(Collection collection, Text name) {
  return orZero(collection, [&] { return secMinDouble0(collection, Path(name)); });
}
double AggregateFunctions::secMaxDouble(Collection collection, Text name) {
  return orZero(collection, [&] { return secMaxDouble0(collection, Path(name)); });
}

}  // namespace tavrone
