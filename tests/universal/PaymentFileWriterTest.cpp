#include "examples/messages/PaymentFileWriter.h"

#include <gtest/gtest.h>

#include "tests/Text.h"

namespace examples {
namespace {

std::string written(PaymentFile &file) {
  PaymentFileWriter writer;
  TransformContext context;
  try {
    writer.writeData(&file, context);
  } catch (TransformException const &failure) {
    return str(failure.getFFieldName()) + ": " + str(failure.getMessage());
  }
  return str(writer.endMessage());
}

TEST(PaymentFileWriter, NamesTheFieldThatDoesNotFit) {
  SmartPtr<PaymentFile> const file(new PaymentFile);
  PaymentBatch &batch = file->section<"Batches">().add();
  EXPECT_EQ(written(*file), "Batches.ServiceClass: The mandatory field 'Batches.ServiceClass' is missing.");
  batch.set<"ServiceClass">(1000);
  EXPECT_EQ(written(*file), "Batches.ServiceClass: Cannot represent '1000' in 3 digits");
  batch.set<"ServiceClass">(200);
  batch.set<"EffectiveDate">(DateTime(2024, 3, 18, 0, 0, 0, 0));
  batch.set<"BatchNumber">(7);
  batch.set<"Reserved">(tvstring(32, 'x'));
  EXPECT_EQ(written(*file), "Batches.Reserved: Cannot represent '" + std::string(32, 'x') + "' in 31 characters");
}

}  // namespace
}  // namespace examples
