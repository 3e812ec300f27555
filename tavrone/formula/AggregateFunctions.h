#pragma once

#include <optional>

#include "tavrone/dataobject/DataObjectSection.h"

namespace tavrone {

// What formulas ask of the elements of a repeating section: how many have a field, whether one, some or all have it,
// and the sum, average and extremes of a numeric one. Keeps no state; borrows everything.
//
// A name is a field's, or a path "section.section.field" through nested sections: then the answer covers the elements
// of all nested sections together. A null nested section has no elements, and so has a null collection.
//
// A null field doesn't count. A numeric function passes over every field whose value is no NumberObject, BigDecimals
// among them. Texts are compared with the toString() of the field's value, byte by byte.
//
// Nothing fails on empty data. An unknown name raises FieldNotFoundException "Field with name <name> not defined" as
// soon as there is an element to ask; for secCount it counts 0. What a field's access raises passes through.
class TAVRONE_API AggregateFunctions {
  using Collection = DataObjectCollection *;
  using Section = DataObjectSection *;
  using Text = tvstring const &;

 public:
  // The elements with a non-null field, and of those the ones whose field's text equals the value.
  static int fieldCount(Collection collection, Text name);
  static int fieldValueCount(Collection collection, Text name, Text value);

  static bool fieldExistsInOne(Collection collection, Text name);
  static bool fieldExistsInAtMostOne(Collection collection, Text name);
  static bool fieldExistsInAtLeastOne(Collection collection, Text name);
  static bool fieldValueExistsInAtLeastOne(Collection collection, Text name, Text value);

  // True for an empty collection, false as soon as a nested section on the way is null or empty.
  static bool fieldExistsInAll(Collection collection, Text name);
  static bool fieldValueExistsInAll(Collection collection, Text name, Text value);
  // The same with the sections on the way apart, in `path`, where blanks around a name don't count; an empty path is
  // none.
  static bool fieldExistsInAll(Collection collection, Text name, Text path);

  // The elements, and the elements of the nested sections of that name.
  static int secCount(Collection collection);
  static int secCount(Collection collection, Text name);

  static bool secExistsInOne(Collection collection, Text name);
  static bool secExistsInAtMostOne(Collection collection, Text name);
  static bool secExistsInAtLeastOne(Collection collection, Text name);

  // Whether every element has a nested section with elements; otherwise as fieldExistsInAll.
  static bool secExistsInAll(Collection collection, Text name);
  static bool secExistsInAll(Collection collection, Text name, Text path);

  // The sum as a double; cut to an int, or the lowest int where it doesn't fit one.
  static double secSumDouble(Collection collection, Text name);
  static int secSum(Collection collection, Text name);
  // The sum over fieldCount, which also counts the fields that are no numbers; that is meant. 0.0 for a sum of 0.0.
  static double secAvg(Collection collection, Text name);

  // Read as ints. 0 for no number at all, and also for a minimum of 2147483647 or a maximum of -2147483648.
  static int secMin(Collection collection, Text name);
  static int secMax(Collection collection, Text name);
  // 0.0 for no number at all.
  static double secMinDouble(Collection collection, Text name);
  static double secMaxDouble(Collection collection, Text name);

  // clang-format off
  static int fieldCount(Section s, Text name) { return fieldCount(Collection{s}, name); }
  static int fieldValueCount(Section s, Text name, Text value) { return fieldValueCount(Collection{s}, name, value); }
  static bool fieldExistsInOne(Section s, Text name) { return fieldExistsInOne(Collection{s}, name); }
  static bool fieldExistsInAtMostOne(Section s, Text name) { return fieldExistsInAtMostOne(Collection{s}, name); }
  static bool fieldExistsInAtLeastOne(Section s, Text name) { return fieldExistsInAtLeastOne(Collection{s}, name); }
  static bool fieldValueExistsInAtLeastOne(Section s, Text name, Text value) { return fieldValueExistsInAtLeastOne(Collection{s}, name, value); }
  static bool fieldExistsInAll(Section s, Text name) { return fieldExistsInAll(Collection{s}, name); }
  static bool fieldExistsInAll(Section s, Text name, Text path) { return fieldExistsInAll(Collection{s}, name, path); }
  static bool fieldValueExistsInAll(Section s, Text name, Text value) { return fieldValueExistsInAll(Collection{s}, name, value); }
  static int secCount(Section s) { return secCount(Collection{s}); }
  static int secCount(Section s, Text name) { return secCount(Collection{s}, name); }
  static bool secExistsInOne(Section s, Text name) { return secExistsInOne(Collection{s}, name); }
  static bool secExistsInAtMostOne(Section s, Text name) { return secExistsInAtMostOne(Collection{s}, name); }
  static bool secExistsInAtLeastOne(Section s, Text name) { return secExistsInAtLeastOne(Collection{s}, name); }
  static bool secExistsInAll(Section s, Text name) { return secExistsInAll(Collection{s}, name); }
  static bool secExistsInAll(Section s, Text name, Text path) { return secExistsInAll(Collection{s}, name, path); }
  static double secSumDouble(Section s, Text name) { return secSumDouble(Collection{s}, name); }
  static int secSum(Section s, Text name) { return secSum(Collection{s}, name); }
  static double secAvg(Section s, Text name) { return secAvg(Collection{s}, name); }
  static int secMin(Section s, Text name) { return secMin(Collection{s}, name); }
  static int secMax(Section s, Text name) { return secMax(Collection{s}, name); }
  static double secMinDouble(Section s, Text name) { return secMinDouble(Collection{s}, name); }
  static double secMaxDouble(Section s, Text name) { return secMaxDouble(Collection{s}, name); }
  // clang-format on

 private:
  class Step;
  class Path;

  // One level: the elements of one collection, asked for the last step of a path.
  static int simpleFieldCount(Collection collection, Step &field);
  static int simpleFieldValueCount(Collection collection, Step &field, Text value);
  static bool simpleCheckFieldExistence(Collection collection, Step &field);
  static bool simpleCheckFieldExistenceInAll(Collection collection, Step &field);
  static bool simpleCheckFieldValueExistence(Collection collection, Step &field, Text value);
  static bool simpleCheckFieldValueExistenceInAll(Collection collection, Step &field, Text value);
  static bool simpleCheckSecExistence(Collection collection, Step &section);
  static bool simpleCheckSecExistenceInAll(Collection collection, Step &section);
  static int simpleSecCount(Collection collection, Step &section);
  static double simpleSecSumDouble(Collection collection, Step &field);
  static int simpleSecMin0(Collection collection, Step &field);
  static int simpleSecMax0(Collection collection, Step &field);
  // Nothing where there is no number.
  static std::optional<double> simpleSecMinDouble0(Collection collection, Step &field);
  static std::optional<double> simpleSecMaxDouble0(Collection collection, Step &field);

  // The same along a path: "existence" needs one element that passes, "in all" every one.
  static bool checkFieldExistence(Collection collection, Path path);
  static bool checkFieldExistenceInAll(Collection collection, Path path);
  static bool checkFieldValueExistence(Collection collection, Path path, Text value);
  static bool checkFieldValueExistenceInAll(Collection collection, Path path, Text value);
  static bool checkSecExistence(Collection collection, Path path);
  static bool checkSecExistenceInAll(Collection collection, Path path);
  static int secMin0(Collection collection, Path path);
  static int secMax0(Collection collection, Path path);
  // Raise LocalInitializationException "Min value is not initialized." or "Max value is not initialized." for no
  // number.
  static double secMinDouble0(Collection collection, Path path);
  static double secMaxDouble0(Collection collection, Path path);
};

}  // namespace tavrone
