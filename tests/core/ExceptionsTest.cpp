#include "tavrone/core/Exceptions.h"

#include <gtest/gtest.h>

#include "tavrone/core/Class.h"
#include "tavrone/core/OwnedPointers.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/SmartPtr.h"
#include "tavrone/core/Wrappers.h"
#include "tavrone/dataobject/MetaInfo.h"
#include "tests/Cases.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

template <class E>
class ExceptionClasses : public testing::Test {};
using Classes =
    testing::Types<Exception, IllegalArgumentException, ClassNotFoundException, ClassCastException,
                   LocalInitializationException, InternalError, TransformException, UnhandledMessageException,
                   UnrecognizedMessageException, TransformRuntimeException, TransformNullValueException,
                   FieldNotFoundException, FieldTypeMismatchException, FieldNullException, NamingException,
                   SectionConstraintException, FieldParsingException, FCSParseException, FIXParsingException,
                   FIXWriterException, SIACCanonicalParsingException, SIACCanonicalWriterException>;
TYPED_TEST_SUITE(ExceptionClasses, Classes);

TYPED_TEST(ExceptionClasses, KeepsClassTextTraceCodeAndRecordInItsClone) {
  try {
    raiseCatalogued<TypeParam>("SRT178", "Legs", "cpp/Source", 12);
  } catch (Exception &e) {
    auto *record = dynamic_cast<TransformException *>(&e);
    if (record != nullptr) record->setErrorPhase("Input");
    SmartPtr<Object> const clone(e.clone());
    auto const &copy = *checkedCast<Exception>(clone.get());
    EXPECT_EQ(Class(typeid(copy)), Class(typeid(TypeParam)));
    EXPECT_EQ(copy.getMessage(), "No section with name 'Legs'.");
    EXPECT_EQ(copy.getTraceString(), "cpp/Source:12:");
    EXPECT_EQ(copy.toString(), record != nullptr ? e.toString() : tvstring(typeid(e).name()) + ":" + e.getMessage());
    EXPECT_EQ(copy.toString(), e.toString());
    EXPECT_EQ(record == nullptr ? "SRT38" : record->getErrorCode(), "SRT38");
  }
}

TEST(Exceptions, RaiseStampsTheCallersLine) {
  int const line = __LINE__ + 1;
  EXPECT_FAILURE(InternalError, raise<InternalError>("x", "cpp/Here"), "cpp/Here:" + std::to_string(line) + ":x");
  ExceptionTrace trace;
  trace.setFileName("cpp/Source");
  EXPECT_EQ(trace.getTraceString(), "");
}

TEST(Exceptions, NestACloneThatCopiesShare) {
  auto outer = std::make_unique<Exception>("outer");
  EXPECT_EQ(outer->getDetail(), nullptr);
  for (char const *text : {"first", "second"}) {
    TransformRuntimeException detail(text);
    outer->setDetail(detail);
  }
  Exception const *inner = outer->getDetail();
  outer->setDetail(*outer);
  Exception const copy(*outer);
  Exception assigned("other", new InternalError("dropped"));
  assigned = *outer;
  EXPECT_EQ(copy.getDetail(), outer->getDetail());
  outer.reset();
  EXPECT_EQ(assigned.getMessage(), "outer");
  EXPECT_EQ(assigned.getDetail()->getDetail(), inner);
  EXPECT_EQ(inner->getMessage(), "second");
  EXPECT_TRUE(typeid(*inner) == typeid(TransformRuntimeException));
}

TEST(TransformExceptions, AreFatalAndCascadableAndRenderTheirRecord) {
  TransformException e("a < b");
  EXPECT_TRUE(e.getCascadable());
  for (char const *null : {"Type", "FieldName", "FieldID"}) EXPECT_TRUE(e.isNull(null)) << null;
  e.setContextProperty("Key", "1 < 2");
  e.setErrorPhase("Input");
  char const *const xml =
      "<TransformException>\n\t<Message>a &lt; b</Message>\n\t<ErrorCode></ErrorCode>\n\t<Severity>fatal</Severity>\n"
      "\t<Cascadable>true</Cascadable>\n\t<Error-Phase>Input</Error-Phase>\n\t<Key>1 < 2</Key>\n"
      "</TransformException>\n";
  for (tvstring const &form : {e.toXMLString(), e.toXMLString(3), e.toXMLString(true), e.toString()})
    EXPECT_EQ(form, xml);
}

