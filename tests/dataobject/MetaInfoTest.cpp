#include "tavrone/dataobject/MetaInfo.h"

#include <gtest/gtest.h>

#include <memory>

#include "tavrone/core/DesignerTypes.h"
#include "tavrone/core/Exceptions.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

char const *NAMES[] = {"a", "2nd-Name", "rows", "part"};
char const *TYPES[] = {"Integer", "Price", "Section", "DataObject"};

TEST(MetaInfo, TablesGiveFieldsAndSections) {
  DataObjectMetaInfo const type("T", NAMES, TYPES, 4, {1});
  EXPECT_EQ(type.getFieldMetaInfo(1)->getKind(), FieldKind::OTHER);
  EXPECT_TRUE(!type.isSection(0) && type.getFieldMetaInfo(0)->isOptional());
  for (int section : {2, 3}) {
    auto const *field = dynamic_cast<SectionMetaInfo const *>(type.getFieldMetaInfo(section));
    ASSERT_NE(field, nullptr);
    EXPECT_TRUE(!field->isOptional() && field->getDataObjectMetaInfo() == nullptr);
    EXPECT_TRUE(field->getMinOccurs() == 0 && field->getMaxOccurs() == -1);
  }
  EXPECT_EQ(type.getFieldType(3), "DataObject");
  for (int i = 0; i < 4; ++i) EXPECT_EQ(type.isSynthesized(i), i == 1) << i;
  EXPECT_EQ(type.getFieldIndex("part"), 3);
  EXPECT_EQ(type.getMangledName("2nd-Name"), "F2nd_Name");
}

TEST(MetaInfo, UnknownFieldsFailOrGiveMinusOne) {
  DataObjectMetaInfo const type("T", NAMES, TYPES, 4);
  EXPECT_EQ(type.getFieldIndexIfExists("b"), -1);
  EXPECT_FAILURE(FieldNotFoundException, type.getFieldIndex("b"), "Field with name b not defined");
  EXPECT_FAILURE(FieldNotFoundException, type.getFieldName(4), "Field at index 4 not defined");
  EXPECT_FAILURE(FieldNotFoundException, type.isSection(-1), "Field at index -1 not defined");
  DataObjectMetaInfo const none("None", nullptr, nullptr, 0);
  EXPECT_EQ(none.getFieldCount(), 0);
}

TEST(MetaInfo, DerivedTypesGoOnBehindTheParentAndTheFirstOfANameWins) {
  char const *own[] = {"c", "a"};
  char const *ownTypes[] = {"String", "String"};
  DataObjectMetaInfo parent("P", NAMES, TYPES, 2);
  DataObjectMetaInfo const type("D", &parent, own, ownTypes, 2, {1});
  EXPECT_EQ(type.getFieldName(2), "c");
  EXPECT_EQ(type.getFieldMetaInfo(3)->getIndex(), 3);
  EXPECT_TRUE(type.isSynthesized(3) && !type.isSynthesized(1));
  EXPECT_EQ(type.getFieldIndex("a"), 0);
}

TEST(MetaInfo, ReadyFieldsAreClonedAndCopiesAreDeep) {
  DataObjectMetaInfo element("E", NAMES, TYPES, 1);
  FieldMetaInfo plain("x", DesignerTypes::LONG_TYPE, false);
  SectionMetaInfo rows(&element, "rows", 1, 3);
  EXPECT_TRUE(rows.isOptional());
  EXPECT_EQ(element.getParentSection(), &rows);
  FieldMetaInfo *fields[] = {&plain, &rows};
  auto type = std::make_unique<DataObjectMetaInfo>("T", fields, 2);
  EXPECT_EQ(plain.getIndex(), -1);
  DataObjectMetaInfo const copy(*type);
  type.reset();
  EXPECT_EQ(copy.getFieldMetaInfo("x")->getIndex(), 0);
  EXPECT_EQ(dynamic_cast<SectionMetaInfo *>(copy.getFieldMetaInfo(1))->getDataObjectMetaInfo(), &element);
}

TEST(MetaInfo, MangledNamesAreIdentifiers) {
  std::pair<char const *, char const *> const cases[] = {
      {"", ""}, {"_x", "_x"}, {"a b", "a_b"}, {"9", "F9"}, {"-", "F_"}, {"\xE9t\xE9", "F_t_"}, {"Ab_9", "Ab_9"}};
  for (auto const &[name, mangled] : cases) EXPECT_EQ(FieldMetaInfo::computeMangledName(name), mangled);
}

TEST(FieldMetaInfo, KeepsItsNameAndRefusesTheIndexMinusOne) {
  std::string name("transient");
  FieldMetaInfo field(tvstring(name.c_str()), "String", true);
  name.assign("overwritten");
  EXPECT_EQ(field.getName().data(), FieldMetaInfo("transient", "String", true).getName().data());
  field.setIndex(3);
  field.setIndex(5);
  EXPECT_FAILURE(TransformException, field.setIndex(-1), "Index fo the field transient is already set");
  EXPECT_EQ(field.getIndex(), 5);
}

}  // namespace
}  // namespace tavrone
