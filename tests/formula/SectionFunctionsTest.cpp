#include "tavrone/formula/SectionFunctions.h"

#include <gtest/gtest.h>

#include "tavrone/core/Wrappers.h"
#include "tavrone/dataobject/DataObjectSectionImpl.h"
#include "tavrone/dataobject/GenericDataObject.h"
#include "tavrone/dataobject/MetaInfo.h"

namespace tavrone {
namespace {

// Its fields come as wrappers: of a plain GenericDataObject they are read where they stand.
struct OtherRecord : GenericDataObject {
  using GenericDataObject::GenericDataObject;
};

TEST(SectionFunctions, SortWrappedValuesAsWhatTheyAre) {
  char const *names[] = {"Big", "Long", "Mixed"};
  char const *types[] = {"BigDecimal", "Long", "Double"};
  DataObjectMetaInfo type("Row", names, types, 3);
  DataObjectSectionImpl rows;
  long long const large = 1LL << 53;  // a double can't tell it from the next one
  for (int i : {1, 0, 2}) {
    DataObject *row = new OtherRecord(&rows, &type, false);
    rows.addElement(row);
    char const *const bigs[] = {"9", "10", "100"};
    row->setField(0, BigDecimalObject(bigs[i]));
    row->setField(1, LongObject(large + i));
    if (i == 1)
      row->setField(2, IntObject(1));
    else
      row->setField(2, DoubleObject(i));
  }
  for (char const *field : {"Big", "Long", "Mixed"}) {
    SectionFunctions::sort(&rows, field, false);
    EXPECT_EQ(SectionFunctions::values(&rows, "Big").toString(), "[100, 10, 9]") << field;
    SectionFunctions::sort(&rows, field, true);
    EXPECT_EQ(SectionFunctions::values(&rows, "Big").toString(), "[9, 10, 100]") << field;
    EXPECT_TRUE(SectionFunctions::isUnique(&rows, field)) << field;
  }
}

}  // namespace
}  // namespace tavrone