TEST(TransformExceptions, AreRecordsReadAndWrittenByIndex) {
  ExceptionDataObject record;
  for (int i = 0; i < record.getFieldCount(); ++i) {
    bool const text = record.getFieldType(i) == "String";
    EXPECT_TRUE(record.isNull(i));
    if (text)
      record.setField(i, record.getFieldName(i));
    else
      record.setField(i, BoolObject(true));
    EXPECT_EQ(record.getFieldVal(i)->toString(), text ? record.getFieldName(i) : tvstring("true"));
  }
  EXPECT_EQ(record.getType() + record.getMessage() + record.getErrorCode() + record.getSeverity() +
                record.getFFieldName() + record.getFieldID(),
            "TypeMessageErrorCodeSeverityFieldNameFieldID");
  EXPECT_FAILURE(TransformException, record.setField(0, IntObject(1)), "Cannot convert Integer to String");
  EXPECT_EQ(failureOf<FieldNotFoundException>([&] { record.setField(7, StringObject("x")); }).line, 223);
  TransformException const source("x");
  record = source;
  EXPECT_EQ(record.toXMLString(), source.toString());
}

TEST(TransformExceptions, KeepANullMessage) {
  TransformException const e{ExceptionDataObject()};
  TransformException const copy(e);
  SmartPtr<TransformException> const clone(checkedCast<TransformException>(e.clone()));
  for (TransformException const *null : {&e, &copy, const_cast<TransformException const *>(clone.get())}) {
    Failure const failure = failureOf<FieldNullException>([&] { null->getMessage(); });
    EXPECT_EQ(failure.text + std::to_string(failure.line), "Attempt to access field 'Message' with null value167");
  }
  EXPECT_EQ(failureOf<FieldNullException>([&] { TransformException("x").addAll(e); }).line, 167);
}

TEST(TransformExceptions, CarryOneRecord) {
  TransformException first("first");
  first.setContextProperty("Key", "1");
  FieldValidationException const second("second", "F1");
  TransformException sum("x");
  sum.addAll(first);
  sum.addAll(&second);
  EXPECT_EQ(sum.toString(), second.toString());

  std::vector<ExceptionDataObject *> list;
  EXPECT_EQ(TransformException(list).getMessage(), "No message");
  first.getExceptionsAsList(list);
  sum.getExceptionsAsList(list);
  EXPECT_EQ(TransformException(list).toString(), first.toString());
  ExceptionDataObject const &last = *list[1];
  EXPECT_TRUE(typeid(last) == typeid(ExceptionDataObject));
  EXPECT_EQ(last.getFFieldName(), "F1");
  deleteOwned(list);
}

TEST(TransformExceptions, KeepContextPropertiesThatAreNotEmpty) {
  TransformException e("x");
  EXPECT_EQ(e.getLine(), -1);
  e.setLine(0);
  e.setColumn(-7);
  EXPECT_EQ(words(e.getLine(), e.getColumn()), "0 -7");
  e.fillErrorType("Validation");
  e.fillErrorType("Mapping");
  e.setErrorPhase("Output");
  e.fillPhase("Input");
  EXPECT_EQ(e.getErrorType() + e.getPhase(), "ValidationOutput");
  for (char const *code : {"C1", ""}) {
    e.setInternalCode(code);
    EXPECT_EQ(e.getContextProperty(ExceptionObject::getINTERNAL_CODE()), code);
  }
  EXPECT_EQ(e.getContextProperties().size(), 4u);
}

TEST(TransformExceptions, SomeTakeMoreThanAText) {
  EXPECT_TRUE(FieldParsingException("bad", "F1").isNull("FieldName"));
  EXPECT_EQ(FieldValidationException("bad", "F1").getFFieldName(), "F1");
  FCSParseException line("bad");
  line.setFailedLine("the line");
  line.setLocation(3, 4);
  SmartPtr<FCSParseException> const copy(checkedCast<FCSParseException>(line.clone()));
  EXPECT_EQ(copy->getFailedLine(), "the line");
  FIXParsingException const again(line);
  EXPECT_EQ(again.toString(), line.toString());
  EXPECT_EQ(again.getColumn(), 4);
  // One count, whichever base counts.
  SmartPtr<TransformException> const failure(copy.get());
  SmartPtr<ExceptionDataObject> const record(copy.get());
  EXPECT_EQ(words(copy->getRefCount(), FCSParseException(*copy).getRefCount()), "3 0");
}

}  // namespace
}  // namespace tavrone
