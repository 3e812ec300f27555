#include "examples/orderdesk/Rejects.h"

#include "examples/orderdesk/TakeNumber.h"

namespace examples {

namespace {

constexpr std::string_view BEGIN = "#reject failures=";

}  // namespace

bool RejectHeader::begins(std::string_view file) {
  return file.starts_with(BEGIN);
}

std::string RejectHeader::toString() const {
  std::string text(BEGIN);
  text += std::to_string(failures) + " xml=" + std::to_string(xml) + " bytes=" + std::to_string(bytes) +
          " line=" + std::to_string(line) + " column=" + std::to_string(column) + " source=";
  for (char const c : source) text += static_cast<unsigned char>(c) < ' ' ? '?' : c;
  return text + "\n";
}

size_t RejectHeader::parse(std::string_view text) {
  size_t const end = text.find('\n');
  if (end == text.npos) return 0;
  std::string_view rest = text.substr(0, end);
  bool const hasNumbers = takeNumber(rest, BEGIN, failures) && takeNumber(rest, " xml=", xml) &&
                          takeNumber(rest, " bytes=", bytes) && takeNumber(rest, " line=", line) &&
                          takeNumber(rest, " column=", column);
  constexpr std::string_view SOURCE = " source=";
  if (!hasNumbers || bytes == 0 || !rest.starts_with(SOURCE)) return 0;
  source = rest.substr(SOURCE.size());
  return end + 1;
}

void writeReject(OutputFile &file, FileMessage const &message, std::vector<ExceptionDataObject *> const &failures) {
  std::string xml;
  for (ExceptionDataObject *failure : failures) {
    tvstring const text = failure->toXMLString();
    xml.append(text.data(), text.length());
  }
  RejectHeader const header{failures.size(), xml.size(),     message.bytes.size(),
                            message.line,    message.column, message.source};
  file.write(header.toString());
  file.write(xml);
  file.write(message.bytes);
  file.write("\n");
}

}  // namespace examples
