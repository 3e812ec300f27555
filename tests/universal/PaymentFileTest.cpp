#include <gtest/gtest.h>

#include "examples/messages/PaymentFileParser.h"
#include "examples/messages/PaymentFileWriter.h"
#include "tests/Text.h"

namespace examples {
namespace {

std::string padded(std::string const &line) {
  return line + std::string(94 - line.size(), ' ') + '\n';
}
std::string entry(char const *code, char const *amount, int trace) {
  return padded("6" + std::string(code) + "0710000111234             " + amount).substr(0, 78) + "0" +
         std::string(14, '0') + std::to_string(trace) + '\n';
}
std::vector<std::string> const FILE_LINES = {
    padded("1SENDER    RECEIVER  202403151430A"),
    padded("5ACME            COMPANY   200PAYROLL   20240318071000010000001"),
    entry("22", "0000001250", 1),
    entry("27", "0000000300", 2),
    padded("82000000020014200002000000000300000000001250COMPANY   071000010000001"),
    padded("9000001000000020014200002000000000300000000001250")};

// What a file gives under a handler that collects: its entries, then each failure as "line:column field text".
std::string parsed(std::vector<std::string> const &lines) {
  std::string file;
  for (std::string const &line : lines) file += line;
  PaymentFileParser parser;
  CascadingExceptionHandler handler;
  parser.exceptionHandler = &handler;
  TransformContext context;
  SmartPtr<ExternalObject> const object(parser.parse(Binary(file.data(), file.size()), context));
  int entries = 0;
  for (PaymentBatch const &batch : checkedCast<PaymentFile>(object->getData())->section<"Batches">())
    entries += batch.section<"Entries">().getElementCount();
  std::string shown = std::to_string(entries);
  for (ExceptionDataObject const *failure : handler.getExceptions())
    shown += '|' + std::to_string(failure->getLine()) + ':' + std::to_string(failure->getColumn()) + ' ' +
             (failure->isNull(5) ? "" : str(failure->getFFieldName()) + ' ') + str(failure->getMessage());
  deleteOwned(handler.getExceptions());
  return shown;
}
std::string parsedWith(size_t line, size_t at, std::string const &text) {
  std::vector<std::string> lines = FILE_LINES;
  lines[line].replace(at, text.size(), text);
  return parsed(lines);
}

// Columns count from the line break, so that they are one more in every line but the first.
TEST(PaymentFileParser, FindsEveryFailureOfAFileInOnePass) {
  EXPECT_EQ(parsed(FILE_LINES), "2");
  EXPECT_EQ(parsedWith(0, 21, "2024x"), "2|1:22 Created Cannot convert '2024x3151430' to a number");
  EXPECT_EQ(parsedWith(2, 1, "23"), "1|3:3 Batches.Entries.TransactionCode Unknown transaction code '23'");
  EXPECT_EQ(parsedWith(3, 29, "-"), "1|4:31 Batches.Entries.Amount Cannot convert '-000000300' to a number");
  EXPECT_EQ(parsedWith(4, 20, "1"),
            "2|5:22 Batches.Control.TotalDebit Found 100000000300, the records before give 300");
  EXPECT_EQ(parsedWith(5, 6, "2"), "2|6:3 BatchCount Found 2, the records before give 1");
  EXPECT_EQ(parsedWith(5, 60, "x").substr(0, 40), "2|6:51 Reserved Expected blanks, found '");
  EXPECT_EQ(parsedWith(4, 0, "6"),
            "2|5:3 Batches.Entries.TransactionCode Unknown transaction code '20'|"
            "6:2 Unexpected record type '9'");
  EXPECT_EQ(parsedWith(1, 0, "?").substr(0, 65), "2|2:2 Unexpected record type '?'|3:2 Unexpected record type '6'");
  EXPECT_EQ(parsed({FILE_LINES[0], FILE_LINES[1]}), "0|3:2 The file ends without a file control");
}

TEST(PaymentFileParser, StopsAtTheFirstFailureByDefault) {
  TransformContext context;
  EXPECT_THROW(PaymentFileParser().parse(Binary("1x\n2\n", 5), context), TransformException);
}

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
